// Automatic names of parameters: "Param" and a number drawn from one counter
// for the whole process, never reset, so no number is handed out twice while
// the process lives. A node keeps only the number; the name and its key
// ("param" and the number) are written out when asked for, which spares a
// tree of a million numbered children two million short texts.
#pragma once

#include <array>
#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt {

// A node keeps an automatic number in 40 bits: more than a day of a run
// that names ten million parameters a second.
constexpr std::uint64_t kAutomaticNumberEnd = std::uint64_t(1) << 40;

// The next number of the process-wide counter; the first one is 1. Throws
// std::length_error once every number below kAutomaticNumberEnd is taken.
std::uint64_t NextAutomaticNumber();
// The last number handed out; 0 before the first.
std::uint64_t LastAutomaticNumber();
// Takes back every number handed out after `last`, a value that
// LastAutomaticNumber gave. For a builder that gave up and has freed every
// node it numbered: the numbers then run on as if it had never started.
void TakeBackAutomaticNumbers(std::uint64_t last);

// "Param" and the number; "param" and the number.
WString AutomaticName(std::uint64_t number);
WString AutomaticKey(std::uint64_t number);

// Room for "param" and the digits of any 64-bit number.
using AutomaticKeyBuffer = std::array<WChar, 25>;

// The automatic key of `number`, written into `buffer`.
WStringView AutomaticKeyIn(std::uint64_t number, AutomaticKeyBuffer& buffer);

// The number whose automatic key `key` is: "param" and the decimal digits of
// a number from 1 on, without leading zeros. 0 for any other key.
std::uint64_t AutomaticNumberIn(WStringView key);

// A short digest of a key (its length and its first and last units), kept
// by a short list for each of its children given a name, so a scan compares
// keys only where the digests agree and does not reach for the key text of
// every sibling. The empty key has the digest 0.
inline std::uint16_t KeyTag(WStringView key) {
  if (key.empty()) return 0;
  return std::uint16_t((key.size() << 11) ^ (std::uint32_t(key.front()) << 5) ^ key.back());
}

// A key looked up among the children of a parameter, with the number it
// names when it has the form of an automatic key. Most keys are told apart
// by their first unit, without a call.
struct CKeyLookup {
  explicit CKeyLookup(WStringView text)
      : key(text), automaticNumber(!text.empty() && text[0] == u'p' ? AutomaticNumberIn(text) : 0), tag(KeyTag(text)) {}

  WStringView key;
  std::uint64_t automaticNumber;
  std::uint16_t tag;
};

}  // namespace NScrivolt
