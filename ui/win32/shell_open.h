// Opening a document or web page with the shell, as a person's double click
// would. A failure is reported to the person in a message box.
#pragma once

#include <windows.h>

#include "text/message_ids.h"

#include "text/base/wide_string.h"

namespace NScrivolt::Ui {

// Asks the shell to carry out `verb` ("open") on `target`. When it cannot,
// shows `errorMessage` with [FILEPATH] = target and [ERROR] = the shell's
// reason, titled `title`, owned by `owner`, and returns false.
bool OpenWithShell(HWND owner, const WString& verb, const WString& target, MessageId errorMessage,
                   MessageId title);

}  // namespace NScrivolt::Ui
