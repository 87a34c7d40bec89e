// A reference parsed once and walked again after each change of the tree:
// the keys it keeps prepared must find whatever node holds them now, never
// one that held them before.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

#include "engine/params/param_path.h"
#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

// What the path finds: its value, or "(none)".
std::string Found(const CParam& root, const CParamPath& path) {
  const CParam* node = root.FindParam(path);
  return node != nullptr ? WideToUtf8(node->GetValue()) : "(none)";
}

// What a path parsed just now finds.
std::string FoundAnew(const CParam& root, WStringView reference) {
  CParamPath path;
  path.Assign(Ref(reference));
  return Found(root, path);
}

void Set(CParam& root, WStringView reference, WStringView value) { root.FindParam(Ref(reference), true)->SetValue(value); }

struct PathStep {
  const char* change;
  std::function<void(CParam& root, CParam& elsewhere)> apply;
  const char* expected;  // what "A.b" finds after the change
};

const PathStep kSteps[] = {
    {"first set", [](CParam& root, CParam&) { Set(root, u"A.b", u"1"); }, "1"},
    {"its value changed", [](CParam& root, CParam&) { Set(root, u"A.b", u"2"); }, "2"},
    {"the parent replaced by another tree's copy",
     [](CParam& root, CParam& elsewhere) {
       Set(elsewhere, u"X.b", u"copied");
       root.FindParam(Ref(u"A"), true)->CopyFrom(*elsewhere.FindParam(Ref(u"X")));
     },
     "copied"},
    {"the copy changed on the other side",
     [](CParam&, CParam& elsewhere) { Set(elsewhere, u"X.b", u"other side"); }, "copied"},
    {"deleted", [](CParam& root, CParam&) { root.DeleteParam(Ref(u"A.b")); }, "(none)"},
    {"a sibling takes its old place", [](CParam& root, CParam&) { Set(root, u"A.c", u"sibling"); }, "(none)"},
    {"made again under another spelling", [](CParam& root, CParam&) { Set(root, u"A.B", u"again"); }, "again"},
    {"the list grown past a short scan",
     [](CParam& root, CParam&) {
       for (int i = 0; i < 20; ++i) Set(root, u"A.k" + IntegerToText(i), u"k");
     },
     "again"},
    {"deleted from the long list", [](CParam& root, CParam&) { root.DeleteParam(Ref(u"A.b")); }, "(none)"},
    {"made again in the long list", [](CParam& root, CParam&) { Set(root, u"a.b", u"long"); }, "long"},
    {"the parent deleted", [](CParam& root, CParam&) { root.DeleteParam(Ref(u"A")); }, "(none)"},
    {"the parent made again without it", [](CParam& root, CParam&) { Set(root, u"A.c", u"c"); }, "(none)"},
    {"the parent made again with it", [](CParam& root, CParam&) { Set(root, u"A.b", u"last"); }, "last"},
    {"the parent cleared", [](CParam& root, CParam&) { root.FindParam(Ref(u"A"), true)->Clear(); }, "(none)"},
};

TEST(ParamPath, FindsTheNodeAsTheTreeIsNowAfterEachChange) {
  CParamPath path;
  path.Assign(Ref(u"A.b"));
  CParam root;
  CParam elsewhere;
  for (const PathStep& step : kSteps) {
    step.apply(root, elsewhere);
    EXPECT_EQ(Found(root, path), step.expected) << step.change;
    EXPECT_EQ(Found(root, path), FoundAnew(root, u"A.b")) << step.change;
  }
}

// Numbered components and keys of the automatic form, whose number is
// prepared with the path.
TEST(ParamPath, NumbersAndAutomaticKeysFollowTheTree) {
  CParam root;
  CParam* list = root.GetChildByName(u"L", true);
  list->AppendNumbered()->SetValue(u"first");
  CParam* second = list->AppendNumbered();
  second->SetValue(u"second");
  CParamPath byNumber, fromEnd, byAutomaticKey;
  byNumber.Assign(Ref(u"L.#2"));
  fromEnd.Assign(Ref(u"L.#-1"));
  byAutomaticKey.Assign(Ref(u"L." + WString(second->GetKey())));
  EXPECT_EQ(Found(root, byNumber), "second");
  EXPECT_EQ(Found(root, fromEnd), "second");
  EXPECT_EQ(Found(root, byAutomaticKey), "second");

  list->AppendNumbered()->SetValue(u"third");
  EXPECT_EQ(Found(root, byNumber), "second");
  EXPECT_EQ(Found(root, fromEnd), "third");
  EXPECT_EQ(Found(root, byAutomaticKey), "second");

  root.DeleteParam(Ref(u"L.#2"));
  EXPECT_EQ(Found(root, byNumber), "third");
  EXPECT_EQ(Found(root, byAutomaticKey), "(none)") << "a new child never takes an automatic name again";

  for (int i = 0; i < 20; ++i) list->AppendNumbered()->SetValue(IntegerToText(i));
  EXPECT_EQ(Found(root, byNumber), "third");
  EXPECT_EQ(Found(root, fromEnd), "19");
  EXPECT_EQ(Found(root, byAutomaticKey), "(none)");
}

TEST(ParamPath, TheEmptyPathIsTheNodeItself) {
  CParam root;
  root.SetValue(u"root");
  EXPECT_EQ(Found(root, CParamPath()), "root");
}

}  // namespace
}  // namespace NScrivolt
