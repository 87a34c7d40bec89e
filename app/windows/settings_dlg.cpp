#include "app/windows/settings_dlg.h"

#include "app/services/help_topic.h"
#include "app/shell/resource_ids.h"
#include "app/windows/program_dialog.h"

namespace NScrivolt {

CSettingsDlg::CSettingsDlg(CUserSettings& user, const CLanguageModules& languages)
    : languagePage_(user, languages, [this] { SetModified(true); }) {
  Signal<Ui::CDialogMessageEvent>().Connect(*this);
  Signal<Ui::CDialogCommandEvent>().Connect(*this);
  Signal<Ui::CDialogInitializeEvent>().Connect(*this);
  Signal<Ui::CDialogTerminateEvent>().Connect(*this);
}

bool CSettingsDlg::Receive(Ui::CDialogInitializeEvent&) {
  tabs_.Attach(GetDlgItem(GetWindow(), IDC_SETTINGS_TABS));
  tabs_.AddPage(languagePage_, ProgramDialog(IDD_LANGUAGE_PAGE, GetWindow(), Ui::DialogMode::Modeless));
  SetModified(false);
  return false;
}

bool CSettingsDlg::Receive(Ui::CDialogTerminateEvent&) { return false; }

void CSettingsDlg::SetModified(bool modified) {
  modified_ = modified;
  EnableWindow(GetDlgItem(GetWindow(), IDC_SETTINGS_APPLY), modified ? TRUE : FALSE);
}

void CSettingsDlg::Apply() {
  if (!modified_) return;
  languagePage_.Apply(GetWindow());
  SetModified(false);
}

bool CSettingsDlg::Receive(Ui::CDialogCommandEvent& event) {
  switch (event.id) {
    case IDC_SETTINGS_APPLY:
      Apply();
      return true;
    case IDC_SETTINGS_OK:
      Apply();
      Close();
      return true;
    case IDCANCEL:
      Close();
      return true;
    default:
      return false;
  }
}

bool CSettingsDlg::Receive(Ui::CDialogMessageEvent& event) {
  if (event.message != WM_HELP) return false;
  ShowHelpTopic(GetWindow(), MsgHelpTopicSettings);
  event.result = TRUE;
  return true;
}

}  // namespace NScrivolt
