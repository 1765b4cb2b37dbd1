// Printing preferences: preparation through CommonUIProp, the pages of a sheet, its end.
#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <utility>

#include "document_job.h"
#include "japanese.h"
#include "message_boxes.h"
#include "plugin_client.h"
#include "session/sheet_context.h"

namespace zn::test {
namespace {

// The core driver's helper; only its address and its references count.
struct Helper final : IUnknown {
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
    *out = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ULONG references = 1;
};

class DocumentSheet : public testing::Test {
 protected:
  FakeSheet NewSheet() { return {*object_, &IPrintOemUI::DocumentPropertySheets}; }
  // Opens a sheet and tells how many calls it made: 5 for its pages, 0 when it refused.
  static std::size_t Open(FakeSheet& sheet) {
    EXPECT_EQ(sheet.Send(PROPSHEETUI_REASON_INIT), S_OK);
    EXPECT_EQ(sheet.info.Result, sheet.calls.empty() ? 0U : 105U);  // the handle of page 4
    return sheet.calls.size();
  }
  static void Close(FakeSheet& sheet) { sheet.Send(PROPSHEETUI_REASON_DESTROY, 1); }
  static SheetContext* ContextOf(const FakeSheet& sheet) {
    return reinterpret_cast<SheetContext*>(sheet.calls.at(0).page.lParam);
  }

  PlugIn plugIn_;
  MessageBoxes boxes_{plugIn_.Module()};
  ComPtr<IPrintOemUI> object_ = plugIn_.Object();
};

TEST_F(DocumentSheet, PreparationHidesEveryItemOfTheDriverTheSizingCallNone) {
  DocumentJob job(*object_);
  job.param.cOEMOptItems = 7;
  EXPECT_EQ(object_->CommonUIProp(OEMCUIP_DOCPROP, &job.param), S_OK);
  EXPECT_EQ(job.param.cOEMOptItems, 0U);
  EXPECT_EQ(job.BusyBlocks(), 0);
  EXPECT_EQ(job.items[0].Flags & OPTIF_HIDE, 0U);

  ASSERT_EQ(job.Prepare(), S_OK);
  EXPECT_EQ(job.param.cOEMOptItems, 0U);
  for (const OPTITEM& item : job.items) {
    EXPECT_EQ(item.Flags & (OPTIF_HIDE | OPTIF_CALLBACK), DWORD{OPTIF_HIDE | OPTIF_CALLBACK});
  }
}

TEST_F(DocumentSheet, OpensNotWithoutAHeapOrACallback) {
  DocumentJob job(*object_);
  EXPECT_EQ(job.Prepare(), S_OK);
  FakeSheet mute = NewSheet();
  mute.info.pfnComPropSheet = nullptr;
  EXPECT_EQ(Open(mute), 0U);
  Close(mute);
  EXPECT_EQ(job.BusyBlocks(), 0);

  EXPECT_EQ(job.Prepare(), S_OK);  // leaves nothing behind for the refused one
  const HANDLE heap = std::exchange(job.param.hOEMHeap, nullptr);
  job.items[0].Flags = 0;
  ::SetLastError(0);
  EXPECT_EQ(job.Prepare(), E_FAIL);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(job.items[0].Flags, 0U);
  job.param.hOEMHeap = heap;
  FakeSheet sheet = NewSheet();
  EXPECT_EQ(Open(sheet), 0U);
  Close(sheet);
}

TEST_F(DocumentSheet, OpensWithWhateverElseIsMissing) {
  CDevMode foreign;
  foreign.SetDefaults();
  foreign.SetDWord(devmode::kSize, kDevModeSize - 4);
  const auto opens = [&](const char* what, auto&& change) {
    SCOPED_TRACE(what);
    DocumentJob job(*object_);
    change(job.param);
    EXPECT_EQ(job.Prepare(), S_OK);
    FakeSheet sheet = NewSheet();
    ASSERT_EQ(Open(sheet), 5U);
    EXPECT_TRUE(ContextOf(sheet)->jobValues.IsCurrent());
    Close(sheet);
    EXPECT_EQ(job.BusyBlocks(), 0);
  };
  opens("block", [](OEMCUIPPARAM& param) { param.pOEMDM = nullptr; });
  opens("block of this version", [&](OEMCUIPPARAM& param) { param.pOEMDM = &foreign; });
  opens("public part", [](OEMCUIPPARAM& param) { param.pPublicDM = nullptr; });
  opens("items, but not their count", [](OEMCUIPPARAM& param) { param.pDrvOptItems = nullptr; });
}

TEST_F(DocumentSheet, AddsFourPagesWithTheTreeBetweenTheLastTwo) {
  DocumentJob job(*object_);
  job.Prepare();
  FakeSheet sheet = NewSheet();
  ASSERT_EQ(Open(sheet), 5U);

  const int templates[] = {1066, 1030, 1072, 0, 1000};
  std::set<DLGPROC> procedures;
  for (std::size_t i = 0; i < sheet.calls.size(); ++i) {
    const SheetCall& call = sheet.calls[i];
    if (templates[i] == 0) {
      continue;
    }
    EXPECT_EQ(call.function, UINT{CPSFUNC_ADD_PROPSHEETPAGEA});
    EXPECT_EQ(call.page.hInstance, plugIn_.Module());
    EXPECT_EQ(call.page.pszTemplate, MAKEINTRESOURCEA(templates[i]));
    EXPECT_EQ(call.page.lParam, sheet.calls[0].page.lParam);
    procedures.insert(call.page.pfnDlgProc);
  }
  EXPECT_EQ(procedures.size(), 4U);
  EXPECT_FALSE(procedures.contains(nullptr));

  const SheetCall& tree = sheet.calls[3];
  EXPECT_EQ(tree.function, UINT{CPSFUNC_INSERT_PSUIPAGEA});
  EXPECT_EQ(tree.first, 103);  // the handle of page 3
  EXPECT_EQ(tree.insert.Type, PSUIPAGEINSERT_PCOMPROPSHEETUI);
  EXPECT_EQ(tree.insert.Mode, INSPSUIPAGE_MODE_LAST_CHILD);
  EXPECT_EQ(tree.tree.hInstCaller, plugIn_.Module());
  EXPECT_TRUE(MessageBoxes::shown.empty());
  Close(sheet);
}

TEST_F(DocumentSheet, ContextCarriesWhatTheDriverHandedOver) {
  Helper helper;
  object_->PublishDriverInterface(&helper);
  OEMUIOBJ prepared{};
  OEMUIOBJ shown{};
  for (const bool may : {true, false}) {
    DocumentJob job(*object_);
    job.param.poemuiobj = &prepared;
    job.param.dwFlags = may ? 0 : DM_NOPERMISSION;
    job.items[4].DMPubID = may ? DMPUB_PAGEORDER : DMPUB_NONE;
    job.Prepare();
    FakeSheet sheet = NewSheet();
    sheet.param.poemuiobj = &shown;
    if (!may) {
      sheet.info.lParamInit = 0;
    }
    Open(sheet);

    const SheetContext& context = *ContextOf(sheet);
    EXPECT_EQ(context.hOEMHeap, job.param.hOEMHeap);
    EXPECT_EQ(context.pDevMode, job.param.pOEMDM);
    EXPECT_EQ(context.pPublicDM, job.param.pPublicDM);
    EXPECT_EQ(context.poemuiobj, may ? &shown : &prepared);
    EXPECT_EQ(static_cast<void*>(context.pOEMHelp.get()), &helper);
    EXPECT_EQ(helper.references, 3U) << "the object's and the sheet's own";
    EXPECT_EQ(context.hComPropSheet, sheet.info.hComPropSheet);
    EXPECT_EQ(context.pfnComPropSheet, sheet.info.pfnComPropSheet);
    EXPECT_EQ(context.hLastPage, 105);
    EXPECT_EQ(context.hasPageOrder, may);
    EXPECT_EQ(context.mayChangeSettings, may);
    Close(sheet);
    EXPECT_EQ(helper.references, 2U);
  }
  object_.reset();
  EXPECT_EQ(helper.references, 1U);
}

TEST_F(DocumentSheet, SecondSheetIsWarnedOfAndCountsAfterTheFirstHasGone) {
  const auto& boxes = MessageBoxes::shown;
  DocumentJob job(*object_);
  job.Prepare();
  FakeSheet first = NewSheet();
  EXPECT_EQ(Open(first), 5U);

  DocumentJob later(*object_);
  later.param.cOEMOptItems = 7;
  EXPECT_EQ(object_->CommonUIProp(OEMCUIP_DOCPROP, &later.param), S_OK);
  EXPECT_EQ(later.param.cOEMOptItems, 7U);  // an open sheet: nothing is done
  EXPECT_EQ(later.BusyBlocks(), 0);
  FakeSheet second = NewSheet();
  EXPECT_EQ(Open(second), 0U);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text.substr(0, 8), "QuorraQR");
  EXPECT_EQ(boxes[0].text.size(), 72U);
  EXPECT_EQ(boxes[0].caption, Japanese("警告"));
  EXPECT_EQ(boxes[0].type, UINT{MB_ICONEXCLAMATION});

