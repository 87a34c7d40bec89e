// Wide text as the engine holds it: UTF-16 code units, on every platform.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace NScrivolt {

using WChar = char16_t;
using WString = std::u16string;
using WStringView = std::u16string_view;

// Lower-cases the ASCII letters A to Z and leaves every other unit alone; the
// engine's case-insensitive names and keywords are defined by exactly this.
constexpr WChar LowerAscii(WChar c) { return (c >= u'A' && c <= u'Z') ? WChar(c + 32) : c; }
constexpr WChar UpperAscii(WChar c) { return (c >= u'a' && c <= u'z') ? WChar(c - 32) : c; }

// A space or a tab: what separates command-line tokens and surrounds CSV fields.
constexpr bool IsBlank(WChar c) { return c == u' ' || c == u'\t'; }

WString ToLowerAscii(WStringView text);
WString ToUpperAscii(WStringView text);
bool EqualsIgnoreCase(WStringView a, WStringView b);

// Plain signed decimal: "-" for negatives, no grouping, no padding.
WString IntegerToText(std::int64_t value);

// Reads text the way a 32-bit wide-text-to-long conversion does: leading
// white space, an optional sign, decimal digits up to the first other unit.
// No digits read as 0; values beyond the 32-bit range clamp to its ends.
std::int32_t ReadInteger(WStringView text);

// Replaces every occurrence of `from`, scanning on behind each inserted `to`
// so an inserted text is never searched again. An empty `from` changes nothing.
WString ReplaceAll(WStringView text, WStringView from, WStringView to);

// Position of the first `unit` at or after `from`, or npos. Scans four units
// at a time: the template scans for markers over the whole text.
size_t FindUnit(WStringView text, WChar unit, size_t from = 0);

// ASCII text to wide text, for literals and messages built in code.
WString WidenAscii(std::string_view ascii);

}  // namespace NScrivolt
