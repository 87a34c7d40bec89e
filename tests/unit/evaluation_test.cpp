#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

// Templates evaluated against an empty parameter tree.
const TemplateCase kCases[] = {
    {"text only", u"plain text\r\nline 2", "plain text\r\nline 2", ""},
    {"text only with lone markers", u"a #> b ) ; {c}", "a #> b ) ; {c}", ""},
    {"empty template", u"", "", ""},
    {"names ignore case", u"<# SET Param: \"x\" TO: \"1\" #><# Use PARAM: \"X\" #>", "1", ""},
    {"nooutput drops text keeps effects", u"<# nooutput content: (#>gone<# set param: \"k\" to: \"kept\") #><# use param: \"k\" #>",
     "kept", ""},
    {"missing argument at the call", u"<# use #>", "",
     "- Argument \"Param\" is missing" AT(1, 4) CALL_FAILED("use", 1, 4)},
    {"flag without value", u"<# use param #>", "",
     "- Argument \"Param\" is missing a value" AT(1, 8) CALL_FAILED("use", 1, 4)},
};

TEST(Evaluation, TemplatesGiveTheirOutputOrTheirReport) { ExpectTemplateCases(kCases); }

}  // namespace
}  // namespace NScrivolt
