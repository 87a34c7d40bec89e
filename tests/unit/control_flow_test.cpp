#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

#define AT(line, column) " at line " #line ", column " #column ", re-processed content"

const TemplateCase kConditionCases[] = {
    {"is ignores case", u"<# if what: \"abc\" is: \"ABC\" then: \"yes\" else: \"no\" #>", "yes", ""},
    {"casesensitive", u"<# if what: \"abc\" is: \"ABC\" casesensitive then: \"yes\" else: \"no\" #>", "no", ""},
    {"not inverts", u"<# if what: \"abc\" is: \"ABC\" casesensitive not then: \"yes\" else: \"no\" #>", "yes", ""},
    {"text order: 10 before 9", u"<# if what: \"10\" islowerthan: \"9\" then: \"yes\" else: \"no\" #>", "yes", ""},
    {"case folds before comparing order",
     u"<# if what: \"a\" islowerthan: \"B\" then: \"yes\" else: \"no\" #><# if what: \"a\" islowerthan: \"B\" "
     u"casesensitive then: \"yes\" else: \"no\" #>",
     "yesno", ""},
    {"paramset of an empty parameter",
     u"<# set param: \"e\" #><# if paramset: \"e\" then: \"set\" #><# if paramnotset: \"E\" then: \"unset\" #>", "set", ""},
    {"paramnotset of a missing parameter", u"<# if paramnotset: \"m.#2\" then: \"unset\" else: \"set\" #>", "unset", ""},
    {"paramset evaluates its text", u"<# set param: \"which\" to: \"x\"; set param: \"x\" #><# if paramset: which then: \"y\" #>",
     "y", ""},
    {"false condition without else", u"[<# if what: \"a\" is: \"b\" then: \"yes\" #>]", "[]", ""},
    {"then is needed only when taken", u"[<# if what: \"a\" is: \"b\" else: \"no\" #>]", "[no]", ""},
    {"the branch not taken is not evaluated", u"<# if what: \"a\" is: \"a\" then: \"yes\" else: missing #>", "yes", ""},
};

TEST(Conditions, DecideTheBranch) { ExpectTemplateCases(kConditionCases); }

