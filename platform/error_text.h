// The operating system's own descriptions of its error codes.
#pragma once

#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// The calling thread's last error: GetLastError() on Windows, errno on POSIX.
std::uint32_t LastErrorCode();

// The system's description of `code`, taken as it comes (a trailing line
// break included). False when the system has none.
bool SystemErrorDescription(std::uint32_t code, WString& description);

}  // namespace NScrivolt::Platform
