// The process's current directory, which each processing changes and restores.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

bool CurrentDirectory(WString& directory);
bool ChangeCurrentDirectory(const WString& directory);

}  // namespace NScrivolt::Platform
