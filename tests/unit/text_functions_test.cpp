// What the text functions leave behind when they fail; their output is
// covered by the end-to-end cases.
#include <gtest/gtest.h>

#include "template_runner.h"

namespace NScrivolt {
namespace {

TEST(TextFunctions, SplitLeavesItsTargetAloneWhenAnArgumentFails) {
  CProcessContext context;
  const TemplateRun failed = RunTemplate(
      context, u"<# set param: \"L.#1\" to: \"kept\" #><# split param: \"L\" what: Missing on: \",\" #>");
  EXPECT_EQ(Lines(failed.errors), "- Parameter \"Missing\" is not set when evaluating argument \"what\"" AT(1, 55)
                                      CALL_FAILED("split", 1, 38));
  const TemplateRun after = RunTemplate(context, u"<# join param: \"L\" with: \",\" #>");
  EXPECT_EQ(Lines(after.errors), "");
  EXPECT_EQ(WideToUtf8(after.output), "kept");
}

TEST(TextFunctions, SumStopsAtTheFirstFailingValue) {
  const TemplateRun run = RunTemplate(u"<# sum value: \"1\" value: X value: Y #>");
  EXPECT_EQ(Lines(run.errors),
            "- Parameter \"X\" is not set when evaluating argument \"value\"" AT(1, 19) CALL_FAILED("sum", 1, 4));
}

}  // namespace
}  // namespace NScrivolt
