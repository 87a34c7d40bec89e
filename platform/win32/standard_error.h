// The way out for a message when no box can be made (no desktop, as for a
// program started by a service, or no display under Wine): the lines the
// POSIX program writes for a box, title then text, on the standard error
// handle if the process has one.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

void WriteMessageToStandardError(WStringView text, WStringView title);

// MessageBoxW's result when no box could be made: 0, and -1 under Wine
// without a display.
inline bool BoxFailed(int result) { return result <= 0; }

}  // namespace NScrivolt::Platform
