// The command-line usage text, put together from its messages, for a
// platform without a help viewer.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

// Every switch with an example, the exit codes, how the POSIX program differs
// and the beta notice; ends with a line feed.
WString UsageText();

}  // namespace NScrivolt
