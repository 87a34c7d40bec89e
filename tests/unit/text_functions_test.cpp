#include <gtest/gtest.h>

#include "template_runner.h"

namespace NScrivolt {
namespace {

struct TemplateCase {
  const char* name;
  const WChar* text;
  const WChar* output;  // expected output when errors is empty
  const char* errors;   // expected report, lines joined by "\n"
};

void RunCases(const TemplateCase* cases, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const TemplateCase& c = cases[i];
    const TemplateRun run = RunTemplate(c.text);
    EXPECT_EQ(Lines(run.errors), c.errors) << c.name;
    if (run.errors.empty()) {
      EXPECT_EQ(WideToUtf8(run.output), WideToUtf8(c.output)) << c.name;
    }
  }
}

const TemplateCase kTextCases[] = {
    // changecase
    {"lower keyword ignores case", u"<# changecase what: \"\u00dcn\u00efcode ABC\" to: \"LOWER\" #>",
     u"\u00dcn\u00efcode abc", ""},
    {"upper", u"<# changecase what: \"abc \u00e9\" to: \"Upper\" #>", u"ABC \u00e9", ""},
    {"unknown case", u"<# changecase what: \"a\" TO: \"title\" #>", u"",
     "- Unknown option \"title\" for \"TO\" found at line 1, column 25, re-processed content\n"
     "- Error processing function \"changecase\" at line 1, column 4, re-processed content"},
    {"changecase without to", u"<# changecase what: \"a\" #>", u"",
     "- Argument \"To\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"changecase\" at line 1, column 4, re-processed content"},
    // count
    {"count case-sensitive", u"<# count what: \"A\" in: \"aA\" casesensitive #>", u"1", ""},
    {"count needs in", u"<# count what: \"a\" #>", u"",
     "- Argument \"In\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"count\" at line 1, column 4, re-processed content"},
    // replace
    {"replace not rescanned", u"<# replace what: \"a\" by: \"aa\" in: \"banana\" #>", u"baanaanaa", ""},
    {"replace without by deletes", u"<# replace what: \"an\" in: \"banana\" #>", u"ba", ""},
    {"replace case-sensitive", u"<# replace what: \"NA\" by: \"-\" in: \"BaNana\" casesensitive #>", u"BaNana", ""},
    {"replace flag without value", u"<# replace what: \"a\" by in: \"ab\" #>", u"",
     "- Argument \"By\" is missing a value at line 1, column 22, re-processed content\n"
     "- Error processing function \"replace\" at line 1, column 4, re-processed content"},
    // search
    {"search from start", u"<# search in: \"banana\" for: \"an\" start: \"3\" #>", u"4", ""},
    {"search reverse from the end", u"<# search in: \"banana\" for: \"an\" start: \"-1\" reverse #>", u"4", ""},
    {"search reverse without start", u"<# search in: \"banana\" for: \"an\" reverse #>", u"0", ""},
    {"search start that is no number", u"<# search in: \"banana\" for: \"b\" start: \"x\" #>", u"1", ""},
    // split and join
    {"split keeps empty pieces",
     u"<# split param: \"L\" what: \"a,b,,c,\" on: \",\"; join param: \"L\" with: \"|\"; "
     u"use param: \"L.#5\" #>",
     u"a|b||c|", ""},
    {"split keeps the value and drops old children",
     u"<# set param: \"L\" to: \"v\"; set param: \"L.x\" to: \"old\"; split param: \"L\" what: \"p\" on: \",\"; "
     u"use param: \"L\"; join param: \"L\" with: \"+\" #>",
     u"vp", ""},
    {"split ignoring case", u"<# split param: \"L\" what: \"a;B;b\" on: \"b\"; join param: \"L\" with: \"|\" #>",
     u"a;|;|", ""},
    {"join skips separators before the first text",
     u"<# split param: \"L\" what: \",a,,b\" on: \",\"; join param: \"L\" with: \",\" #>", u"a,,b", ""},
    {"join in value order descending",
     u"<# split param: \"L\" what: \"y,x,z\" on: \",\"; join param: \"L\" with: \"-\" orderby: \"valuedesc\" #>",
     u"z-y-x", ""},
    {"join of a missing parameter", u"<# join PARAM: \"Nope\" with: \",\" #>", u"",
     "- Parameter \"Nope\" is not set when evaluating argument \"PARAM\" at line 1, column 9, re-processed content\n"
     "- Error processing function \"join\" at line 1, column 4, re-processed content"},
    {"join with an unknown order",
     u"<# split param: \"L\" what: \"a\" on: \",\"; join param: \"L\" with: \",\" orderby: \"size\" #>", u"",
     "- Unknown option \"size\" for \"orderby\" found at line 1, column 66, re-processed content\n"
     "- Error processing function \"join\" at line 1, column 40, re-processed content"},
    // sub
    {"sub from the end", u"<# sub start: \"-2\" from: \"abcde\" #>", u"de", ""},
    {"sub needs start", u"<# sub from: \"abc\" #>", u"",
     "- Argument \"Start\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"sub\" at line 1, column 4, re-processed content"},
    // sum
    {"sum", u"<# sum value: \"3\" value: \"-1\" value: \"x\" #>", u"2", ""},
    {"sum of nothing", u"<# sum #>", u"0", ""},
    {"sum reads like strtol", u"<# sum value: \" +12abc\" value: \"-0\" #>", u"12", ""},
    {"sum clamps", u"<# sum value: \"2147483647\" value: \"5\" #>", u"2147483647", ""},
    {"sum clamps each reading", u"<# sum value: \"99999999999\" value: \"-1\" #>", u"2147483646", ""},
    {"sum stops at an error", u"<# sum value: \"1\" value: X #>", u"",
     "- Parameter \"X\" is not set when evaluating argument \"value\" at line 1, column 19, re-processed content\n"
     "- Error processing function \"sum\" at line 1, column 4, re-processed content"},
};

TEST(TextFunctions, TemplatesGiveTheirOutputOrTheirReport) { RunCases(kTextCases, std::size(kTextCases)); }

TEST(TextFunctions, SplitLeavesItsTargetAloneWhenAnArgumentFails) {
  CProcessContext context;
  const TemplateRun failed = RunTemplate(
      context, u"<# set param: \"L.#1\" to: \"kept\" #><# split param: \"L\" what: Missing on: \",\" #>");
  EXPECT_EQ(Lines(failed.errors),
            "- Parameter \"Missing\" is not set when evaluating argument \"what\" at line 1, column 55, "
            "re-processed content\n"
            "- Error processing function \"split\" at line 1, column 38, re-processed content");
  const TemplateRun after = RunTemplate(context, u"<# join param: \"L\" with: \",\" #>");
  EXPECT_EQ(Lines(after.errors), "");
  EXPECT_EQ(WideToUtf8(after.output), "kept");
}

}  // namespace
}  // namespace NScrivolt
