#include "sheet_fixture.h"

#include "keywords/keyword_table.h"

namespace zn::test {

OPTITEM& DriverItems::AddStandard(BYTE publicId, LONG selection, DWORD flags) {
  OPTITEM item{};
  item.cbSize = sizeof item;
  item.DMPubID = publicId;
  item.Sel = selection;
  item.Flags = flags;
  item.pOptType = &twoStates_;
  EXPECT_LT(items_.size(), kMaxItems);
  return items_.emplace_back(item);
}

OPTITEM& DriverItems::AddKeyword(const char* keyword, LONG selection, DWORD defaultOption) {
  OPTITEM& item = AddStandard(0, selection);
  item.Level = 2;
  USERDATA& record = RecordOf(item);
  record.pKeyWordName = keywords_.emplace_back(keyword).data();
  record.dwReserved[0] = defaultOption;
  return item;
}

OPTITEM& DriverItems::AddKeyword(KeywordId id, LONG selection, DWORD defaultOption) {
  return AddKeyword(GetKeywordName(id), selection, defaultOption);
}

USERDATA& DriverItems::RecordOf(OPTITEM& item) {
  if (item.UserData == 0) {
    records_.push_back(
        {.dwSize = sizeof(USERDATA), .dwItemID = 0, .pKeyWordName = nullptr, .dwReserved = {}});
    item.UserData = reinterpret_cast<ULONG_PTR>(&records_.back());
  }
  return *reinterpret_cast<USERDATA*>(item.UserData);
}

StoredDevMode::StoredDevMode() {
  open.dmSize = sizeof open;
  open.dmSpecVersion = DM_SPECVERSION;
  open.dmDriverVersion = 0x0600;
  open.dmDriverExtra = sizeof driver + sizeof block;
  block.SetDefaults();
}

SheetTest::SheetTest() {
  sheet_->pPublicDM = &devMode_.open;
  sheet_->pDevMode = &devMode_.block;
  driver_.AddRef();
  sheet_->pOEMHelp.reset(&driver_);
  sheet_->poemuiobj = &driverObject_;
}

void SheetTest::TakeItems() {
  sheet_->pDrvOptItems = items_.All().data();
  sheet_->cDrvOptItems = static_cast<DWORD>(items_.All().size());
}

}  // namespace zn::test
