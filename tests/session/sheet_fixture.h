// A sheet as the core driver hands it over: option items with their feature records, a full
// DEVMODE, and a helper interface that records what it is told.
#pragma once

#include "platform/driver_interfaces.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/driver_private_devmode.h"
#include "session/session.h"
#include "session/sheet_context.h"

namespace zn::test {

class FakeDriverUI final : public IPrintOemDriverUI {
 public:
  struct Update {
    OPTITEM* item;
    DWORD previous;
    DWORD mode;
    PVOID context;
  };

  ~FakeDriverUI() { EXPECT_EQ(references_, 1u); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID, PCSTR, PVOID, DWORD, PDWORD,
                                                PDWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE, PCSTR, PCSTR) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID pOptItem, DWORD dwPreviousSelection,
                                               DWORD dwMode) override {
    updates.push_back({static_cast<OPTITEM*>(pOptItem), dwPreviousSelection, dwMode, pci});
    return answer;
  }

  std::vector<Update> updates;
  HRESULT answer = S_OK;

 private:
  ULONG references_ = 1;
};

// The core driver's option items; references to them stay good.
class DriverItems {
 public:
  DriverItems() {
    items_.reserve(kMaxItems);
    twoStates_.cbSize = sizeof twoStates_;
    twoStates_.Type = TVOT_2STATES;
    twoStates_.Count = 2;
  }

  // A standard item; without a feature record unless `defaultOption` is given.
  OPTITEM& AddStandard(BYTE publicId, LONG selection, DWORD flags = 0);
  // A keyword item of the printer description.
  OPTITEM& AddKeyword(const char* keyword, LONG selection, DWORD defaultOption = 0);
  OPTITEM& AddKeyword(KeywordId id, LONG selection, DWORD defaultOption = 0);
  // The feature record of an item, made when it has none.
  USERDATA& RecordOf(OPTITEM& item);

  [[nodiscard]] std::vector<OPTITEM>& All() { return items_; }

 private:
  static constexpr std::size_t kMaxItems = 400;

  std::vector<OPTITEM> items_;
  std::deque<USERDATA> records_;
  std::deque<std::string> keywords_;
  OPTTYPE twoStates_{};
};

struct StoredDevMode {
  DEVMODEW open{};
  DriverPrivateDevMode driver{};
  CDevMode block{};

  StoredDevMode();
  [[nodiscard]] std::span<const std::byte> Bytes() const {
    return std::as_bytes(std::span(this, 1));
  }
};
static_assert(sizeof(StoredDevMode) ==
              sizeof(DEVMODEW) + sizeof(DriverPrivateDevMode) + kDevModeSize);

// The core driver's private part with every value set.
inline constexpr DriverPrivateDevMode kUsedDriverPart = {.flags = 0xF7,
                                                         .noBorder = 1,
                                                         .psOutputOption = 2,
                                                         .trueTypeFontDownload = 3,
                                                         .customPaperWidth = 100'000,
                                                         .customPaperHeight = 150'000,
                                                         .customPaperDirection = 1,
                                                         .psLanguageLevel = 2,
                                                         .reserved = 0};

class SheetTest : public testing::Test {
 protected:
  SheetTest();

  // Hands the items over; the tests add them first.
  void TakeItems();
  [[nodiscard]] CSession Session() { return CSession(sheet_.get()); }

  DriverItems items_;
  StoredDevMode devMode_;
  FakeDriverUI driver_;
  OEMUIOBJ driverObject_{};
  std::unique_ptr<SheetContext> sheet_ = std::make_unique<SheetContext>();
};

}  // namespace zn::test
