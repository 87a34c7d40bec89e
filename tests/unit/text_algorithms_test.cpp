#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "engine/text_algorithms.h"
#include "engine/text_pattern.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

// The pattern search against the obvious quadratic one, over every text and
// pattern of up to 6 and 3 units from an alphabet that mixes case.
std::size_t NaiveFind(WStringView text, WStringView pattern, std::size_t from, bool caseSensitive) {
  const WString t = caseSensitive ? WString(text) : ToLowerAscii(text);
  const WString p = caseSensitive ? WString(pattern) : ToLowerAscii(pattern);
  return from > t.size() ? WString::npos : t.find(p, from);
}

std::size_t NaiveFindLast(WStringView text, WStringView pattern, std::size_t last, bool caseSensitive) {
  const WString t = caseSensitive ? WString(text) : ToLowerAscii(text);
  const WString p = caseSensitive ? WString(pattern) : ToLowerAscii(pattern);
  return t.rfind(p, last);
}

constexpr unsigned kLetters = 3;

WString Word(unsigned code, std::size_t length) {
  static const WChar kAlphabet[kLetters] = {u'a', u'A', u'b'};
  WString word;
  for (std::size_t i = 0; i < length; ++i, code /= kLetters) word += kAlphabet[code % kLetters];
  return word;
}

unsigned WordCount(std::size_t length) {
  unsigned count = 1;
  for (std::size_t i = 0; i < length; ++i) count *= kLetters;
  return count;
}

TEST(TextPattern, AgreesWithNaiveSearch) {
  for (std::size_t textLength = 0; textLength <= 6; ++textLength) {
    for (unsigned t = 0; t < WordCount(textLength); ++t) {
      const WString text = Word(t, textLength);
      for (std::size_t patternLength = 1; patternLength <= 3; ++patternLength) {
        for (unsigned p = 0; p < WordCount(patternLength); ++p) {
          const WString pattern = Word(p, patternLength);
          for (bool caseSensitive : {true, false}) {
            const CTextPattern search(pattern, caseSensitive);
            for (std::size_t at = 0; at <= textLength + 1; ++at) {
              ASSERT_EQ(search.FindFirst(text, at), NaiveFind(text, pattern, at, caseSensitive))
                  << WideToUtf8(text) << " / " << WideToUtf8(pattern) << " from " << at;
              ASSERT_EQ(search.FindLast(text, at), NaiveFindLast(text, pattern, at, caseSensitive))
                  << WideToUtf8(text) << " / " << WideToUtf8(pattern) << " last " << at;
            }
          }
        }
      }
    }
  }
}

struct OccurrenceCase {
  const char* name;
  const WChar* text;
  const WChar* pattern;
  bool caseSensitive;
  std::size_t count;
  const WChar* replacedByXY;  // every occurrence replaced by "xY"
};

const OccurrenceCase kOccurrenceCases[] = {
    {"non-overlapping", u"aaaa", u"aa", true, 2, u"xYxY"},
    {"odd run leaves the rest", u"aaaaa", u"aa", true, 2, u"xYxYa"},
    {"case-sensitive", u"aA", u"A", true, 1, u"axY"},
    {"case-insensitive", u"aA", u"A", false, 2, u"xYxY"},
    {"only A to Z fold", u"\u00c9\u00e9", u"\u00e9", false, 1, u"\u00c9xY"},
    {"none", u"banana", u"x", false, 0, u"banana"},
    {"empty text", u"", u"a", false, 0, u""},
    {"whole text", u"Ab", u"aB", false, 1, u"xY"},
};

TEST(TextAlgorithms, CountAndReplaceScanOnce) {
  for (const OccurrenceCase& c : kOccurrenceCases) {
    EXPECT_EQ(CountOccurrences(c.text, c.pattern, c.caseSensitive), c.count) << c.name;
    EXPECT_EQ(ReplaceOccurrences(c.text, c.pattern, u"xY", c.caseSensitive), c.replacedByXY) << c.name;
  }
}

std::vector<WString> Pieces(WStringView text, WStringView separator, bool caseSensitive) {
  std::vector<WString> pieces;
  SplitText(text, separator, caseSensitive, [&pieces](WStringView piece) { pieces.emplace_back(piece); });
  return pieces;
}

// The end-to-end cases hold the documented examples and the overlap rule's
// counts; these are the pieces they cannot show.
TEST(TextAlgorithms, SplitKeepsEmptyPieces) {
  using Pieces_ = std::vector<WString>;
  EXPECT_EQ(Pieces(u",a", u",", true), (Pieces_{u"", u"a"}));
  EXPECT_EQ(Pieces(u"", u",", true), (Pieces_{u""}));
  EXPECT_EQ(Pieces(u"a", u"AA", false), (Pieces_{u""}));
}

struct SearchCase {
  const WChar* text;
  const WChar* pattern;
  std::optional<std::int32_t> start;
  bool reverse;
  bool caseSensitive;
  std::int32_t expected;
};

// The end-to-end cases hold the documented examples; these are the corners
// between them.
const SearchCase kSearchCases[] = {
    {u"banana", u"an", 2, false, false, 2},              // a match at the start index itself
    {u"banana", u"ba", std::nullopt, true, false, 1},    // reverse from the first unit
    {u"aBc", u"b", std::nullopt, false, false, 2},
    {u"", u"", std::nullopt, false, false, 1},
    {u"banana", u"", 2, true, false, 2},                 // an empty pattern is found where the search begins
    {u"", u"a", -1, true, false, 0},
    {u"banana", u"a", INT32_MIN, true, false, 0},
    {u"banana", u"a", INT32_MAX, true, false, 6},
};

TEST(TextAlgorithms, SearchForwardAndReverse) {
  for (const SearchCase& c : kSearchCases) {
    EXPECT_EQ(SearchText(c.text, c.pattern, c.start, c.reverse, c.caseSensitive), c.expected)
        << WideToUtf8(c.text) << " for " << WideToUtf8(c.pattern) << " start " << c.start.value_or(999)
        << (c.reverse ? " reverse" : "");
  }
}

}  // namespace
}  // namespace NScrivolt
