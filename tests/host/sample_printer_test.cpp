// The sample printer agrees with itself and with the plug-in's keyword table: printer description,
// code lists and the companion's texts.
#include "bridge/companion.h"
#include "keywords/keyword_table.h"
#include "platform/resources.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using SamplePrinterTest = HostTest;

// Keywords whose number of options in the printer description is not that of the code list.
std::size_t DescribedOptions(KeywordId id) {
  return id == KW_DUPLEX ? 3 : GetOptionCodeList(id).size();
}
// Keywords of which the companion names more options than the printer description has.
std::size_t NamedOptions(KeywordId id, std::size_t described) {
  return id == KW_PUNCH ? 16 : id == KW_WMSELECTION ? 100 : described;
}

TEST_F(SamplePrinterTest, KeywordsHaveTheirOptionsAndTexts) {
  SetModuleInstance(plugIn_->Module());  // the bridge finds the companion's names there
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

}  // namespace
}  // namespace zn::test
