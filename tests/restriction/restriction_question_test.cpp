// The question of the restriction check and the loop that the pages run on it. The message box, the
// spooler's driver information and the companion module are replaced.
#include "session/restriction_question.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "iat_patch.h"
#include "platform/resources.h"

namespace zn {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Shown {
  std::string text;
  std::string caption;
  UINT type;
};
std::vector<Shown> boxes;
std::deque<int> answers;  // of the boxes to come; without one the box fails
bool companionInstalled;

int WINAPI FakeMessageBox(HWND, LPCSTR text, LPCSTR caption, UINT type) {
  boxes.push_back({text, caption, type});
  if (answers.empty()) {
    return 0;
  }
  const int answer = answers.front();
  answers.pop_front();
  return answer;
}

BOOL WINAPI FakeGetPrinterDriver(HANDLE, LPSTR, DWORD, LPBYTE memory, DWORD size, LPDWORD needed) {
  struct Answer {
    DRIVER_INFO_2A info;
    char path[16];
  };
  *needed = sizeof(Answer);
  if (size < sizeof(Answer)) {
    ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  auto* answer = reinterpret_cast<Answer*>(memory);
  answer->info = {};
  std::strcpy(answer->path, "C:\\d\\driver.dll");
  answer->info.pDriverPath = answer->path;
  return TRUE;
}

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

std::string InCodePage932(std::string_view utf8) {
  std::wstring wide(utf8.size(), L'\0');
  wide.resize(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()),
                                    wide.data(), static_cast<int>(wide.size())));
  std::string text(2 * wide.size(), '\0');
  text.resize(::WideCharToMultiByte(932, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                    static_cast<int>(text.size()), nullptr, nullptr));
  return text;
}

class RestrictionQuestionTest : public ::testing::Test {
 protected:
  RestrictionQuestionTest() {
    SetModuleInstance(self_);
    boxes.clear();
    answers.clear();
    companionInstalled = true;
  }

  // The loop after the staple or punch has changed; its old selections are 0.
  bool Resolve(restriction::Group group, std::vector<OldSelection> old) {
    return ResolveRestrictions(
        *sheet_, {.window = nullptr,
                  .group = group,
                  .old = old,
                  .showOld = [this] { ++oldShown_; },
                  .showDefault = [this](KeywordId id) { defaultsShown_.push_back(id); }});
  }

  std::unique_ptr<SheetContext> sheet_ = std::make_unique<SheetContext>();
  int oldShown_ = 0;
  std::vector<KeywordId> defaultsShown_;

 private:
  HMODULE self_ = ::GetModuleHandleA(nullptr);
  test::ImportPatch box_{self_, "MessageBoxA", &FakeMessageBox};
  test::ImportPatch driver_{self_, "GetPrinterDriverA", &FakeGetPrinterDriver};
  test::ImportPatch load_{self_, "LoadLibraryA", &FakeLoadLibrary};
  test::ImportPatch find_{self_, "GetProcAddress", &FakeGetProcAddress};
};

TEST_F(RestrictionQuestionTest, NamesOtherAndChangedSetting) {
  answers = {IDOK};
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  sheet_->SetCurrent(KW_PUNCHHOLES, 2);
  int answer = -7;
  KeywordId keyword = kNoKeyword;
  EXPECT_EQ(CheckRestriction(nullptr, *sheet_, restriction::kStaple, answer, keyword), 1);
  EXPECT_EQ(answer, IDOK);
  EXPECT_EQ(keyword, KW_PUNCH);
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].text,
            InCodePage932("\"K63-O63.1O196.2\"と\"K14-O14.9\"を同時に指定できません。\n"
                          "\"K63-O63.1O196.2\"をO63.0に変更しますか？"));
  EXPECT_EQ(boxes[0].caption, "Quorra QR");
  EXPECT_EQ(boxes[0].type, UINT{MB_OKCANCEL | MB_ICONEXCLAMATION});
}

TEST_F(RestrictionQuestionTest, BypassPaperIsCalledSo) {
  sheet_->SetCurrent(KW_DUPLEX, 2);
  sheet_->SetCurrent(KW_MEDIATYPEBYPASS, 6);
  sheet_->options[KW_DUPLEX].defaultSelection = 1;
  int answer = -7;
  KeywordId keyword = kNoKeyword;
  EXPECT_EQ(CheckRestriction(nullptr, *sheet_, restriction::kMediaTypeBypass, answer, keyword), 1);
  EXPECT_EQ(answer, 0);
  EXPECT_EQ(keyword, KW_DUPLEX);
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].text,
            InCodePage932("\"K6-O6.2\"と\"K356K190-O190.6\"を同時に指定できません。\n"
                          "\"K6-O6.2\"をO6.1に変更しますか？"));
}

