#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

// Templates evaluated against an empty parameter tree.
const TemplateCase kCases[] = {
    {"text only", u"plain text\r\nline 2", "plain text\r\nline 2", ""},
    {"text only with lone markers", u"a #> b ) ; {c}", "a #> b ) ; {c}", ""},
    {"empty template", u"", "", ""},
    {"set and use", u"<# set param: \"Name\" to: \"World\" #>Hello <# use param: \"Name\" #>!", "Hello World!", ""},
    {"names ignore case", u"<# SET Param: \"x\" TO: \"1\" #><# Use PARAM: \"X\" #>", "1", ""},
    {"reference argument names the parameter by value",
     u"<# set param: \"Which\" to: \"Total\"; set param: Which to: \"5\"; use param: \"Total\" #>", "5", ""},
    {"content argument", u"<# set param: \"a\" to: (#>x<# use param: \"b\" skipifmissing #>y<#) #>[<# use param: \"a\" #>]",
     "[xy]", ""},
    {"nooutput drops text keeps effects", u"<# nooutput content: (#>gone<# set param: \"k\" to: \"kept\") #><# use param: \"k\" #>",
     "kept", ""},
    {"unknown function", u"\n  <# frobnicate #>", "",
     "- Unknown function type \"frobnicate\" found at line 2, column 6, re-processed content"},
    {"unknown argument then setup error", u"<# use colour: \"red\" #>", "",
     "- Unknown argument \"colour\" found at line 1, column 8, re-processed content\n"
     "- Error setting up \"use\" functie at line 1, column 4, re-processed content"},
    {"argument given twice", u"<# use param: \"a\" PARAM: \"b\" #>", "",
     "- Argument \"PARAM\" can only be specified once at line 1, column 19, re-processed content\n"
     "- Error setting up \"use\" functie at line 1, column 4, re-processed content"},
    {"missing argument at the call", u"<# use #>", "",
     "- Argument \"Param\" is missing at line 1, column 4, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 4, re-processed content"},
    {"flag without value", u"<# use param #>", "",
     "- Argument \"Param\" is missing a value at line 1, column 8, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 4, re-processed content"},
    {"parameter not set", u"<# use param: \"nope\" #>", "",
     "- Parameter \"nope\" is not set when evaluating argument \"param\" at line 1, column 8, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 4, re-processed content"},
    {"reference not set", u"<# set param: \"x\" to: Missing.#2 #>", "",
     "- Parameter \"Missing.#2\" is not set when evaluating argument \"to\" at line 1, column 19, re-processed content\n"
     "- Error processing function \"set\" at line 1, column 4, re-processed content"},
    {"invalid qualifier text", u"<# use param: \"a..b\" #>", "",
     "- Invalid parameter name \"\" found in parameter qualifier \"a..b\" while processing argument \"Param\" at line 1, "
     "column 8, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 4, re-processed content"},
    {"failing call inside content", u"<# nooutput content: (use param: \"x\") #>", "",
     "- Parameter \"x\" is not set when evaluating argument \"param\" at line 1, column 27, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 23, re-processed content\n"
     "- Error processing function \"nooutput\" at line 1, column 4, re-processed content"},
    {"error function adds a detail line", u"<# error text: \"Stop here\" #>", "",
     "\n- Stop here\n- Error processing function \"error\" at line 1, column 4, re-processed content"},
    {"syntax error is not evaluated", u"<# set param: \"x\" to: \"1\" #><# f x: \"open", "",
     "- Text value not closed properly at line 1, column 38, re-processed content"},
    {"error in last call drops all output", u"kept?<# use param: \"x\" #>", "",
     "- Parameter \"x\" is not set when evaluating argument \"param\" at line 1, column 13, re-processed content\n"
     "- Error processing function \"use\" at line 1, column 9, re-processed content"},
};

TEST(Evaluation, TemplatesGiveTheirOutputOrTheirReport) { ExpectTemplateCases(kCases); }

}  // namespace
}  // namespace NScrivolt
