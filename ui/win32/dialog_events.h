// The events a dialog sends to its slots. Events that ask "was it handled?"
// combine the slots' answers with OR; notices ignore them.
#pragma once

#include <windows.h>

#include <optional>

#include "ui/event_types.h"

namespace NScrivolt::Ui {

// Any message of the dialog that no more specific event handled. A slot that
// answers may set `result`, which the dialog procedure then hands back.
struct CDialogMessageEvent : CEventTypeBoolOr {
  HWND window = nullptr;
  UINT message = 0;
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  std::optional<LRESULT> result;
};

// WM_COMMAND: the command id (low word), the notification code (high word)
// and the control that sent it (null for menus and accelerators).
struct CDialogCommandEvent : CEventTypeBoolOr {
  HWND window = nullptr;
  WORD id = 0;
  WORD code = 0;
  HWND control = nullptr;
};

// WM_NOTIFY from a common control.
struct CDialogCCNotificationEvent : CEventTypeBoolOr {
  HWND window = nullptr;
  NMHDR* header = nullptr;
  std::optional<LRESULT> result;
};

// The window exists and its controls are made.
struct CDialogInitializeEvent : CEventTypeNoResult {
  HWND window = nullptr;
};

// The window is about to go.
struct CDialogTerminateEvent : CEventTypeNoResult {
  HWND window = nullptr;
};

}  // namespace NScrivolt::Ui
