// The process's last line of defence against faults: an access violation, a
// division by zero, a stack overflow. The handler describes the fault to the
// person and ends the program with a fixed exit code instead of vanishing.
#pragma once

#include "app/services/se_handler.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// Told about a fault; returns the exit code the process ends with.
using UnhandledErrorCallback = int (*)(const CSEHandler& fault);

// The exit code of a process that ended through ShowUnhandledError.
constexpr int kUnhandledErrorExitCode = 2;

// Makes the program's filter the process's unhandled-exception filter. On a
// fault it calls `callback` (without one the exit code is 1) and ends the
// process through the runtime's normal exit, so exit-time handlers run.
void InstallUnhandledErrorHandler(UnhandledErrorCallback callback);

// The message ShowUnhandledError shows: what happened, where, in which
// module, and for an access violation what was accessed.
WString UnhandledErrorText(const CSEHandler& fault);

// Shows UnhandledErrorText in an error box without owner window and returns
// kUnhandledErrorExitCode.
int ShowUnhandledError(const CSEHandler& fault);

// The last resort of the entry point, for an exception that left the run:
// shows the unknown-unhandled-error box without owner window and returns
// the exit code 255.
int ShowUnknownUnhandledError();

// Runs `run` and returns its exit code; an exception that leaves it ends in
// ShowUnknownUnhandledError.
int RunWithLastResort(int (*run)());

}  // namespace NScrivolt
