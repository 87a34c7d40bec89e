// The creation parameters of the program's own dialogs: the template comes
// from the language module of the interface, else from the executable.
#pragma once

#include "ui/win32/dialog_window.h"

namespace NScrivolt {

Ui::CDialogParams ProgramDialog(WORD resourceId, HWND owner, Ui::DialogMode mode);

}  // namespace NScrivolt
