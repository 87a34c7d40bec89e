#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

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
    {"unset renumbers the later siblings",
     u"<# setsubparams param: \"p\" to: \"a\" to: \"b\" to: \"c\"; unset param: \"p.#2\" #>"
     u"<# use param: \"p.#2\" #><# subparamcount param: \"p\" #>",
     "c2", ""},
    {"unset of a missing parameter is no error", u"<# unset param: \"nothing.here\" #>ok", "ok", ""},
    // use
    {"use skipifmissing with a value", u"[<# use param: \"x\" skipifmissing: \"anything\" #>]", "[]", ""},
    // unsetsubparams
    {"unsetsubparams keeps the value",
     u"<# set param: \"p\" to: \"v\"; addsubparams param: \"p\" value: \"x\"; unsetsubparams param: \"p\" #>"
     u"<# use param: \"p\" #><# subparamcount param: \"p\" #>",
     "v0", ""},
    {"unsetsubparams of a missing parameter", u"<# unsetsubparams param: \"none\" #>ok", "ok", ""},
    // sortsubparams
    {"sortsubparams numberdesc twice restores",
     u"<# setsubparams param: \"p\" to: \"1\" to: \"2\" to: \"3\"; sortsubparams param: \"p\" orderby: \"numberdesc\" #>"
     u"<# use param: \"p.#1\" #><# sortsubparams param: \"p\" orderby: \"NumberDesc\" #><# use param: \"p.#1\" #>",
     "31", ""},
    {"sortsubparams by name renumbers",
     u"<# set param: \"p.b\" to: \"1\"; set param: \"p.C\" to: \"2\"; set param: \"p.a\" to: \"3\" #>"
     u"<# sortsubparams param: \"p\" orderby: \"nameasc\" #><# use param: \"p.#1\" #><# use param: \"p.#3\" #>"
     u"<# findsubparam param: \"p\" value: \"2\" #>",
     "32#3", ""},
    {"sortsubparams recurse sorts every level",
     u"<# setsubparams param: \"p\" to: \"2\" to: \"1\"; setsubparams param: \"p.#1\" to: \"z\" to: \"y\"; "
     u"setsubparams param: \"p.#1.#1\" to: \"n\" to: \"m\" #><# sortsubparams param: \"p\" recurse #>"
     u"<# use param: \"p.#1\" #><# use param: \"p.#2.#1\" #><# use param: \"p.#2.#2.#1\" #>",
     "1ym", ""},
    {"sortsubparams without recurse sorts one level",
     u"<# setsubparams param: \"p\" to: \"2\" to: \"1\"; setsubparams param: \"p.#1\" to: \"z\" to: \"y\" #>"
     u"<# sortsubparams param: \"p\" #><# use param: \"p.#2.#1\" #>",
     "z", ""},
};

TEST(ParameterFunctions, TemplatesGiveTheirOutput) { ExpectTemplateCases(kParameterCases); }

const TemplateCase kParameterErrors[] = {
    {"set without param", u"<# set #>", "", ARG_MISSING("Param", "set")},
    {"set param without value", u"<# set to: \"x\" param #>", "", ARG_WITHOUT_VALUE("Param", 16, "set")},
    {"set to a missing reference", u"<# set param: \"a\" to: missing.#2 #>", "",
     "- Parameter \"missing.#2\" is not set when evaluating argument \"to\"" AT(1, 19) CALL_FAILED("set", 1, 4)},
    {"set of an invalid name", u"<# set param: \"a b\" #>", "",
     "- Invalid parameter name \"a b\" found in parameter qualifier \"a b\" while processing argument \"Param\""
     AT(1, 8) CALL_FAILED("set", 1, 4)},
    {"unset without param", u"\n<# unset #>", "",
     "- Argument \"Param\" is missing" AT(2, 4) CALL_FAILED("unset", 2, 4)},
    {"addsubparams without param", u"<# addsubparams value: \"x\" #>", "", ARG_MISSING("Param", "addsubparams")},
    {"addsubparams without value", u"<# addsubparams param: \"p\" #>", "", ARG_MISSING("Value", "addsubparams")},
    {"addsubparams value without value", u"<# addsubparams param: \"p\" value #>", "",
     ARG_WITHOUT_VALUE("Value", 28, "addsubparams")},
    {"addsubparams value not set", u"<# addsubparams param: \"p\" value: \"a\" value: nothing #>", "",
     "- Parameter \"nothing\" is not set when evaluating argument \"value\"" AT(1, 39)
     CALL_FAILED("addsubparams", 1, 4)},
    {"setsubparams without param", u"<# setsubparams to: \"a\" #>", "", ARG_MISSING("Param", "setsubparams")},
    {"setsubparams to without value", u"<# setsubparams param: \"p\" to: \"a\" to #>", "",
     ARG_WITHOUT_VALUE("To", 36, "setsubparams")},
    {"unsetsubparams without param", u"<# unsetsubparams #>", "", ARG_MISSING("Param", "unsetsubparams")},
    {"subparamcount without param", u"<# subparamcount #>", "", ARG_MISSING("Param", "subparamcount")},
    {"subparamcount names the evaluated text", u"<# subparamcount param: (#>a.b<#) #>", "",
     "- Parameter \"a.b\" is not set when evaluating argument \"param\"" AT(1, 18) CALL_FAILED("subparamcount", 1, 4)},
    {"findsubparam without param", u"<# findsubparam value: \"x\" #>", "", ARG_MISSING("Param", "findsubparam")},
    {"findsubparam without value", u"<# findsubparam param: \"p\" #>", "", ARG_MISSING("Value", "findsubparam")},
    {"findsubparam indextype without value", u"<# findsubparam param: \"p\" value: \"x\" indextype #>", "",
     ARG_WITHOUT_VALUE("IndexType", 39, "findsubparam")},
    {"findsubparam of a missing parameter", u"<# findsubparam param: \"p\" value: \"x\" #>", "",
     "- Parameter \"p\" is not set when evaluating argument \"param\"" AT(1, 17) CALL_FAILED("findsubparam", 1, 4)},
    {"findsubparam has no orderby", u"<# findsubparam param: \"p\" value: \"x\" orderby: \"nameasc\" #>", "",
     "- Unknown argument \"orderby\" found" AT(1, 39) SETUP_FAILED("findsubparam", 1, 4)},
    {"sortsubparams without param", u"<# sortsubparams #>", "", ARG_MISSING("Param", "sortsubparams")},
    {"sortsubparams with an unknown order", u"<# sortsubparams param: \"p\" ORDERBY: \"sideways\" #>", "",
     "- Unknown option \"sideways\" for \"ORDERBY\" found" AT(1, 29) CALL_FAILED("sortsubparams", 1, 4)},
    {"sortsubparams of a missing parameter", u"<# sortsubparams param: \"p\" #>", "",
     "- Parameter \"p\" is not set when evaluating argument \"param\"" AT(1, 18) CALL_FAILED("sortsubparams", 1, 4)},
    {"sortsubparams with orderby twice", u"<# sortsubparams param: \"p\" orderby: \"nameasc\" orderby: \"namedesc\" #>", "",
     "- Argument \"orderby\" can only be specified once" AT(1, 48) SETUP_FAILED("sortsubparams", 1, 4)},
    {"sortsubparams orderby without value", u"<# sortsubparams param: \"p\" orderby #>", "",
     ARG_WITHOUT_VALUE("OrderBy", 29, "sortsubparams")},
    {"_writeparamtree without param", u"<# _writeparamtree #>", "", ARG_MISSING("Param", "_writeparamtree")},
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
