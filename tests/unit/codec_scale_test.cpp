// Inputs far larger or deeper than usual through the script functions: they
// must work or report an error, with work in proportion to their size and
// no recursion as deep as the input.
#include <gtest/gtest.h>

#include "repeated_text.h"
#include "template_runner.h"

namespace NScrivolt {
namespace {

using Testing::kDeepNesting;
using Testing::kHugeLength;
using Testing::Repeat;

void SetTopLevel(CProcessContext& context, WStringView name, WString value) {
  context.Root().GetChildByName(name, true)->SetValue(std::move(value));
}

TEST(CodecScale, MillionLevelsDecodeAndRefuseToEncode) {
  CProcessContext context;
  SetTopLevel(context, u"Doc", Repeat(u"<a>", kDeepNesting) + Repeat(u"</a>", kDeepNesting));
  const TemplateRun decoded = RunTemplate(context, u"<# decode what: Doc from: \"xmltree\" to: \"T\" #>");
  ASSERT_EQ(Lines(decoded.errors), "");
  std::size_t depth = 1;
  const CParam* level = std::as_const(context).Root().GetChildByName(u"T");
  for (const CParam* subTags; (subTags = level->GetChildByName(u"SubTags")) != nullptr;) {
    level = subTags->GetByNumber(0);
    ++depth;
  }
  EXPECT_EQ(depth, kDeepNesting);
  EXPECT_EQ(level->GetChildValue(u"Name"), u"a");

  const TemplateRun encoded = RunTemplate(context, u"<# encode what: T for: \"xmltree\" #>");
  EXPECT_EQ(Lines(encoded.errors), "\n- Too many nested sub-tags (1000) to encode as XML" CALL_FAILED("encode", 1, 4));
}

TEST(CodecScale, NeverClosedQuoteIsTheLastField) {
  CProcessContext context;
  SetTopLevel(context, u"Csv", u"a,b\r\n\"" + WString(kHugeLength, u'x') + u"\r\nmore");
  const TemplateRun run = RunTemplate(context, u"<# decode what: Csv from: \"csvlines\" to: \"T\" #>");
  ASSERT_EQ(Lines(run.errors), "");
  const CParam* records = std::as_const(context).Root().GetChildByName(u"T");
  ASSERT_EQ(records->Count(), 2u);
  ASSERT_EQ(records->GetByNumber(1)->Count(), 1u);
  EXPECT_EQ(records->GetByNumber(1)->GetByNumber(0)->GetValue().size(), kHugeLength + 6);
}

// A search that would compare every unit of the text with most of the
// pattern if it stepped back after each near match.
TEST(CodecScale, NearMatchesCostNoRescan) {
  CProcessContext context;
  SetTopLevel(context, u"Text", WString(5 * 1024 * 1024, u'a'));
  SetTopLevel(context, u"Pattern", WString(100000, u'A') + u"b");
  const TemplateRun run = RunTemplate(
      context, u"<# count what: Pattern in: Text #>,<# search in: Text for: Pattern start: \"-1\" reverse #>");
  EXPECT_EQ(Lines(run.errors), "");
  EXPECT_EQ(run.output, u"0,0");
}

}  // namespace
}  // namespace NScrivolt
