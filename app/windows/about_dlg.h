// CAboutDlg: the about box: the program's name, version and release date, a
// link to its home page and the credits for the modules it is built from.
#pragma once

#include "ui/win32/dialog_window.h"
#include "ui/win32/link_control.h"

namespace NScrivolt {

class CAboutDlg : public Ui::CDialogWindow,
                  public Ui::CSlot<Ui::CDialogCommandEvent>,
                  public Ui::CSlot<Ui::CDialogInitializeEvent>,
                  public Ui::ILinkControlCallback {
 public:
  CAboutDlg();

  bool Receive(Ui::CDialogCommandEvent& event) override;
  bool Receive(Ui::CDialogInitializeEvent& event) override;
  // The home-page link.
  void OnLinkActivated(Ui::CLinkControl& link) override;

 private:
  Ui::CLinkControl homeLink_;
  Ui::CLinkControl xmlLink_;
  Ui::CShellExecuteLink xmlSite_;
};

}  // namespace NScrivolt
