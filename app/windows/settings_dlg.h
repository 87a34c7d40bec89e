// CSettingsDlg: the settings dialog, one tab per page (today "Language").
// Apply is enabled while something was changed and not yet applied.
#pragma once

#include "app/windows/language_page.h"
#include "ui/win32/tab_control.h"

namespace NScrivolt {

class CSettingsDlg : public Ui::CDialogWindow,
                     public Ui::CSlot<Ui::CDialogMessageEvent>,
                     public Ui::CSlot<Ui::CDialogCommandEvent>,
                     public Ui::CSlot<Ui::CDialogInitializeEvent>,
                     public Ui::CSlot<Ui::CDialogTerminateEvent> {
 public:
  CSettingsDlg(CUserSettings& user, const CLanguageModules& languages);

  bool Receive(Ui::CDialogMessageEvent& event) override;
  bool Receive(Ui::CDialogCommandEvent& event) override;
  bool Receive(Ui::CDialogInitializeEvent& event) override;
  bool Receive(Ui::CDialogTerminateEvent& event) override;

 private:
  void SetModified(bool modified);
  void Apply();

  Ui::CTabControl tabs_;
  CLanguagePage languagePage_;
  bool modified_ = false;
};

}  // namespace NScrivolt
