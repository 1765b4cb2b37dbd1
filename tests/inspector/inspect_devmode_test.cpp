#include <gmock/gmock.h>

#include <cstring>

#include "oemps/devmode.h"
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

CDevMode BlockIn(const TemporaryFolder& folder, std::string_view name) {
  CDevMode block{};
  const std::string bytes = folder.Read(name);
  EXPECT_EQ(bytes.size(), kDevModeSize);
  std::memcpy(&block, bytes.data(), std::min<std::size_t>(bytes.size(), kDevModeSize));
  return block;
}

TEST(InspectDevMode, PrintsOffsetNameValueIdAndNote) {
  const TemporaryFolder folder;
  CDevMode block = DefaultedBlock();
  block.SetDWord(devmode::kTiffDpi, 1201);
  block.SetText(devmode::kComment, "one\r\ntwo\tthree");
  std::memset(&block.Bytes()[devmode::kFavoriteName], 'x', 28);
  block.SetText(devmode::kJobName, "\x95\x5c\x8e\x86");  // double-byte, a backslash as trail byte
  const Outcome outcome = RunInspector({"devmode", folder.Write("block", BytesOf(block))});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.error, "");
  const std::vector<std::string> lines = Lines(outcome.output);
  EXPECT_EQ(lines.size(), DevModeFields().size());
  EXPECT_THAT(lines, Contains("0\tsize of the block\t9328\t-"));
  EXPECT_THAT(lines, Contains("24\timage output resolution, dpi\t1201\t4302\toutside 1..1200"));
  EXPECT_THAT(lines, Contains("2160\tjob name\t\x95\x5c\x8e\x86\t-"));
  EXPECT_THAT(lines,
              Contains("2416\tfavourite name\t" + std::string(28, 'x') + "\t-\tnot terminated"));
  EXPECT_THAT(lines, Contains("2444\tcomment\tone\\r\\ntwo\\tthree\t-\thas control characters"));
}

TEST(InspectDevMode, NotesExactlyTheDefaultsThatMergingChanges) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunInspector({"devmode", "--default", folder.Path("block")}).exitCode, 0);
  std::vector<std::string> noted;
  for (const std::string& line : Lines(RunInspector({"devmode", folder.Path("block")}).output)) {
    if (line.find("outside") != std::string::npos) {
      noted.push_back(line.substr(0, line.find('\t')));
    }
  }
  EXPECT_EQ(noted, (std::vector<std::string>{"9244", "9248", "9320"}));
}

TEST(InspectDevMode, HostileBlockKeepsOneLinePerField) {
  const TemporaryFolder folder;
  for (const char byte : {'\n', '\xFF', 'x', '\0'}) {
    const std::string path = folder.Write("block", std::string(kDevModeSize, byte));
    const Outcome outcome = RunInspector({"devmode", path});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(Lines(outcome.output).size(), DevModeFields().size());
    EXPECT_THAT(outcome.output, HasSubstr("expected 9328"));
  }
}

TEST(InspectDevMode, ConvertAndMergeWriteTheDestination) {
  const TemporaryFolder folder;
  CDevMode source = DefaultedBlock();
  source.SetDWord(devmode::kTiffDpi, 0);
  source.SetText(devmode::kJobName, "from the source");
  folder.Write("source", BytesOf(source));
  folder.Write("destination", BytesOf(DefaultedBlock()));
  struct Row {
    const char* operation;
    std::uint32_t resolution;
  };
  for (const Row& row : {Row{"--convert", 0}, Row{"--merge", 600}}) {
    SCOPED_TRACE(row.operation);
    const Outcome outcome = RunInspector({"devmode", row.operation, folder.Path("source"),
                                          folder.Path("destination"), folder.Path("result")});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.output + outcome.error, "");
    const CDevMode result = BlockIn(folder, "result");
    EXPECT_EQ(result.GetTiffDPI(), row.resolution);
    EXPECT_EQ(result.GetText(devmode::kJobName), "from the source");
  }
}

TEST(InspectDevMode, OtherVersionConvertsNothing) {
  const TemporaryFolder folder;
  CDevMode source = DefaultedBlock();
  source.SetDWord(devmode::kVersion, 1);
  source.SetDWord(devmode::kTiffDpi, 300);
  const std::string destination = BytesOf(DefaultedBlock());
  EXPECT_EQ(RunInspector({"devmode", "--convert", folder.Write("source", BytesOf(source)),
                          folder.Write("destination", destination), folder.Path("result")})
                .exitCode,
            0);
  EXPECT_EQ(folder.Read("result"), destination);
}

TEST(InspectDevMode, RefusesWhatItCannotRead) {
  const TemporaryFolder folder;
  const std::string good = folder.Write("good", BytesOf(DefaultedBlock()));
  const std::string shorter = folder.Write("short", std::string(kDevModeSize - 1, 'x'));
  const std::string longer = folder.Write("long", std::string(kDevModeSize + 1, 'x'));
  const std::string missing = folder.Path("missing");
  const std::string result = folder.Path("result");
  const std::vector<std::vector<std::string>> rows = {
      {"devmode"},
      {"devmode", "--default"},
      {"devmode", "--unknown", result},
      {"devmode", good, good},
      {"devmode", missing},
      {"devmode", shorter},
      {"devmode", longer},
      {"devmode", "--convert", good, result},
      {"devmode", "--convert", shorter, good, result},
      {"devmode", "--convert", good, longer, result},
      {"devmode", "--merge", good, missing, result},
  };
  for (const std::vector<std::string>& words : rows) {
    const Outcome outcome = RunInspector(words);
    EXPECT_EQ(outcome.exitCode, 2) << testing::PrintToString(words);
    EXPECT_TRUE(outcome.IsOneLineError()) << outcome.error;
  }
  EXPECT_FALSE(folder.Has("result"));
}

TEST(InspectDevMode, UnwritableResultIsAFailure) {
  const TemporaryFolder folder;
  const Outcome outcome = RunInspector({"devmode", "--default", folder.Path("no/such/folder")});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_TRUE(outcome.IsOneLineError()) << outcome.error;
}

}  // namespace
}  // namespace zn::test