const TemplateCase kLoopCases[] = {
    {"while counts with its loop number",
     u"<# while what: n isnot: \"4\" loopnumber: \"n\" do: (use param: \"n\") #>/<# use param: \"n\" #>", "123/4", ""},
    {"while false at once", u"[<# while what: \"a\" is: \"b\" loopnumber: \"n\" do: \"x\" #>]<# use param: \"n\" #>",
     "[]1", ""},
    {"while without do that never runs", u"[<# while what: \"a\" is: \"b\" #>]", "[]", ""},
    {"until tests after the body",
     u"<# until what: n is: \"3\" loopnumber: \"n\" do: (use param: \"n\") #>/<# use param: \"n\" #>", "123/3", ""},
    {"until true at once runs once", u"<# until what: \"a\" is: \"a\" loopnumber: \"n\" do: \"x\" #><# use param: \"n\" #>",
     "x1", ""},
    {"for counts up", u"<# for from: \"1\" to: \"3\" value: \"v\" loopnumber: \"n\" do: (use param: \"v\") #>"
     u"/<# use param: \"v\" #>/<# use param: \"n\" #>", "123/3/3", ""},
    {"for counts down", u"<# for from: \"3\" to: \"1\" step: \"-1\" value: \"v\" do: (use param: \"v\") #>", "321", ""},
    {"for keeps the last value used",
     u"<# for from: \"1\" to: \"10\" step: \"4\" value: \"v\" do: (use param: \"v\") #>/<# use param: \"v\" #>", "159/9", ""},
    {"for with an empty range",
     u"[<# for from: \"3\" to: \"1\" value: \"v\" loopnumber: \"n\" #>]<# if paramnotset: \"v\" not: \"x\" "
     u"then: \"v?\" #><# if paramset: \"n\" then: \"n?\" #>",
     "[]", ""},
    {"for reads numbers like the C conversion",
     u"<# for from: \"  +2abc\" to: \" 4 \" value: \"v\" do: (use param: \"v\") #>", "234", ""},
    {"for ends at the top of the range",
     u"<# for from: \"2147483646\" to: \"2147483647\" value: \"v\" do: (#><# use param: \"v\" #>,<#) #>",
     "2147483646,2147483647,", ""},
    {"for clamps numbers beyond 32 bits",
     u"<# for from: \"99999999999\" to: \"2147483647\" step: \"99999999999\" value: \"v\" do: (use param: \"v\") #>",
     "2147483647", ""},
    {"foreach with valuedesc",
     u"<# setsubparams param: \"p\" to: \"b\" to: \"a\" to: \"c\" #><# foreach in: \"p\" orderby: \"valuedesc\" "
     u"value: \"v\" indexnumber: \"i\" loopnumber: \"n\" do: (#><# use param: \"v\" #><# use param: \"i\" #>"
     u"<# use param: \"n\" #>,<#) #>",
     "c31,b12,a23,", ""},
    {"foreach walks the collection as it was",
     u"<# setsubparams param: \"p\" to: \"a\" to: \"b\" #><# foreach in: \"p\" value: \"v\" do: (#><# use param: \"v\" #>"
     u"<# addsubparams param: \"p\" value: \"new\"; unset param: \"p.#1\" #><#) #>/<# subparamcount param: \"p\" #>",
     "ab/2", ""},
    {"foreach value is a deep copy",
     u"<# set param: \"p.x.deep\" to: \"1\"; set param: \"p.y\" #><# foreach in: \"p\" value: \"v\" indexname: \"k\" "
     u"do: (#><# use param: \"k\" #>=<# subparamcount param: \"v\" #>;<#) #><# set param: \"v.deep\" to: \"2\" #>"
     u"<# use param: \"p.x.deep\" #>",
     "x=1;y=0;1", ""},
    {"foreach over an empty collection", u"<# set param: \"p\" #>[<# foreach in: \"p\" loopnumber: \"n\" #>]"
     u"<# if paramset: \"n\" then: \"n?\" #>", "[]", ""},
    {"loop parameters stay after foreach",
     u"<# setsubparams param: \"p\" to: \"a\" to: \"b\"; foreach in: \"p\" value: \"v\" indexname: \"k\" "
     u"indexnumber: \"i\" loopnumber: \"n\" do: \"\" #><# use param: \"v\" #><# use param: \"i\" #><# use param: \"n\" #>",
     "b22", ""},
    {"an error in a later round stops the loop",
     u"<# for from: \"1\" to: \"3\" value: \"v\" do: (#><# if what: v is: \"2\" then: (error text: \"two\") #><#) #>", "",
     "\n- two\n- Error processing function \"error\"" AT(1, 73) "\n- Error processing function \"if\"" AT(1, 47)
     "\n- Error processing function \"for\"" AT(1, 4)},
};

TEST(Loops, RunTheirRounds) { ExpectTemplateCases(kLoopCases); }

const TemplateCase kGateCases[] = {
    {"gate keeps only the listed parameters",
     u"<# set param: \"b\" to: \"old\"; gate param: \"a\" content: (set param: \"a\" to: \"new\"; "
     u"set param: \"b\" to: \"new\"; set param: \"c\" to: \"new\") #><# use param: \"a\" #><# use param: \"b\" #>"
     u"[<# use param: \"c\" skipifmissing #>]",
     "newold[]", ""},
    {"gate keeps a listed removal",
     u"<# set param: \"a\" to: \"x\"; set param: \"b\" to: \"y\"; gate param: \"a\" content: (unset param: \"a\"; "
     u"unset param: \"b\") #>[<# use param: \"a\" skipifmissing #>]<# use param: \"b\" #>",
     "[]y", ""},
    {"gate keeps a listed sub-parameter",
     u"<# setsubparams param: \"l\" to: \"1\" to: \"2\"; gate param: \"l.#2\" content: (set param: \"l.#1\" to: \"x\"; "
     u"set param: \"l.#2\" to: \"y\") #><# use param: \"l.#1\" #><# use param: \"l.#2\" #>",
     "1y", ""},
    {"gate outputs its content", u"<# gate content: (#>text<# set param: \"a\" to: \"1\") #>"
     u"[<# use param: \"a\" skipifmissing #>]", "text[]", ""},
    {"gate allparams keeps every parameter",
     u"<# gate allparams content: (set param: \"a\" to: \"1\") #><# use param: \"a\" #>", "1", ""},
    {"gate keeps only the listed functions",
     u"<# makefunction name: \"old\" content: \"o\" #><# gate function: \"F\" content: (#>"
     u"<# makefunction name: \"f\" content: \"f\"; makefunction name: \"g\" content: \"g\"; deletefunction name: \"old\" #>"
     u"<#) #><# f #><# old #>", "fo", ""},
    {"gate drops an unlisted new function",
     u"<# makefunction name: \"old\" content: \"o\" #><# gate function: \"F\" content: (#>"
     u"<# makefunction name: \"f\" content: \"f\"; makefunction name: \"g\" content: \"g\"; deletefunction name: \"old\" #>"
     u"<#) #><# g #>", "", "- Unknown function type \"g\" found" AT(1, 193)},
    {"gate keeps a listed function's deletion",
     u"<# makefunction name: \"f\" content: \"f\" #><# gate function: \"f\" content: (deletefunction name: \"f\") #>"
     u"<# f #>",
     "", "- Unknown function type \"f\" found" AT(1, 105)},
    {"gate allfunctions keeps every function",
     u"<# gate allfunctions content: (makefunction name: \"f\" content: \"f\") #><# f #>", "f", ""},
};

