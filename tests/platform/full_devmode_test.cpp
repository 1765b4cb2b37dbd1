#include "platform/full_devmode.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace zn {
namespace {

// Memory whose end is followed by a page that cannot be read.
class GuardedPage {
 public:
  GuardedPage()
      : base_(static_cast<std::byte*>(
            ::VirtualAlloc(nullptr, 2 * kSize, MEM_RESERVE, PAGE_NOACCESS))) {
    ::VirtualAlloc(base_, kSize, MEM_COMMIT, PAGE_READWRITE);
  }
  ~GuardedPage() { ::VirtualFree(base_, 0, MEM_RELEASE); }
  GuardedPage(const GuardedPage&) = delete;
  GuardedPage& operator=(const GuardedPage&) = delete;

  // The last `size` bytes.
  [[nodiscard]] std::byte* Tail(std::size_t size) const { return base_ + kSize - size; }

 private:
  static constexpr std::size_t kSize = 0x10000;
  std::byte* base_;
};

TEST(MeasureDevModeTest, NeverReadsPastTheMemory) {
  const GuardedPage page;
  DEVMODEA open{};
  open.dmSize = sizeof open;
  open.dmDriverExtra = 100;
  constexpr std::size_t kFull = sizeof open + 100;
  for (std::size_t size = 0; size <= kFull; ++size) {
    std::byte* const at = page.Tail(size);
    std::memcpy(at, &open, std::min(size, sizeof open));
    const DevModeExtent extent = MeasureDevMode(reinterpret_cast<DEVMODEA*>(at), size);
    EXPECT_EQ(extent.fullSize, size == kFull ? kFull : 0) << size;
    EXPECT_EQ(extent.publicSize, size == kFull ? sizeof open : 0) << size;
  }
}

TEST(MeasureDevModeTest, PublicPartMustReachItsOwnSizes) {
  DEVMODEW open{};
  for (const int size : {0, 68, 71, 75}) {
    open.dmSize = static_cast<WORD>(size);
    EXPECT_EQ(MeasureDevMode(&open).fullSize, 0u) << size;
  }
  open.dmSize = 76;
  open.dmDriverExtra = 4;
  EXPECT_EQ(MeasureDevMode(&open).fullSize, 80u);
  EXPECT_EQ(MeasureDevMode(static_cast<const DEVMODEW*>(nullptr)).fullSize, 0u);
}

struct Sheet {
  DEVMODEW open{};
  std::byte rest[sizeof(DriverPrivateDevMode) + 64]{};
};

TEST(DriverPartTest, LiesBetweenThePublicPartAndTheBlockOrNowhere) {
  const auto sheet = std::make_unique<Sheet>();
  const auto block = [&](std::size_t offset) { return sheet->rest + offset; };
  constexpr std::size_t kPart = sizeof(DriverPrivateDevMode);
  struct Row {
    std::size_t extra;
    const std::byte* block;
    bool hasRoom;
  };
  const std::byte elsewhere{};
  const Row rows[] = {{kPart + 64, block(kPart), true}, {kPart + 64, block(kPart - 1), false},
                      {kPart + 64, block(0), false},    {kPart, &elsewhere, true},
                      {kPart - 1, &elsewhere, false},   {0, &elsewhere, false}};
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    *sheet = {};
    sheet->open.dmSize = sizeof sheet->open;
    sheet->open.dmDriverExtra = static_cast<WORD>(row.extra);
    DriverPrivateDevMode part{};
    part.flags = 0xABCD;
    EXPECT_EQ(StoreDriverPart(&sheet->open, row.block, part), row.hasRoom);
    EXPECT_EQ(sheet->rest[0] != std::byte{0}, row.hasRoom);
    part.flags = 1;
    EXPECT_EQ(LoadDriverPart(&sheet->open, row.block, part), row.hasRoom);
    EXPECT_EQ(part.flags, row.hasRoom ? 0xABCDu : 1u);
  }
  DriverPrivateDevMode part{};
  EXPECT_FALSE(LoadDriverPart(nullptr, nullptr, part));
}

}  // namespace
}  // namespace zn
