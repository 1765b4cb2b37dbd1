#include <cstring>

#include "devmode/devmode.h"
#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

std::string BytesOf(const CDevMode& block) {
  return {reinterpret_cast<const char*>(block.Bytes().data()), block.Bytes().size()};
}

CDevMode DefaultedBlock() {
  CDevMode block{};
  block.SetDefaults();
  return block;
}

TEST(InspectDevMode, PrintsOffsetNameValueIdAndNote) {
  const TempFolder folder;
  CDevMode block = DefaultedBlock();
  block.SetDWord(devmode::kTiffDpi, 1201);
  block.SetText(devmode::kComment, "one\r\ntwo\tthree");
  std::memset(&block.Bytes()[devmode::kFavoriteName], 'x', 28);
  block.SetText(devmode::kJobName, "\x95\x5c\x8e\x86");  // double-byte, a backslash as trail byte
  const auto lines = Lines(Inspect({"devmode", folder.Write("block", BytesOf(block))}));
  EXPECT_EQ(lines.size(), DevModeFields().size());
  EXPECT_THAT(lines, Contains("0\tsize of the block\t9328\t-"));
  EXPECT_THAT(lines, Contains("24\timage output resolution, dpi\t1201\t4302\toutside 1..1200"));
  EXPECT_THAT(lines, Contains("2160\tjob name\t\x95\x5c\x8e\x86\t-"));
  EXPECT_THAT(lines,
              Contains("2416\tfavourite name\t" + std::string(28, 'x') + "\t-\tnot terminated"));
  EXPECT_THAT(lines, Contains("2444\tcomment\tone\\r\\ntwo\\tthree\t-\thas control characters"));
}

TEST(InspectDevMode, NotesExactlyTheDefaultsThatMergingChanges) {
  const TempFolder folder;
  EXPECT_EQ(Inspect({"devmode", "--default", folder.Path("block")}), "");
  std::vector<std::string> noted;
  for (const std::string& line : Lines(Inspect({"devmode", folder.Path("block")}))) {
    if (line.find("outside") != std::string::npos) {
      noted.push_back(line.substr(0, line.find('\t')));
    }
  }
  EXPECT_EQ(noted, (std::vector<std::string>{"9244", "9248", "9320"}));
}

TEST(InspectDevMode, HostileBlockKeepsOneLinePerField) {
  const TempFolder folder;
  for (const char byte : {'\n', '\xFF', 'x', '\0'}) {
    const std::string path = folder.Write("block", std::string(kDevModeSize, byte));
    const std::string output = Inspect({"devmode", path});
    EXPECT_EQ(Lines(output).size(), DevModeFields().size());
    EXPECT_THAT(output, HasSubstr("expected 9328"));
  }
}

TEST(InspectDevMode, ConvertAndMergeWriteTheDestination) {
  const TempFolder folder;
  const struct {
    const char* operation;
    std::uint32_t version;
    std::uint32_t resolution;
    const char* jobName;
  } rows[] = {{"--convert", kDevModeVersion, 0, "from the source"},
              {"--merge", kDevModeVersion, 600, "from the source"},
              {"--convert", 1, 600, ""}};  // another version's block is not read
  for (const auto& [operation, version, resolution, jobName] : rows) {
    SCOPED_TRACE(operation + std::to_string(version));
    CDevMode source = DefaultedBlock();
    source.SetDWord(devmode::kVersion, version);
    source.SetDWord(devmode::kTiffDpi, 0);
    source.SetText(devmode::kJobName, "from the source");
    EXPECT_EQ(
        Inspect({"devmode", operation, folder.Write("source", BytesOf(source)),
                 folder.Write("destination", BytesOf(DefaultedBlock())), folder.Path("result")}),
        "");
    CDevMode result{};
    const std::string bytes = folder.Read("result");
    ASSERT_EQ(bytes.size(), kDevModeSize);
    std::memcpy(&result, bytes.data(), kDevModeSize);
    EXPECT_EQ(result.GetTiffDPI(), resolution);
    EXPECT_EQ(result.GetText(devmode::kJobName), jobName);
  }
}

}  // namespace
}  // namespace zn::test