TEST(Gate, KeepsOnlyWhatItIsTold) { ExpectTemplateCases(kGateCases); }

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
    {"condition without comparison", u"<# if what: \"a\" then: \"x\" #>", "",
     "- One of the arguments \"Is\", \"IsNot\", etc. is missing" AT(1, 4) "\n- Error processing function \"if\"" AT(1, 4)},
    {"comparison without what", u"<# if is: \"a\" then: \"x\" #>", "",
     "- Argument \"What\" is missing" AT(1, 4) "\n- Error processing function \"if\"" AT(1, 4)},
    {"what without value", u"<# if what is: \"a\" then: \"x\" #>", "",
     "- Argument \"What\" is missing a value" AT(1, 7) "\n- Error processing function \"if\"" AT(1, 4)},
    {"comparison without value", u"<# if what: \"a\" islowerthaneq then: \"x\" #>", "",
     "- Argument \"IsLowerThanEq\" is missing a value" AT(1, 17) "\n- Error processing function \"if\"" AT(1, 4)},
    {"two comparisons", u"<# if what: \"a\" is: \"a\" isnot: \"b\" #>", "",
     "- Argument \"isnot\" can only be specified once" AT(1, 25) "\n- Error setting up \"if\" functie" AT(1, 4)},
    {"what and paramset", u"<# if what: \"a\" paramset: \"b\" #>", "",
     "- Argument \"paramset\" can only be specified once" AT(1, 17) "\n- Error setting up \"if\" functie" AT(1, 4)},
    {"then missing when taken", u"<# if what: \"a\" is: \"a\" #>", "",
     "- Argument \"Then\" is missing" AT(1, 4) "\n- Error processing function \"if\"" AT(1, 4)},
    {"paramset with a bad reference", u"<# if paramset: \"a..b\" then: \"x\" #>", "",
     "- Invalid parameter name \"\" found in parameter qualifier \"a..b\" while processing argument \"ParamSet\""
     AT(1, 7) "\n- Error processing function \"if\"" AT(1, 4)},
    {"if with an unknown argument", u"<# if what: \"a\" is: \"a\" then: \"x\" colour: \"red\" #>", "",
     "- Unknown argument \"colour\" found" AT(1, 35) "\n- Error setting up \"if\" functie" AT(1, 4)},
    {"while needs do when the body runs", u"<# while what: \"a\" is: \"a\" #>", "",
     "- Argument \"Do\" is missing" AT(1, 4) "\n- Error processing function \"while\"" AT(1, 4)},
    {"loopnumber without value", u"<# while what: \"a\" is: \"b\" loopnumber #>", "",
     "- Argument \"LoopNr\" is missing a value" AT(1, 28) "\n- Error processing function \"while\"" AT(1, 4)},
    {"until always needs do", u"<# until what: \"a\" is: \"b\" #>", "",
     "- Argument \"Do\" is missing" AT(1, 4) "\n- Error processing function \"until\"" AT(1, 4)},
    {"until without comparison", u"<# until do: \"x\" #>", "",
     "- One of the arguments \"Is\", \"IsNot\", etc. is missing" AT(1, 4)
     "\n- Error processing function \"until\"" AT(1, 4)},
    {"for without from", u"<# for to: \"3\" do: \"x\" #>", "",
     "- Argument \"From\" is missing" AT(1, 4) "\n- Error processing function \"for\"" AT(1, 4)},
    {"for without to", u"<# for from: \"1\" do: \"x\" #>", "",
     "- Argument \"To\" is missing" AT(1, 4) "\n- Error processing function \"for\"" AT(1, 4)},
    {"for with step 0", u"<# for from: \"1\" to: \"3\" step: \"0\" do: \"x\" #>", "",
     "- \"step\" set to 0 in \"for\" functie" AT(1, 26) "\n- Error processing function \"for\"" AT(1, 4)},
    {"for with a step without digits", u"<# FOR from: \"1\" to: \"3\" STEP: \"abc\" do: \"x\" #>", "",
     "- \"STEP\" set to 0 in \"FOR\" functie" AT(1, 26) "\n- Error processing function \"FOR\"" AT(1, 4)},
    {"for needs do when a round runs", u"<# for from: \"1\" to: \"3\" #>", "",
     "- Argument \"Do\" is missing" AT(1, 4) "\n- Error processing function \"for\"" AT(1, 4)},
    {"for with an unknown argument", u"<# for from: \"1\" to: \"3\" by: \"1\" #>", "",
     "- Unknown argument \"by\" found" AT(1, 26) "\n- Error setting up \"for\" functie" AT(1, 4)},
    {"for value without value", u"<# for from: \"1\" to: \"3\" value #>", "",
     "- Argument \"Value\" is missing a value" AT(1, 26) "\n- Error processing function \"for\"" AT(1, 4)},
    {"foreach without in", u"<# foreach do: \"x\" #>", "",
     "- Argument \"In\" is missing" AT(1, 4) "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"foreach of a missing parameter", u"<# foreach in: (#>no.<#) do: \"x\" #>", "",
     "- Invalid parameter name \"\" found in parameter qualifier \"no.\" while processing argument \"In\"" AT(1, 12)
     "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"foreach names the evaluated in", u"<# foreach in: (#>no.such<#) do: \"x\" #>", "",
     "- Parameter \"no.such\" is not set when evaluating argument \"in\"" AT(1, 12)
     "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"foreach with an unknown order", u"<# foreach in: \"p\" orderby: \"random\" do: \"x\" #>", "",
     "- Unknown option \"random\" for \"orderby\" found" AT(1, 20) "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"foreach needs do when a round runs", u"<# set param: \"p.#1\" #><# foreach in: \"p\" #>", "",
     "- Argument \"Do\" is missing" AT(1, 27) "\n- Error processing function \"foreach\"" AT(1, 27)},
    {"foreach indexname without value", u"<# foreach in: \"p\" indexname #>", "",
     "- Argument \"IndexName\" is missing a value" AT(1, 20) "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"foreach indexnumber without value", u"<# foreach in: \"p\" indexnumber #>", "",
     "- Argument \"IndexNumber\" is missing a value" AT(1, 20) "\n- Error processing function \"foreach\"" AT(1, 4)},
    {"gate without content", u"<# gate param: \"a\" #>", "",
     "- Argument \"Content\" is missing" AT(1, 4) "\n- Error processing function \"gate\"" AT(1, 4)},
    {"gate with an invalid function name", u"<# gate function: \"bad.name\" content: \"x\" #>", "",
     "- The function name \"bad.name\" is not valid" AT(1, 9) "\n- Error processing function \"gate\"" AT(1, 4)},
    {"gate with content twice", u"<# gate function: \"f\" content: \"x\" content: \"y\" #>", "",
     "- Argument \"content\" can only be specified once" AT(1, 36) "\n- Error setting up \"gate\" functie" AT(1, 4)},
    {"gate param without value", u"<# gate param #>", "",
     "- Argument \"Param\" is missing a value" AT(1, 9) "\n- Error processing function \"gate\"" AT(1, 4)},
    {"error without text", u"<# error #>", "",
     "- Argument \"Text\" is missing" AT(1, 4) "\n- Error processing function \"error\"" AT(1, 4)},
    {"nooutput without content", u"<# nooutput #>", "",
     "- Argument \"Content\" is missing" AT(1, 4) "\n- Error processing function \"nooutput\"" AT(1, 4)},
    {"error in a loop body", u"<# while what: \"a\" is: \"a\" do: (use param: \"x\") #>", "",
     "- Parameter \"x\" is not set when evaluating argument \"param\"" AT(1, 37)
     "\n- Error processing function \"use\"" AT(1, 33) "\n- Error processing function \"while\"" AT(1, 4)},
};

TEST(ControlFlow, ArgumentErrorsAreReportedWhereTheyAreWritten) { ExpectTemplateCases(kControlErrors); }

}  // namespace
}  // namespace NScrivolt
