// Settings blocks of any content: after merging, every field is good and a second merge changes
// nothing. The input is a row of patches on a defaulted block: offset (2 bytes), length (1), bytes.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "devmode/devmode.h"
#include "tests/devmode/reference_merge.h"

namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void Patch(zn::CDevMode& block, const std::uint8_t* data, std::size_t size) {
  while (size > 3) {
    const std::size_t offset = (data[0] | data[1] << 8) % zn::kDevModeSize;
    const std::size_t length =
        std::min({std::size_t{data[2]}, size - 3, zn::kDevModeSize - offset});
    std::memcpy(&block.Bytes()[offset], data + 3, length);
    data += 3 + length;
    size -= 3 + length;
  }
}

void RequireTextsOf(const zn::CDevMode& merged, const zn::CDevMode& source) {
  for (const zn::DevModeField& field : zn::DevModeFields()) {
    if (field.kind == zn::FieldKind::Text) {
      const std::string_view copied = source.GetText(field.offset).substr(0, field.copyBound);
      const std::string_view text = merged.GetText(field.offset);
      Require(text ==
              (field.repair == zn::Repair::None
                   ? copied
                   : zn::test::WithoutControls(copied, field.repair == zn::Repair::Comment)));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto source = std::make_unique<zn::CDevMode>();
  source->SetDefaults();
  Patch(*source, data, size);
  const auto merged = std::make_unique<zn::CDevMode>();
  merged->SetDefaults();
  merged->Merge(*source);
  Require(zn::test::FirstBadField(*merged) == -1);
  if (source->IsCurrent()) {
    RequireTextsOf(*merged, *source);
  }
  const auto again = std::make_unique<zn::CDevMode>(*merged);
  again->Merge(*merged);
  Require(std::ranges::equal(again->Bytes(), merged->Bytes()));
  source->Merge(*source);
  Require(zn::test::FirstBadField(*source) == -1);
  return 0;
}
