// CTextPattern: a search text prepared for finding its occurrences in time
// linear in the length of the searched text, whatever the two texts hold.
//
// The search is Knuth-Morris-Pratt: a table of the pattern's borders lets the
// scan go on after a mismatch without stepping back in the text, so a text of
// "aaaa..." searched for "aa...ab" costs no more than any other. Matching is
// exact, or with the ASCII letters A to Z folded to a to z on both sides and
// every other unit compared as it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/base/wide_string.h"

namespace NScrivolt {

class CTextPattern {
 public:
  static constexpr std::size_t npos = WStringView::npos;

  CTextPattern(WStringView pattern, bool caseSensitive);

  bool empty() const { return pattern_.empty(); }
  std::size_t size() const { return pattern_.size(); }

  // The start of the first occurrence that begins at or after `from`, or npos.
  // An empty pattern is found at `from` itself when `from` <= text.size().
  std::size_t FindFirst(WStringView text, std::size_t from) const;
  // The start of the last occurrence that begins at or before `last`, or
  // npos. An empty pattern is found at min(last, text.size()).
  std::size_t FindLast(WStringView text, std::size_t last) const;

 private:
  WChar Fold(WChar c) const { return caseSensitive_ ? c : LowerAscii(c); }
  // The length of the longest proper border of pattern_[0, matched) extended
  // by `c`: the KMP step from `matched` units matched on reading `c`.
  std::size_t Step(std::size_t matched, WChar c) const;

  WString pattern_;                  // folded when matching ignores case
  std::vector<std::uint32_t> border_;  // border_[i]: longest proper border of pattern_[0, i + 1)
  bool caseSensitive_;
};

}  // namespace NScrivolt
