#include "host/window/standard_strings.h"

#include <algorithm>
#include <array>
#include <span>

#include "host/base/host_ids.h"

namespace zn::host {
namespace {

struct NumberRow {
  ULONG_PTR number;
  int resource;  // string of this program, or place in the tree's image list
};

constexpr NumberRow kStrings[] = {
    {IDS_CPSUI_GRAPHIC, IDS_STANDARD_GRAPHIC},
    {IDS_CPSUI_PRINTQUALITY, IDS_STANDARD_QUALITY},
    {IDS_CPSUI_ICM, IDS_STANDARD_ICM},
    {IDS_CPSUI_ICMMETHOD, IDS_STANDARD_ICM_METHOD},
    {IDS_CPSUI_ICMINTENT, IDS_STANDARD_ICM_INTENT},
    {IDS_CPSUI_SCALING, IDS_STANDARD_SCALING},
    {IDS_CPSUI_TTOPTION, IDS_STANDARD_TTOPTION},
    {IDS_CPSUI_NO, IDS_STANDARD_NO},
    {IDS_CPSUI_YES, IDS_STANDARD_YES},
    {IDS_CPSUI_TT_DOWNLOADSOFT, IDS_STANDARD_TT_DOWNLOAD},
    {IDS_CPSUI_TT_SUBDEV, IDS_STANDARD_TT_DEVICE},
};

constexpr NumberRow kIcons[] = {
    {IDI_CPSUI_PRINTER, kTreeImagePrinter},
    {IDI_CPSUI_ICM_OPTION, kTreeImageColor},
    {IDI_CPSUI_OPTION, kTreeImageOption},
    {IDI_CPSUI_POSTSCRIPT, kTreeImagePostScript},
};

const NumberRow* Find(std::span<const NumberRow> rows, ULONG_PTR number) {
  const auto row = std::ranges::find(rows, number, &NumberRow::number);
  return row != rows.end() ? &*row : nullptr;
}

}  // namespace

std::string ResolveStandardString(const char* textOrNumber, HINSTANCE module) {
  const auto number = reinterpret_cast<ULONG_PTR>(textOrNumber);
  if (number > 0xFFFF) {
    return textOrNumber;
  }
  const NumberRow* row = Find(kStrings, number);
  std::array<char, 256> text{};
  ::LoadStringA(row != nullptr ? ::GetModuleHandleA(nullptr) : module,
                row != nullptr ? static_cast<UINT>(row->resource) : static_cast<UINT>(number),
                text.data(), static_cast<int>(text.size()));
  return text.data();
}

int StandardIcon(const OPTITEM& item) noexcept {
  const NumberRow* row =
      item.pOptType == nullptr ? Find(kIcons, static_cast<ULONG_PTR>(item.Sel)) : nullptr;
  return row != nullptr ? row->resource : kTreeImageOption;
}

}  // namespace zn::host
