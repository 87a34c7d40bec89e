#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

#define AT(line, column) " at line " #line ", column " #column ", re-processed content"

const TemplateCase kParameterCases[] = {
    // set
    {"set with a text drops the sub-parameters",
     u"<# setsubparams param: \"a\" to: \"x\" to: \"y\"; set param: \"a\" to: \"v\" #>"
     u"<# subparamcount param: \"a\" #><# use param: \"a\" #>",
     "0v", ""},
    {"set without to empties but keeps the parameter",
     u"<# set param: \"a\" to: \"v\"; addsubparams param: \"a\" value: \"x\"; set param: \"a\" #>"
     u"<# subparamcount param: \"a\" #>[<# use param: \"a\" #>]",
     "0[]", ""},
    {"set to its own sub-parameter", u"<# setsubparams param: \"a\" to: \"x\"; set param: \"a\" to: a.#1 #>"
     u"<# use param: \"a\" #><# subparamcount param: \"a\" #>", "x0", ""},
    {"set creates the whole path", u"<# set param: \"a.b.#3\" to: \"v\" #><# use param: \"a.b.#1\" #>", "v", ""},
    {"unset renumbers the later siblings",
     u"<# setsubparams param: \"p\" to: \"a\" to: \"b\" to: \"c\"; unset param: \"p.#2\" #>"
     u"<# use param: \"p.#2\" #><# subparamcount param: \"p\" #>",
     "c2", ""},
    {"unset of a missing parameter is no error", u"<# unset param: \"nothing.here\" #>ok", "ok", ""},
    // use
    {"use skipifmissing with a value", u"[<# use param: \"x\" skipifmissing: \"anything\" #>]", "[]", ""},
    // addsubparams
    {"addsubparams sees its earlier values", u"<# addsubparams param: \"p\" value: \"a\" value: p.#1 #>"
     u"<# use param: \"p.#2\" #>", "a", ""},
    {"addsubparams copies the sub-parameters of a reference",
     u"<# setsubparams param: \"src\" to: \"1\" to: \"2\"; addsubparams param: \"p\" value: src #>"
     u"<# subparamcount param: \"p.#1\" #><# use param: \"p.#1.#2\" #>",
     "22", ""},
    // setsubparams, unsetsubparams
    {"setsubparams without to keeps the value",
     u"<# set param: \"p\" to: \"v\"; addsubparams param: \"p\" value: \"x\"; setsubparams param: \"p\" #>"
     u"<# use param: \"p\" #><# subparamcount param: \"p\" #>",
     "v0", ""},
    {"setsubparams from its own sub-parameters",
     u"<# setsubparams param: \"p\" to: \"a\" to: \"b\"; setsubparams param: \"p\" to: p.#2 to: p.#1 #>"
     u"<# use param: \"p.#1\" #><# use param: \"p.#2\" #>",
     "ba", ""},
    {"unsetsubparams keeps the value",
     u"<# set param: \"p\" to: \"v\"; addsubparams param: \"p\" value: \"x\"; unsetsubparams param: \"p\" #>"
     u"<# use param: \"p\" #><# subparamcount param: \"p\" #>",
     "v0", ""},
    {"unsetsubparams of a missing parameter", u"<# unsetsubparams param: \"none\" #>ok", "ok", ""},
    // subparamcount
    {"subparamcount without sub-parameters", u"<# set param: \"p\" #><# subparamcount param: \"p\" #>", "0", ""},
    // findsubparam
    {"findsubparam takes the lower number",
     u"<# setsubparams param: \"t\" to: \"q\" to: \"x\" to: \"x\" #><# findsubparam param: \"t\" value: \"x\" #>",
     "#2", ""},
    {"findsubparam without a match", u"<# setsubparams param: \"t\" to: \"q\" #>[<# findsubparam param: \"t\" value: \"x\" #>]",
     "[]", ""},
    {"findsubparam does not descend without recurse",
     u"<# addsubparams param: \"t.#1\" value: \"x\" #>[<# findsubparam param: \"t\" value: \"x\" #>]", "[]", ""},
    {"findsubparam prefers a direct child",
     u"<# setsubparams param: \"t\" to: \"q\" to: \"y\" to: \"x\"; addsubparams param: \"t.#1\" value: \"x\" #>"
     u"<# findsubparam param: \"t\" value: \"x\" recurse #>",
     "#3", ""},
    {"findsubparam searches an earlier subtree first",
     u"<# set param: \"t.#1.#1.#1\" to: \"deep\"; set param: \"t.#2.#1\" to: \"deep\" #>"
     u"<# findsubparam param: \"t\" value: \"deep\" recurse #>",
     "#1.#1.#1", ""},
    {"findsubparam tests a level before going deeper",
     u"<# set param: \"t.#1.#1.#1\" to: \"x\"; set param: \"t.#1.#2\" to: \"x\" #>"
     u"<# findsubparam param: \"t\" value: \"x\" recurse #>",
     "#1.#2", ""},
    {"findsubparam by name",
     u"<# set param: \"t.Colors.Red\" to: \"ff0000\" #><# findsubparam param: \"t\" value: \"FF0000\" recurse "
     u"indextype: \"NAME\" #>",
     "Colors.Red", ""},
    {"findsubparam folds ASCII letters only",
     u"<# setsubparams param: \"t\" to: \"\u00c9\" to: \"abc\" #>[<# findsubparam param: \"t\" value: \"\u00e9\" #>]"
     u"<# findsubparam param: \"t\" value: \"ABC\" #>",
     "[]#2", ""},
    {"findsubparam casesensitive",
     u"<# setsubparams param: \"t\" to: \"abc\" to: \"ABC\" #><# findsubparam param: \"t\" value: \"ABC\" "
     u"casesensitive #>",
     "#2", ""},
    // sortsubparams
    {"sortsubparams by value ascending keeps equal values in number order",
     u"<# setsubparams param: \"p\" to: \"b\" to: \"A\" to: \"a\"; sortsubparams param: \"p\" #>"
     u"<# use param: \"p.#1\" #><# use param: \"p.#2\" #><# use param: \"p.#3\" #>",
     "Aab", ""},
    {"sortsubparams by value descending",
     u"<# setsubparams param: \"p\" to: \"b\" to: \"A\" to: \"a\"; sortsubparams param: \"p\" orderby: \"valuedesc\" #>"
     u"<# use param: \"p.#1\" #><# use param: \"p.#2\" #><# use param: \"p.#3\" #>",
     "baA", ""},
    {"sortsubparams compares text", u"<# setsubparams param: \"p\" to: \"9\" to: \"10\"; sortsubparams param: \"p\" #>"
     u"<# use param: \"p.#1\" #>", "10", ""},
    {"sortsubparams numberdesc twice restores",
     u"<# setsubparams param: \"p\" to: \"1\" to: \"2\" to: \"3\"; sortsubparams param: \"p\" orderby: \"numberdesc\" #>"
     u"<# use param: \"p.#1\" #><# sortsubparams param: \"p\" orderby: \"NumberDesc\" #><# use param: \"p.#1\" #>",
     "31", ""},
    {"sortsubparams by name",
     u"<# set param: \"p.b\" to: \"1\"; set param: \"p.C\" to: \"2\"; set param: \"p.a\" to: \"3\" #>"
     u"<# sortsubparams param: \"p\" orderby: \"nameasc\" #><# use param: \"p.#1\" #><# use param: \"p.#3\" #>",
     "32", ""},
    {"sortsubparams recurse sorts every level",
     u"<# setsubparams param: \"p\" to: \"2\" to: \"1\"; setsubparams param: \"p.#1\" to: \"z\" to: \"y\"; "
     u"setsubparams param: \"p.#1.#1\" to: \"n\" to: \"m\" #><# sortsubparams param: \"p\" recurse #>"
     u"<# use param: \"p.#1\" #><# use param: \"p.#2.#1\" #><# use param: \"p.#2.#2.#1\" #>",
     "1ym", ""},
    {"sortsubparams without recurse sorts one level",
     u"<# setsubparams param: \"p\" to: \"2\" to: \"1\"; setsubparams param: \"p.#1\" to: \"z\" to: \"y\" #>"
     u"<# sortsubparams param: \"p\" #><# use param: \"p.#2.#1\" #>",
     "z", ""},
    // _writeparamtree
    {"_writeparamtree layout",
     u"<# set param: \"list\" to: \"a\"; set param: \"list.first\" to: \"x\"; set param: \"list.Colors\" #>"
     u"<# _writeparamtree param: \"list\" #>",
     "#4/\"list\": a\r\n  #1/\"first\": x\r\n  #2/\"Colors\": ", ""},
    {"_writeparamtree escapes values and indents each level",
     u"<# set param: \"e\" to: (#>a\\n\r\nb\rc\nd\te<#); set param: \"e.k.j\" to: \"1\" #><# _writeparamtree param: \"e\" #>",
     "#4/\"e\": a\\\\n\\r\\nb\\rc\\nd\\te\r\n  #1/\"k\": \r\n    #1/\"j\": 1", ""},
    {"_writeparamtree of a missing parameter", u"<# _writeparamtree param: \"no.such\" #>", "no.such not set", ""},
};

