// Loading and unloading the plug-in and its companions: applications print for days, and each job
// loads them anew.
#include <gtest/gtest.h>

#include <new>

#include "document_job.h"
#include "host/base/resource_usage.h"
#include "iat_patch.h"
#include "plugin_client.h"

namespace zn::test {
namespace {

using host::CountResources;
using host::ResourceUsage;

void* NoMemory(std::size_t) {
  return nullptr;
}

// What the core driver does around a sheet, and an exception inside the plug-in.
void OpenSheet(const PlugIn& plugIn) {
  const ComPtr<IPrintOemUI> object = plugIn.Object();
  DocumentJob job(*object);
  ASSERT_EQ(job.Prepare(), S_OK);
  FakeSheet sheet(*object, &IPrintOemUI::DocumentPropertySheets);
  sheet.Send(PROPSHEETUI_REASON_INIT);
  EXPECT_EQ(sheet.calls.size(), 5U);
  sheet.Send(PROPSHEETUI_REASON_DESTROY, 1);

  wchar_t printer[] = L"a name that does not fit into the text object itself";
  OEMCUIPPARAM param{};
  param.pPrinterName = printer;
  const ImportPatch patch(plugIn.Module(), "malloc", &NoMemory);
  EXPECT_EQ(object->CommonUIProp(OEMCUIP_PRNPROP, &param), E_OUTOFMEMORY);
}

TEST(ModuleLoad, LeavesNothingBehind) {
  struct Row {
    const char* module;
    int rounds;
    void (*use)(const PlugIn&);  // in every tenth round
  };
  // The modules of the system stay loaded, as in an application with a window.
  const PlugIn held[] = {PlugIn("comctl32.dll"), PlugIn("shell32.dll"), PlugIn("gdi32.dll")};
  for (const Row& row : {Row{"Zn55psu1.dll", 2000, &OpenSheet}, Row{"Zn55psu1UI.dll", 100, nullptr},
                         Row{"Zn55psu1ui2.dll", 100, nullptr}}) {
    constexpr int kWarmUp = 20;
    ResourceUsage before;
    for (int round = -kWarmUp; round < row.rounds; ++round) {
      if (round == 0) {
        before = CountResources();
      }
      const PlugIn module(row.module);
      if (row.use != nullptr && round % 10 == 0) {
        row.use(module);
      }
    }
    const ResourceUsage after = CountResources();
    EXPECT_LE(after.heapBlocks, before.heapBlocks) << row.module;
    EXPECT_LE(after.handles, before.handles) << row.module;
    EXPECT_LE(after.tlsSlots, before.tlsSlots) << row.module;
    EXPECT_LE(after.gdiObjects, before.gdiObjects) << row.module;
  }
}

}  // namespace
}  // namespace zn::test
