// The functions that walk whole subtrees keep their own stacks: a chain of
// parameters a million levels deep must not exhaust the call stack.
#include <gtest/gtest.h>

#include "template_runner.h"

namespace NScrivolt {
namespace {

constexpr int kDepth = 1000000;

// "chain" with, at each level, the next level first (value "b") and a leaf
// second (value "a"); the last level holds the value "bottom".
void MakeChain(CProcessContext& context) {
  CParam* node = context.Root().GetChildByName(u"chain", true);
  for (int level = 0; level < kDepth; ++level) {
    CParam* next = node->AppendNumbered();
    node->AppendNumbered()->SetValue(u"a");
    next->SetValue(u"b");
    node = next;
  }
  node->SetValue(u"bottom");
}

WString RepeatedPath(WStringView component) {
  WString path;
  for (int level = 0; level < kDepth; ++level) {
    if (level != 0) path += u'.';
    path += component;
  }
  return path;
}

TEST(DeepTrees, FindAndSortWalkAMillionLevels) {
  CProcessContext context;
  MakeChain(context);
  TemplateRun run = RunTemplate(context, u"<# findsubparam param: \"chain\" value: \"bottom\" recurse #>");
  ASSERT_EQ(Lines(run.errors), "");
  EXPECT_TRUE(run.output == RepeatedPath(u"#1")) << "path of " << run.output.size() << " units";

  run = RunTemplate(context, u"<# sortsubparams param: \"chain\" recurse #>"
                             u"<# findsubparam param: \"chain\" value: \"bottom\" recurse #>");
  ASSERT_EQ(Lines(run.errors), "");
  EXPECT_TRUE(run.output == RepeatedPath(u"#2")) << "path of " << run.output.size() << " units";
}

TEST(DeepTrees, ForeachAndSetCopyADeepChainWholly) {
  CProcessContext context;
  MakeChain(context);
  const TemplateRun run = RunTemplate(
      context, u"<# set param: \"copy\" to: chain; foreach in: \"copy\" value: \"v\" do: \"\" #>"
               u"<# findsubparam param: \"copy\" value: \"bottom\" recurse indextype: \"name\" #>");
  ASSERT_EQ(Lines(run.errors), "");
  EXPECT_EQ(std::count(run.output.begin(), run.output.end(), u'.'), kDepth - 1);
}

}  // namespace
}  // namespace NScrivolt
