#include "host/driver/printer_description.h"

#include "gmock/gmock.h"

namespace zn::test {
namespace {

using host::PrinterDescription;

TEST(PrinterDescriptionTest, ReadsFeaturesInOrderWithOptionsAndDefault) {
  const PrinterDescription description(
      "*PPD-Adobe: \"4.3\"\r\n"
      "*DefaultFont: Courier\r\n"
      "*OpenUI *Duplex/Both sides: PickOne\r\n"
      "*OrderDependency: 50 AnySetup *Duplex\r\n"
      "*DefaultDuplex: DuplexTumble\r\n"
      "*Duplex None/Off: \"<</Duplex false>>setpagedevice\"\r\n"
      "*Duplex DuplexTumble/Short edge: \"\"\r\n"
      "*CloseUI: *Duplex\r\n"
      "*Duplex Late/Outside: \"\"\r\n"
      "*OpenUI *ZNFold: PickOne\n"
      "*ZNFold Option0: \"a:b/c\"\n"
      "*CloseUI: *ZNFold\n");
  ASSERT_EQ(description.Features().size(), 2u);
  const auto& [duplex, fold] = std::tie(description.Features()[0], description.Features()[1]);
  EXPECT_EQ(duplex.keyword, "Duplex");
  EXPECT_EQ(duplex.label, "Both sides");
  ASSERT_EQ(duplex.options.size(), 2u);
  EXPECT_EQ(duplex.options[1].name, "DuplexTumble");
  EXPECT_EQ(duplex.options[1].text, "Short edge");
  EXPECT_EQ(duplex.defaultOption, 1u);
  EXPECT_EQ(fold.label, "ZNFold");  // no translation: the name itself
  ASSERT_EQ(fold.options.size(), 1u);
  EXPECT_EQ(fold.options[0].text, "Option0");
  EXPECT_EQ(fold.defaultOption, 0u);
  EXPECT_EQ(description.Find("ZNFold"), &fold);
  EXPECT_EQ(description.Find("znfold"), nullptr);
}

TEST(PrinterDescriptionTest, BrokenSectionsDoNoHarm) {
  for (const char* text :
       {"", "*OpenUI *", "*OpenUI *X/Y", "*OpenUI *X: PickOne\n*X", "*CloseUI: *X",
        "*OpenUI *X: PickOne\n*DefaultX: Missing\n*CloseUI: *X\n"}) {
    const PrinterDescription description(text);
    for (const host::Feature& feature : description.Features()) {
      EXPECT_EQ(feature.defaultOption, 0u) << text;
    }
  }
  EXPECT_FALSE(PrinterDescription::ReadFile("C:\\no such folder\\x.ppd"));
}

}  // namespace
}  // namespace zn::test
