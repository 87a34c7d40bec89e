#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

const TemplateCase kControlCases[] = {
    {"paramset of an empty parameter, paramnotset of a missing one",
     u"<# set param: \"e\" #><# if paramset: \"e\" then: \"set\" #><# if paramnotset: \"E\" then: \"unset\" #>"
     u"<# if paramnotset: \"m.#2\" then: \"-unset\" else: \"-set\" #>",
     "set-unset", ""},
    {"paramset evaluates its text", u"<# set param: \"which\" to: \"x\"; set param: \"x\" #><# if paramset: which then: \"y\" #>",
     "y", ""},
    {"false condition: else or nothing, then not needed",
     u"[<# if what: \"a\" is: \"b\" then: \"yes\" #>][<# if what: \"a\" is: \"b\" else: \"no\" #>]", "[][no]", ""},
    {"the branch not taken is not evaluated", u"<# if what: \"a\" is: \"a\" then: \"yes\" else: missing #>", "yes", ""},
    {"while without do that never runs", u"[<# while what: \"a\" is: \"b\" #>]", "[]", ""},
    {"until true at once runs once", u"<# until what: \"a\" is: \"a\" loopnumber: \"n\" do: \"x\" #><# use param: \"n\" #>",
     "x1", ""},
    {"for with an empty range",
     u"[<# for from: \"3\" to: \"1\" value: \"v\" loopnumber: \"n\" #>]<# if paramnotset: \"v\" not: \"x\" "
     u"then: \"v?\" #><# if paramset: \"n\" then: \"n?\" #>",
     "[]", ""},
    {"for reads numbers like the C conversion",
     u"<# for from: \"  +2abc\" to: \" 4 \" value: \"v\" do: (use param: \"v\") #>", "234", ""},
    {"an error in a later round stops the loop",
     u"<# for from: \"1\" to: \"3\" value: \"v\" do: (#><# if what: v is: \"2\" then: (error text: \"two\") #><#) #>", "",
     "\n- two" CALL_FAILED("error", 1, 73) CALL_FAILED("if", 1, 47) CALL_FAILED("for", 1, 4)},
    {"comparisons fold A-Z to lower case: a prefix is lower, '[' lies below 'a' but above 'A'",
     u"<# if what: \"AB\" islowerthan: \"abc\" then: \"1\" #><# if what: \"[\" islowerthan: \"a\" then: \"2\" #>"
     u"<# if what: \"[\" isgreaterthan: \"A\" casesensitive then: \"3\" #><# if what: \"abc\" isgreaterthan: \"AB\" "
     u"then: \"4\" #><# if what: \"Ab\" is: \"aB\" then: \"5\" #>",
     "12345", ""},
    {"gate keeps a listed function's deletion",
     u"<# makefunction name: \"f\" content: \"f\" #><# gate function: \"f\" content: (deletefunction name: \"f\") #>"
     u"<# f #>",
     "", "- Unknown function type \"f\" found" AT(1, 105)},
};

TEST(ControlFlow, TemplatesGiveTheirOutput) { ExpectTemplateCases(kControlCases); }

// A failing content restores nothing.
TEST(Gate, RestoresNothingWhenTheContentFails) {
  CProcessContext context;
  const TemplateRun failed =
      RunTemplate(context, u"<# gate content: (set param: \"a\" to: \"1\"; makefunction name: \"f\" content: \"f\"; "
                           u"error text: \"stop\") #>");
  EXPECT_FALSE(failed.errors.empty());
  EXPECT_EQ(WideToUtf8(RunTemplate(context, u"<# use param: \"a\" #><# f #>").output), "1f");
}

