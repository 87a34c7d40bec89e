// Small formatting helpers for message texts.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace NScrivolt {

// "0x" and exactly eight upper-case hexadecimal digits: 255 gives "0x000000FF".
WString FormatHex32(std::uint32_t value);

// An address in the same form; one above 32 bits keeps all its digits
// ("0x7FF612345678"), so a 64-bit program's addresses are never cut short.
WString FormatHexAddress(std::uint64_t value);

// Fills `placeholder` of `message` with the code in unsigned decimal, " - "
// and the system's description of the code, or `defaultText` when the system
// has none.
void FormatWindowsErrorText(CText& message, WStringView placeholder, std::uint32_t errorCode,
                            const CText& defaultText, bool firstOnly = true);
// The same for the calling thread's last error.
void FormatWindowsErrorText(CText& message, WStringView placeholder, const CText& defaultText,
                            bool firstOnly = true);

// The message that explains the result of a shell-execution request.
MessageId ShellExecuteErrorMessageId(std::intptr_t result);

}  // namespace NScrivolt
