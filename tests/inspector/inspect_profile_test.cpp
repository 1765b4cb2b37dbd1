#include <map>

#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

using ::testing::ElementsAreArray;

// The whole answer, in which the texts that are not told are empty.
std::vector<std::string> Answer(const char* tray, const char* output, const char* punch,
                                const std::map<std::string, std::string>& texts = {}) {
  std::vector<std::string> lines = {tray, output, punch};
  for (const auto& [name, count] : {std::pair("paper", 20), std::pair("watermark", 100)}) {
    for (int i = 1; i <= count; ++i) {
      const std::string line = name + std::to_string(i);
      const auto text = texts.find(line);
      lines.push_back(line + '=' + (text != texts.end() ? text->second : ""));
    }
  }
  return lines;
}

TEST(InspectProfile, PrintsTheAnswersOfTheFile) {
  const TempFolder folder;
  const std::string file = folder.Write("device.cps",
                                        "HasOption_InputSlot=Manual\r\n"
                                        "HasOption_InputSlot=Tray2\r\n"
                                        "HasOption_CFinisher=true\r\n"
                                        "HasOption_ZNPunch=true\r\n"
                                        "CustomPaperName20=\x95\x5C a=b\r\n"
                                        "Watermark100= last\r\n");
  EXPECT_THAT(Lines(Inspect({"profile", file})),
              ElementsAreArray(Answer("tray=1 0 1 0 0 0 1", "output=1 0 0 1 1 0", "punch=1 1 1",
                                      {{"paper20", "\x95\x5C a=b"}, {"watermark100", " last"}})));
}

TEST(InspectProfile, MissingFilesCountAsEverythingInstalled) {
  const TempFolder folder;
  EXPECT_THAT(Lines(Inspect({"profile", folder.Path("none.cps")})),
              ElementsAreArray(Answer("tray=1 1 1 1 1 1 1", "output=1 1 1 1 1 0", "punch=1 1 1")));
}

}  // namespace
}  // namespace zn::test
