#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

// A tree with enough levels and siblings (some lists past the hash-index
// threshold) that a change can land on a path or beside it.
void Fill(CParam& root) {
  root.SetValue(u"root");
  for (int i = 0; i < 12; ++i) root.GetChildByName(u"item" + IntegerToText(i), true)->SetValueNumber(12 - i);
  CParam* deep = root.FindParam(Ref(u"a.b.c"), true);
  deep->SetValue(u"deep");
  deep->AppendNumbered()->SetValue(u"leaf");
  root.FindParam(Ref(u"a.b"), true)->SetValue(u"mid");
  root.FindParam(Ref(u"a.x"), true)->SetValue(u"side");
}

struct Mutation {
  const char* name;
  std::function<void(CParam&)> apply;
};

const Mutation kMutations[] = {
    {"set root value", [](CParam& p) { p.SetValue(u"changed"); }},
    {"set deep value", [](CParam& p) { p.FindParam(Ref(u"a.b.c.#1"))->SetValue(u"changed"); }},
    {"create deep", [](CParam& p) { p.FindParam(Ref(u"a.b.c.new.newer"), true)->SetValue(u"n"); }},
    {"append", [](CParam& p) { p.FindParam(Ref(u"a.b"))->AppendNumbered(); }},
    {"insert by number", [](CParam& p) { p.GetByNumber(1, true); p.GetByNumber(-40, true); }},
    {"add named", [](CParam& p) { p.FindParam(Ref(u"a"))->GetChildByName(u"y", true); }},
    {"delete top", [](CParam& p) { p.DeleteParam(Ref(u"item3")); }},
    {"delete deep", [](CParam& p) { p.DeleteParam(Ref(u"a.b.c.#1")); }},
    {"delete path", [](CParam& p) { p.DeleteParam(Ref(u"a.b")); }},
    {"sort", [](CParam& p) { p.SortChildren(ParamOrder::ByValue, false); }},
    {"sort deep", [](CParam& p) { p.FindParam(Ref(u"a"))->SortChildren(ParamOrder::ByName, true); }},
    {"clear", [](CParam& p) { p.Clear(); }},
    {"clear children deep", [](CParam& p) { p.FindParam(Ref(u"a.b"))->ClearChildren(); }},
    {"copy onto child", [](CParam& p) { p.FindParam(Ref(u"a.x"))->CopyFrom(*p.FindParam(Ref(u"a.b"))); }},
    {"copy ancestor down", [](CParam& p) { p.FindParam(Ref(u"a.b.c"))->CopyFrom(*p.FindParam(Ref(u"a"))); }},
    {"through listed pointers",
     [](CParam& p) {
       for (CParam* child : p.FindParam(Ref(u"a"))->ListChildren()) child->SetValue(u"listed");
     }},
};

// The copy made by construction and the one made by CopyFrom share nodes with
// the original; a change on any side shows on that side only.
TEST(ParamSharing, ChangingOneSideOfACopyLeavesTheOthers) {
  for (const Mutation& m : kMutations) {
    CParam original;
    Fill(original);
    const std::string before = Dump(original);
    CParam copy(original);
    CParam copied;
    copied.CopyFrom(original);
    EXPECT_EQ(Dump(copy), before) << m.name;
    m.apply(copy);
    const std::string changed = Dump(copy);
    EXPECT_NE(changed, before) << m.name << ": the mutation changed nothing";
    EXPECT_EQ(Dump(original), before) << m.name;
    m.apply(original);
    EXPECT_EQ(Dump(copied), before) << m.name;
    EXPECT_EQ(Dump(copy), changed) << m.name;
  }
}

// A subtree copied into its own tree is shared with its source, and both
// sides still change independently.
TEST(ParamSharing, CopiesWithinOneTreeStaySeparate) {
  CParam root;
  Fill(root);
  root.FindParam(Ref(u"copy"), true)->CopyFrom(*root.FindParam(Ref(u"a")));
  root.FindParam(Ref(u"a.b.c"))->SetValue(u"changed in a");
  root.FindParam(Ref(u"copy.x"))->SetValue(u"changed in copy");
  EXPECT_EQ(root.FindParam(Ref(u"copy.b.c"))->GetValue(), u"deep");
  EXPECT_EQ(root.FindParam(Ref(u"a.x"))->GetValue(), u"side");
}

// Three generations of copies, each changed once, and the middle one
// destroyed first: every survivor keeps its own state.
TEST(ParamSharing, CopiesOfCopies) {
  auto first = std::make_unique<CParams>();
  Fill(first->Root());
  auto second = std::make_unique<CParams>(*first);
  CParams third(*second);
  first->Root().FindParam(Ref(u"a.b.c"))->SetValue(u"1");
  second->Root().FindParam(Ref(u"a.b.c"))->SetValue(u"2");
  second.reset();
  third.Root().FindParam(Ref(u"a.b.c"))->AppendNumbered()->SetValue(u"3");
  EXPECT_EQ(first->Root().FindParam(Ref(u"a.b.c"))->Count(), 1u);
  EXPECT_EQ(first->Root().FindParam(Ref(u"a.b.c"))->GetValue(), u"1");
  EXPECT_EQ(third.Root().FindParam(Ref(u"a.b.c"))->GetValue(), u"deep");
  EXPECT_EQ(third.Root().FindParam(Ref(u"a.b.c"))->Count(), 2u);
  first.reset();
  EXPECT_EQ(third.Root().FindParam(Ref(u"a.b.c.#2"))->GetValue(), u"3");
}

}  // namespace
}  // namespace NScrivolt

namespace NScrivolt {
namespace {

// Nodes made from one shared name each report their own position, a copy
// of one keeps it, and the shared name itself never takes a position; a
// key already taken gives the new child an automatic name, as AddChild by
// id does.
TEST(ParamSharing, ChildrenOfOneSharedNameKeepTheirOwnPositions) {
  const CParamIdShare value = SharedName(u"Value", u"value");
  CParam parent;
  const int othersBefore[] = {0, 3, 1, 9};
  std::vector<CParam*> made;
  for (int others : othersBefore) {
    CParam* holder = parent.AppendNumbered();
    for (int i = 0; i < others; ++i) holder->AppendNumbered();
    made.push_back(holder->AddChild(value));
    made.back()->SetValueNumber(others);
  }
  for (std::size_t i = 0; i < made.size(); ++i) {
    const CParamId& id = made[i]->GetId();
    EXPECT_EQ(id.name, u"Value");
    EXPECT_FALSE(id.numbered);
    EXPECT_EQ(id.index, othersBefore[i]);
    const CParam* found = std::as_const(parent).FindParam(Ref(u"#" + IntegerToText(int(i) + 1) + u".VALUE"));
    EXPECT_EQ(found, made[i]);
  }
  CParam copy(*made[1]);
  EXPECT_EQ(copy.GetId().index, 3);
  EXPECT_EQ(value->index, 0);
  EXPECT_FALSE(value->numbered);

  CParam* again = parent.GetByNumber(0)->AddChild(value);
  EXPECT_TRUE(again->HasAutomaticName());
  EXPECT_EQ(std::as_const(parent).FindParam(Ref(u"#1.value"))->GetValue(), u"0");
}

}  // namespace
}  // namespace NScrivolt
