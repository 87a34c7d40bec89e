// The text computations behind the script functions count, replace, search,
// split, sub and sum. Positions are UTF-16 code units; case-insensitive
// matching folds only A to Z, and results keep the case of the input.
//
// Occurrences are found by one scan from the start: after a match the scan
// goes on directly behind it, so occurrences never overlap and text put in
// by replace is never searched again. Everything here takes time linear in
// the length of its texts.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "text/base/wide_string.h"

namespace NScrivolt {

// The number of occurrences of `pattern` in `text`; 0 for an empty pattern.
std::size_t CountOccurrences(WStringView text, WStringView pattern, bool caseSensitive);

// `text` with every occurrence of `pattern` replaced by `by`, which is
// inserted as written. An empty pattern changes nothing.
WString ReplaceOccurrences(WStringView text, WStringView pattern, WStringView by, bool caseSensitive);

// Hands the pieces of `text` cut at each occurrence of `separator` to
// `piece`, in order, empty pieces included. The separator is appended to the
// text and each occurrence in the result ends a piece: one more piece than
// the separator occurs in the text, unless an occurrence overlaps the
// appended separator ("ab" on "bb" gives the one piece "a"). An empty
// separator never occurs: the whole text is the one piece.
void SplitText(WStringView text, WStringView separator, bool caseSensitive,
               const std::function<void(WStringView)>& piece);

// The 1-based position of an occurrence of `pattern` in `text`, or 0.
// `start` (1-based; negative counts from the end, -1 being the last unit;
// 0 or absent means the first unit, and a negative start before the first
// unit is the first unit too) is where a forward search begins; a reverse
// search finds the last occurrence beginning at or before it, a start beyond
// the end meaning the end.
std::int32_t SearchText(WStringView text, WStringView pattern, std::optional<std::int32_t> start, bool reverse,
                        bool caseSensitive);

// The units from 1-based position `start` to `end`, both included. 0 means
// the first unit for `start` and the last for `end`; negative positions
// count from the end (-1 is the last unit); both are then clamped into the
// text. Empty when the start lies after the end or the text is empty.
WString SubText(WStringView text, std::int32_t start, std::int32_t end);

// Adds up 32-bit values exactly and clamps the total into the 32-bit range.
class CClampedSum {
 public:
  void Add(std::int32_t value) { total_ += value; }
  std::int32_t Total() const;

 private:
  std::int64_t total_ = 0;  // fewer than 2^32 values of at most 2^31 cannot overflow it
};

}  // namespace NScrivolt
