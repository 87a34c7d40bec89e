#include "app/windows/language_page.h"

#include "app/shell/resource_ids.h"
#include "platform/win32/wide_cast.h"
#include "text/text.h"
#include "ui/win32/message_box.h"

namespace NScrivolt {

CLanguagePage::CLanguagePage(CUserSettings& user, const CLanguageModules& languages, std::function<void()> onChange)
    : user_(user), languages_(languages), onChange_(std::move(onChange)) {
  Signal<Ui::CDialogCommandEvent>().Connect(*this);
  Signal<Ui::CDialogInitializeEvent>().Connect(*this);
}

HWND CLanguagePage::List() const { return GetDlgItem(GetWindow(), IDC_LANGUAGE_LIST); }

bool CLanguagePage::Receive(Ui::CDialogInitializeEvent&) {
  const WString& current = user_.GetLanguage();
  const CLanguageModule* selected = languages_.Find(current);
  if (selected == nullptr) selected = languages_.Find(u"EN");
  entries_ = languages_.GetSortedList(current);
  for (size_t index = 0; index < entries_.size(); ++index) {
    const WString name = languages_.GetDisplayName(*entries_[index], current, true);
    SendMessageW(List(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Platform::AsWin(name)));
    if (entries_[index] == selected) SendMessageW(List(), CB_SETCURSEL, index, 0);
  }
  return false;
}

bool CLanguagePage::Receive(Ui::CDialogCommandEvent& event) {
  if (event.id != IDC_LANGUAGE_LIST || event.code != CBN_SELCHANGE) return false;
  if (onChange_) onChange_();
  return true;
}

void CLanguagePage::Apply(HWND owner) {
  const LRESULT index = SendMessageW(List(), CB_GETCURSEL, 0, 0);
  if (index < 0 || size_t(index) >= entries_.size()) return;
  const WString old = user_.GetLanguage();
  user_.SetLanguage(entries_[size_t(index)]->abbreviation);
  if (UpperCaseLanguage(old) == UpperCaseLanguage(user_.GetLanguage())) return;
  Ui::ShowMessage(owner, CText(MsgLanguageChanged), MsgLanguageChangedTitle, MB_OK | MB_ICONWARNING);
}

}  // namespace NScrivolt
