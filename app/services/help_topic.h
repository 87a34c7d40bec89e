// Opening a page of the program's help file for a window or the command line.
#pragma once

#include <windows.h>

#include "text/message_ids.h"

namespace NScrivolt {

// Shows the page whose name is the text of `topicId` from the help file
// that message HelpFile names. A missing file or a failing viewer is
// reported in a message box owned by `owner` (null: no owner window).
void ShowHelpTopic(HWND owner, MessageId topicId);

}  // namespace NScrivolt
