// UTF-8 <-> UTF-16 conversion done in code, without the operating system.
#pragma once

#include <string>
#include <string_view>

#include "text/wide_string.h"

namespace NScrivolt {

constexpr WChar kReplacementChar = 0xFFFD;

// Lenient: each malformed sequence (bad lead byte, missing continuation,
// overlong form, surrogate code point, value above U+10FFFF) becomes U+FFFD.
WString Utf8ToWide(std::string_view bytes);

// Strict: false, with `text` emptied, as soon as any sequence is malformed.
bool Utf8ToWideStrict(std::string_view bytes, WString& text);

// A lone surrogate is written as U+FFFD; `replaced`, when given, tells whether
// that happened.
std::string WideToUtf8(WStringView text, bool* replaced = nullptr);

// WideToUtf8 appending to `bytes`, which grows once by the exact length.
void AppendUtf8(WStringView text, std::string& bytes, bool* replaced = nullptr);

}  // namespace NScrivolt
