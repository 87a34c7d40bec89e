// Which built-in character set stands in for the Windows "ANSI code page".
#pragma once

#include <string_view>

namespace NScrivolt::Platform {

enum class AnsiCharacterSet { Utf8, Windows1252 };

// By the name the C library gives (nl_langinfo(CODESET)), ignoring case, "-"
// and "_": the Western 8-bit sets ("CP1252", "ISO-8859-1", "ISO-8859-15")
// are Windows-1252; UTF-8, the C/POSIX locale's "ANSI_X3.4-1968" or "ASCII",
// and every set not built in are UTF-8.
AnsiCharacterSet CharacterSetNamed(std::string_view codeset);

// The set of the user's locale (LC_ALL, LC_CTYPE, LANG), looked up once.
AnsiCharacterSet LocaleCharacterSet();

}  // namespace NScrivolt::Platform
