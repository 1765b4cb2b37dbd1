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
};

BOOL Play(HANDLE object, DWORD level, BYTE* memory, DWORD size, DWORD* need) {
  EXPECT_EQ(level, 2u);
  auto& script = *static_cast<Script*>(object);
  const std::size_t call = std::min(script.calls++, script.needs.size() - 1);
  *need = script.needs[call];
  if (memory == nullptr || call + 1 < script.needs.size() || size < *need) {
    return FALSE;
  }
  std::memset(memory, 'x', *need);
  return TRUE;
}

TEST(AskSpoolerTest, FollowsWhatIsAskedFor) {
  struct Row {
    std::vector<DWORD> needs;
    DWORD size;  // 0: gives up
  };
  for (const Row& row : {
           Row{{100}, 100}, Row{{100, 200, 300}, 300},  // grows
           Row{{1}, 16},                                // never less than the record
           Row{{0}, 0},                                 // nothing to read
           Row{{100, 0, 0}, 0},                         // gone between the calls
           Row{{100, 100, 100}, 0},                     // fails without asking for more
           Row{{1, 20, 30, 40, 50, 60, 70, 80}, 0},     // grows for ever
           Row{{0x7FFFFFFF}, 0},                        // more than there can be
       }) {
    Script script{row.needs};
    const SpoolerMemory memory = AskSpooler(&Play, &script, 2, 16);
    EXPECT_EQ(memory.size, row.size) << testing::PrintToString(row.needs);
    EXPECT_EQ(memory.bytes != nullptr, row.size != 0);
    EXPECT_LE(script.calls, 5u);
    if (memory.bytes) {
      EXPECT_EQ(memory.bytes[memory.size], std::byte{0}) << "a text without terminator ends";
    }
  }
  EXPECT_FALSE(PrinterInfo2(nullptr));
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
