// A reference written as a constant is parsed on its first evaluation and
// its keys kept prepared; every later evaluation walks the tree as it is
// then. These cases change the tree under such a reference between rounds:
// a lookup that kept anything of the tree itself would give an old value.
#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

const TemplateCase kConstantReferenceCases[] = {
    {"the loop's value replaced each round",
     u"<# decode what: (#>a,<b\nc&,d<#) from: \"csvlines\" to: \"L\" #>"
     u"<# foreach in: \"L\" value: \"R\" do: (#>[<# use param: \"R.#2\" #>|<# encode what: R.#1 for: \"html\" #>]<#) #>",
     "[<b|a][d|c&amp;]", ""},
    {"deleted after the first round",
     u"<# set param: \"A.b\" to: \"1\" #><# for value: \"i\" from: \"1\" to: \"3\" do: "
     u"(use param: \"A.b\" skipifmissing; unset param: \"A.b\") #>",
     "1", ""},
    {"made again with a new value each round",
     u"<# for value: \"i\" from: \"1\" to: \"3\" do: (unset param: \"A.b\"; set param: \"A.B\" to: i; "
     u"use param: \"a.b\"; encode what: A.b for: \"html\") #>",
     "112233", ""},
    {"the parent replaced by a copy of another tree",
     u"<# set param: \"X.b\" to: \"x\"; set param: \"Y.b\" to: \"y\" #>"
     u"<# for value: \"i\" from: \"1\" to: \"2\" do: (if what: i is: \"1\" then: (set param: \"A\" to: X) "
     u"else: (set param: \"A\" to: Y); use param: \"A.b\"; encode what: A.b for: \"html\") #>",
     "xxyy", ""},
    {"a sibling list growing past a short scan",
     u"<# for value: \"i\" from: \"1\" to: \"12\" do: (set param: (#>A.k<# use param: \"i\" #><#) to: i; "
     u"use param: \"A.k10\" skipifmissing) #>",
     "101010", ""},
    {"the top level growing past a short scan",
     u"<# set param: \"T\" to: \"t\" #><# for value: \"i\" from: \"1\" to: \"12\" do: "
     u"(set param: (#>P<# use param: \"i\" #><#) to: i; use param: \"T\"; use param: \"P3\" skipifmissing) #>",
     "ttt3t3t3t3t3t3t3t3t3t3", ""},
    {"a reference that finds nothing on the second round",
     u"<# set param: \"A.b\" to: \"1\" #><# for value: \"i\" from: \"1\" to: \"2\" do: "
     u"(encode what: A.b for: \"html\"; unset param: \"A\") #>",
     "", "- Parameter \"A.b\" is not set when evaluating argument \"what\"" AT(1, 79)
         CALL_FAILED("encode", 1, 72) CALL_FAILED("for", 1, 34)},
};

TEST(ConstantReference, FindsTheTreeAsItIsOnEachRound) { ExpectTemplateCases(kConstantReferenceCases); }

}  // namespace
}  // namespace NScrivolt
