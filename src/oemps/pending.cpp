// Stands in for the pages until src/pages/pages.cpp is there.
#include "pages/pages.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

template <int kPage>
INT_PTR CALLBACK EmptyPage(HWND, UINT, WPARAM, LPARAM) {
  return 0;
}

}  // namespace

const PageDefinition* DialogPages() noexcept {
  static constexpr PageDefinition kPages[kDialogPageCount] = {
      {IDD_BASIC_PAGE, &EmptyPage<1>},
      {IDD_TRAY_PAGE, &EmptyPage<2>},
      {IDD_WATERMARK_PAGE, &EmptyPage<3>},
      {IDD_JOB_PAGE, &EmptyPage<4>},
  };
  return kPages;
}

COMPROPSHEETUI* PrepareAdvancedTree(SheetContext&) noexcept {
  static COMPROPSHEETUI tree{};
  return &tree;
}

void ReleasePageResources(SheetContext&) noexcept {}

}  // namespace zn
