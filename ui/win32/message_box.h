// A message box of the program: a message text, the message that titles it,
// the owner window (null for none) and the buttons and icon as MB_ flags.
#pragma once

#include <windows.h>

#include "text/text.h"

namespace NScrivolt::Ui {

// Returns the button the person pressed (IDOK, IDRETRY, ...). When no box can
// be made the message goes to standard error and the result says so (0 or -1).
int ShowMessage(HWND owner, const CText& text, MessageId title, UINT style);

}  // namespace NScrivolt::Ui
