#include "host/driver/option_items.h"

#include <cstring>

#include "keywords/keyword_table.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using host::OptionChange;
using host::OptionItems;
using host::QueueDevMode;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

class OptionItemsTest : public HostTest {
 protected:
  static const USERDATA& Data(const OPTITEM& item) {
    return *reinterpret_cast<const USERDATA*>(item.UserData);
  }
  static auto Change(const char* keyword, const char* before, const char* after) {
    return AllOf(Field(&OptionChange::keyword, keyword), Field(&OptionChange::before, before),
                 Field(&OptionChange::after, after));
  }
};

TEST_F(OptionItemsTest, KeywordItemsStandLastAtLevelTwo) {
  const QueueDevMode defaults = Defaults();
  OptionItems items(queue_->Description(), defaults);
  KeywordId id = KW_FIRST_STANDARD;
  const OPTITEM* item = items.Data() + items.Count();
  while (id-- > 0) {
    --item;
    ASSERT_EQ(item->Level, 2);
    ASSERT_STREQ(Data(*item).pKeyWordName, GetKeywordName(id));
    ASSERT_EQ(item->DMPubID, DMPUB_NONE);
    ASSERT_EQ(item->Sel, static_cast<LONG>(Data(*item).dwReserved[0])) << "default of " << id;
  }
  EXPECT_NE((item - 1)->Level, 2);
}

TEST_F(OptionItemsTest, ChangesAreToldOnceAndStored) {
  QueueDevMode devmode = Defaults();
  OptionItems items(queue_->Description(), devmode);
  EXPECT_THAT(items.ChangesSince(devmode), IsEmpty());
  items.Find("%Copies")->Sel = 12;
  items.Find("%Copies")->Flags |= OPTIF_ECB_CHECKED;
  items.Find("Duplex")->Sel = 2;  // the standard item; the keyword's own stays behind
  items.Find("ZNFold")->Sel = 1;
  const auto changes =
      ElementsAre(Change("%Copies", "1", "12"), Change("Duplex", "None", "DuplexTumble"),
                  Change("Collate", "False", "True"), Change("ZNFold", "Option0", "Option1"));
  EXPECT_THAT(items.ChangesSince(devmode), changes);
  const QueueDevMode before = devmode;
  items.StoreTo(devmode);
  EXPECT_EQ(devmode.Public().dmCopies, 12);
  EXPECT_EQ(devmode.Public().dmCollate, DMCOLLATE_TRUE);
  OptionItems again(queue_->Description(), devmode);
  EXPECT_THAT(again.ChangesSince(before), changes);
}

TEST_F(OptionItemsTest, ForeignDevModesAreRefused) {
  const QueueDevMode devmode = Defaults();
  const std::string bytes(devmode.Bytes());
  EXPECT_TRUE(QueueDevMode::FromBytes(bytes));
  EXPECT_FALSE(QueueDevMode::FromBytes(bytes.substr(1)));
  EXPECT_FALSE(QueueDevMode::FromBytes(bytes + '\0'));
  EXPECT_FALSE(QueueDevMode::FromBytes(""));
  for (const std::size_t at : {offsetof(DEVMODEW, dmSize), offsetof(DEVMODEW, dmDriverExtra),
                               sizeof(DEVMODEW) + offsetof(host::PrivatePart, items)}) {
    std::string damaged = bytes;
    damaged[at] = static_cast<char>(damaged[at] + 1);
    EXPECT_FALSE(QueueDevMode::FromBytes(damaged)) << at;
  }
}

}  // namespace
}  // namespace zn::test