TEST(ParameterFunctions, TemplatesGiveTheirOutput) { ExpectTemplateCases(kParameterCases); }

const TemplateCase kParameterErrors[] = {
    {"set without param", u"<# set #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"set\"" AT(1, 4)},
    {"set param without value", u"<# set to: \"x\" param #>", "",
     "- Argument \"Param\" is missing a value" AT(1, 16) "\n- Error processing function \"set\"" AT(1, 4)},
    {"set with an unknown argument", u"<# set param: \"a\" value: \"x\" #>", "",
     "- Unknown argument \"value\" found" AT(1, 19) "\n- Error setting up \"set\" functie" AT(1, 4)},
    {"set with to twice", u"<# set param: \"a\" to: \"x\" TO: \"y\" #>", "",
     "- Argument \"TO\" can only be specified once" AT(1, 27) "\n- Error setting up \"set\" functie" AT(1, 4)},
    {"set to a missing reference", u"<# set param: \"a\" to: missing.#2 #>", "",
     "- Parameter \"missing.#2\" is not set when evaluating argument \"to\"" AT(1, 19)
     "\n- Error processing function \"set\"" AT(1, 4)},
    {"set of an invalid name", u"<# set param: \"a b\" #>", "",
     "- Invalid parameter name \"a b\" found in parameter qualifier \"a b\" while processing argument \"Param\""
     AT(1, 8) "\n- Error processing function \"set\"" AT(1, 4)},
    {"unset without param", u"\n<# unset #>", "",
     "- Argument \"Param\" is missing" AT(2, 4) "\n- Error processing function \"unset\"" AT(2, 4)},
    {"unset with an unknown argument", u"<# unset param: \"a\" to: \"b\" #>", "",
     "- Unknown argument \"to\" found" AT(1, 21) "\n- Error setting up \"unset\" functie" AT(1, 4)},
    {"use with skipifmissing twice", u"<# use param: \"p\" skipifmissing skipifmissing #>", "",
     "- Argument \"skipifmissing\" can only be specified once" AT(1, 33)
     "\n- Error setting up \"use\" functie" AT(1, 4)},
    {"addsubparams without param", u"<# addsubparams value: \"x\" #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"addsubparams\"" AT(1, 4)},
    {"addsubparams without value", u"<# addsubparams param: \"p\" #>", "",
     "- Argument \"Value\" is missing" AT(1, 4) "\n- Error processing function \"addsubparams\"" AT(1, 4)},
    {"addsubparams value without value", u"<# addsubparams param: \"p\" value #>", "",
     "- Argument \"Value\" is missing a value" AT(1, 28) "\n- Error processing function \"addsubparams\"" AT(1, 4)},
    {"addsubparams value not set", u"<# addsubparams param: \"p\" value: \"a\" value: nothing #>", "",
     "- Parameter \"nothing\" is not set when evaluating argument \"value\"" AT(1, 39)
     "\n- Error processing function \"addsubparams\"" AT(1, 4)},
    {"addsubparams with an unknown argument", u"<# addsubparams param: \"p\" to: \"a\" #>", "",
     "- Unknown argument \"to\" found" AT(1, 28) "\n- Error setting up \"addsubparams\" functie" AT(1, 4)},
    {"setsubparams without param", u"<# setsubparams to: \"a\" #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"setsubparams\"" AT(1, 4)},
    {"setsubparams to without value", u"<# setsubparams param: \"p\" to: \"a\" to #>", "",
     "- Argument \"To\" is missing a value" AT(1, 36) "\n- Error processing function \"setsubparams\"" AT(1, 4)},
    {"setsubparams with param twice", u"<# setsubparams param: \"p\" param: \"q\" #>", "",
     "- Argument \"param\" can only be specified once" AT(1, 28)
     "\n- Error setting up \"setsubparams\" functie" AT(1, 4)},
    {"unsetsubparams without param", u"<# unsetsubparams #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"unsetsubparams\"" AT(1, 4)},
    {"unsetsubparams with an unknown argument", u"<# unsetsubparams param: \"p\" value: \"x\" #>", "",
     "- Unknown argument \"value\" found" AT(1, 30) "\n- Error setting up \"unsetsubparams\" functie" AT(1, 4)},
    {"subparamcount without param", u"<# subparamcount #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"subparamcount\"" AT(1, 4)},
    {"subparamcount names the evaluated text", u"<# subparamcount param: (#>a.b<#) #>", "",
     "- Parameter \"a.b\" is not set when evaluating argument \"param\"" AT(1, 18)
     "\n- Error processing function \"subparamcount\"" AT(1, 4)},
    {"subparamcount with an unknown argument", u"<# subparamcount param: \"p\" recurse #>", "",
     "- Unknown argument \"recurse\" found" AT(1, 29) "\n- Error setting up \"subparamcount\" functie" AT(1, 4)},
    {"findsubparam without param", u"<# findsubparam value: \"x\" #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"findsubparam\"" AT(1, 4)},
    {"findsubparam without value", u"<# findsubparam param: \"p\" #>", "",
     "- Argument \"Value\" is missing" AT(1, 4) "\n- Error processing function \"findsubparam\"" AT(1, 4)},
    {"findsubparam with an unknown index type", u"<# findsubparam param: \"p\" value: \"x\" indextype: \"index\" #>", "",
     "- Unknown option \"index\" for \"indextype\" found" AT(1, 39)
     "\n- Error processing function \"findsubparam\"" AT(1, 4)},
    {"findsubparam indextype without value", u"<# findsubparam param: \"p\" value: \"x\" indextype #>", "",
     "- Argument \"IndexType\" is missing a value" AT(1, 39) "\n- Error processing function \"findsubparam\"" AT(1, 4)},
    {"findsubparam of a missing parameter", u"<# findsubparam param: \"p\" value: \"x\" #>", "",
     "- Parameter \"p\" is not set when evaluating argument \"param\"" AT(1, 17)
     "\n- Error processing function \"findsubparam\"" AT(1, 4)},
    {"findsubparam with recurse twice", u"<# findsubparam param: \"p\" value: \"x\" recurse recurse #>", "",
     "- Argument \"recurse\" can only be specified once" AT(1, 47)
     "\n- Error setting up \"findsubparam\" functie" AT(1, 4)},
    {"findsubparam has no orderby", u"<# findsubparam param: \"p\" value: \"x\" orderby: \"nameasc\" #>", "",
     "- Unknown argument \"orderby\" found" AT(1, 39) "\n- Error setting up \"findsubparam\" functie" AT(1, 4)},
    {"sortsubparams without param", u"<# sortsubparams #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"sortsubparams\"" AT(1, 4)},
    {"sortsubparams with an unknown order", u"<# sortsubparams param: \"p\" ORDERBY: \"sideways\" #>", "",
     "- Unknown option \"sideways\" for \"ORDERBY\" found" AT(1, 29)
     "\n- Error processing function \"sortsubparams\"" AT(1, 4)},
    {"sortsubparams of a missing parameter", u"<# sortsubparams param: \"p\" #>", "",
     "- Parameter \"p\" is not set when evaluating argument \"param\"" AT(1, 18)
     "\n- Error processing function \"sortsubparams\"" AT(1, 4)},
    {"sortsubparams with orderby twice", u"<# sortsubparams param: \"p\" orderby: \"nameasc\" orderby: \"namedesc\" #>", "",
     "- Argument \"orderby\" can only be specified once" AT(1, 48)
     "\n- Error setting up \"sortsubparams\" functie" AT(1, 4)},
    {"sortsubparams orderby without value", u"<# sortsubparams param: \"p\" orderby #>", "",
     "- Argument \"OrderBy\" is missing a value" AT(1, 29) "\n- Error processing function \"sortsubparams\"" AT(1, 4)},
    {"sortsubparams with an unknown argument", u"<# sortsubparams param: \"p\" value: \"x\" #>", "",
     "- Unknown argument \"value\" found" AT(1, 29) "\n- Error setting up \"sortsubparams\" functie" AT(1, 4)},
    {"_writeparamtree without param", u"<# _writeparamtree #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) "\n- Error processing function \"_writeparamtree\"" AT(1, 4)},
    {"_writeparamtree with an unknown argument", u"<# _writeparamtree param: \"p\" recurse #>", "",
     "- Unknown argument \"recurse\" found" AT(1, 31) "\n- Error setting up \"_writeparamtree\" functie" AT(1, 4)},
};

TEST(ParameterFunctions, ArgumentErrorsAreReportedWhereTheyAreWritten) { ExpectTemplateCases(kParameterErrors); }

// A failing function keeps what it changed before the failure; the functions
// that evaluate everything first change nothing.
TEST(ParameterFunctions, FailuresKeepOrLeaveTheTreeAsDocumented) {
  CProcessContext context;
  RunTemplate(context, u"<# setsubparams param: \"s\" to: \"old\" #>");
  EXPECT_FALSE(RunTemplate(context, u"<# addsubparams param: \"a\" value: \"1\" value: gone #>").errors.empty());
  EXPECT_FALSE(RunTemplate(context, u"<# setsubparams param: \"s\" to: \"new\" to: gone #>").errors.empty());
  EXPECT_FALSE(RunTemplate(context, u"<# set param: \"s\" to: gone #>").errors.empty());
  const TemplateRun after = RunTemplate(context, u"<# subparamcount param: \"a\" #><# use param: \"s.#1\" #>");
  EXPECT_EQ(WideToUtf8(after.output), "1old");
}

}  // namespace
}  // namespace NScrivolt
