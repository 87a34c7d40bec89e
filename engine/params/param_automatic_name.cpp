#include "engine/params/param_automatic_name.h"

#include <limits>
#include <stdexcept>

namespace NScrivolt {

namespace {

constexpr WStringView kKeyPrefix = u"param";

std::uint64_t g_automaticNumberCounter = 0;

}  // namespace

std::uint64_t NextAutomaticNumber() {
  if (g_automaticNumberCounter + 1 == kAutomaticNumberEnd) {
    throw std::length_error("Too many parameters were numbered in this run");
  }
  return ++g_automaticNumberCounter;
}

std::uint64_t LastAutomaticNumber() { return g_automaticNumberCounter; }

void TakeBackAutomaticNumbers(std::uint64_t last) {
  if (last < g_automaticNumberCounter) g_automaticNumberCounter = last;
}

WString AutomaticName(std::uint64_t number) {
  WString name = AutomaticKey(number);
  name[0] = u'P';
  return name;
}

WString AutomaticKey(std::uint64_t number) {
  AutomaticKeyBuffer buffer;
  return WString(AutomaticKeyIn(number, buffer));
}

// The digits are written from the end of the buffer backwards, the prefix
// in front of them.
WStringView AutomaticKeyIn(std::uint64_t number, AutomaticKeyBuffer& buffer) {
  std::size_t start = buffer.size();
  do {
    buffer[--start] = WChar(u'0' + number % 10);
    number /= 10;
  } while (number != 0);
  start -= kKeyPrefix.size();
  kKeyPrefix.copy(&buffer[start], kKeyPrefix.size());
  return WStringView(&buffer[start], buffer.size() - start);
}

std::uint64_t AutomaticNumberIn(WStringView key) {
  if (key.size() <= kKeyPrefix.size() || key.substr(0, kKeyPrefix.size()) != kKeyPrefix) return 0;
  const WStringView digits = key.substr(kKeyPrefix.size());
  if (digits[0] == u'0') return 0;
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint64_t>::max();
  constexpr std::uint64_t kLargestTenth = kLargest / 10;
  constexpr unsigned kLargestLastDigit = unsigned(kLargest % 10);
  std::uint64_t number = 0;
  for (const WChar c : digits) {
    if (c < u'0' || c > u'9') return 0;
    const unsigned digit = unsigned(c - u'0');
    if (number > kLargestTenth || (number == kLargestTenth && digit > kLargestLastDigit)) return 0;
    number = number * 10 + digit;
  }
  return number;
}

}  // namespace NScrivolt
