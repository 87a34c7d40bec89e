// A call evaluated again (in a loop, in a function's body) reuses what its
// first evaluation worked out: its function, its argument binding, its
// constant references. These cases change what that depends on between two
// evaluations of the same call, where a kept set-up that is not checked again
// would give the old result.
#include <gtest/gtest.h>

#include <string>

#include "template_cases.h"

namespace NScrivolt {
namespace {

// "count" below is the built-in text function: occurrences of `what` in `in`.
const TemplateCase kReuseCases[] = {
    {"a function defined in a loop hides a built-in from the next round on",
     u"<# for value: \"i\" from: \"1\" to: \"3\" do: (#>[<# count what: \"a\" in: \"banana\" #>]"
     u"<# makefunction name: \"count\" optarg: \"what\" optarg: \"in\" content: \"own\" #><#) #>",
     "[3][own][own]", ""},
    {"a function redefined after its first call in a loop",
     u"<# makefunction name: \"f\" content: \"0\" #><# for value: \"i\" from: \"1\" to: \"3\" do: (#>[<# f #>]"
     u"<# makefunction name: \"f\" content: (use param: \"i\") #><#) #>",
     "[0][2][3]", ""},
    {"a function deleted in a loop leaves the built-in again",
     u"<# makefunction name: \"count\" optarg: \"what\" optarg: \"in\" content: \"own\" #>"
     u"<# for value: \"i\" from: \"1\" to: \"2\" do: (#>[<# count what: \"a\" in: \"banana\" #>]"
     u"<# deletefunction name: \"count\" #><#) #>",
     "[own][3]", ""},
    {"a function deleted in a loop is unknown on the next round",
     u"<# makefunction name: \"f\" content: \"x\" #><# for value: \"i\" from: \"1\" to: \"3\" do: (#>[<# f #>]"
     u"<# deletefunction name: \"f\" #><#) #>",
     "", "- Unknown function type \"f\" found" AT(1, 89) CALL_FAILED("for", 1, 45)},
    {"deleting the newer of two definitions in a loop",
     u"<# makefunction name: \"f\" content: \"old\"; makefunction name: \"f\" content: \"new\" #>"
     u"<# for value: \"i\" from: \"1\" to: \"2\" do: (#>[<# f #>]<# deletefunction name: \"f\" #><#) #>",
     "[new][new]", ""},
    {"a user function whose arguments change under the same call",
     u"<# makefunction name: \"f\" arg: \"a\" content: (use param: \"a\") #>"
     u"<# for value: \"i\" from: \"1\" to: \"2\" do: (#>[<# f a: i #>]<# deletefunction name: \"f\" #>"
     u"<# makefunction name: \"f\" arg: \"b\" content: \"b\" #><#) #>",
     "", "- Unknown argument \"a\" found" AT(1, 113) SETUP_FAILED("f", 1, 111) CALL_FAILED("for", 1, 67)},
    // The inner evaluation of the "for" finds the user functions changed and
    // sets the call up anew while the outer one is still running it.
    {"a loop re-entered through recursion after the functions changed",
     u"<# makefunction name: \"walk\" arg: \"n\" content: (for value: \"i\" from: \"1\" to: \"2\" do: (#>"
     u"[<# use param: \"n\" #><# makefunction name: \"g\" content: \"\" #>"
     u"<# if what: n is: \"a\" then: (walk n: \"b\") #>]<#)) #><# walk n: \"a\" #>",
     "[a[b][b]][a[b][b]]", ""},
    {"a computed reference changes between rounds",
     u"<# set param: \"X.a\" to: \"1\"; set param: \"X.b\" to: \"2\"; setsubparams param: \"L\" to: \"a\" to: \"b\" #>"
     u"<# foreach in: \"L\" value: \"V\" do: (use param: (#>X.<# use param: \"V\" #><#)) #>",
     "12", ""},
    {"a computed reference that turns invalid on the second round",
     u"<# set param: \"X.a\" to: \"1\"; setsubparams param: \"L\" to: \"a\" to: \"b c\" #>"
     u"<# foreach in: \"L\" value: \"V\" do: (use param: (#>X.<# use param: \"V\" #><#)) #>",
     "", "- Invalid parameter name \"b c\" found in parameter qualifier \"X.b c\" while processing argument "
         "\"Param\"" AT(1, 113) CALL_FAILED("use", 1, 109) CALL_FAILED("foreach", 1, 77)},
    {"a constant reference to a value that changes between rounds",
     u"<# for value: \"i\" from: \"1\" to: \"3\" do: (set param: \"R.v\" to: i; use param: \"R.v\"; "
     u"changecase what: R.v to: \"upper\") #>",
     "112233", ""},
    {"the same constant reference text under different functions",
     u"<# set param: \"A\" to: \"x\"; for value: \"i\" from: \"1\" to: \"2\" do: (use param: \"A\"; "
     u"set param: \"A\" to: (#><# use param: \"A\" #>y<#)) #>",
     "xxy", ""},
    {"constant format keywords on every round",
     u"<# for value: \"i\" from: \"1\" to: \"2\" do: (encode what: (#><<# use param: \"i\" #><#) for: \"html\"; "
     u"decode what: (#>a,<# use param: \"i\" #><#) from: \"csvline\" to: \"R\"; use param: \"R.#2\") #>",
     "&lt;11&lt;22", ""},
    {"a computed format keyword that changes between rounds",
     u"<# setsubparams param: \"F\" to: \"html\" to: \"url\" #>"
     u"<# foreach in: \"F\" value: \"V\" do: (encode what: \"a&b c\" for: V) #>",
     "a&amp;b ca%26b%20c", ""},
};

TEST(CallReuse, ChangesBetweenEvaluationsOfOneCallAreSeen) { ExpectTemplateCases(kReuseCases); }

// An error met on the 1000th round is reported as the very same error met
// on the second round: the loop's first value (line 1) is chosen so that the
// failing round is the 1000th or the second, and nothing on line 2 moves.
struct LateErrorCase {
  const char* name;
  const WChar* loop;  // line 2; fails on the round where i is 1000
};

const LateErrorCase kLateErrors[] = {
    {"a missing parameter",
     u"<# for value: \"i\" from: first to: \"1000\" do: (if what: i is: \"1000\" then: (use param: \"gone\")) #>"},
    {"an unknown argument of a call first set up on that round",
     u"<# for value: \"i\" from: first to: \"1000\" do: (if what: i is: \"1000\" then: (use parm: \"x\")) #>"},
    {"a call whose function changed on the round before",
     u"<# for value: \"i\" from: first to: \"1000\" do: (#><# count what: \"a\" in: \"banana\" #>"
     u"<# if what: i is: \"999\" then: (makefunction name: \"count\" arg: \"other\" content: \"x\") #><#) #>"},
    {"an invalid computed reference",
     u"<# for value: \"i\" from: first to: \"1000\" do: (use param: (#>v.<# if what: i is: \"1000\" "
     u"then: \"a b\" else: \"#1\" #><#) skipifmissing) #>"},
    {"a format keyword that turns unknown",
     u"<# for value: \"i\" from: first to: \"1000\" do: (encode what: \"x\" for: (#><# if what: i is: \"1000\" "
     u"then: \"nope\" else: \"html\" #><#)) #>"},
};

TEST(CallReuse, AnErrorOnTheThousandthRoundIsReportedAsOnTheFirst) {
  for (const LateErrorCase& c : kLateErrors) {
    const std::u16string last = std::u16string(u"<# set param: \"first\" to: \"1\" #>\n") + c.loop;
    const std::u16string only = std::u16string(u"<# set param: \"first\" to: \"999\" #>\n") + c.loop;
    const TemplateRun late = RunTemplate(last);
    const TemplateRun second = RunTemplate(only);
    EXPECT_FALSE(late.errors.empty()) << c.name;
    EXPECT_EQ(Lines(late.errors), Lines(second.errors)) << c.name;
    EXPECT_TRUE(late.output.empty()) << c.name;
  }
}

// The first of these reports in full: the line numbers are those of the
// loop's line, and every enclosing call adds its own line.
TEST(CallReuse, TheLateErrorNamesEveryEnclosingCall) {
  const TemplateRun run =
      RunTemplate(std::u16string(u"<# set param: \"first\" to: \"1\" #>\n") + kLateErrors[0].loop);
  EXPECT_EQ(Lines(run.errors), "- Parameter \"gone\" is not set when evaluating argument \"param\"" AT(2, 80)
                                   CALL_FAILED("use", 2, 76) CALL_FAILED("if", 2, 47) CALL_FAILED("for", 2, 4));
}

}  // namespace
}  // namespace NScrivolt