const TemplateCase kControlErrors[] = {
    {"comparison without what", u"<# if is: \"a\" then: \"x\" #>", "", ARG_MISSING("What", "if")},
    {"what without value", u"<# if what is: \"a\" then: \"x\" #>", "", ARG_WITHOUT_VALUE("What", 7, "if")},
    {"comparison without value", u"<# if what: \"a\" islowerthaneq then: \"x\" #>", "",
     ARG_WITHOUT_VALUE("IsLowerThanEq", 17, "if")},
    {"what and paramset", u"<# if what: \"a\" paramset: \"b\" #>", "",
     "- Argument \"paramset\" can only be specified once" AT(1, 17) SETUP_FAILED("if", 1, 4)},
    {"then missing when taken", u"<# if what: \"a\" is: \"a\" #>", "", ARG_MISSING("Then", "if")},
    {"paramset with a bad reference", u"<# if paramset: \"a..b\" then: \"x\" #>", "",
     "- Invalid parameter name \"\" found in parameter qualifier \"a..b\" while processing argument \"ParamSet\""
     AT(1, 7) CALL_FAILED("if", 1, 4)},
    {"while needs do when the body runs", u"<# while what: \"a\" is: \"a\" #>", "", ARG_MISSING("Do", "while")},
    {"loopnumber without value", u"<# while what: \"a\" is: \"b\" loopnumber #>", "",
     ARG_WITHOUT_VALUE("LoopNr", 28, "while")},
    {"until always needs do", u"<# until what: \"a\" is: \"b\" #>", "", ARG_MISSING("Do", "until")},
    {"until without comparison", u"<# until do: \"x\" #>", "",
     "- One of the arguments \"Is\", \"IsNot\", etc. is missing" AT(1, 4) CALL_FAILED("until", 1, 4)},
    {"for without from", u"<# for to: \"3\" do: \"x\" #>", "", ARG_MISSING("From", "for")},
    {"for without to", u"<# for from: \"1\" do: \"x\" #>", "", ARG_MISSING("To", "for")},
    {"for needs do when a round runs", u"<# for from: \"1\" to: \"3\" #>", "", ARG_MISSING("Do", "for")},
    {"for value without value", u"<# for from: \"1\" to: \"3\" value #>", "", ARG_WITHOUT_VALUE("Value", 26, "for")},
    {"foreach without in", u"<# foreach do: \"x\" #>", "", ARG_MISSING("In", "foreach")},
    {"foreach of a missing parameter", u"<# foreach in: (#>no.<#) do: \"x\" #>", "",
     "- Invalid parameter name \"\" found in parameter qualifier \"no.\" while processing argument \"In\"" AT(1, 12)
     CALL_FAILED("foreach", 1, 4)},
    {"foreach names the evaluated in", u"<# foreach in: (#>no.such<#) do: \"x\" #>", "",
     "- Parameter \"no.such\" is not set when evaluating argument \"in\"" AT(1, 12) CALL_FAILED("foreach", 1, 4)},
    {"foreach needs do when a round runs", u"<# set param: \"p.#1\" #><# foreach in: \"p\" #>", "",
     "- Argument \"Do\" is missing" AT(1, 27) CALL_FAILED("foreach", 1, 27)},
    {"foreach indexname without value", u"<# foreach in: \"p\" indexname #>", "",
     ARG_WITHOUT_VALUE("IndexName", 20, "foreach")},
    {"foreach indexnumber without value", u"<# foreach in: \"p\" indexnumber #>", "",
     ARG_WITHOUT_VALUE("IndexNumber", 20, "foreach")},
    {"gate without content", u"<# gate param: \"a\" #>", "", ARG_MISSING("Content", "gate")},
    {"gate with an invalid function name", u"<# gate function: \"bad.name\" content: \"x\" #>", "",
     "- The function name \"bad.name\" is not valid" AT(1, 9) CALL_FAILED("gate", 1, 4)},
    {"gate param without value", u"<# gate param #>", "", ARG_WITHOUT_VALUE("Param", 9, "gate")},
    {"error without text", u"<# error #>", "", ARG_MISSING("Text", "error")},
    {"nooutput without content", u"<# nooutput #>", "", ARG_MISSING("Content", "nooutput")},
    {"error in a loop body", u"<# while what: \"a\" is: \"a\" do: (use param: \"x\") #>", "",
     "- Parameter \"x\" is not set when evaluating argument \"param\"" AT(1, 37)
     CALL_FAILED("use", 1, 33) CALL_FAILED("while", 1, 4)},
};

TEST(ControlFlow, ArgumentErrorsAreReportedWhereTheyAreWritten) { ExpectTemplateCases(kControlErrors); }

}  // namespace
}  // namespace NScrivolt
