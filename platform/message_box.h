// Modal message boxes without owner window. On POSIX they are written to
// standard error as the title on one line and the text below it; on Windows
// they are boxes, or the same lines on standard error when no box can be made.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

enum class MessageBoxIcon { None, Warning, Error };

void ShowMessageBox(WStringView text, WStringView title, MessageBoxIcon icon);

}  // namespace NScrivolt::Platform
