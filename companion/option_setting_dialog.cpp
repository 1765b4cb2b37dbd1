// The print option setting dialog: a few fields of the record and the device profile's name.
#include <array>
#include <string>

#include "companion/companion_ids.h"
#include "companion/companion_module.h"
#include "companion/dialogs.h"
#include "companion/texts.h"
#include "companion/unattended.h"
#include "ddb/tag_table.h"
#include "keywords/keyword_table.h"

namespace zn::companion {
namespace {

// One list of the dialog: the options of a keyword, stored by their codes under a tag.
struct ListField {
  int control;
  KeywordId keyword;
  const ddb::Tag& tag;
};

constexpr std::array kListFields = {
    ListField{IDC_COLOR_MODE, KW_COLORMODEL, ddb::TagNamed("CL_CMODE")},
    ListField{IDC_PRINTER_MODE, KW_PRINTERMODE, ddb::TagNamed("CL_PMODE")},
    ListField{IDC_SPOOL, KW_SPOOLOPTION, ddb::TagNamed("SP_SPOPT")},
};
constexpr ddb::Tag kComment = ddb::TagNamed("USR_COMT");

class OptionSettingDialog {
 public:
  explicit OptionSettingDialog(const OptionSettingCall& call)
      : call_(call), body_(call.working->m_Body) {}

  int Run() { return RunDialog(IDD_OPTION_SETTING, call_.owner, *this); }

  // "TAG=number or text" changes a field, "profile=NAME" the profile.
  bool Apply(const std::vector<Assignment>& assignments) {
    for (const auto& [name, value] : assignments) {
      if (name == "profile") {
        ::lstrcpynA(call_.profile, value.c_str(), companion_abi::kPathSize);
      } else if (const ddb::Tag* tag = ddb::FindTag(name)) {
        if (tag->kind == ddb::kText) {
          ddb::SetText(body_, *tag, value);
        } else {
          ddb::SetInteger(body_, *tag, std::atoi(value.c_str()));
        }
      }
    }
    return true;
  }

  void OnInitDialog(HWND window) {
    dialog_ = window;
    for (const ListField& field : kListFields) {
      for (const char* name : OptionNames(static_cast<int>(field.keyword))) {
        ::SendDlgItemMessageA(dialog_, field.control, CB_ADDSTRING, 0,
                              reinterpret_cast<LPARAM>(name));
      }
    }
    ::SendDlgItemMessageA(dialog_, IDC_COMMENT, EM_LIMITTEXT, kComment.maxChars, 0);
    ::SendDlgItemMessageA(dialog_, IDC_PROFILE, EM_LIMITTEXT, companion_abi::kPathSize - 1, 0);
    ::SetDlgItemTextA(dialog_, IDC_RECORD_NAME, call_.recordName);
    ::SetDlgItemTextA(dialog_, IDC_PROFILE, call_.profile);
    Show(body_);
  }

  INT_PTR OnCommand(int control, int /*notification*/) {
    switch (control) {
      case IDC_RESTORE:
        Show(call_.reference->m_Body);
        return TRUE;
      case IDOK:
        Store();
        [[fallthrough]];
      case IDCANCEL:
        ::EndDialog(dialog_, control);
        return TRUE;
      default:
        return FALSE;
    }
  }

 private:
  void Show(const ddb::PrintOptionBody& body) {
    for (const ListField& field : kListFields) {
      std::uint32_t index = 0;
      const auto code = static_cast<std::uint32_t>(ddb::GetInteger(body, field.tag));
      const bool known = GetOptionIndex(field.keyword, code, index);
      ::SendDlgItemMessageA(dialog_, field.control, CB_SETCURSEL,
                            known ? index : static_cast<WPARAM>(-1), 0);
    }
    const std::string comment(ddb::GetText(body, kComment));
    ::SetDlgItemTextA(dialog_, IDC_COMMENT, comment.c_str());
  }

  void Store() {
    for (const ListField& field : kListFields) {
      const LRESULT index = ::SendDlgItemMessageA(dialog_, field.control, CB_GETCURSEL, 0, 0);
      std::uint32_t code = 0;
      // A value that the list does not know stays as it was.
      if (index >= 0 && GetOptionCode(field.keyword, static_cast<std::uint32_t>(index), code)) {
        ddb::SetInteger(body_, field.tag, static_cast<std::int32_t>(code));
      }
    }
    ddb::SetText(body_, kComment, ControlText(dialog_, IDC_COMMENT));
    ::GetDlgItemTextA(dialog_, IDC_PROFILE, call_.profile, companion_abi::kPathSize);
  }

  OptionSettingCall call_;
  ddb::PrintOptionBody& body_;
  HWND dialog_ = nullptr;
};

}  // namespace

int RunOptionSettingDialog(const OptionSettingCall& call) {
  return AnswerOrRun(OptionSettingDialog(call));
}

}  // namespace zn::companion
