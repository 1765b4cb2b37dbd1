#include "document_job.h"

#include <gtest/gtest.h>

namespace zn::test {

DocumentJob::DocumentJob(IPrintOemUI& object) : object_(object) {
  OEMDMPARAM devMode{};
  devMode.cbSize = sizeof devMode;
  devMode.pPublicDMOut = &public_;
  devMode.pOEMDMOut = &block_;
  devMode.cbBufSize = sizeof block_;
  EXPECT_EQ(object.DevMode(OEMDM_DEFAULT, &devMode), S_OK);
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

DocumentJob::~DocumentJob() {
  ::HeapDestroy(param.hOEMHeap);
}

HRESULT DocumentJob::Prepare() {
  param.pOEMOptItems = nullptr;
  param.cOEMOptItems = 7;
  EXPECT_EQ(object_.CommonUIProp(OEMCUIP_DOCPROP, &param), S_OK);
  param.pOEMOptItems = &room_;
  return object_.CommonUIProp(OEMCUIP_DOCPROP, &param);
}

int DocumentJob::BusyBlocks() const {
  int busy = 0;
  PROCESS_HEAP_ENTRY entry{};
  while (::HeapWalk(param.hOEMHeap, &entry) != FALSE) {
    busy += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
  }
  return busy;
}

}  // namespace zn::test
