#include "text/base/wide_string.h"

#include <cstring>
#include <limits>

namespace NScrivolt {

WString ToLowerAscii(WStringView text) {
  WString result(text);
  for (WChar& c : result) c = LowerAscii(c);
  return result;
}

WString ToUpperAscii(WStringView text) {
  WString result(text);
  for (WChar& c : result) c = UpperAscii(c);
  return result;
}

bool EqualsIgnoreCase(WStringView a, WStringView b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

WString IntegerToText(std::int64_t value) {
  WChar digits[24];
  size_t n = 0;
  // Work on the negative side so the smallest value needs no special case.
  std::int64_t rest = value < 0 ? value : -value;
  do {
    digits[n++] = WChar(u'0' - rest % 10);
    rest /= 10;
  } while (rest != 0);
  WString result;
  result.reserve(n + 1);
  if (value < 0) result.push_back(u'-');
  while (n > 0) result.push_back(digits[--n]);
  return result;
}

namespace {
bool IsConversionSpace(WChar c) {
  return c == u' ' || (c >= u'\t' && c <= u'\r');
}
}  // namespace

std::int32_t ReadInteger(WStringView text) {
  size_t i = 0;
  while (i < text.size() && IsConversionSpace(text[i])) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
    negative = text[i] == u'-';
    ++i;
  }
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int64_t kMinMagnitude = kMax + 1;
  std::int64_t magnitude = 0;
  for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
    magnitude = magnitude * 10 + (text[i] - u'0');
    if (magnitude > kMinMagnitude) magnitude = kMinMagnitude + 1;  // saturate, keep scanning
  }
  if (negative) return magnitude >= kMinMagnitude ? std::numeric_limits<std::int32_t>::min()
                                                  : std::int32_t(-magnitude);
  return magnitude > kMax ? std::numeric_limits<std::int32_t>::max() : std::int32_t(magnitude);
}

WString ReplaceAll(WStringView text, WStringView from, WStringView to) {
  if (from.empty()) return WString(text);
  WString result;
  result.reserve(text.size());
  size_t start = 0;
  for (size_t hit = text.find(from); hit != WStringView::npos; hit = text.find(from, start)) {
    result.append(text, start, hit - start);
    result.append(to);
    start = hit + from.size();
  }
  result.append(text, start, WStringView::npos);
  return result;
}

// Sixteen units at a time through a local array, which lets the compiler
// compare them with vector instructions; the unit is then found in the block.
size_t FindUnit(WStringView text, WChar unit, size_t from) {
  size_t i = from;
  for (; i + 16 <= text.size(); i += 16) {
    WChar units[16];
    std::memcpy(units, text.data() + i, sizeof units);
    unsigned found = 0;
    for (int k = 0; k < 16; ++k) found |= units[k] == unit ? 1u : 0u;
    if (found != 0) break;
  }
  for (; i < text.size(); ++i) {
    if (text[i] == unit) return i;
  }
  return WStringView::npos;
}

WString WidenAscii(std::string_view ascii) {
  WString result;
  result.reserve(ascii.size());
  for (char c : ascii) result.push_back(WChar(static_cast<unsigned char>(c)));
  return result;
}

}  // namespace NScrivolt
