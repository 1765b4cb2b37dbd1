// The question of the restriction check and the loop that the pages run on it. The message box, the
// spooler's driver information and the companion module are replaced.
#include "pages/restriction_question.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fake_driver_path.h"
#include "japanese.h"
#include "message_boxes.h"
#include "platform/resources.h"

namespace zn {
namespace {

using test::MessageBoxes;
using ::testing::SizeIs;
using namespace restriction;

bool companionInstalled;

HMODULE WINAPI FakeLoadLibrary(LPCSTR path) {
  return companionInstalled && std::string_view(path).starts_with("C:\\d\\")
             ? ::GetModuleHandleA("kernel32.dll")
             : nullptr;
}

// Labels and option names that say what was asked for; one option name is far too long.
int FakeLabel(int* id, char* text, unsigned long size) {
  return std::snprintf(text, size, "K%d", *id);
}

int FakeOption(int* id, char* text, unsigned long size, int* index) {
  if (*index == 21) {
    return std::snprintf(text, size, "%s", ("xx" + std::string(100, '\x83')).c_str());
  }
  return std::snprintf(text, size, "O%d.%d", *id, *index);
}

FARPROC WINAPI FakeGetProcAddress(HMODULE, LPCSTR name) {
  const std::string_view function(name);
  return function.starts_with("?GetPrintOptionStringList@") ? reinterpret_cast<FARPROC>(&FakeOption)
         : function.starts_with("?GetPrintOptionString@")   ? reinterpret_cast<FARPROC>(&FakeLabel)
                                                            : nullptr;
}

using Settings = std::vector<std::pair<KeywordId, std::uint32_t>>;

constexpr UINT kQuestion = MB_OKCANCEL | MB_ICONEXCLAMATION;
constexpr UINT kStatement = MB_OK | MB_ICONEXCLAMATION;
constexpr char kOnOnly[] =
    "選択した設定はサイズ混在原稿をプリントするが有効の場合のみ指定可能です。";
const Settings kConflict{{KW_STAPLE, 9}, {KW_PUNCH, 1}, {KW_PUNCHHOLES, 2}};

class RestrictionQuestionTest : public ::testing::Test {
 protected:
  RestrictionQuestionTest() {
    SetModuleInstance(self_);
    test::FakeDriverPath::path = "C:\\d\\driver.dll";
    companionInstalled = true;
  }

  void Set(const Settings& settings, const Settings& defaults = {}) {
    *sheet_ = {};
    for (const auto& [id, selection] : settings) {
      sheet_->SetCurrent(id, selection);
    }
    for (const auto& [id, selection] : defaults) {
      sheet_->options[id].defaultSelection = selection;
    }
  }

  std::unique_ptr<SheetContext> sheet_ = std::make_unique<SheetContext>();

