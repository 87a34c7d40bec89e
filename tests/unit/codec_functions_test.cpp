// What decode leaves in its target, which a run's output cannot show; the
// output of encode and decode is covered by the end-to-end cases.
#include <gtest/gtest.h>

#include "param_layout.h"
#include "template_runner.h"

namespace NScrivolt {
namespace {

const CParam* Find(const CProcessContext& context, WStringView name) {
  return context.Root().GetChildByName(name);
}

// "to" is created and emptied before the keyword is looked at, and stays so
// when the decoding fails.
struct ClearedTargetCase {
  const char* name;
  const WChar* decode;
};

const ClearedTargetCase kClearedTargetCases[] = {
    {"unknown keyword", u"<# decode what: \"x\" from: \"nope\" to: \"T\" #>"},
    {"invalid xml", u"<# decode what: \"<a\" from: \"xmltree\" to: \"T\" #>"},
};

TEST(CodecFunctions, DecodeEmptiesItsTargetFirst) {
  for (const ClearedTargetCase& c : kClearedTargetCases) {
    CProcessContext context;
    ASSERT_EQ(RunTemplate(context, u"<# set param: \"T\" to: \"old\"; set param: \"T.child\" to: \"old\" #>").errors,
              u"");
    EXPECT_NE(RunTemplate(context, c.decode).errors, u"") << c.name;
    ASSERT_NE(Find(context, u"T"), nullptr) << c.name;
    EXPECT_EQ(Layout(*Find(context, u"T")), "\"\"") << c.name;
  }
  CProcessContext context;
  EXPECT_NE(RunTemplate(context, u"<# decode what: \"x\" from: \"nope\" to: \"New.Path\" #>").errors, u"");
  ASSERT_NE(Find(context, u"New"), nullptr);
  EXPECT_EQ(Layout(*Find(context, u"New")), "{Path=\"\"}");
}

}  // namespace
}  // namespace NScrivolt
