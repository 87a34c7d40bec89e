// Where the running program is installed: the executable's own path and its
// folder, where the help folder and the language modules lie.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// The full path of the running executable; empty when the system gives none.
WString ExecutablePath();

// The executable's folder, without the last backslash.
WString InstallPath();

}  // namespace NScrivolt
