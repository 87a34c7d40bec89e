#include <gtest/gtest.h>

#include "param_layout.h"
#include "template_runner.h"

namespace NScrivolt {
namespace {

struct CodecCase {
  const char* name;
  const WChar* text;
  const WChar* output;  // expected output when errors is empty
  const char* errors;   // expected report, lines joined by "\n"
};

const CodecCase kCodecCases[] = {
    {"keywords ignore case", u"<# encode what: \"<&>\" for: \"XML\" #>|<# decode what: \"a%20b\" from: \"Url\" #>",
     u"&lt;&amp;&gt;|a b", ""},
    {"scrivoltscript protects markers",
     u"<# set param: \"T\" to: (encode what: \"<#use#>\" for: \"scrivoltscript\") #><# use param: \"T\" #>",
     u"<#<#use#>#>", ""},
    {"text decode into to gives no output",
     u"<# decode what: \"&lt;\" from: \"xml\" to: \"R.V\" #>[<# use param: \"R.V\" #>]", u"[<]", ""},
    {"encode of a reference reads its sub-parameters",
     u"<# split param: \"L\" what: \"a,b c\" on: \",\"; encode what: L for: \"csvline\" #>", u"a,b c", ""},
    {"encode of a text has no sub-parameters", u"[<# encode what: \"a,b\" for: \"csvline\" #>]", u"[]", ""},
    {"structured decode fills to",
     u"<# decode what: \"x=1&y\" from: \"urlparams\" to: \"Q\"; use param: \"Q.#1.Value\"; "
     u"use param: \"Q.#2.Name\" #>",
     u"1y", ""},
    {"csv mail merge",
     u"<# decode what: (#>Ann,\"Bo \"\"B\"\" Ltd\"\r\nCy,Dee<#) from: \"csvlines\" to: \"Rows\"; "
     u"encode what: Rows for: \"tsvlines\" #>",
     u"Ann\tBo \"B\" Ltd\r\nCy\tDee", ""},
    {"xmltree round trip",
     u"<# decode what: \"<a><b>1</b></a>\" from: \"xmltree\" to: \"X\"; encode what: X for: \"xmltree\" #>",
     u"<a>\n\t<b>1</b>\n</a>\n", ""},
    {"unknown decode format", u"<# decode what: \"a\" FROM: \"yaml\" #>", u"",
     "- Unknown option \"yaml\" for \"FROM\" found at line 1, column 21, re-processed content\n"
     "- Error processing function \"decode\" at line 1, column 4, re-processed content"},
    {"unknown encode format", u"<#\n  encode what: \"a\" for: (#>pdf<#) #>", u"",
     "- Unknown option \"pdf\" for \"for\" found at line 2, column 20, re-processed content\n"
     "- Error processing function \"encode\" at line 2, column 3, re-processed content"},
    {"structured decode needs to", u"<# decode what: \"a,b\" from: \"csvline\" #>", u"",
     "- Argument \"To\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"decode\" at line 1, column 4, re-processed content"},
    {"decode needs from", u"<# decode what: \"a\" #>", u"",
     "- Argument \"From\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"decode\" at line 1, column 4, re-processed content"},
    {"encode needs what", u"<# encode for: \"xml\" #>", u"",
     "- Argument \"What\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"encode\" at line 1, column 4, re-processed content"},
    {"encode of a missing reference", u"<# encode what: Nope for: \"xml\" #>", u"",
     "- Parameter \"Nope\" is not set when evaluating argument \"what\" at line 1, column 11, re-processed content\n"
     "- Error processing function \"encode\" at line 1, column 4, re-processed content"},
    {"invalid xml", u"<# decode what: \"<a>\r\n<b>\" from: \"xmltree\" to: \"X\" #>", u"",
     "\n- The specified XML is invalid at line 2, column 4\n"
     "- Error processing function \"decode\" at line 1, column 4, re-processed content"},
    {"decode given twice", u"<# decode what: \"a\" from: \"xml\" From: \"url\" #>", u"",
     "- Argument \"From\" can only be specified once at line 1, column 33, re-processed content\n"
     "- Error setting up \"decode\" functie at line 1, column 4, re-processed content"},
};

TEST(CodecFunctions, TemplatesGiveTheirOutputOrTheirReport) {
  for (const CodecCase& c : kCodecCases) {
    const TemplateRun run = RunTemplate(c.text);
    EXPECT_EQ(Lines(run.errors), c.errors) << c.name;
    if (run.errors.empty()) {
      EXPECT_EQ(WideToUtf8(run.output), WideToUtf8(c.output)) << c.name;
    }
  }
}

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

TEST(CodecFunctions, StructuredDecodeReplacesEarlierContent) {
  CProcessContext context;
  const TemplateRun run = RunTemplate(
      context,
      u"<# decode what: \"a,b\" from: \"csvline\" to: \"T\"; decode what: \"c\" from: \"csvline\" to: \"T\" #>");
  EXPECT_EQ(Lines(run.errors), "");
  EXPECT_EQ(Layout(*Find(context, u"T")), "{\"c\"}");
}

}  // namespace
}  // namespace NScrivolt
