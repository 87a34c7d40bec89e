#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "engine/params/param_automatic_name.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

// A node with named children, each holding its own name as value.
CParam Named(std::initializer_list<const char16_t*> names) {
  CParam node;
  for (const char16_t* name : names) node.GetChildByName(name, true)->SetValue(name);
  return node;
}

// The number that the next automatic name will carry.
std::uint64_t NextAppendedNumber() {
  CParam probe;
  return std::stoull(WideToUtf8(probe.AppendNumbered()->GetId().name.substr(5))) + 1;
}

// Lookups in lists long enough to use the hash index, with removals between.
TEST(ParamNames, LargeListsFindEveryKey) {
  CParam node;
  for (int i = 0; i < 100; ++i) node.GetChildByName(u"Key" + IntegerToText(i), true);
  for (int i = 0; i < 100; i += 3) node.DeleteParam(Ref(u"key" + IntegerToText(i)));
  for (int i = 0; i < 100; ++i) {
    const CParam* child = node.GetChildByName(u"KEY" + IntegerToText(i));
    EXPECT_EQ(child != nullptr, i % 3 != 0) << i;
  }
  EXPECT_EQ(node.Count(), 66u);
  EXPECT_TRUE(NumberedInOrder(node));
}

// Keys of one length that begin and end alike share their short digest in a
// short list: each must still find its own sibling, and one that differs
// only there must find none.
TEST(ParamNames, ShortListsTellApartKeysWithTheSameDigest) {
  CParam node = Named({u"aXb", u"ayb", u"a", u"b", u"ab", u"Param3x"});
  const std::pair<const char16_t*, const char16_t*> cases[] = {
      {u"axb", u"aXb"}, {u"AYB", u"ayb"}, {u"a", u"a"},  {u"B", u"b"},
      {u"ab", u"ab"},   {u"param3x", u"Param3x"},        {u"azb", nullptr},
      {u"abb", nullptr}, {u"", nullptr},                  {u"c", nullptr},
  };
  for (const auto& [name, value] : cases) {
    const CParam* child = std::as_const(node).GetChildByName(name);
    if (value == nullptr) {
      EXPECT_EQ(child, nullptr) << WideToUtf8(name);
    } else {
      ASSERT_NE(child, nullptr) << WideToUtf8(name);
      EXPECT_EQ(child->GetValue(), value);
    }
  }
}

// Every child of a short list, named or numbered, is found by its key after
// each change that moves children between positions.
TEST(ParamNames, ShortListsFindEveryKeyAfterChildrenMove) {
  const std::pair<const char*, std::function<void(CParam&)>> steps[] = {
      {"append numbered", [](CParam& node) { node.AppendNumbered()->SetValue(u"n"); }},
      {"insert numbered first", [](CParam& node) { node.GetChild(Ref(u"#1")[0], true); }},
      {"delete a named one", [](CParam& node) { node.DeleteParam(Ref(u"b")); }},
      {"delete the first", [](CParam& node) { node.DeleteParam(Ref(u"#1")); }},
      {"sort by value, descending", [](CParam& node) { node.SortChildren(ParamOrder::ByValue, true); }},
      {"sort by name", [](CParam& node) { node.SortChildren(ParamOrder::ByName, false); }},
      {"add a named one", [](CParam& node) { node.GetChildByName(u"zz", true)->SetValue(u"zz"); }},
  };
  CParam node = Named({u"a", u"b", u"Param1x", u"cc"});
  node.AppendNumbered()->SetValue(u"m");
  for (const auto& [what, step] : steps) {
    step(node);
    for (const CParam* child : std::as_const(node).ListChildren()) {
      const CParam* found = std::as_const(node).GetChildByName(child->GetId().name);
      EXPECT_EQ(found, child) << what << ": " << WideToUtf8(child->GetId().name);
    }
    EXPECT_EQ(std::as_const(node).GetChildByName(u"b") != nullptr, Children(node).find("b=b") != std::string::npos)
        << what;
  }
  EXPECT_EQ(std::as_const(node).GetChildByName(u"b"), nullptr);
}

TEST(ParamAutomaticNames, DrawFromOneCounterAndSkipTakenKeys) {
  const std::uint64_t first = NextAppendedNumber();
  CParam node;
  CParam* a = node.AppendNumbered();
  EXPECT_EQ(a->GetId().name, AutomaticName(first));
  EXPECT_EQ(a->GetId().key, u"param" + IntegerToText(first));
  EXPECT_TRUE(a->GetId().numbered);
  EXPECT_EQ(node.GetChildByName(u"PARAM" + IntegerToText(first)), a);

  CParam other;  // another parent continues the same counter
  EXPECT_EQ(other.AppendNumbered()->GetId().name, AutomaticName(first + 1));

  node.GetChildByName(AutomaticName(first + 2), true);
  node.GetChildByName(u"param" + IntegerToText(first + 3), true);
  EXPECT_EQ(node.AppendNumbered()->GetId().name, AutomaticName(first + 4));
}

