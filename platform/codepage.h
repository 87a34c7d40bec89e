// Conversions between wide text and the two 8-bit forms the system writes:
// the "ANSI code page" of the running thread and UTF-8. All of them append
// to the text or bytes given.
//
// Windows uses the thread's code page (CP_THREAD_ACP). POSIX uses the
// character set of the user's locale: UTF-8 (the C/POSIX locale counts as
// UTF-8) or Windows-1252 for the Western sets "CP1252", "ISO-8859-1" and
// "ISO-8859-15". Any other set is treated as UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// Strict: a byte sequence that is not valid in the code page makes it fail,
// with `text` left as it was.
bool DecodeAnsi(std::string_view bytes, WString& text);

// The length of the longest start of `bytes` that DecodeAnsi converts to what
// the same bytes give within any longer data: it ends before a character
// whose bytes may go on past the end.
std::size_t AnsiCompletePrefix(std::string_view bytes);

// A character without an equivalent takes its best fit or, failing that, the
// default character, which sets usedDefaultChar. On failure `bytes` is left
// as it was.
bool EncodeAnsi(WStringView text, std::string& bytes, bool& usedDefaultChar);

// Lenient: malformed sequences become U+FFFD.
bool DecodeUtf8(std::string_view bytes, WString& text);

// A lone surrogate becomes U+FFFD.
bool EncodeUtf8(WStringView text, std::string& bytes);

}  // namespace NScrivolt::Platform
