#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/params/param_value.h"
#include "engine/params/value_blocks.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

// Texts on both sides of every boundary between the forms.
const std::vector<WString>& FormBoundaries() {
  static const std::vector<WString> texts{
      u"",
      u"a",
      u"abcdefghijk",                   // 11 units: the longest kept inside
      u"abcdefghijkl",                  // 12: the shortest in a block
      WString(11, WChar(0xFF)),         // the highest one-byte unit, inside
      WString(1, WChar(0x100)),         // the lowest two-byte unit
      u"abcdefghij" + WString(1, WChar(0x100)),
      WString(u"a\0b", 3),              // an embedded NUL
      WString(20, WChar(0)),
      u"\U0001F600",                    // a surrogate pair
      WString(1, WChar(0xD800)),        // a lone surrogate
      WString(5000, u'x'),
      WString(5000, WChar(0x3042)),
  };
  return texts;
}

TEST(ParamValue, KeepsEveryUnitOfEveryForm) {
  for (const WString& text : FormBoundaries()) {
    const CParamValue value(text);
    EXPECT_EQ(value.Size(), text.size()) << WideToUtf8(text);
    EXPECT_EQ(value.Empty(), text.empty()) << WideToUtf8(text);
    EXPECT_EQ(value.ToString(), text) << WideToUtf8(text);
    for (std::size_t i = 0; i < text.size(); ++i) ASSERT_EQ(value.At(i), text[i]) << i;
    WString scratch = u"earlier";
    EXPECT_EQ(value.ViewIn(scratch), text) << WideToUtf8(text);
  }
}

TEST(ParamValue, HandsOutPiecesThatMakeTheWholeText) {
  for (const WString& text : FormBoundaries()) {
    const CParamValue value(text);
    WString scratch = u"earlier";
    WString joined;
    std::size_t pieces = 0;
    for (std::size_t from = 0; from < value.Size(); ++pieces) {
      const WStringView piece = value.PieceIn(from, scratch);
      ASSERT_FALSE(piece.empty());
      joined += piece;
      from += piece.size();
    }
    EXPECT_EQ(joined, text);
    const bool wide = !text.empty() && *std::max_element(text.begin(), text.end()) >= 0x100;
    const std::size_t expected = wide ? 1 : (text.size() + CParamValue::kPieceUnits - 1) / CParamValue::kPieceUnits;
    EXPECT_EQ(pieces, expected) << WideToUtf8(text);
    EXPECT_TRUE(value.PieceIn(value.Size(), scratch).empty());
  }
}

TEST(ParamValue, AppendsBehindWhatIsThere) {
  for (const WString& text : FormBoundaries()) {
    WString out = u"<";
    CParamValue(text).AppendTo(out);
    EXPECT_EQ(out, u"<" + text) << WideToUtf8(text);
  }
}

TEST(ParamValue, ComparesUnitByUnitAndIgnoresOnlyTheCaseOfAToZ) {
  struct Case {
    WStringView value;
    WStringView text;
    bool equal;
    bool equalIgnoringCase;
  };
  const WString wide = u"\u00E9t\u0100";
  const Case cases[] = {
      {u"", u"", true, true},
      {u"abc", u"abc", true, true},
      {u"abc", u"ABC", false, true},
      {u"abc", u"abcd", false, false},
      {u"abcdefghijkl", u"ABCDEFGHIJKL", false, true},
      {u"\u00E9", u"\u00C9", false, false},  // only A-Z fold
      {WStringView(u"a\0", 2), u"a", false, false},
      {wide, wide, true, true},
      {wide, u"\u00E9t\u0101", false, false},
      {u"\u00FF", u"\u01FF", false, false},  // the low byte alone is no match
  };
  for (const Case& c : cases) {
    const CParamValue value(c.value);
    EXPECT_EQ(value.Equals(c.text), c.equal) << WideToUtf8(c.value) << " / " << WideToUtf8(c.text);
    EXPECT_EQ(value.EqualsIgnoringCase(c.text), c.equalIgnoringCase)
        << WideToUtf8(c.value) << " / " << WideToUtf8(c.text);
  }
}