TEST(ParamAutomaticNames, AddingATakenNameGivesTheNewChildAnAutomaticName) {
  CParam node = Named({u"x"});
  const std::uint64_t next = NextAppendedNumber();
  CParamId id;
  id.numbered = false;
  id.name = u"X";
  id.key = u"x";
  CParam* added = node.AddChild(id);
  EXPECT_EQ(added->GetId().name, AutomaticName(next));
  EXPECT_FALSE(added->GetId().numbered);
  EXPECT_EQ(added->GetId().index, 1);
  EXPECT_EQ(node.GetChildValue(u"x"), u"x");
}

TEST(ParamNumbers, CreationByNumberAddsOneChildAtTheClampedPosition) {
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  struct Case {
    int existing;
    std::int32_t index;
    int position;  // where the new child lands; -1: an existing child is returned
    int found;     // the existing child's position
  } const cases[] = {
      {2, 0, -1, 0},  {2, 1, -1, 1},   {2, -1, -1, 1},   {2, -2, -1, 0},  {2, 2, 2, 0},
      {2, 5, 2, 0},   {2, kMax, 2, 0}, {2, -5, 0, 0},    {2, kMin, 0, 0}, {0, 0, 0, 0},
      {0, -1, 0, 0},  {0, 7, 0, 0},
      // -3 of two resolves to -1, which AddChild resolves once more: position 1.
      {2, -3, 1, 0},  {3, -5, 1, 0},
  };
  for (const Case& c : cases) {
    CParam node;
    for (int i = 0; i < c.existing; ++i) node.AppendNumbered()->SetValueNumber(i);
    const std::string label = std::to_string(c.existing) + " children, index " + std::to_string(c.index);
    if (c.position >= 0) {
      EXPECT_EQ(node.GetByNumber(c.index), nullptr) << label;
      EXPECT_EQ(std::as_const(node).GetByNumber(c.index), nullptr) << label;
    }
    CParam* result = node.GetByNumber(c.index, true);
    if (c.position < 0) {
      EXPECT_EQ(node.Count(), std::size_t(c.existing)) << label;
      EXPECT_EQ(result->GetValue(), IntegerToText(c.found)) << label;
      continue;
    }
    EXPECT_EQ(node.Count(), std::size_t(c.existing + 1)) << label;
    EXPECT_EQ(result->GetId().index, c.position) << label;
    EXPECT_TRUE(result->GetId().numbered) << label;
    EXPECT_EQ(result->GetValue(), u"") << label;
    EXPECT_TRUE(NumberedInOrder(node)) << label;
  }
}

TEST(ParamDelete, RemovesOneNodeAndClosesTheNumbering) {
  struct Case {
    const char16_t* reference;
    const char* remaining;
  } const cases[] = {
      {u"#2", "a=a, c=c"},     {u"b", "a=a, c=c"},   {u"B", "a=a, c=c"},
      {u"#-1", "a=a, b=b"},    {u"#1", "b=b, c=c"},  {u"#0", "b=b, c=c"},
      {u"#4", "a=a, b=b, c=c"}, {u"x", "a=a, b=b, c=c"}, {u"a.x", "a=a, b=b, c=c"},
  };
  for (const Case& c : cases) {
    CParam node = Named({u"a", u"b", u"c"});
    node.DeleteParam(Ref(c.reference));
    EXPECT_EQ(Children(node), c.remaining) << WideToUtf8(c.reference);
    EXPECT_TRUE(NumberedInOrder(node)) << WideToUtf8(c.reference);
  }
}

// The 1-based places in `values` of the children, sorted by value, of a node
// that holds `values` as numbered children in that order.
template <std::size_t N>
std::string SortedByValue(const WString (&values)[N], bool descending) {
  CParam node;
  for (const WString& value : values) node.AppendNumbered()->SetValue(value);
  std::string numbers;
  for (const CParam* child : std::as_const(node).ListChildren(ParamOrder::ByValue, descending)) {
    const auto at = std::find(std::begin(values), std::end(values), child->GetValue());
    numbers += std::to_string(at - std::begin(values) + 1);
  }
  return numbers;
}