TEST_F(RestrictionQuestionTest, AsksWithoutCompanionAndWithoutOtherSetting) {
  companionInstalled = false;
  answers = {IDCANCEL};
  sheet_->SetCurrent(KW_BOOKLETFINISHING, 1);  // counts, but is not set without booklet print
  sheet_->SetCurrent(KW_STAPLE, 3);
  int answer = -7;
  KeywordId keyword = 4711;
  EXPECT_EQ(CheckRestriction(nullptr, *sheet_, restriction::kStaple, answer, keyword), 1);
  EXPECT_EQ(answer, IDCANCEL);
  EXPECT_EQ(keyword, 4711U);
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].text,
            InCodePage932("\"-\"と\"-\"を同時に指定できません。\n\"-\"をに変更しますか？"));
}

TEST_F(RestrictionQuestionTest, LongOptionNamesAreCutBetweenCharacters) {
  sheet_->SetCurrent(KW_STAPLE, 21);
  sheet_->SetCurrent(KW_BOOKLETFINISHING, 1);
  int answer = 0;
  KeywordId keyword = kNoKeyword;
  EXPECT_EQ(CheckRestriction(nullptr, *sheet_, restriction::kDuplex, answer, keyword), 1);
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_TRUE(boxes[0].text.starts_with("\"K14-xx" + std::string(60, '\x83') + "\""))
      << boxes[0].text;
}

TEST_F(RestrictionQuestionTest, MixedSizeRulesOnlyTell) {
  const struct {
    restriction::Group group;
    KeywordId id;
    std::uint32_t selection;
    std::uint32_t mixedSizes;
    const char* text;
  } rows[] = {
      {restriction::kStaple, KW_STAPLE, 20, 0,
       "選択した設定はサイズ混在原稿をプリントするが有効の場合のみ指定可能です。"},
      {restriction::kStaple, KW_STAPLE, 1, 1,
       "選択した設定はサイズ混在原稿をプリントするが無効の場合のみ指定可能です。"},
      {restriction::kPunch, KW_PUNCH, 0, 0,
       "選択した設定はサイズ混在原稿をプリントするが有効の場合のみ指定可能です。"},
  };
  for (const auto& row : rows) {
    boxes.clear();
    answers = {IDOK};
    *sheet_ = {};
    sheet_->SetCurrent(row.id, row.selection);
    sheet_->SetCurrent(KW_MIXSIZEPRINT, row.mixedSizes);
    int answer = -7;
    KeywordId keyword = 4711;
    EXPECT_EQ(CheckRestriction(nullptr, *sheet_, row.group, answer, keyword), 1);
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(keyword, 4711U);
    ASSERT_THAT(boxes, SizeIs(1));
    EXPECT_EQ(boxes[0].text, InCodePage932(row.text));
    EXPECT_EQ(boxes[0].caption, "Quorra QR");
    EXPECT_EQ(boxes[0].type, UINT{MB_OK | MB_ICONEXCLAMATION});
  }
}

