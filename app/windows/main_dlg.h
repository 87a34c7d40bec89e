// CMainDlg: the main window of a start without arguments: a menu and an Exit
// button. Closing it keeps its place and saves the settings.
#pragma once

#include "app/settings/settings.h"
#include "app/settings/user_settings.h"
#include "app/shell/language_modules.h"
#include "ui/win32/dialog_window.h"

namespace NScrivolt {

// Why the window is asked to close: a person's request, or the end of the
// Windows session, when the window only says whether it may go.
enum class CloseReason { Request, SessionEnd };

class CMainDlg : public Ui::CDialogWindow,
                 public Ui::CSlot<Ui::CDialogMessageEvent>,
                 public Ui::CSlot<Ui::CDialogCommandEvent>,
                 public Ui::CSlot<Ui::CDialogInitializeEvent>,
                 public Ui::CSlot<Ui::CDialogTerminateEvent> {
 public:
  CMainDlg(CSettings& settings, CUserSettings& user, CLanguageModules& languages);

  bool Receive(Ui::CDialogMessageEvent& event) override;
  bool Receive(Ui::CDialogCommandEvent& event) override;
  bool Receive(Ui::CDialogInitializeEvent& event) override;
  bool Receive(Ui::CDialogTerminateEvent& event) override;

  // Stores the place, saves the settings and, unless the session ends,
  // closes the window. False when the person chose to keep it open.
  bool CloseProcedure(CloseReason reason);

 private:
  void SetIcons();
  void RestorePosition();
  void StorePosition();
  bool SaveSettings();

  CSettings& settings_;
  CUserSettings& user_;
  CLanguageModules& languages_;
};

}  // namespace NScrivolt