 private:
  HMODULE self_ = ::GetModuleHandleA(nullptr);
  MessageBoxes boxes_{self_, 0};
  test::FakeDriverPath driver_;
  test::ImportPatch load_{self_, "LoadLibraryA", &FakeLoadLibrary};
  test::ImportPatch find_{self_, "GetProcAddress", &FakeGetProcAddress};
};

struct Asked {
  Group group;
  Settings now;
  int boxAnswer;  // 0: the box fails
  int answer;
  KeywordId keyword;
  UINT type;
  const char* text;
  Settings defaults = {};
  bool companion = true;
};

TEST_F(RestrictionQuestionTest, AsksAboutTheOtherSettingOrTells) {
  constexpr KeywordId kUntouched = 4711;
  const Asked rows[] = {
      Asked(kStaple, kConflict, IDOK, IDOK, KW_PUNCH, kQuestion,
            "\"K63-O63.1O196.2\"と\"K14-O14.9\"を同時に指定できません。\n"
            "\"K63-O63.1O196.2\"をO63.0に変更しますか？"),
      Asked(kMediaTypeBypass, {{KW_DUPLEX, 2}, {KW_MEDIATYPEBYPASS, 6}}, 0, 0, KW_DUPLEX, kQuestion,
            "\"K6-O6.2\"と\"K356K190-O190.6\"を同時に指定できません。\n"
            "\"K6-O6.2\"をO6.1に変更しますか？",
            {{KW_DUPLEX, 1}}),
      // Booklet finishing counts, but is not set without booklet print.
      Asked(kStaple, {{KW_BOOKLETFINISHING, 1}, {KW_STAPLE, 3}}, IDCANCEL, IDCANCEL, kUntouched,
            kQuestion, "\"-\"と\"-\"を同時に指定できません。\n\"-\"をに変更しますか？", {}, false),
      Asked(kStaple, {{KW_STAPLE, 20}}, IDOK, IDCANCEL, kUntouched, kStatement, kOnOnly),
      Asked(kStaple, {{KW_STAPLE, 1}, {KW_MIXSIZEPRINT, 1}}, IDOK, IDCANCEL, kUntouched, kStatement,
            "選択した設定はサイズ混在原稿をプリントするが無効の場合のみ指定可能です。"),
      Asked(kPunch, {{KW_PUNCH, 0}}, IDOK, IDCANCEL, kUntouched, kStatement, kOnOnly),
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    MessageBoxes::shown.clear();
    MessageBoxes::answers = {row.boxAnswer};
    companionInstalled = row.companion;
    Set(row.now, row.defaults);
    int answer = -7;
    KeywordId keyword = kUntouched;
    EXPECT_EQ(CheckRestriction(nullptr, *sheet_, row.group, answer, keyword), 1);
    EXPECT_EQ(answer, row.answer);
    EXPECT_EQ(keyword, row.keyword);
    const auto& boxes = MessageBoxes::shown;
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].text, test::Japanese(row.text));
    EXPECT_EQ(boxes[0].caption, "Quorra QR");
    EXPECT_EQ(boxes[0].type, row.type);
  }
}

TEST_F(RestrictionQuestionTest, LongOptionNamesAreCutBetweenCharacters) {
  Set({{KW_STAPLE, 21}, {KW_BOOKLETFINISHING, 1}});
  int answer = 0;
  KeywordId keyword = kNoKeyword;
  EXPECT_EQ(CheckRestriction(nullptr, *sheet_, kDuplex, answer, keyword), 1);
  const auto& boxes = MessageBoxes::shown;
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_TRUE(boxes[0].text.starts_with("\"K14-xx" + std::string(60, '\x83') + "\""))
      << boxes[0].text;
}

// The loop after a group has changed.
struct Resolution {
  const char* name;
  Group group;
  Settings now;
  std::vector<OldSelection> old;
  std::deque<int> answers;
  Settings after;
  std::vector<UINT> boxes;
  int oldShown;
  std::vector<KeywordId> defaultsShown;
  Settings defaults = {};
  bool result = true;
};

