// The Windows-1252 code page, built in, for POSIX locales with a Western
// 8-bit character set.
#pragma once

#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// Appends the text of `bytes`. Strict: the five bytes the code page leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) make it fail, with `text` as it
// was.
bool DecodeWindows1252(std::string_view bytes, WString& text);

// Appends one byte per code unit. Accented Latin letters outside the code
// page are written as their plain letter; anything else unrepresentable
// becomes "?" (a surrogate pair "??", as Windows writes it) and sets
// usedDefaultChar.
void EncodeWindows1252(WStringView text, std::string& bytes, bool& usedDefaultChar);

}  // namespace NScrivolt::Platform
