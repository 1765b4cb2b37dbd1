#include "tests/host/host_fixture.h"

#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <array>
#include <sstream>

#include "host/base/files.h"
#include "platform/handles.h"

namespace zn::test {

namespace {
const std::string kQueueName = "ZN Host Test";
}  // namespace

void HostTest::SetUpTestSuite() {
  host::InstallQueue(kQueueName);
}

void HostTest::TearDownTestSuite() {
  PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
  HANDLE opened = nullptr;
  if (::OpenPrinterA(const_cast<char*>(kQueueName.c_str()), &opened, &access)) {
    const UniquePrinter printer(opened);
    ::DeletePrinter(opened);
  }
}

HostTest::HostTest()
    : queue_(std::make_unique<host::Queue>(kQueueName)),
      plugIn_(std::make_unique<host::PlugIn>(host::ProgramFolder() + "Zn55psu1.dll")) {}

HostTest::~HostTest() = default;

host::QueueDevMode HostTest::Defaults() const {
  // Merged once, so that the block's repaired defaults are not a change of the sheet.
  host::QueueDevMode defaults(queue_->WideName());
  host::OptionItems::SetDefaults(queue_->Description(), defaults);
  plugIn_->FillBlock(queue_->Handle(), defaults, nullptr);
  return host::DocumentSheet::StartDevMode(*plugIn_, *queue_, &defaults);
}

std::unique_ptr<host::DocumentSheet> HostTest::Open(const host::QueueDevMode& start) const {
  auto sheet = std::make_unique<host::DocumentSheet>(*plugIn_, *queue_, start);
  sheet->Open();
  return sheet;
}

void Choose(HWND page, int list, int index) {
  const HWND control = ::GetDlgItem(page, list);
  ASSERT_NE(control, nullptr) << "control " << list;
  ::SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::SendMessageA(page, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(control));
}

void Click(HWND page, int button) {
  ASSERT_NE(::GetDlgItem(page, button), nullptr) << "control " << button;
  ::SendDlgItemMessageA(page, button, BM_CLICK, 0, 0);
}

void Enter(HWND page, int edit, const char* text) {
  ASSERT_NE(::GetDlgItem(page, edit), nullptr) << "control " << edit;
  // By message, so that the sheets of other processes can be worked, too.
  ::SendDlgItemMessageA(page, edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

std::string TextOf(HWND page, int control) {
  std::array<char, 1024> text{};
  ::SendDlgItemMessageA(page, control, WM_GETTEXT, text.size(),
                        reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

std::string TreeItemText(HWND tree, HTREEITEM node) {
  std::array<char, 256> text{};
  TVITEMA item{};
  item.mask = TVIF_TEXT | TVIF_HANDLE;
  item.hItem = node;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  ::SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  return text.data();
}

std::vector<std::string> Lines(const std::string& report, const std::string& word) {
  std::vector<std::string> lines;
  std::istringstream text(report);
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with(word + " ")) {
      lines.push_back(line.substr(word.size() + 1));
    }
  }
  return lines;
}

}  // namespace zn::test
