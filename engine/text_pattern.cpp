#include "engine/text_pattern.h"

#include <algorithm>

namespace NScrivolt {

CTextPattern::CTextPattern(WStringView pattern, bool caseSensitive)
    : pattern_(caseSensitive ? WString(pattern) : ToLowerAscii(pattern)), caseSensitive_(caseSensitive) {
  border_.assign(pattern_.size(), 0);
  std::size_t matched = 0;
  for (std::size_t i = 1; i < pattern_.size(); ++i) {
    while (matched > 0 && pattern_[i] != pattern_[matched]) matched = border_[matched - 1];
    if (pattern_[i] == pattern_[matched]) ++matched;
    border_[i] = std::uint32_t(matched);
  }
}

std::size_t CTextPattern::Step(std::size_t matched, WChar c) const {
  while (matched > 0 && c != pattern_[matched]) matched = border_[matched - 1];
  return c == pattern_[matched] ? matched + 1 : 0;
}

std::size_t CTextPattern::FindFirst(WStringView text, std::size_t from) const {
  if (from > text.size()) return npos;
  if (pattern_.empty()) return from;
  const WChar first = pattern_[0];
  std::size_t matched = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    const WChar c = Fold(text[i]);
    // Between partial matches only the first unit of the pattern matters.
    if (matched == 0 && c != first) continue;
    matched = Step(matched, c);
    if (matched == pattern_.size()) return i + 1 - matched;
  }
  return npos;
}

// Scans forward from the start, so that overlapping occurrences are all
// seen, and keeps the last one that begins early enough.
std::size_t CTextPattern::FindLast(WStringView text, std::size_t last) const {
  last = std::min(last, text.size());
  if (pattern_.empty()) return last;
  const std::size_t stop = std::min(text.size(), last + pattern_.size());
  std::size_t found = npos;
  std::size_t matched = 0;
  for (std::size_t i = 0; i < stop; ++i) {
    matched = Step(matched, Fold(text[i]));
    if (matched == pattern_.size()) {
      found = i + 1 - matched;
      matched = border_[matched - 1];
    }
  }
  return found;
}

}  // namespace NScrivolt
