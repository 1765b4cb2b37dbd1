// Drives the real zninspect, which stands beside the test program.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <nlohmann/json.hpp>
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
using Json = nlohmann::json;

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

// The objects of what is told as JSON Lines.
std::vector<Json> InspectJson(std::vector<std::string> words, int exitCode = 0) {
  words.insert(words.begin() + 1, "--json");
  const Outcome outcome = RunInspector(words);
  EXPECT_EQ(outcome.exitCode, exitCode) << testing::PrintToString(words);
  EXPECT_EQ(outcome.error, "");
  std::vector<Json> objects;
  for (const std::string& line : Lines(outcome.output)) {
    objects.push_back(Json::parse(line));
  }
  return objects;
}

std::string BytesOf(const CDevMode& block) {
  return {reinterpret_cast<const char*>(block.Bytes().data()), block.Bytes().size()};
}

constexpr std::string_view kFavorite =
    "12\n-7\n5\nComment=\x95\x5c\x8e\x86\n"  // double-byte, a backslash as trail byte
    "EXT_NUP=4\t\tOUT_BOTH=1\t\tPG_PPSIZE=7\t\tEXT_PGSIZE=5\t\tNEW_TAG=x\t\tOT_HRLNW=0.5\t\t"
    "MEMO_CMT=a\x1B\x7F\xFF\t\tSP_FMPAS=secret\t\tOT_USEICUP=secret\t\tOUT_PPSWM=12.34\t\t"
    "CBS_PG=5\t\t\nPageSize=A3 wide\n";

