// Stands in for the print option setting until src/favorites/print_option_setting.cpp is there.
#include "favorites/print_option_setting.h"

namespace zn {

bool RunPrintOptionSetting(SheetContext&, HWND) {
  return false;
}

}  // namespace zn
