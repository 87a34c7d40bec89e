// CTabControl: a tab control with one child dialog page per tab. The page of
// the selected tab is shown inside the tab's display area, the others are
// hidden. A change of tab, by the user or by SelectPage, is announced with
// CNewTabSelectedEvent.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/signal.h"
#include "ui/win32/dialog_window.h"
#include "ui/win32/subclass.h"

namespace NScrivolt::Ui {

class CTabControl;

struct CNewTabSelectedEvent : CEventTypeNoResult {
  CTabControl* tabControl = nullptr;
  int page = -1;
};

class CTabControl : public CSubclassedWindow, public CSignal<CNewTabSelectedEvent> {
 public:
  // Takes over the tab control `tab` of a dialog; its selection changes are
  // seen through the dialog's notifications.
  bool Attach(HWND tab);

  // Adds a tab whose page is `page`, made from `params` as a modeless child
  // of the tab's dialog; the tab shows the page's caption. The first page
  // added is shown.
  bool AddPage(CDialogWindow& page, CDialogParams params);

  // Selects the tab and shows its page, as if the user had clicked it.
  void SelectPage(int index);
  int GetSelectedPage() const;
  int GetPageCount() const { return static_cast<int>(pages_.size()); }
  HWND GetWindow() const { return tab_; }

  bool HandleMessage(CMessage& message) override;

 private:
  void ShowSelectedPage();
  void PlacePage(HWND page) const;

  HWND tab_ = nullptr;
  HWND parent_ = nullptr;
  std::vector<CDialogWindow*> pages_;
};

}  // namespace NScrivolt::Ui
