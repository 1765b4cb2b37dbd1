#include "pages/pages.h"

#include <array>

#include "pages/standardpage.h"
#include "pages/traypage.h"
#include "pages/watermarkpage.h"
#include "platform/boundary.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

// Builds a fresh page object for the message. No exception leaves it.
template <class Page, auto... kConstants>
INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return GuardedOr(INT_PTR{0}, [&] {
    Page page(window, &ThePlugInContext(), kConstants...);
    // Not an operation of the page: their slots are fixed.
    if (message == WM_SETCURSOR) {
      page.OnMouse(Page::Table());
    }
    return INT_PTR{static_cast<int>(page.DlgProc(message, wParam, lParam))};
  });
}

constexpr std::array<PageDefinition, kDialogPageCount> kPages{{
    {IDD_BASIC_PAGE, &PageProc<CStandardPageDlg>},
    {IDD_TRAY_PAGE, &PageProc<CTrayPageDlg>},
    {IDD_WATERMARK_PAGE, &PageProc<CWatermarkPageDlg, CWatermarkPageDlg::kLimits>},
    {IDD_JOB_PAGE, &PageProc<CCommonDlg>},
}};

}  // namespace

const PageDefinition* DialogPages() noexcept {
  return kPages.data();
}

}  // namespace zn
