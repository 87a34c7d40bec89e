// A message box of the program: a message text, the message that titles it,
// the owner window (null for none) and the buttons and icon as MB_ flags.
#pragma once

#include <windows.h>

#include "text/text.h"

namespace NScrivolt::Ui {

// Returns the button the person pressed (IDOK, IDRETRY, ...).
int ShowMessage(HWND owner, const CText& text, MessageId title, UINT style);

}  // namespace NScrivolt::Ui
