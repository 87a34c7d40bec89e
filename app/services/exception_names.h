// The names of the processor's and the system's exception codes, as the
// unhandled-error message shows them.
#pragma once

#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

// "Access violation" for 0xC0000005 and so on; a code without a name gives
// "Unknown exception (" with its eight upper-case hexadecimal digits and ")".
WString ExceptionName(std::uint32_t code);

}  // namespace NScrivolt
