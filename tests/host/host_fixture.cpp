#include "tests/host/host_fixture.h"

#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <array>

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
  ::SetDlgItemTextA(page, edit, text);
}

std::string TextOf(HWND page, int control) {
  std::array<char, 1024> text{};
  ::GetDlgItemTextA(page, control, text.data(), static_cast<int>(text.size()));
  return text.data();
}

}  // namespace zn::test
