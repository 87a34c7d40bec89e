#include "app/windows/main_dlg.h"

#include "app/services/help_topic.h"
#include "app/shell/resource_ids.h"
#include "app/shell/web_pages.h"
#include "app/windows/about_dlg.h"
#include "app/windows/program_dialog.h"
#include "app/windows/settings_dlg.h"
#include "text/format.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace NScrivolt {

namespace {

constexpr int kSmallIconSize = 16;

void ShowModal(Ui::CDialogWindow& dialog, HWND owner, WORD resourceId) {
  dialog.Create(ProgramDialog(resourceId, owner, Ui::DialogMode::Modal));
}

}  // namespace

CMainDlg::CMainDlg(CSettings& settings, CUserSettings& user, CLanguageModules& languages)
    : settings_(settings), user_(user), languages_(languages) {
  Signal<Ui::CDialogMessageEvent>().Connect(*this);
  Signal<Ui::CDialogCommandEvent>().Connect(*this);
  Signal<Ui::CDialogInitializeEvent>().Connect(*this);
  Signal<Ui::CDialogTerminateEvent>().Connect(*this);
}

bool CMainDlg::Receive(Ui::CDialogInitializeEvent&) {
  SetIcons();
  RestorePosition();
  return false;
}

bool CMainDlg::Receive(Ui::CDialogTerminateEvent&) { return false; }

void CMainDlg::SetIcons() {
  const HINSTANCE program = GetModuleHandleW(nullptr);
  HICON large = LoadIconW(program, MAKEINTRESOURCEW(IDI_PROGRAM));
  auto small = static_cast<HICON>(
      LoadImageW(program, MAKEINTRESOURCEW(IDI_PROGRAM), IMAGE_ICON, kSmallIconSize, kSmallIconSize, 0));
  SendMessageW(GetWindow(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large));
  SendMessageW(GetWindow(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
}

void CMainDlg::RestorePosition() {
  const CWindowRecord& record = user_.GetWindowRecord(kMainWindowRecord);
  if (record.positionX == kNoStoredPosition) return;
  SetWindowPos(GetWindow(), nullptr, record.positionX, record.positionY, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CMainDlg::StorePosition() {
  RECT place;
  if (!GetWindowRect(GetWindow(), &place)) return;
  CWindowRecord record;
  record.positionX = place.left;
  record.positionY = place.top;
  record.sizeX = place.right - place.left;
  record.sizeY = place.bottom - place.top;
  user_.SetWindowRecord(kMainWindowRecord, record);
}

// Saves until it works, or until the person ignores the failure (true) or
// aborts the closing (false).
bool CMainDlg::SaveSettings() {
  while (!settings_.Save()) {
    CText text(MsgSettingsSaveError);
    FormatWindowsErrorText(text, u"[ERROR]", CText(MsgUnknownErrorOccurred));
    const int answer = Ui::ShowMessage(GetWindow(), text, MsgSettingsSaveErrorTitle,
                                       MB_ABORTRETRYIGNORE | MB_ICONWARNING | MB_DEFBUTTON2);
    if (answer == IDIGNORE) return true;
    if (answer != IDRETRY) return false;
  }
  return true;
}

bool CMainDlg::CloseProcedure(CloseReason reason) {
  StorePosition();
  if (!SaveSettings()) return false;
  if (reason == CloseReason::Request) Close();
  return true;
}

bool CMainDlg::Receive(Ui::CDialogCommandEvent& event) {
  switch (event.id) {
    case IDC_EXIT:
    case IDCANCEL:  // Escape and the dialog manager's close request
      CloseProcedure(CloseReason::Request);
      return true;
    case IDM_EDIT_SETTINGS: {
      CSettingsDlg dialog(user_, languages_);
      ShowModal(dialog, GetWindow(), IDD_SETTINGS);
      return true;
    }
    case IDM_HELP_WINDOW:
      ShowHelpTopic(GetWindow(), MsgHelpTopicMainWindow);
      return true;
    case IDM_HELP_SCRIVOLT:
      ShowHelpTopic(GetWindow(), MsgHelpTopicIntroduction);
      return true;
    case IDM_ABOUT: {
      CAboutDlg dialog;
      ShowModal(dialog, GetWindow(), IDD_ABOUT);
      return true;
    }
    case IDM_SUPPORT:
      ShowHelpTopic(GetWindow(), MsgHelpTopicSupport);
      return true;
    case IDM_CHECK_UPDATES:
      OpenUpdatePage(GetWindow(), u"menu");
      return true;
    default:
      return false;
  }
}

bool CMainDlg::Receive(Ui::CDialogMessageEvent& event) {
  switch (event.message) {
    case WM_CLOSE:
      CloseProcedure(CloseReason::Request);
      return true;
    case WM_QUERYENDSESSION:
      event.result = CloseProcedure(CloseReason::SessionEnd) ? TRUE : FALSE;
      return true;
    case WM_HELP:
      ShowHelpTopic(GetWindow(), MsgHelpTopicMainWindow);
      event.result = TRUE;
      return true;
    default:
      return false;
  }
}

}  // namespace NScrivolt
