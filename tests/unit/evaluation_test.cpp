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
    {"missing argument at the call", u"<# use #>", "", ARG_MISSING("Param", "use")},
    {"flag without value", u"<# use param #>", "", ARG_WITHOUT_VALUE("Param", 8, "use")},
};

TEST(Evaluation, TemplatesGiveTheirOutputOrTheirReport) { ExpectTemplateCases(kCases); }

}  // namespace
}  // namespace NScrivolt
