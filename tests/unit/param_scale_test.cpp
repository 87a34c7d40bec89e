// Trees of a million nodes, wide and deep: the operations must finish and
// must not exhaust the call stack. Timings are the benchmark's business.
#include <gtest/gtest.h>

#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

constexpr int kMillion = 1000000;

// Value i of child i counts down, so sorting by value reverses the order;
// zero-padded so that text order is numeric order.
WString PaddedValue(int i) {
  WString digits = IntegerToText(kMillion - i);
  return WString(7 - digits.size(), u'0') + digits;
}

TEST(ParamScale, MillionChildren) {
  CParam node;
  for (int i = 0; i < kMillion; ++i) node.AppendNumbered()->SetValue(PaddedValue(i));
  ASSERT_EQ(node.Count(), std::size_t(kMillion));

  CParam sorted(node);
  sorted.SortChildren(ParamOrder::ByValue, false);
  EXPECT_EQ(sorted.GetByNumber(0)->GetValue(), PaddedValue(kMillion - 1));
  EXPECT_EQ(sorted.GetByNumber(-1)->GetValue(), PaddedValue(0));
  EXPECT_EQ(std::as_const(node).GetByNumber(0)->GetValue(), PaddedValue(0));

  // Every other child removed by name, the second of each pair surviving.
  const std::vector<const CParam*> children = std::as_const(node).ListChildren();
  std::vector<WString> names;
  for (std::size_t i = 0; i < children.size(); i += 2) names.push_back(children[i]->GetId().name);
  for (const WString& name : names) node.DeleteParam(Ref(name));
  ASSERT_EQ(node.Count(), std::size_t(kMillion / 2));
  for (int i : {0, 1, 4711, kMillion / 2 - 1}) {
    const CParam* child = std::as_const(node).GetByNumber(i);
    EXPECT_EQ(child->GetValue(), PaddedValue(2 * i + 1)) << i;
    EXPECT_EQ(child->GetId().index, i);
    EXPECT_EQ(std::as_const(node).GetChildByName(child->GetId().name), child) << i;
  }
  EXPECT_EQ(sorted.Count(), std::size_t(kMillion));

  sorted.Clear();
  EXPECT_EQ(sorted.Count(), 0u);
  EXPECT_EQ(node.Count(), std::size_t(kMillion / 2));
}

TEST(ParamScale, MillionLevelsDeep) {
  auto tree = std::make_unique<CParams>();
  CParam* at = &tree->Root();
  for (int i = 0; i < kMillion; ++i) at = at->AppendNumbered();
  at->SetValue(u"bottom");

  CParams copy(*tree);
  // Change the copy's bottom: every list on the way is cloned.
  CParam* bottom = &copy.Root();
  while (bottom->Count() > 0) bottom = bottom->GetByNumber(0);
  bottom->SetValue(u"changed");
  // Then copy the top of the copy into its own bottom.
  bottom->CopyFrom(copy.Root());

  const CParam* original = &tree->Root();
  int depth = 0;
  for (; original->Count() > 0; ++depth) original = std::as_const(*original).GetByNumber(0);
  EXPECT_EQ(depth, kMillion);
  EXPECT_EQ(original->GetValue(), u"bottom");

  tree.reset();
  const CParam* walk = &std::as_const(copy).Root();
  for (depth = 0; walk->Count() > 0; ++depth) walk = walk->GetByNumber(0);
  EXPECT_EQ(depth, 2 * kMillion);
  EXPECT_EQ(walk->GetValue(), u"changed");
  copy.Root().Clear();
  EXPECT_EQ(copy.Root().Count(), 0u);
}

}  // namespace
}  // namespace NScrivolt
