#include "app/shell/web_pages.h"

#include "text/text.h"
#include "ui/win32/shell_open.h"

namespace NScrivolt {

namespace {

void OpenPage(HWND owner, MessageId address, WStringView source) {
  const CText page = CText(address).Replace(u"[SOURCE]", source);
  Ui::OpenWithShell(owner, u"open", page.str(), MsgUpdatePageError, MsgUpdatePageErrorTitle);
}

}  // namespace

void OpenUpdatePage(HWND owner, WStringView source) { OpenPage(owner, MsgUpdatePageAddress, source); }

void OpenHomePage(HWND owner, WStringView source) { OpenPage(owner, MsgHomePageAddress, source); }

}  // namespace NScrivolt