TEST(Inspector, AnswersInText) {
  const struct {
    std::vector<std::string> words;
    std::string answer;
  } rows[] = {
      {{"keyword", "Duplex", "330"},
       "id=6\nkeyword=Duplex\nlabel=両面\n0\t0\tNone\n1\t1\tDuplexNoTumble\n2\t-\tDuplexTumble\n"
       "id=330\nkeyword=\nlabel=\n0\t0\t-\n1\t1\t-\n2\t2\t-\n"},
      {{"restriction", "--group", "0"}, "verdict=allowed\n"},
      {{"restriction", "--group", "ZNStaple", "ZNStaple=19", "ZNMixSizePrint=True"},
       "verdict=refused\nmessage=4102\n"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=1"},
       "verdict=conflict\nother=ZNPunch\n"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNBookletFinishing=1"},
       "verdict=conflict\nother=\n"},
      {{"restriction", "--group", "5", "Duplex=1", "ZNMediaTypeBypass=5",
        "ZNMediaTypeWeightBypass=8"},
       "verdict=conflict\nother=Duplex\n"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=-2147483648"}, "verdict=allowed\n"},
  };
  for (const auto& [words, answer] : rows) {
    EXPECT_EQ(Inspect(words), answer) << testing::PrintToString(words);
  }
  EXPECT_THAT(Inspect({"--help"}), HasSubstr("diff A B"));
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
      {1, {"keyword", "265x"}},
      {1, {"keyword", "4294967296"}},
      {1, {"devmode", "--default", folder.Path("no/such/folder")}},
      {1, {"devmode", folder.Path("missing")}},
      {1, {"devmode", longer}},
      {1, {"devmode", "--convert", block, longer, out}},
      {1, {"favorite", bad, "--save", out}},
      {1, {"favorite", folder.Path("missing")}},
      {1, {"profile", folder.Path("missing")}},
      {2, {"diff", favorite, bad}},
      {2, {"diff", favorite}},
      {2, {}},
      {2, {"nonsense"}},
      {2, {"devmode", "--unknown", out}},
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

TEST(Inspector, TellsOffsetNameValueIdAndNoteOfEveryField) {
  const TempFolder folder;
  CDevMode block{};
  block.SetDefaults();
  block.SetDWord(devmode::kTiffDpi, 1201);
  block.SetText(devmode::kComment, "one\r\ntwo\tthree");
  std::memset(&block.Bytes()[devmode::kFavoriteName], 'x', 28);
  block.SetText(devmode::kJobOwnerPassword, "secret");
  block.SetText(devmode::kJobName, "\x95\x5c\x8e\x86");
  const auto lines = Lines(Inspect({"devmode", folder.Write("block", BytesOf(block))}));
  EXPECT_EQ(lines.size(), 1 + DevModeFields().size());
  EXPECT_THAT(lines, Contains("0\tsize of the block\t9328\t-\t-"));
  EXPECT_THAT(lines, Contains("24\timage output resolution, dpi\t1201\t4302\toutside 1..1200"));
  EXPECT_THAT(lines, Contains("2160\tjob name\t表紙\t-\t-"));
  EXPECT_THAT(lines,
              Contains("2416\tfavourite name\t" + std::string(28, 'x') + "\t-\tnot terminated"));
  EXPECT_THAT(lines, Contains("9149\tjob owner password\t(6 bytes)\t-\t-"));
  EXPECT_THAT(lines, Contains("2444\tcomment\tone\\r\\ntwo\\tthree\t-\thas control characters"));

  for (const char byte : {'\n', '\xFF'}) {
    const auto hostile =
        InspectJson({"devmode", folder.Write("block", std::string(kDevModeSize, byte))});
    ASSERT_EQ(hostile.size(), 1U);
    EXPECT_EQ(hostile[0]["fields"].size(), DevModeFields().size());
    EXPECT_EQ(hostile[0]["fields"][0]["note"], "expected 9328");
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

TEST(Inspector, TellsAFavoritesHeadItsSettingsByNameAndAllItems) {
  const TempFolder folder;
  const std::string path = folder.Write("x.pfj", kFavorite);
  const Json favorite = InspectJson({"favorite", path}).at(0);
  EXPECT_EQ(favorite["number2"], -7);
  EXPECT_EQ(favorite["comment"], "表紙");
  EXPECT_EQ(favorite["page_size"], "A3 wide");
  const Json& settings = favorite["settings"];
  EXPECT_EQ(settings["Duplex"], "DuplexNoTumble");
  EXPECT_EQ(settings["ZNColorQRWarning"], "False");
  EXPECT_EQ(settings["memo text"], favorite["items"]["MEMO_CMT"]);
  EXPECT_FALSE(settings.contains("Scale"));  // not specified
  const Json& items = favorite["items"];
  EXPECT_EQ(items.size(), 13 + 534U);
  // The paper size is PG_PPSIZE in this list, whatever the file's item of that name says.
  EXPECT_EQ(items["PG_PPSIZE"], 5);
  EXPECT_EQ(items["PG_PSIZE"], 7);
  EXPECT_EQ(items["OUT_PPSWM"], 12.3);
  EXPECT_EQ(items["SP_FMPAS"], "(6 bytes)");
  EXPECT_EQ(items["OT_USEICUP"], "(6 bytes)");

  const std::string text = Inspect({"favorite", path});
  EXPECT_THAT(text, HasSubstr("\nsettings.Duplex=DuplexNoTumble\n"));
  EXPECT_THAT(text, HasSubstr("\nitems.MEMO_CMT=a\\x1B\\x7F"));
  EXPECT_EQ(text.find("secret"), text.npos);

  Json fresh = InspectJson({"favorite", folder.Write("fresh.pfj", "0\n0\n")}).at(0);
  fresh.erase("file");
  EXPECT_EQ(InspectJson({"record", "--default"}), std::vector{fresh});
}

TEST(Inspector, SavesAFavoriteOverAFileAndKeepsItsUnknownItems) {
  const TempFolder folder;
  const std::string from = folder.Write("from.pfj", "12\n-7\n5\nComment=x\nEXT_NUP=4\t\t\n");
  const std::string over = folder.Write("over.pfj", "1\n2\nOLD=1\t\tEXT_NUP=9\t\t\n");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Inspect({"favorite", from, "--save", over}), "");
    EXPECT_THAT(folder.Read("over.pfj"),
                StartsWith("12\n-7\n5\nComment=x\nOLD=1\t\tEXT_NUP=4\t\t"));
  }
}

TEST(Inspector, TellsSettingBySettingWhatDiffers) {
  const TempFolder folder;
  std::string other(kFavorite);
  other.replace(other.find("OUT_BOTH=1"), 10, "OUT_BOTH=2");
  other.replace(other.find("=secret"), 7, "=longer secret");
  const std::string a = folder.Write("a.pfj", kFavorite);
  const std::string b = folder.Write("b.pfj", other);
  CDevMode values{};
  values.SetDefaults();
  const std::string block = folder.Write("block", BytesOf(values));
  values.SetDWord(devmode::kTiffDpi, 300);
  values.SetText(devmode::kJobName, "n");
  values.SetText(devmode::kJobOwnerPassword, "secret");
  const std::string changed = folder.Write("changed", BytesOf(values));
  const struct {
    std::string a, b, lines;
  } rows[] = {
      {a, a, ""},
      {block, block, ""},
      {a, b, "Duplex\tDuplexNoTumble\tDuplexTumble\nform password\t(6 bytes)\t(13 bytes)\n"},
      {block, changed,
       "image output resolution, dpi\t600\t300\njob name\t-\tn\n"
       "job owner password\t-\t(6 bytes)\n"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = RunInspector({"diff", row.a, row.b});
    EXPECT_EQ(outcome.exitCode, row.lines.empty() ? 0 : 1);
    EXPECT_EQ(outcome.output, row.lines);
  }
  // Of a favourite and a block that which applying the one would change in the other.
  const Json mixed = InspectJson({"diff", block, a}, 1).at(0)["differences"];
  EXPECT_THAT(mixed, Contains(Json{{"name", "poster width, S, tenths"}, {"a", 0.0}, {"b", 12.3}}));
  EXPECT_THAT(mixed, Contains(Json{{"name", "QR warning threshold"}, {"a", 128}, {"b", 0}}));
  EXPECT_EQ(mixed.size(), 4U);
}

TEST(Inspector, TakesFoldersAndGoesOnAfterBadInputs) {
  const TempFolder folder;
  folder.Write("2.PFJ", "2\n0\n");
  folder.Write("1.pfj", "1\n0\n");
  folder.Write("3.pfj", "bad");
  folder.Write("4.txt", "4\n0\n");
  const std::vector<std::string> words{"favorite", folder.Path(), folder.Path("4.txt")};
  const auto objects = InspectJson(words, 1);
  ASSERT_EQ(objects.size(), 4U);
  EXPECT_EQ(objects[0]["number1"], 1);
  EXPECT_EQ(objects[1]["number1"], 2);
  EXPECT_TRUE(objects[2].contains("error"));
  EXPECT_EQ(objects[3]["number1"], 4);
  const Outcome text = RunInspector(words);
  EXPECT_EQ(text.exitCode, 1);
  EXPECT_EQ(Lines(text.error).size(), 1U);
  EXPECT_THAT(text.output, HasSubstr("\nnumber1=4\n"));

  EXPECT_EQ(InspectJson({"devmode", "--default", folder.Path("block")}).size(), 1U);
  EXPECT_EQ(InspectJson({"devmode", folder.Path()}).size(), 1U);
  EXPECT_EQ(InspectJson({"tables"}).size(), 10U);
  EXPECT_EQ(InspectJson({"keyword", "Duplex"}).at(0)["options"][1]["name"], "DuplexNoTumble");
  EXPECT_EQ(InspectJson({"restriction", "--group", "1"}).at(0)["verdict"], "refused");
}

TEST(Inspector, TellsTheAnswersOfAProfile) {
  const TempFolder folder;
  folder.Write("device.cps",
               "HasOption_InputSlot=Manual\r\nHasOption_InputSlot=Tray2\r\n"
               "HasOption_CFinisher=true\r\nHasOption_ZNPunch=true\r\n"
               "CustomPaperName20=\x95\x5C a=b\r\nWatermark100= last\x1B[2J\r\n");
  EXPECT_THAT(Lines(Inspect({"profile", folder.Path()})).size(), 1 + 7 + 5 + 1 + 2U);
  const Json profile = InspectJson({"profile", folder.Path()}).at(0);
  EXPECT_EQ(profile["tray"], Json::parse(R"({"AutoSelect": true, "Tray1": false, "Tray2": true,
      "Tray3": false, "Tray6": false, "Tray7": false, "Manual": true})"));
  EXPECT_EQ(profile["output"]["フィニッシャートレイ"], true);
  EXPECT_EQ(profile["punch"], true);
  EXPECT_EQ(profile["paper"], Json({{"20", "表 a=b"}}));
  EXPECT_EQ(profile["watermark"], Json({{"100", " last\x1B[2J"}}));
}

#ifdef ZN_SAMPLE_PPD

// The sample printer description with `from` replaced.
std::string Changed(std::string_view from, std::string_view to) {
  const std::filesystem::path sample(ZN_SAMPLE_PPD);
  std::ifstream file(sample, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

TEST(Inspector, HoldsAPrinterDescriptionAgainstTheTables) {
  const TempFolder folder;
  const std::string staple = "*UIConstraints: *ZNStaple Option1 *ZNPunch ";
  const struct {
    std::string from, to;
    std::vector<std::string> findings;  // those that make it not fit
  } rows[] = {
      {"", "", {}},
      {"ZNFold",
       "ZNFolder",
       {"unknown to the plug-in ZNFolder", "missing in the description ZNFold"}},
      {"*ZNFold Option10/", "*%", {"options and codes differ in number ZNFold"}},
      {"*CloseGroup: ZN", staple + "Option2\n" + staple + "Option4\n*CloseGroup: ZN", {}},
      {"*CloseGroup: ZN", staple + "Option1\n*CloseGroup: ZN", {"constraint not checked ZNStaple"}},
      {"*CloseGroup: ZN",
       "*UIConstraints: *Duplex *ZNFold\n*CloseGroup: ZN",
       {"constraint not checked Duplex"}},
  };
  for (const auto& [from, to, findings] : rows) {
    SCOPED_TRACE(to);
    const std::string path =
        folder.Write("x.ppd", from.empty() ? Changed("\1", "") : Changed(from, to));
    const Json fit = InspectJson({"ppd", path}, findings.empty() ? 0 : 1).at(0);
    EXPECT_EQ(fit["fits"], findings.empty());
    std::vector<std::string> found;
    bool isRuleUnstated = false;
    for (const Json& row : fit["findings"]) {
      if (row["finding"] == "rule of the plug-in only") {
        isRuleUnstated |= row["option"] == "Option1" && row["other"] == "ZNPunch" &&
                          row["other_option"] == Json({"Option2", "Option4"});
      } else {
        found.push_back(row["finding"].get<std::string>() + ' ' +
                        row["keyword"].get<std::string>());
      }
    }
    EXPECT_EQ(found, findings);
    EXPECT_EQ(isRuleUnstated, to.find("Option4") == to.npos);
  }
  EXPECT_TRUE(
      InspectJson({"ppd", folder.Write("bad.ppd", "no description")}, 1)[0].contains("error"));
}

#endif

}  // namespace
}  // namespace zn::test