// Values are compared eight units at a time; these differ before, at and
// after such a boundary, by case only, by a NUL unit, or by ending early.
TEST(ParamSort, LongValuesCompareUnitByUnitToTheirEnd) {
  const WString values[] = {
      u"prefix-common-B", u"PREFIX-COMMON-a", u"prefix-common-", u"prefix-c",
      WString(u"prefix-common-a\0", 16), u"prefix-commoN-a", u"prefix-common-bb-and-more-than-sixteen",
      WString(u"prefix-c\0", 9), u"prefix-co",
  };
  EXPECT_EQ(SortedByValue(values, false), "489326517");
  EXPECT_EQ(SortedByValue(values, true), "715623984");
}

// Values kept one byte a unit and two bytes a unit, inside the node and in
// blocks, sort together by their units, only A-Z folded.
TEST(ParamSort, ValuesOfEveryFormSortByTheirUnits) {
  const WString values[] = {
      u"\u00E9", u"\u0100", u"E", u"e", u"abcdefghijkl\u00FF", u"abcdefghijkl\u0100", u"ABCDEFGHIJK",
      u"abcdefghijk\u00FF",
  };
  EXPECT_EQ(SortedByValue(values, false), "75683412");
  EXPECT_EQ(SortedByValue(values, true), "21438657");
}

// A copy holds a value of its own, whatever its form, with its kind.
TEST(ParamCopy, CopiesValuesOfEveryFormWithTheirKind) {
  const std::pair<WString, ValueKind> cases[] = {
      {u"", ValueKind::Null},
      {u"12345678901", ValueKind::Literal},
      {u"123456789012", ValueKind::Literal},
      {u"caf\u00E9", ValueKind::Text},
      {u"\u0100", ValueKind::Text},
      {WString(300, u'\u3042'), ValueKind::Text},
  };
  for (const auto& [value, kind] : cases) {
    CParam source;
    source.SetValue(value, kind);
    CParam copy(source);
    CParam target;
    target.SetValue(u"something long enough for a block");
    target.CopyFrom(source);
    source.SetValue(u"changed");
    for (const CParam* node : {&copy, &target}) {
      EXPECT_EQ(node->GetValue(), value) << WideToUtf8(value);
      EXPECT_EQ(node->GetValueKind(), kind) << WideToUtf8(value);
    }
  }
}

TEST(ParamCopy, KeepsAutomaticNamesAndNumberedFlags) {
  CParam source;
  source.SetValue(u"top");
  source.AppendNumbered()->SetValue(u"x");
  source.GetChildByName(u"Colors", true)->AppendNumbered()->SetValue(u"red");
  CParam target = Named({u"old"});
  target.CopyFrom(source);
  EXPECT_EQ(Dump(target), Dump(source));
  EXPECT_EQ(target.GetId().name, u"");

  const std::uint64_t next = NextAppendedNumber();
  EXPECT_EQ(target.AppendNumbered()->GetId().name, AutomaticName(next));
}

// Copying between a node and its own ancestor or descendant copies the state
// before the call, and never ties the tree into a loop.
TEST(ParamCopy, BetweenRelatedNodes) {
  struct Case {
    const char16_t* target;
    const char16_t* source;
    const char* dump;
  } const cases[] = {
      {u"a", u"a.b", "0 #1  (numbered) = \n1 #1 a = B\n2 #1 c = C\n"},
      {u"a.b", u"a", "0 #1  (numbered) = \n1 #1 a = A\n2 #1 b = A\n3 #1 b = B\n4 #1 c = C\n"},
      {u"a.b.c", u"a",
       "0 #1  (numbered) = \n1 #1 a = A\n2 #1 b = B\n3 #1 c = A\n4 #1 b = B\n5 #1 c = C\n"},
      {u"a.b", u"a.b", "0 #1  (numbered) = \n1 #1 a = A\n2 #1 b = B\n3 #1 c = C\n"},
  };
  for (const Case& c : cases) {
    CParam root;
    root.FindParam(Ref(u"a"), true)->SetValue(u"A");
    root.FindParam(Ref(u"a.b"), true)->SetValue(u"B");
    root.FindParam(Ref(u"a.b.c"), true)->SetValue(u"C");
    CParam* target = root.FindParam(Ref(c.target), true);
    target->CopyFrom(*root.FindParam(Ref(c.source)));
    EXPECT_EQ(Dump(root), c.dump) << WideToUtf8(c.target) << " from " << WideToUtf8(c.source);
  }
}

}  // namespace
}  // namespace NScrivolt