  EXPECT_EQ(job.BusyBlocks(), 1);
  Close(first);
  EXPECT_EQ(job.BusyBlocks(), 0);
  FakeSheet third = NewSheet();
  EXPECT_EQ(Open(third), 0U);
  EXPECT_EQ(boxes.size(), 2U);
  Close(third);
  Close(second);
  Close(second);  // once too often

  EXPECT_EQ(job.Prepare(), S_OK);
  FakeSheet fourth = NewSheet();
  EXPECT_EQ(Open(fourth), 5U);
  EXPECT_EQ(boxes.size(), 2U);
  Close(fourth);
}

TEST_F(DocumentSheet, AnotherThreadDoesNotFreeTheData) {
  DocumentJob job(*object_);
  job.Prepare();
  FakeSheet sheet = NewSheet();
  Open(sheet);
  std::thread([&] { sheet.Send(PROPSHEETUI_REASON_DESTROY); }).join();
  EXPECT_EQ(sheet.info.Result, 1U);
  EXPECT_EQ(job.BusyBlocks(), 1);
}

TEST_F(DocumentSheet, PreparedContextServesItsThreadUntilTheNextPreparation) {
  const auto pages = [&] {
    FakeSheet sheet = NewSheet();
    const std::size_t count = Open(sheet);
    Close(sheet);
    return count;
  };
  const auto prepareAndEnd = [&] { DocumentJob(*object_).Prepare(); };  // its heap is gone
  DocumentJob job(*object_);
  prepareAndEnd();
  job.Prepare();
  std::thread([&] { EXPECT_EQ(pages(), 0U); }).join();
  EXPECT_EQ(pages(), 5U);
  EXPECT_EQ(job.BusyBlocks(), 0);
  EXPECT_EQ(pages(), 0U) << "taken up before";

  job.Prepare();
  std::thread(prepareAndEnd).join();
  EXPECT_EQ(pages(), 0U);

  prepareAndEnd();
  job.param.pOEMOptItems = nullptr;
  EXPECT_EQ(object_->CommonUIProp(OEMCUIP_DOCPROP, &job.param), S_OK);  // asks for the size
  EXPECT_EQ(pages(), 0U);
}

}  // namespace
}  // namespace zn::test