TEST_F(RestrictionQuestionTest, AllowedChangesAreNotMentioned) {
  sheet_->SetCurrent(KW_STAPLE, 1);
  sheet_->SetCurrent(KW_PUNCH, 1);
  EXPECT_TRUE(Resolve(restriction::kStaple, {{KW_STAPLE, 0}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 1U);
  EXPECT_THAT(boxes, IsEmpty());
  EXPECT_EQ(oldShown_, 0);
}

TEST_F(RestrictionQuestionTest, OkSetsTheOtherSettingAndWhatBelongsToItToTheDefault) {
  answers = {IDOK};
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  sheet_->SetCurrent(KW_PUNCHHOLES, 2);
  sheet_->options[KW_PUNCHHOLES].defaultSelection = 1;
  EXPECT_TRUE(Resolve(restriction::kStaple, {{KW_STAPLE, 0}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 9U);
  EXPECT_EQ(sheet_->Current(KW_PUNCH), 0U);
  EXPECT_EQ(sheet_->Current(KW_PUNCHHOLES), 1U);
  EXPECT_THAT(boxes, SizeIs(1));
  EXPECT_THAT(defaultsShown_, ElementsAre(KW_PUNCH));
  EXPECT_EQ(oldShown_, 0);
}

TEST_F(RestrictionQuestionTest, EachConflictIsAskedAbout) {
  answers = {IDOK, IDOK};
  sheet_->SetCurrent(KW_DUPLEX, 1);
  for (const KeywordId id : {KW_ZNMEDIATYPE, KW_MEDIATYPEBYPASS}) {
    sheet_->SetCurrent(id, 11);
  }
  for (const KeywordId id : {KW_MEDIATYPEWEIGHT, KW_MEDIATYPEWEIGHTBYPASS}) {
    sheet_->SetCurrent(id, 5);
    sheet_->options[id].defaultSelection = 2;
  }
  EXPECT_TRUE(Resolve(restriction::kDuplex, {{KW_DUPLEX, 0}}));
  EXPECT_THAT(defaultsShown_, ElementsAre(KW_MEDIATYPEBYPASS, KW_ZNMEDIATYPE));
  EXPECT_EQ(sheet_->Current(KW_DUPLEX), 1U);
  EXPECT_EQ(sheet_->Current(KW_MEDIATYPEWEIGHT), 2U);
  EXPECT_EQ(sheet_->Current(KW_MEDIATYPEWEIGHTBYPASS), 2U);
}

TEST_F(RestrictionQuestionTest, RefusalPutsTheOldSelectionsBack) {
  answers = {IDCANCEL};
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  sheet_->SetCurrent(KW_PUNCHHOLES, 2);
  EXPECT_TRUE(Resolve(restriction::kPunch, {{KW_PUNCH, 5}, {KW_PUNCHHOLES, 1}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 9U);
  EXPECT_EQ(sheet_->Current(KW_PUNCH), 5U);
  EXPECT_EQ(sheet_->Current(KW_PUNCHHOLES), 1U);
  EXPECT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(oldShown_, 1);
  EXPECT_THAT(defaultsShown_, IsEmpty());
}

// Staple 5 cannot go with punch 1 any more than staple 9 can.
TEST_F(RestrictionQuestionTest, OldSelectionsAreCheckedToo) {
  const struct {
    const char* name;
    std::deque<int> answers;
    bool result;
    std::uint32_t punch;
    std::size_t boxes;
  } rows[] = {
      {"refused again, they stand", {IDCANCEL, IDCANCEL, IDOK}, true, 1, 2},
      {"resolved", {IDCANCEL, IDOK}, true, 0, 2},
      {"not answered", {IDCANCEL}, false, 1, 2},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    boxes.clear();
    answers = row.answers;
    oldShown_ = 0;
    sheet_->SetCurrent(KW_STAPLE, 9);
    sheet_->SetCurrent(KW_PUNCH, 1);
    EXPECT_EQ(Resolve(restriction::kStaple, {{KW_STAPLE, 5}}), row.result);
    EXPECT_EQ(sheet_->Current(KW_STAPLE), 5U);
    EXPECT_EQ(sheet_->Current(KW_PUNCH), row.punch);
    EXPECT_THAT(boxes, SizeIs(row.boxes));
    EXPECT_EQ(oldShown_, 1);
  }
  EXPECT_THAT(defaultsShown_, ElementsAre(KW_PUNCH));
}

// Without mixed sizes the old "no punch" is refused itself: the user is told, and it stands.
TEST_F(RestrictionQuestionTest, OldNoPunchIsRefusedAndStands) {
  answers = {IDCANCEL, IDOK, IDOK};
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  EXPECT_TRUE(Resolve(restriction::kPunch, {{KW_PUNCH, 0}, {KW_PUNCHHOLES, 0}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 9U);
  EXPECT_EQ(sheet_->Current(KW_PUNCH), 0U);
  ASSERT_THAT(boxes, SizeIs(2));
  EXPECT_EQ(boxes[1].type, UINT{MB_OK | MB_ICONEXCLAMATION});
  EXPECT_EQ(oldShown_, 1);
}

TEST_F(RestrictionQuestionTest, OkThatChangesNothingCountsAsRefusal) {
  answers = {IDOK, IDOK, IDOK};
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  sheet_->options[KW_PUNCH].defaultSelection = 1;
  EXPECT_TRUE(Resolve(restriction::kStaple, {{KW_STAPLE, 5}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 5U);
  EXPECT_THAT(boxes, SizeIs(2));
  EXPECT_EQ(oldShown_, 1);

  sheet_->SetCurrent(KW_PUNCH, 0);
  sheet_->SetCurrent(KW_BOOKLETFINISHING, 1);  // not set, so there is nothing to change
  sheet_->SetCurrent(KW_STAPLE, 9);
  EXPECT_TRUE(Resolve(restriction::kStaple, {{KW_STAPLE, 0}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 0U);
  EXPECT_THAT(boxes, SizeIs(3));
  EXPECT_EQ(oldShown_, 2);
  EXPECT_THAT(defaultsShown_, IsEmpty());
}

TEST_F(RestrictionQuestionTest, NoAnswerFailsAndChangesNothing) {
  sheet_->SetCurrent(KW_STAPLE, 9);
  sheet_->SetCurrent(KW_PUNCH, 1);
  EXPECT_FALSE(Resolve(restriction::kStaple, {{KW_STAPLE, 0}}));
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 9U);
  EXPECT_EQ(sheet_->Current(KW_PUNCH), 1U);
  EXPECT_EQ(oldShown_, 0);
  EXPECT_THAT(defaultsShown_, IsEmpty());
}

}  // namespace
}  // namespace zn
