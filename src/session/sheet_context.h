// SheetContext: all data of one open document sheet. Lives on the core driver's heap from the
// filling call of CommonUIProp until the sheet is destroyed; every page finds it in its window.
#pragma once

#include "platform/driver_interfaces.h"

#include <array>
#include <cstdint>
#include <memory>

#include "devmode/devmode.h"
#include "keywords/keyword_ids.h"
#include "session/option_selection.h"

namespace zn {

// Base of what a later part of the plug-in hangs on the sheet (the favourites);
// destroyed with the sheet.
struct SheetAttachment {
  virtual ~SheetAttachment() = default;
};

struct SheetContext {
  HANDLE hOEMHeap;  // first field: the deleter frees the record on this heap

  // What the core driver handed over; each may be null, and only the helper is owned.
  CDevMode* pDevMode;  // this job's settings block; may have another header, see SettingsBlock
  DEVMODEW* pPublicDM;
  HANDLE hPrinter;
  UniqueDriverUI pOEMHelp;
  OEMUIOBJ* poemuiobj;
  HANDLE hComPropSheet;
  PFNCOMPROPSHEET pfnComPropSheet;
  LONG_PTR hLastPage;  // what adding the job page returned
  OPTITEM* pDrvOptItems;
  DWORD cDrvOptItems;

  HWND activePage;  // getters read live controls only of this page

  std::array<OPTITEM*, KW_MAX> items;  // null: the printer has no such option
  OptionTable options;

  // The sheet's own copy of the job values; commit writes it back to *pDevMode. It is also
  // where job-name mode, job name and device profile live: session/job_values.h names them.
  CDevMode jobValues;
  bool settingsRead;     // set-up reached its end; before that, defaults stand for what it reads
  bool settingsChanged;  // an option was set since the sheet was set up

  char driverName[260];    // names the device profile while the job names none
  bool hasPageOrder;       // the core driver offers a page-order item
  bool rawOnly;            // 1 when the printer lacks PRINTER_ATTRIBUTE_RAW_ONLY
  bool mayChangeSettings;  // first sheet flag of the advanced tree
  bool treeReadOnlyFlag;   // second sheet flag of the advanced tree; always set

  std::unique_ptr<SheetAttachment> favorites;

  [[nodiscard]] std::uint32_t Current(KeywordId id) const { return options[id].currentSelection; }
  [[nodiscard]] std::uint32_t Default(KeywordId id) const { return options[id].defaultSelection; }
  void SetCurrent(KeywordId id, std::uint32_t value) { options[id].currentSelection = value; }
  void RestoreDefault(KeywordId id) { SetCurrent(id, Default(id)); }
};

}  // namespace zn
