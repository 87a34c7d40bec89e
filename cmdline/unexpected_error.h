// The last resort of an entry point: an exception nobody handled.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// The exit code of a program that an unexpected error stopped.
constexpr int kUnexpectedErrorExitCode = 255;

// Shows the unhandled-error box MsgUnhandledError (on POSIX: standard error)
// with `description`, or MsgUnknownErrorOccurred when it is empty.
void ShowUnexpectedError(WStringView description);

}  // namespace NScrivolt
