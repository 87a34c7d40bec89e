#include <gtest/gtest.h>

#include <algorithm>

#include "template_cases.h"

namespace NScrivolt {
namespace {

#define AT(line, column) " at line " #line ", column " #column ", re-processed content"

#define GREET u"<# makefunction name: \"greet\" arg: \"Who\" content: (#>Hello <# use param: \"who\" #>!<#) #>"

const TemplateCase kUserFunctionCases[] = {
    {"a call puts its argument into a parameter", GREET u"<# greet who: \"World\" #>", "Hello World!", ""},
    {"an existing parameter gets its state back",
     GREET u"<# set param: \"who\" to: \"old\"; addsubparams param: \"who\" value: \"s\" #><# greet who: \"World\" #>"
     u"<# use param: \"who\" #><# subparamcount param: \"who\" #>",
     "Hello World!old1", ""},
    {"a parameter the call made is gone afterwards",
     GREET u"<# greet who: \"World\" #><# if paramnotset: \"who\" then: \"-gone\" #>", "Hello World!-gone", ""},
    {"the parameter takes the declared name",
     u"<# makefunction name: \"f\" arg: \"Who\" content: (_writeparamtree param: \"WHO\") #><# f wHo: \"x\" #>",
     "#4/\"Who\": x", ""},
    {"a reference argument brings its sub-parameters",
     u"<# setsubparams param: \"src\" to: \"1\" to: \"2\"; makefunction name: \"f\" arg: \"a\" content: "
     u"(subparamcount param: \"a\") #><# f a: src #>",
     "2", ""},
    {"an argument without value is empty text",
     u"<# makefunction name: \"f\" arg: \"x\" content: (#>[<# use param: \"x\" #>]<#) #><# f x #>", "[]", ""},
    {"arguments are evaluated in the caller's state",
     u"<# set param: \"a\" to: \"outer\"; makefunction name: \"f\" arg: \"a\" arg: \"b\" content: "
     u"(#><# use param: \"a\" #>-<# use param: \"b\" #><#) #><# f a: \"inner\" b: a #>",
     "inner-outer", ""},
    {"multiarg collects numbered sub-parameters",
     u"<# makefunction name: \"f\" multiarg: \"item\" content: (#>[<# use param: \"item\" #>]<# subparamcount "
     u"param: \"item\" #><# use param: \"item.#1\" #><# use param: \"item.#2\" #><#) #><# f item: \"a\" ITEM: \"b\" #>",
     "[]2ab", ""},
    {"an absent optarg hides the caller's parameter",
     u"<# set param: \"x\" to: \"caller\"; makefunction name: \"f\" optarg: \"x\" content: (#>[<# use param: \"x\" "
     u"skipifmissing #>]<#) #><# f #><# use param: \"x\" #>",
     "[]caller", ""},
    {"a name declared twice counts under its first kind",
     u"<# makefunction name: \"f\" multiarg: \"x\" optarg: \"x\" content: \"ok\" #><# f #>", "ok", ""},
    {"recursion sees its own arguments at each level",
     u"<# set param: \"l.v\" to: \"a\"; set param: \"l.n.v\" to: \"b\"; set param: \"l.n.n.v\" to: \"c\" #>"
     u"<# makefunction name: \"walk\" arg: \"node\" content: (#>[<# use param: \"node.v\" #><# if paramset: \"node.n\" "
     u"then: (walk node: node.n) #><# use param: \"node.v\" #>]<#) #><# walk node: l #>",
     "[a[b[cc]b]a]", ""},
    {"a user function hides a built-in until deleted",
     u"<# makefunction name: \"set\" arg: \"param\" content: \"mine\" #><# set param: \"x\" #>"
     u"<# deletefunction name: \"SET\" #><# set param: \"x\" to: \"1\"; use param: \"x\" #>",
     "mine1", ""},
    {"redefinition takes over and deletion removes the oldest",
     u"<# makefunction name: \"f\" content: \"1\"; makefunction name: \"F\" content: \"2\" #><# f #>"
     u"<# deletefunction name: \"f\" #><# f #>",
     "22", ""},
    {"the last deletion removes the name",
     u"<# makefunction name: \"f\" content: \"1\"; makefunction name: \"f\" content: \"2\"; deletefunction name: \"f\"; "
     u"deletefunction name: \"f\"; deletefunction name: \"f\" #>\n<# f #>",
     "", "- Unknown function type \"f\" found" AT(2, 4)},
    {"a text body", u"<# makefunction name: \"f\" content: \"plain\" #><# f #>", "plain", ""},
};

TEST(UserFunctions, CallsBindAndRestoreTheirArguments) { ExpectTemplateCases(kUserFunctionCases); }

const TemplateCase kUserFunctionErrors[] = {
    {"a required argument is missing", GREET u"<# greet #>", "",
     "- Argument \"Who\" is missing" AT(1, 92) "\n- Error processing function \"greet\"" AT(1, 92)},
    {"a single argument given twice", GREET u"<# greet who: \"a\" who: \"b\" #>", "",
     "- Argument \"who\" can only be specified once" AT(1, 107) "\n- Error setting up \"greet\" functie" AT(1, 92)},
    {"an undeclared argument", GREET u"<# greet whom: \"a\" #>", "",
     "- Unknown argument \"whom\" found" AT(1, 98) "\n- Error setting up \"greet\" functie" AT(1, 92)},
    {"multiarg is required", u"<# makefunction name: \"f\" multiarg: \"item\" content: \"x\" #><# f #>", "",
     "- Argument \"item\" is missing" AT(1, 62) "\n- Error processing function \"f\"" AT(1, 62)},
    {"an argument that fails to evaluate", u"<# makefunction name: \"f\" arg: \"x\" content: \"x\" #><# f x: missing #>", "",
     "- Parameter \"missing\" is not set when evaluating argument \"x\"" AT(1, 56)
     "\n- Error processing function \"f\"" AT(1, 54)},
    {"an invalid function name", u"<# makefunction name: \"bad.name\" content: \"x\" #>", "",
     "- The function name \"bad.name\" is not valid" AT(1, 17) "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"an argument name with components", u"<# makefunction name: \"f\" arg: \"a.b\" content: \"x\" #>", "",
     "- Argument definition name \"a.b\" contains indices" AT(1, 27)
     "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"makefunction without content", u"<# makefunction name: \"f\" #>", "",
     "- Argument \"Content\" is missing" AT(1, 4) "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"makefunction without name", u"<# makefunction content: \"x\" #>", "",
     "- Argument \"Name\" is missing" AT(1, 4) "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"makefunction with content twice", u"<# makefunction name: \"f\" content: \"x\" content: \"y\" #>", "",
     "- Argument \"content\" can only be specified once" AT(1, 40)
     "\n- Error setting up \"makefunction\" functie" AT(1, 4)},
    {"a declaration without value", u"<# makefunction name: \"f\" optarg #>", "",
     "- Argument \"Content\" is missing" AT(1, 4) "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"a declaration without value and a content",
     u"<# makefunction name: \"f\" optarg content: \"x\" #>", "",
     "- Argument \"OptArg\" is missing a value" AT(1, 27) "\n- Error processing function \"makefunction\"" AT(1, 4)},
    {"deletefunction without name", u"<# deletefunction #>", "",
     "- Argument \"Name\" is missing" AT(1, 4) "\n- Error processing function \"deletefunction\"" AT(1, 4)},
    {"deletefunction of an invalid name", u"<# deletefunction name: \"a b\" #>", "",
     "- The function name \"a b\" is not valid" AT(1, 19) "\n- Error processing function \"deletefunction\"" AT(1, 4)},
    {"deletefunction with an unknown argument", u"<# deletefunction name: \"f\" content: \"x\" #>", "",
     "- Unknown argument \"content\" found" AT(1, 29) "\n- Error setting up \"deletefunction\" functie" AT(1, 4)},
    {"an error chain through nested calls",
     u"<# makefunction name: \"inner\" content: (#>\n<# use param: \"missing\" #>\n<#) #>\n"
     u"<# makefunction name: \"outer\" content: (inner) #>\n<# outer #>",
     "",
     "- Parameter \"missing\" is not set when evaluating argument \"param\"" AT(2, 8)
     "\n- Error processing function \"use\"" AT(2, 4) "\n- Error processing function \"inner\"" AT(4, 41)
     "\n- Error processing function \"outer\"" AT(5, 4)},
};

TEST(UserFunctions, ErrorsAreReportedWhereTheyAreWritten) { ExpectTemplateCases(kUserFunctionErrors); }

TEST(UserFunctions, AFailingBodyLeavesTheArgumentsAsTheCallSetThem) {
  CProcessContext context;
  RunTemplate(context, u"<# set param: \"x\" to: \"old\"; makefunction name: \"f\" arg: \"x\" content: (error text: \"no\") #>");
  EXPECT_FALSE(RunTemplate(context, u"<# f x: \"new\" #>").errors.empty());
  EXPECT_EQ(WideToUtf8(RunTemplate(context, u"<# use param: \"x\" #>").output), "new");
}

TEST(UserFunctions, DefinitionsOutliveTheirTemplateUnlessIsolated) {
  CProcessContext context;
  RunTemplate(context, u"<# makefunction name: \"kept\" content: \"k\" #>");
  RunTemplate(context, u"<# makefunction name: \"dropped\" content: \"d\" #>", true);
  EXPECT_EQ(WideToUtf8(RunTemplate(context, u"<# kept #>").output), "k");
  EXPECT_EQ(Lines(RunTemplate(context, u"<# dropped #>").errors),
            "- Unknown function type \"dropped\" found" AT(1, 4));
}

// Every level of recursion evaluates one more body; the level past the limit
// fails at the body, and each call on the way out adds its own line.
TEST(UserFunctions, EndlessRecursionEndsAtTheNestingLimit) {
  const TemplateRun run = RunTemplate(u"<# makefunction name: \"down\" content: (down) #><# down #>");
  const std::string report = Lines(run.errors);
  const std::string first = "- Too many nested function calls (1000)" AT(1, 30) "\n";
  const std::string last = "\n- Error processing function \"down\"" AT(1, 51);
  ASSERT_GT(report.size(), first.size() + last.size());
  EXPECT_EQ(report.substr(0, first.size()), first);
  EXPECT_EQ(report.substr(report.size() - last.size()), last);
  EXPECT_EQ(std::count(report.begin(), report.end(), '\n') + 1, 1 + 1001);
}

TEST(UserFunctions, RecursionThroughContentArgumentsEndsAtTheNestingLimit) {
  const TemplateRun run = RunTemplate(
      u"<# makefunction name: \"down\" arg: \"n\" content: (if what: n is: \"x\" then: (down n: \"x\")) #>"
      u"<# down n: \"x\" #>");
  EXPECT_EQ(Lines(run.errors).substr(0, 39), "- Too many nested function calls (1000)");
}

}  // namespace
}  // namespace NScrivolt
