#include "platform/spooler.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace zn {
namespace {

// A spooler call that asks for `needs` one after the other; it succeeds once it gets the last one.
struct Script {
  std::vector<DWORD> needs;
  std::size_t calls = 0;
  DWORD level = 0;
  DWORD lastSize = 0;
};

BOOL Play(HANDLE object, DWORD level, BYTE* memory, DWORD size, DWORD* need) {
  auto& script = *static_cast<Script*>(object);
  const DWORD wanted = script.needs[std::min(script.calls, script.needs.size() - 1)];
  const bool isLast = script.calls + 1 >= script.needs.size();
  ++script.calls;
  script.level = level;
  script.lastSize = size;
  *need = wanted;
  if (memory == nullptr || !isLast || size < wanted) {
    return FALSE;
  }
  std::memset(memory, 'x', wanted);
  return TRUE;
}

TEST(AskSpoolerTest, AllocatesWhatIsAskedFor) {
  Script script{{100}};
  const SpoolerMemory memory = AskSpooler(&Play, &script, 2, 16);
  ASSERT_NE(memory.bytes, nullptr);
  EXPECT_EQ(memory.size, 100u);
  EXPECT_EQ(script.level, 2u);
  EXPECT_EQ(script.calls, 2u);
  EXPECT_EQ(memory.bytes[100], std::byte{0}) << "a text without terminator ends";
}

TEST(AskSpoolerTest, FollowsARecordThatGrows) {
  Script script{{100, 200, 300}};
  EXPECT_EQ(AskSpooler(&Play, &script, 2, 16).size, 300u);
}

TEST(AskSpoolerTest, NeverLessThanTheRecord) {
  Script script{{1}};
  EXPECT_EQ(AskSpooler(&Play, &script, 2, 16).size, 16u);
}

TEST(AskSpoolerTest, GivesUp) {
  const std::vector<std::vector<DWORD>> scripts = {
      {0},                                  // nothing to read
      {100, 0, 0},                          // gone between the calls
      {100, 100, 100},                      // fails without asking for more
      {1, 20, 30, 40, 50, 60, 70, 80, 90},  // grows for ever
      {0x7FFFFFFF},                         // more than there can be
  };
  for (const auto& needs : scripts) {
    Script script{needs};
    EXPECT_EQ(AskSpooler(&Play, &script, 2, 16).bytes, nullptr) << needs.front();
    EXPECT_LE(script.calls, 5u);
  }
}

TEST(SpoolerRecordTest, NullPrinterIsEmpty) {
  EXPECT_FALSE(PrinterInfo2(nullptr));
  EXPECT_FALSE(DriverInfo2(nullptr));
}

BOOL AnswerPointers(HANDLE, DWORD, BYTE* memory, DWORD size, DWORD* need) {
  *need = 64;
  if (size < *need) {
    return FALSE;
  }
  PRINTER_INFO_9A info = {reinterpret_cast<DEVMODEA*>(memory + 40)};
  std::memcpy(memory, &info, sizeof info);
  return TRUE;
}

TEST(SpoolerRecordTest, KnowsHowMuchLiesBehindAPosition) {
  const SpoolerRecord<PRINTER_INFO_9A, &AnswerPointers, 9> record(nullptr);
  ASSERT_TRUE(record);
  const auto* const at = reinterpret_cast<const std::byte*>(record->pDevMode);
  EXPECT_EQ(record.BytesFrom(at), 24u);
  EXPECT_EQ(record.BytesFrom(at - 40), 64u);
  EXPECT_EQ(record.BytesFrom(at - 41), 0u);
  EXPECT_EQ(record.BytesFrom(at + 23), 1u);
  EXPECT_EQ(record.BytesFrom(at + 24), 0u);
  EXPECT_EQ(record.BytesFrom(nullptr), 0u);
}

}  // namespace
}  // namespace zn
