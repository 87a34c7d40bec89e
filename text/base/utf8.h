// UTF-8 <-> UTF-16 conversion done in code, without the operating system.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/base/wide_string.h"

namespace NScrivolt {

constexpr WChar kReplacementChar = 0xFFFD;

// Lenient: each malformed sequence (bad lead byte, missing continuation,
// overlong form, surrogate code point, value above U+10FFFF) becomes U+FFFD.
WString Utf8ToWide(std::string_view bytes);

// Appends the conversion of `bytes` to `text`, leniently as above or
// strictly: false, with `text` as it was, as soon as a sequence is malformed.
bool AppendUtf8AsWide(std::string_view bytes, WString& text, bool strict);

// The length of the longest start of `bytes` that converts on its own to
// what it converts to within any longer text: it ends before a sequence that
// could go on past the end of `bytes`. Converting a text piece by piece, each
// piece cut there and the rest carried over, gives the same as converting it
// whole.
std::size_t Utf8CompletePrefix(std::string_view bytes);

// A lone surrogate is written as U+FFFD; `replaced`, when given, tells whether
// that happened.
std::string WideToUtf8(WStringView text, bool* replaced = nullptr);

// WideToUtf8 appending to `bytes`.
void AppendUtf8(WStringView text, std::string& bytes, bool* replaced = nullptr);

}  // namespace NScrivolt
