// The "Language" page of the settings dialog: a list of the interface
// languages at hand, the current one selected.
#pragma once

#include <functional>
#include <vector>

#include "app/settings/user_settings.h"
#include "app/shell/language_modules.h"
#include "ui/win32/dialog_window.h"

namespace NScrivolt {

class CLanguagePage : public Ui::CDialogWindow,
                      public Ui::CSlot<Ui::CDialogCommandEvent>,
                      public Ui::CSlot<Ui::CDialogInitializeEvent> {
 public:
  // `onChange` runs when the person picks another entry.
  CLanguagePage(CUserSettings& user, const CLanguageModules& languages, std::function<void()> onChange);

  bool Receive(Ui::CDialogCommandEvent& event) override;
  bool Receive(Ui::CDialogInitializeEvent& event) override;

  // Makes the selected language the user's; tells the person that it takes
  // effect at the next start when it differs from the one before.
  void Apply(HWND owner);

 private:
  HWND List() const;

  CUserSettings& user_;
  const CLanguageModules& languages_;
  std::function<void()> onChange_;
  std::vector<const CLanguageModule*> entries_;
};

}  // namespace NScrivolt
