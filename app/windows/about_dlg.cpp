#include "app/windows/about_dlg.h"

#include "app/shell/resource_ids.h"
#include "app/shell/web_pages.h"
#include "platform/win32/wide_cast.h"
#include "text/text.h"

namespace NScrivolt {

namespace {

// The XML module is the project's own; its page is part of the program's site.
constexpr WStringView kXmlModuleAddress = u"https://www.scrivolt.example/xml-module";

void SetItemText(HWND dialog, int item, MessageId message) {
  SetDlgItemTextW(dialog, item, Platform::AsWin(CText(message).str()));
}

}  // namespace

CAboutDlg::CAboutDlg() : xmlSite_(WString(kXmlModuleAddress), MsgUpdatePageError, MsgUpdatePageErrorTitle) {
  Signal<Ui::CDialogCommandEvent>().Connect(*this);
  Signal<Ui::CDialogInitializeEvent>().Connect(*this);
}

bool CAboutDlg::Receive(Ui::CDialogInitializeEvent&) {
  const HWND dialog = GetWindow();
  const HINSTANCE program = GetModuleHandleW(nullptr);
  // The icon is the executable's: a language module carries none.
  SendDlgItemMessageW(dialog, IDC_ABOUT_ICON, STM_SETICON,
                      reinterpret_cast<WPARAM>(LoadIconW(program, MAKEINTRESOURCEW(IDI_PROGRAM))), 0);
  SetItemText(dialog, IDC_ABOUT_VERSION, MsgVersion);
  SetItemText(dialog, IDC_ABOUT_RELEASE_DATE, MsgReleaseDate);
  homeLink_.Attach(GetDlgItem(dialog, IDC_ABOUT_HOME_LINK), program, IDC_LINK_CURSOR, *this);
  xmlLink_.Attach(GetDlgItem(dialog, IDC_ABOUT_XML_LINK), program, IDC_LINK_CURSOR, xmlSite_);
  return false;
}

bool CAboutDlg::Receive(Ui::CDialogCommandEvent& event) {
  if (event.id != IDOK && event.id != IDCANCEL) return false;
  Close();
  return true;
}

void CAboutDlg::OnLinkActivated(Ui::CLinkControl&) { OpenHomePage(GetWindow(), u"about"); }

}  // namespace NScrivolt
