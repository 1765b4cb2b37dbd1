// What the core driver has in hand for one document sheet: a heap of its own, the public DEVMODE
// with the plug-in's block, and its option items.
#pragma once

#include "platform/driver_interfaces.h"

#include <gtest/gtest.h>

#include <array>

#include "devmode/devmode.h"

namespace zn::test {

class DocumentJob {
 public:
  explicit DocumentJob(IPrintOemUI& object) : object_(object) {
    block_.SetDefaults();
    public_.dmSize = sizeof public_;
    public_.dmDriverExtra = sizeof block_;

    // A group of printing options with two members, a page-order item and a loose one.
    constexpr BYTE kLevels[] = {0, 1, 2, 2, 1, 0};
    for (std::size_t i = 0; i < items.size(); ++i) {
      items[i].cbSize = sizeof items[i];
      items[i].Level = kLevels[i];
      items[i].Flags = OPTIF_CALLBACK;
    }
    items[1].pName = reinterpret_cast<LPTSTR>(418);
    items[4].DMPubID = DMPUB_PAGEORDER;

    param.cbSize = sizeof param;
    param.hOEMHeap = ::HeapCreate(0, 0, 0);
    param.pPublicDM = &public_;
    param.pOEMDM = &block_;
    param.pDrvOptItems = items.data();
    param.cDrvOptItems = static_cast<DWORD>(items.size());
  }
  ~DocumentJob() { ::HeapDestroy(param.hOEMHeap); }
  DocumentJob(const DocumentJob&) = delete;
  DocumentJob& operator=(const DocumentJob&) = delete;

  // CommonUIProp twice, as the core driver calls it. The answer of the filling call.
  HRESULT Prepare() {
    param.pOEMOptItems = nullptr;
    param.cOEMOptItems = 7;
    EXPECT_EQ(object_.CommonUIProp(OEMCUIP_DOCPROP, &param), S_OK);
    param.pOEMOptItems = &room_;
    return object_.CommonUIProp(OEMCUIP_DOCPROP, &param);
  }

  // Allocations on the heap that nobody freed.
  [[nodiscard]] int BusyBlocks() const {
    int busy = 0;
    PROCESS_HEAP_ENTRY entry{};
    while (::HeapWalk(param.hOEMHeap, &entry) != FALSE) {
      busy += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    }
    return busy;
  }

  OEMCUIPPARAM param{};
  std::array<OPTITEM, 6> items{};

 private:
  IPrintOemUI& object_;
  DEVMODEW public_{};
  CDevMode block_{};
  OPTITEM room_{};  // the plug-in's items; it has none
};

}  // namespace zn::test
