#include "engine/text_algorithms.h"

#include <algorithm>
#include <limits>

#include "engine/text_pattern.h"

namespace NScrivolt {

std::size_t CountOccurrences(WStringView text, WStringView pattern, bool caseSensitive) {
  const CTextPattern search(pattern, caseSensitive);
  if (search.empty()) return 0;
  std::size_t count = 0;
  for (std::size_t at = search.FindFirst(text, 0); at != CTextPattern::npos;
       at = search.FindFirst(text, at + search.size())) {
    ++count;
  }
  return count;
}

WString ReplaceOccurrences(WStringView text, WStringView pattern, WStringView by, bool caseSensitive) {
  const CTextPattern search(pattern, caseSensitive);
  if (search.empty()) return WString(text);
  WString result;
  result.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t at = search.FindFirst(text, 0); at != CTextPattern::npos;
       at = search.FindFirst(text, done)) {
    result.append(text, done, at - done);
    result.append(by);
    done = at + search.size();
  }
  result.append(text, done, WStringView::npos);
  return result;
}

void SplitText(WStringView text, WStringView separator, bool caseSensitive,
               const std::function<void(WStringView)>& piece) {
  const CTextPattern search(separator, caseSensitive);
  if (search.empty()) {
    piece(text);
    return;
  }
  // With the separator appended every piece, the last included, ends at an
  // occurrence; what follows the last occurrence is no piece.
  WString ended;
  ended.reserve(text.size() + separator.size());
  ended.append(text).append(separator);
  const WStringView all(ended);
  std::size_t begin = 0;
  for (std::size_t at = search.FindFirst(all, 0); at != CTextPattern::npos; at = search.FindFirst(all, begin)) {
    piece(all.substr(begin, at - begin));
    begin = at + search.size();
  }
}

namespace {

// The 0-based index a search starts from; see SearchText.
std::size_t SearchStartIndex(std::size_t length, std::optional<std::int32_t> start) {
  if (!start || *start == 0) return 0;
  const std::int64_t index = *start > 0 ? std::int64_t(*start) - 1 : std::int64_t(length) + *start;
  return std::size_t(std::max<std::int64_t>(index, 0));
}

std::int32_t Position(std::size_t index) {
  constexpr std::size_t kLargest = std::numeric_limits<std::int32_t>::max();
  return index == CTextPattern::npos ? 0 : std::int32_t(std::min(index + 1, kLargest));
}

}  // namespace

std::int32_t SearchText(WStringView text, WStringView pattern, std::optional<std::int32_t> start, bool reverse,
                        bool caseSensitive) {
  const CTextPattern search(pattern, caseSensitive);
  const std::size_t index = SearchStartIndex(text.size(), start);
  return Position(reverse ? search.FindLast(text, index) : search.FindFirst(text, index));
}

namespace {

// A 1-based position: 0 means `zero`, negatives count from the end; the
// result is clamped into 1..length.
std::int64_t ClampPosition(std::int32_t position, std::int64_t zero, std::int64_t length) {
  const std::int64_t resolved = position == 0 ? zero : position < 0 ? length + position + 1 : position;
  return std::clamp<std::int64_t>(resolved, 1, length);
}

}  // namespace

WString SubText(WStringView text, std::int32_t start, std::int32_t end) {
  const auto length = std::int64_t(text.size());
  if (length == 0) return WString();
  const std::int64_t first = ClampPosition(start, 1, length);
  const std::int64_t last = ClampPosition(end, length, length);
  if (first > last) return WString();
  return WString(text.substr(std::size_t(first - 1), std::size_t(last - first + 1)));
}

std::int32_t CClampedSum::Total() const {
  return std::int32_t(std::clamp<std::int64_t>(total_, std::numeric_limits<std::int32_t>::min(),
                                               std::numeric_limits<std::int32_t>::max()));
}

}  // namespace NScrivolt
