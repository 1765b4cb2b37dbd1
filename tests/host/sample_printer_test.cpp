// The sample printer agrees with itself and with the plug-in's keyword table: printer description,
// code lists and the companion's texts.
#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <array>

#include "bridge/companion.h"
#include "keywords/keyword_table.h"
#include "platform/resources.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

class SamplePrinterTest : public HostTest {
 protected:
  // The bridge in this program finds the names of the companion in the DLL's resources.
  SamplePrinterTest() { SetModuleInstance(plugIn_->Module()); }
};

// Keywords whose number of options in the printer description is not that of the code list.
std::size_t DescribedOptions(KeywordId id) {
  return id == KW_DUPLEX ? 3 : GetOptionCodeList(id).size();
}
// Keywords of which the companion names more options than the printer description has.
std::size_t NamedOptions(KeywordId id, std::size_t described) {
  return id == KW_PUNCH ? 16 : id == KW_WMSELECTION ? 100 : described;
}

TEST_F(SamplePrinterTest, KeywordsHaveTheirOptionsAndTexts) {
  const CompanionModule companion(queue_->Handle());
  ASSERT_TRUE(companion);
  for (KeywordId id = 0; id < KW_FIRST_STANDARD; ++id) {
    SCOPED_TRACE(GetKeywordName(id));
    const host::Feature* feature = queue_->Description().Find(GetKeywordName(id));
    ASSERT_NE(feature, nullptr);
    EXPECT_EQ(feature->options.size(), DescribedOptions(id));
    EXPECT_EQ(companion.GetKeywordTranslation(id), feature->label);
    EXPECT_EQ(companion.GetKeywordOptionCount(id), NamedOptions(id, feature->options.size()));
    const auto texts =
        companion.GetKeywordOptionString(id, static_cast<std::uint32_t>(feature->options.size()));
    for (std::size_t i = 0; i < texts.size(); ++i) {
      ASSERT_EQ(texts[i], feature->options[i].text) << "option " << i;
    }
  }
}

TEST_F(SamplePrinterTest, CompanionLabelsWhatThePagesShowBesides) {
  const CompanionModule companion(queue_->Handle());
  for (std::uint32_t id = KW_FIRST_STANDARD; id <= companion_label::kPaperColor; ++id) {
    const bool labelled = id < KW_MAX || id >= 338;
    EXPECT_EQ(companion.GetKeywordTranslation(id).empty(), !labelled) << id;
  }
}

TEST_F(SamplePrinterTest, SpoolerOffersTheFormsByTheirNames) {
  const host::Feature* sizes = queue_->Description().Find("PageSize");
  ASSERT_NE(sizes, nullptr);
  using FormName = std::array<char, 64>;
  std::array<FormName, 64> names{};
  ASSERT_EQ(::DeviceCapabilitiesA(queue_->Name().c_str(), "FILE:", DC_PAPERNAMES, nullptr, nullptr),
            43);
  ::DeviceCapabilitiesA(queue_->Name().c_str(), "FILE:", DC_PAPERNAMES, names.front().data(),
                        nullptr);
  for (std::size_t i = 0; i < sizes->options.size(); ++i) {
    EXPECT_EQ(std::string(names[i].data()), sizes->options[i].text);
  }
}

}  // namespace
}  // namespace zn::test
