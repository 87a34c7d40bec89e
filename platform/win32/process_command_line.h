// The command line the process was started with, as one text.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

WString ProcessCommandLine();

}  // namespace NScrivolt::Platform
