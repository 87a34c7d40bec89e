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

// A long value kept one byte a unit is encoded in pieces: the entities at
// and around a cut, and a value with a unit beyond one byte, come out whole.
TEST(CodecFunctions, EncodeHtmlOfLongValuesIsTheEncodingOfTheWholeText) {
  const auto withMarksAt = [](WString text, std::initializer_list<std::size_t> positions, WChar mark) {
    for (std::size_t at : positions) text[at] = mark;
    return text;
  };
  const WString values[] = {
      withMarksAt(WString(9000, u'x'), {0, 4095, 4096, 8191, 8192, 8999}, u'&'),
      withMarksAt(WString(5000, u'\u00E9'), {4095}, u'<'),
      withMarksAt(WString(5000, u'y'), {4095, 4097}, u'\u0100'),
  };
  for (const WString& value : values) {
    CProcessContext context;
    context.Root().GetChildByName(u"V", true)->SetValue(value);
    WString expected;
    for (WChar unit : value) expected += unit == u'&' ? WString(u"&amp;") : unit == u'<' ? WString(u"&lt;") : WString(1, unit);
    const TemplateRun run = RunTemplate(context, u"<# encode what: V for: \"html\" #>");
    EXPECT_EQ(run.errors, u"");
    EXPECT_EQ(run.output, expected) << value.size();
  }
}

}  // namespace
}  // namespace NScrivolt
