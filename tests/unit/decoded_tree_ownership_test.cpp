// A decoded tree and its copies: each side keeps its own values, whichever
// form a value is kept in (inside the node, in a pooled block, in a block of
// its own) and whichever form a change takes it to.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "engine/codecs/structured_codecs.h"
#include "engine/params/param.h"
#include "engine/params/value_blocks.h"
#include "text/base/utf8.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

using Rows = std::vector<std::vector<WString>>;

Rows RowsOf(const CParam& root) {
  Rows rows;
  for (const CParam* row : root.ListChildren()) {
    rows.emplace_back();
    for (const CParam* field : row->ListChildren()) rows.back().push_back(field->GetValue());
  }
  return rows;
}

WString CsvOf(const Rows& rows) {
  WString text;
  for (const std::vector<WString>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? u"" : u",") + row[i];
    text += u"\n";
  }
  return text;
}

// Values on both sides of the inline limit, of the largest pooled block
// (narrow and wide) and beyond; all lower case, so that sorting by value
// is by code unit.
const WString kInline(CParamValue::kInlineUnits, u'k');
const WString kFirstBlock(CParamValue::kInlineUnits + 1, u'l');
const WString kLargestPooled(ValueBlocks::kPooledBytes, u'p');
const WString kFirstUnpooled(ValueBlocks::kPooledBytes + 1, u'q');
const WString kWidePooled(ValueBlocks::kPooledBytes / 2, WChar(0x3042));
const WString kWideUnpooled(ValueBlocks::kPooledBytes / 2 + 1, WChar(0x3043));

const Rows& DecodedRows() {
  static const Rows rows{
      {u"1", kFirstBlock, kInline, u"a comment longer than eleven", kWidePooled, kLargestPooled},
      {u"2", kFirstUnpooled, u"", kWideUnpooled, u"z", kInline},
      {u"3", u"m", kLargestPooled, kFirstBlock, kFirstUnpooled, u"b"},
  };
  return rows;
}

struct Step {
  const char* what;
  std::function<void(CParam&)> onTree;
  std::function<void(Rows&)> onRows;
};

// Sets field `field` of row `row` (0-based) on both sides.
Step SetField(const char* what, std::size_t row, std::size_t field, const WString& value) {
  return {what,
          [=](CParam& root) { root.GetByNumber(std::int32_t(row))->GetByNumber(std::int32_t(field))->SetValue(value); },
          [=](Rows& rows) { rows[row][field] = value; }};
}

const std::vector<Step>& Steps() {
  static const std::vector<Step> steps{
      SetField("a block's value to an inline one", 0, 1, u"short"),
      SetField("an inline value to a block", 0, 2, u"now a good deal longer than before"),
      SetField("a pooled block to a larger class", 0, 3, kLargestPooled),
      SetField("a pooled block to an unpooled one", 0, 5, kFirstUnpooled),
      SetField("an unpooled block to a pooled one", 1, 1, kFirstBlock),
      SetField("a wide block to a narrow one", 1, 3, u"narrow again, and long"),
      SetField("a narrow value to a wide one", 1, 4, kWideUnpooled),
      SetField("a value to empty", 2, 2, u""),
      {"delete the first row", [](CParam& root) { root.DeleteParam(Ref(u"#1")); },
       [](Rows& rows) { rows.erase(rows.begin()); }},
      {"sort the fields of a row by value",
       [](CParam& root) { root.GetByNumber(0)->SortChildren(ParamOrder::ByValue, false); },
       [](Rows& rows) { std::stable_sort(rows[0].begin(), rows[0].end()); }},
      {"sort them the other way", [](CParam& root) { root.GetByNumber(1)->SortChildren(ParamOrder::ByValue, true); },
       [](Rows& rows) {
         std::stable_sort(rows[1].begin(), rows[1].end());
         std::reverse(rows[1].begin(), rows[1].end());
       }},
      {"clear a row", [](CParam& root) { root.GetByNumber(1)->Clear(); }, [](Rows& rows) { rows[1].clear(); }},
      {"copy a row over another", [](CParam& root) { root.GetByNumber(0)->CopyFrom(*root.GetByNumber(1)); },
       [](Rows& rows) { rows[0] = rows[1]; }},
  };
  return steps;
}

std::string Describe(const Rows& rows) { return WideToUtf8(CsvOf(rows)); }

// Runs the steps on `changed` and checks after each one that it shows them
// and that `kept` shows none of them.
void RunSteps(CParams& changed, const CParams& kept) {
  Rows changedRows = RowsOf(changed.Root());
  const Rows keptRows = RowsOf(kept.Root());
  for (const Step& step : Steps()) {
    SCOPED_TRACE(step.what);
    step.onTree(changed.Root());
    step.onRows(changedRows);
    EXPECT_EQ(Describe(RowsOf(changed.Root())), Describe(changedRows));
    EXPECT_EQ(Describe(RowsOf(kept.Root())), Describe(keptRows));
  }
}

TEST(DecodedTreeOwnership, DecodingKeepsEveryValue) {
  CParams decoded;
  DecodeCsvLines(CsvOf(DecodedRows()), decoded.Root());
  EXPECT_EQ(Describe(RowsOf(decoded.Root())), Describe(DecodedRows()));
}

TEST(DecodedTreeOwnership, ChangesToACopyLeaveTheOriginal) {
  CParams original;
  DecodeCsvLines(CsvOf(DecodedRows()), original.Root());
  CParams copy(original);
  RunSteps(copy, original);
}

TEST(DecodedTreeOwnership, ChangesToTheOriginalLeaveTheCopy) {
  CParams original;
  DecodeCsvLines(CsvOf(DecodedRows()), original.Root());
  const CParams copy(original);
  RunSteps(original, copy);
}

// A copy taken from a copy that was changed, then both changed again.
TEST(DecodedTreeOwnership, CopiesOfChangedCopiesStaySeparate) {
  CParams original;
  DecodeCsvLines(CsvOf(DecodedRows()), original.Root());
  CParams first(original);
  first.Root().GetByNumber(2)->GetByNumber(4)->SetValue(u"x");
  CParams second(first);
  RunSteps(second, first);
  RunSteps(first, original);
  EXPECT_EQ(Describe(RowsOf(original.Root())), Describe(DecodedRows()));
}

}  // namespace
}  // namespace NScrivolt