TEST_F(RestrictionQuestionTest, ResolvesUntilNothingIsLeft) {
  const Resolution rows[] = {
      Resolution("allowed", kStaple, {{KW_STAPLE, 1}, {KW_PUNCH, 1}}, {{KW_STAPLE, 0}}, {},
                 {{KW_STAPLE, 1}}, {}, 0, {}),
      Resolution("OK sets the other setting and what belongs to it to the default", kStaple,
                 kConflict, {{KW_STAPLE, 0}}, {IDOK},
                 {{KW_STAPLE, 9}, {KW_PUNCH, 0}, {KW_PUNCHHOLES, 1}}, {kQuestion}, 0, {KW_PUNCH},
                 {{KW_PUNCHHOLES, 1}}),
      Resolution("each conflict is asked about", kDuplex,
                 {{KW_DUPLEX, 1},
                  {KW_ZNMEDIATYPE, 11},
                  {KW_MEDIATYPEBYPASS, 11},
                  {KW_MEDIATYPEWEIGHT, 5},
                  {KW_MEDIATYPEWEIGHTBYPASS, 5}},
                 {{KW_DUPLEX, 0}}, {IDOK, IDOK},
                 {{KW_DUPLEX, 1}, {KW_MEDIATYPEWEIGHT, 2}, {KW_MEDIATYPEWEIGHTBYPASS, 2}},
                 {kQuestion, kQuestion}, 0, {KW_MEDIATYPEBYPASS, KW_ZNMEDIATYPE},
                 {{KW_MEDIATYPEWEIGHT, 2}, {KW_MEDIATYPEWEIGHTBYPASS, 2}}),
      Resolution("refused", kPunch, kConflict, {{KW_PUNCH, 5}, {KW_PUNCHHOLES, 1}}, {IDCANCEL},
                 {{KW_STAPLE, 9}, {KW_PUNCH, 5}, {KW_PUNCHHOLES, 1}}, {kQuestion}, 1, {}),
      Resolution("the old ones refused too, they stand", kStaple, kConflict, {{KW_STAPLE, 5}},
                 {IDCANCEL, IDCANCEL, IDOK}, {{KW_STAPLE, 5}, {KW_PUNCH, 1}},
                 {kQuestion, kQuestion}, 1, {}),
      Resolution("the old ones resolved", kStaple, kConflict, {{KW_STAPLE, 5}}, {IDCANCEL, IDOK},
                 {{KW_STAPLE, 5}, {KW_PUNCH, 0}}, {kQuestion, kQuestion}, 1, {KW_PUNCH}),
      Resolution("the old ones not answered", kStaple, kConflict, {{KW_STAPLE, 5}}, {IDCANCEL},
                 {{KW_STAPLE, 5}, {KW_PUNCH, 1}}, {kQuestion, kQuestion}, 1, {}, {}, false),
      Resolution("old no punch is refused without mixed sizes, and stands", kPunch, kConflict,
                 {{KW_PUNCH, 0}, {KW_PUNCHHOLES, 0}}, {IDCANCEL, IDOK, IDOK},
                 {{KW_STAPLE, 9}, {KW_PUNCH, 0}}, {kQuestion, kStatement}, 1, {}),
      Resolution("OK that changes nothing is a refusal", kStaple, {{KW_STAPLE, 9}, {KW_PUNCH, 1}},
                 {{KW_STAPLE, 5}}, {IDOK, IDOK, IDOK}, {{KW_STAPLE, 5}}, {kQuestion, kQuestion}, 1,
                 {}, {{KW_PUNCH, 1}}),
      Resolution("nothing is set that could change", kStaple,
                 {{KW_STAPLE, 9}, {KW_BOOKLETFINISHING, 1}}, {{KW_STAPLE, 0}}, {IDOK},
                 {{KW_STAPLE, 0}}, {kQuestion}, 1, {}),
      Resolution("no answer", kStaple, kConflict, {{KW_STAPLE, 0}}, {},
                 {{KW_STAPLE, 9}, {KW_PUNCH, 1}}, {kQuestion}, 0, {}, {}, false),
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    MessageBoxes::shown.clear();
    MessageBoxes::answers = row.answers;
    Set(row.now, row.defaults);
    int oldShown = 0;
    std::vector<KeywordId> defaultsShown;
    EXPECT_EQ(ResolveRestrictions(
                  *sheet_, {.window = nullptr,
                            .group = row.group,
                            .old = row.old,
                            .showOld = [&] { ++oldShown; },
                            .showDefault = [&](KeywordId id) { defaultsShown.push_back(id); }}),
              row.result);
    for (const auto& [id, selection] : row.after) {
      EXPECT_EQ(sheet_->Current(id), selection) << id;
    }
    std::vector<UINT> types;
    for (const MessageBoxes::Box& box : MessageBoxes::shown) {
      types.push_back(box.type);
    }
    EXPECT_EQ(types, row.boxes);
    EXPECT_EQ(oldShown, row.oldShown);
    EXPECT_EQ(defaultsShown, row.defaultsShown);
  }
}

}  // namespace
}  // namespace zn