TEST(ParamValue, CopiesAndMovesLeaveEachSideWhole) {
  for (const WString& text : FormBoundaries()) {
    CParamValue original(text);
    CParamValue copy(original);
    CParamValue assigned(u"something else entirely");
    assigned = original;
    original.Assign(u"changed");
    EXPECT_EQ(copy.ToString(), text);
    EXPECT_EQ(assigned.ToString(), text);

    CParamValue moved(std::move(copy));
    EXPECT_EQ(moved.ToString(), text);
    EXPECT_TRUE(copy.Empty());  // NOLINT(bugprone-use-after-move): moved-from is empty
    CParamValue target(WString(30, WChar(0x100)));
    target = std::move(moved);
    EXPECT_EQ(target.ToString(), text);
  }
}

TEST(ParamValue, SelfAssignmentKeepsTheValue) {
  for (const WString& text : FormBoundaries()) {
    CParamValue value(text);
    CParamValue& same = value;
    value = same;
    EXPECT_EQ(value.ToString(), text);
    value = std::move(same);
    EXPECT_EQ(value.ToString(), text);
    WString scratch;
    value.Assign(value.ViewIn(scratch));  // a view of its own block when wide
    EXPECT_EQ(value.ToString(), text);
  }
}

TEST(ParamValue, ChangesFormWhenANewTextNeedsAnother) {
  CParamValue value;
  for (const WString& text : FormBoundaries()) {
    value.Assign(text);
    EXPECT_EQ(value.ToString(), text);
  }
  for (auto text = FormBoundaries().rbegin(); text != FormBoundaries().rend(); ++text) {
    value.Assign(*text);
    EXPECT_EQ(value.ToString(), *text);
  }
}

// Lengths on both sides of the largest pooled block and of the longest
// length kept in the value itself, narrow and wide: each keeps its units,
// its copies are whole, and a change to another length leaves the copy.
TEST(ParamValue, KeepsItsLengthAcrossTheBlockBoundaries) {
  struct Case {
    std::size_t length;
    WChar unit;
  };
  constexpr std::size_t kPooled = ValueBlocks::kPooledBytes;
  constexpr std::size_t kKept = CParamValue::kLengthInBlockFrom;
  const Case cases[] = {
      {kPooled, u'n'},   {kPooled + 1, u'n'}, {kPooled / 2, WChar(0x100)}, {kPooled / 2 + 1, WChar(0x100)},
      {kKept - 1, u'n'}, {kKept, u'n'},       {kKept + 1, u'n'},           {kKept, WChar(0x3042)},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.length);
    WString text(c.length, c.unit);
    text.back() = u'z';  // the last unit tells a cut-off value
    CParamValue value(text);
    EXPECT_EQ(value.Size(), c.length);
    EXPECT_EQ(value.At(c.length - 1), u'z');
    const CParamValue copy(value);
    EXPECT_TRUE(copy.Equals(text));
    value.Assign(WString(c.length + 1, c.unit));
    EXPECT_EQ(value.Size(), c.length + 1);
    EXPECT_TRUE(copy.Equals(text));
    value.Assign(u"short");
    EXPECT_EQ(value.ToString(), u"short");
    EXPECT_EQ(copy.ToString(), text);
  }
}

// The kind shares the first byte with the form: on every form it reads back
// as set, leaves the units alone, goes along with a copy, and a change of
// the text makes it Text again.
TEST(ParamValue, KeepsItsKindApartFromItsUnits) {
  const ValueKind kinds[] = {ValueKind::Text, ValueKind::Literal, ValueKind::Null, ValueKind::EmptyObject,
                             ValueKind::EmptyArray};
  for (const WString& text : FormBoundaries()) {
    for (ValueKind kind : kinds) {
      SCOPED_TRACE(int(kind));
      CParamValue value;
      value.Assign(text, kind);
      EXPECT_EQ(value.Kind(), kind);
      EXPECT_EQ(value.Size(), text.size());
      EXPECT_EQ(value.Empty(), text.empty());
      EXPECT_EQ(value.ToString(), text);
      const bool wide = !text.empty() && *std::max_element(text.begin(), text.end()) >= 0x100;
      EXPECT_EQ(value.NarrowData() == nullptr, wide);
      const CParamValue copy(value);
      EXPECT_EQ(copy.Kind(), kind);
      EXPECT_EQ(copy.ToString(), text);
      value.Assign(text);
      EXPECT_EQ(value.Kind(), ValueKind::Text);
      CParamValue moved(std::move(value));
      EXPECT_EQ(moved.Kind(), ValueKind::Text);
      EXPECT_EQ(value.Kind(), ValueKind::Text);  // NOLINT(bugprone-use-after-move): moved-from is empty
      EXPECT_TRUE(value.Empty());
    }
  }
}

}  // namespace
}  // namespace NScrivolt
