// Character classes of the script language, from one table over ASCII; every
// unit above ASCII is in no class.
#pragma once

#include <array>
#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

namespace CharClass {
enum : std::uint8_t {
  Name = 1,   // "a"-"z", "A"-"Z", "0"-"9", "-", "_": function, argument and parameter names
  Space = 2,  // space, tab, carriage return, line feed
};
}  // namespace CharClass

constexpr std::array<std::uint8_t, 128> MakeCharClassTable() {
  std::array<std::uint8_t, 128> table{};
  for (int c = 'a'; c <= 'z'; ++c) table[c] = CharClass::Name;
  for (int c = 'A'; c <= 'Z'; ++c) table[c] = CharClass::Name;
  for (int c = '0'; c <= '9'; ++c) table[c] = CharClass::Name;
  table['-'] = table['_'] = CharClass::Name;
  table[' '] = table['\t'] = table['\r'] = table['\n'] = CharClass::Space;
  return table;
}

inline constexpr std::array<std::uint8_t, 128> kCharClassTable = MakeCharClassTable();

constexpr bool HasCharClass(WChar c, std::uint8_t charClass) {
  return c < 128 && (kCharClassTable[c] & charClass) != 0;
}

constexpr bool IsNameChar(WChar c) { return HasCharClass(c, CharClass::Name); }
constexpr bool IsSpaceChar(WChar c) { return HasCharClass(c, CharClass::Space); }

// A function, argument or parameter name: one or more name characters.
constexpr bool IsValidName(WStringView text) {
  if (text.empty()) return false;
  for (WChar c : text) {
    if (!IsNameChar(c)) return false;
  }
  return true;
}

// A reference is name characters, a "." directly after a name character, and
// a "#" directly after a "."; `previous` is the unit before `c` in the
// reference (0 at its start), so a reference never begins with "." or "#".
constexpr bool IsReferenceChar(WChar c, WChar previous) {
  return IsNameChar(c) || (c == u'.' && IsNameChar(previous)) || (c == u'#' && previous == u'.');
}

}  // namespace NScrivolt
