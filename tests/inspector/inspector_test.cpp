// Drives the real zninspect, which stands beside the test program.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "devmode/devmode.h"
#include "tests/support/temp_folder.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>
#endif

namespace zn::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

std::string Quoted(const std::string& word) {
  return '"' + word + '"';
}

#ifdef _WIN32

std::string Program() {
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).replace_filename("zninspect.exe").string();
}

// The command processor takes the outermost quotes away.
int Run(const std::string& line) {
  return std::system(Quoted(line).c_str());
}

#else

std::string Program() {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename("zninspect").string();
}

int Run(const std::string& line) {
  const int status = std::system(line.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

struct Outcome {
  int exitCode;
  std::string output;  // line ends are \n
  std::string error;
};

// The words must not hold quotes or end in a backslash.
Outcome RunInspector(const std::vector<std::string>& words) {
  const TempFolder folder;
  std::string line = Quoted(Program());
  for (const std::string& word : words) {
    line += ' ' + Quoted(word);
  }
  line += " >" + Quoted(folder.Path("out")) + " 2>" + Quoted(folder.Path("error"));
  Outcome outcome{Run(line), folder.Read("out"), folder.Read("error")};
  std::erase(outcome.output, '\r');
  std::erase(outcome.error, '\r');
  return outcome;
}

// The same for what must succeed: its output.
std::string Inspect(const std::vector<std::string>& words) {
  const Outcome outcome = RunInspector(words);
  EXPECT_EQ(outcome.exitCode, 0) << testing::PrintToString(words);
  EXPECT_EQ(outcome.error, "");
  return outcome.output;
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

TEST(Inspector, AnswersInOneLine) {
  const struct {
    std::vector<std::string> words;
    std::string answer;
  } rows[] = {
      {{"keyword", "NupBorder"}, "265 NupBorder"},
      {{"codes", "59"}, "10 9 8 7 6 5 4 3 2 1 0"},
      {{"codes", "4294967295"}, "0 1"},
      {{"restriction", "--group", "0"}, "allowed"},
      {{"restriction", "--group", "2", "ZNStaple=19", "ZNMixSizePrint=1"}, "refused 4102"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=1"}, "conflict ZNPunch"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNBookletFinishing=1"}, "conflict -"},
      {{"restriction", "--group", "5", "Duplex=1", "ZNMediaTypeBypass=5",
        "ZNMediaTypeWeightBypass=8"},
       "conflict Duplex"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=-2147483648"}, "allowed"},
  };
  for (const auto& [words, answer] : rows) {
    EXPECT_EQ(Inspect(words), answer + '\n') << testing::PrintToString(words);
  }
}

TEST(Inspector, RefusesInOneLineAndWritesNothing) {
  const TempFolder folder;
  const std::string block = folder.Path("block");
  EXPECT_EQ(Inspect({"devmode", "--default", block}), "");
  const std::string longer = folder.Write("long", folder.Read("block") + 'x');
  const std::string favorite = folder.Write("good.pfj", "1\n2\n");
  const std::string bad = folder.Write("bad.pfj", "12\n");
  const std::string out = folder.Path("out");
  const struct {
    int exitCode;  // 1: failed, 2: not understood
    std::vector<std::string> words;
  } rows[] = {
      {1, {"keyword", "collate"}},
      {1, {"devmode", "--default", folder.Path("no/such/folder")}},
      {1, {"favorite", bad, "--save", out}},
      {1, {"favorite", folder.Path("missing")}},
      {2, {}},
      {2, {"nonsense"}},
      {2, {"keyword", "Collate", "Duplex"}},
      {2, {"codes", "-1"}},
      {2, {"codes", "4294967296"}},
      {2, {"devmode", folder.Path("missing")}},
      {2, {"devmode", longer}},
      {2, {"devmode", "--unknown", out}},
      {2, {"devmode", "--convert", block, longer, out}},
      {2, {"devmode", "--merge", block, block}},
      {2, {"favorite", favorite, "--store", out}},
      {2, {"record", "--fresh"}},
      {2, {"profile"}},
      {2, {"restriction", "ZNStaple=9"}},
      {2, {"restriction", "--group", "6"}},
      {2, {"restriction", "--group", "2", "ZNStaple=1x"}},
      {2, {"restriction", "--group", "2", "Collate=1"}},
      {2, {"tables", "nonsense"}},
      {2, {"tables", "tags", "block"}},
  };
  for (const auto& [exitCode, words] : rows) {
    SCOPED_TRACE(testing::PrintToString(words));
    const Outcome outcome = RunInspector(words);
    EXPECT_EQ(outcome.exitCode, exitCode);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.error, StartsWith("zninspect: "));
    EXPECT_EQ(outcome.error.find('\n'), outcome.error.size() - 1);
    EXPECT_FALSE(std::filesystem::exists(out));
  }
}

std::string BytesOf(const CDevMode& block) {
  return {reinterpret_cast<const char*>(block.Bytes().data()), block.Bytes().size()};
}

TEST(Inspector, PrintsOffsetNameValueIdAndNoteOfEveryField) {
  const TempFolder folder;
  CDevMode block{};
  block.SetDefaults();
  block.SetDWord(devmode::kTiffDpi, 1201);
  block.SetText(devmode::kComment, "one\r\ntwo\tthree");
  std::memset(&block.Bytes()[devmode::kFavoriteName], 'x', 28);
  block.SetText(devmode::kJobOwnerPassword, "secret");
  block.SetText(devmode::kJobName, "\x95\x5c\x8e\x86");  // double-byte, a backslash as trail byte
  const auto lines = Lines(Inspect({"devmode", folder.Write("block", BytesOf(block))}));
  EXPECT_EQ(lines.size(), DevModeFields().size());
  EXPECT_THAT(lines, Contains("0\tsize of the block\t9328\t-"));
  EXPECT_THAT(lines, Contains("24\timage output resolution, dpi\t1201\t4302\toutside 1..1200"));
  EXPECT_THAT(lines, Contains("2160\tjob name\t\x95\x5c\x8e\x86\t-"));
  EXPECT_THAT(lines,
              Contains("2416\tfavourite name\t" + std::string(28, 'x') + "\t-\tnot terminated"));
  EXPECT_THAT(lines, Contains("9149\tjob owner password\t(6 bytes)\t-"));
  EXPECT_THAT(lines, Contains("2444\tcomment\tone\\r\\ntwo\\tthree\t-\thas control characters"));

  for (const char byte : {'\n', '\xFF'}) {
    const std::string path = folder.Write("block", std::string(kDevModeSize, byte));
    const std::string hostile = Inspect({"devmode", path});
    EXPECT_EQ(Lines(hostile).size(), DevModeFields().size());
    EXPECT_THAT(hostile, HasSubstr("expected 9328"));
  }
}

TEST(Inspector, ConvertAndMergeWriteTheDestination) {
  const TempFolder folder;
  CDevMode source{};
  source.SetDefaults();
  source.SetDWord(devmode::kTiffDpi, 0);
  const std::string from = folder.Write("source", BytesOf(source));
  EXPECT_EQ(Inspect({"devmode", "--default", folder.Path("to")}), "");
  for (const auto& [operation, resolution] :
       {std::pair("--convert", 0), std::pair("--merge", 600)}) {
    EXPECT_EQ(Inspect({"devmode", operation, from, folder.Path("to"), folder.Path("result")}), "");
    EXPECT_THAT(Inspect({"devmode", folder.Path("result")}),
                HasSubstr("image output resolution, dpi\t" + std::to_string(resolution) + '\t'));
  }
}

constexpr std::string_view kFavorite =
    "12\n-7\n5\nComment=spring fair\n"
    "EXT_NUP=4\t\tPG_PPSIZE=7\t\tEXT_PGSIZE=5\t\tPG_PTYPE=0\t\tNEW_TAG=x\t\tMEMO_CMT=a\x1B[2J\t\t"
    "SP_FMPAS=secret\t\t"
    "OUT_PPSWM=12.34\t\tCBS_PG=5\t\t\nPageSize=A3 wide\n";

TEST(Inspector, PrintsAFavoritesEntryThenBothTables) {
  const TempFolder folder;
  const std::string output = Inspect({"favorite", folder.Write("x.pfj", kFavorite)});
  EXPECT_THAT(output,
              StartsWith("number1=12\nnumber2=-7\nnumber3=5\ncomment=spring fair\n"
                         "page_size=A3 wide\nEXT_PGSIZE=5\nEXT_ORIENTATION=0\nEXT_NUP=4\n"));
  // The paper size is PG_PPSIZE in this list, whatever the file's item of that name says.
  EXPECT_THAT(output, HasSubstr("\nPG_RTEXT=\nPG_PPSIZE=5\nPG_PPSIZEX=0.0\nPG_PPSIZEY=0.0\n"
                                "PG_PSIZE=7\n"));
  EXPECT_THAT(output, HasSubstr("\nOUT_PPSWM=12.3\n"));
  EXPECT_THAT(output, HasSubstr("\nMEMO_CMT=a\\x1B[2J\n"));
  EXPECT_THAT(output, HasSubstr("\nSP_FMPAS=(6 bytes)\n"));
  EXPECT_EQ(Lines(output).size(), 5 + 13 + 534U);
  EXPECT_EQ(Inspect({"record", "--default"}),
            Inspect({"favorite", folder.Write("fresh.pfj", "0\n0\n")}));
}

TEST(Inspector, SavesAFavoriteOverAFileAndKeepsItsUnknownItems) {
  const TempFolder folder;
  const std::string from = folder.Write("from.pfj", kFavorite);
  const std::string over = folder.Write("over.pfj", "1\n2\nOLD=1\t\tEXT_NUP=9\t\t\n");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Inspect({"favorite", from, "--save", over}), "");
    EXPECT_THAT(
        folder.Read("over.pfj"),
        StartsWith("12\n-7\n5\nComment=spring fair\nOLD=1\t\tEXT_NUP=4\t\tEXT_PGSIZE=5\t\t"));
  }
}

TEST(Inspector, PrintsTheAnswersOfAProfile) {
  const TempFolder folder;
  const auto lines = Lines(Inspect({"profile", folder.Write("device.cps",
                                                            "HasOption_InputSlot=Manual\r\n"
                                                            "HasOption_InputSlot=Tray2\r\n"
                                                            "HasOption_CFinisher=true\r\n"
                                                            "HasOption_ZNPunch=true\r\n"
                                                            "CustomPaperName20=\x95\x5C a=b\r\n"
                                                            "Watermark100= last\x1B[2J\r\n")}));
  ASSERT_EQ(lines.size(), 3 + 20 + 100U);
  EXPECT_EQ(lines[0], "tray=1 0 1 0 0 0 1");
  EXPECT_EQ(lines[1], "output=1 0 0 1 1 0");
  EXPECT_EQ(lines[2], "punch=1 1 1");
  EXPECT_EQ(lines[3], "paper1=");
  EXPECT_EQ(lines[22], "paper20=\x95\x5C a=b");
  EXPECT_EQ(lines[122], "watermark100= last\\x1B[2J");
}

}  // namespace
}  // namespace zn::test
