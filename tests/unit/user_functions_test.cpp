#include <gtest/gtest.h>

#include "template_cases.h"

namespace NScrivolt {
namespace {

#define GREET u"<# makefunction name: \"greet\" arg: \"Who\" content: (#>Hello <# use param: \"who\" #>!<#) #>"

const TemplateCase kUserFunctionCases[] = {
    {"the parameter takes the declared name",
     u"<# makefunction name: \"f\" arg: \"Who\" content: (_writeparamtree param: \"WHO\") #><# f wHo: \"x\" #>",
     "#4/\"Who\": x", ""},
    {"a reference argument brings its sub-parameters",
     u"<# setsubparams param: \"src\" to: \"1\" to: \"2\"; makefunction name: \"f\" arg: \"a\" content: "
     u"(subparamcount param: \"a\") #><# f a: src #>",
     "2", ""},
    {"an argument without value is empty text",
     u"<# makefunction name: \"f\" arg: \"x\" content: (#>[<# use param: \"x\" #>]<#) #><# f x #>", "[]", ""},
    {"a name declared twice counts under its first kind",
     u"<# makefunction name: \"f\" multiarg: \"x\" optarg: \"x\" content: \"ok\" #><# f #>", "ok", ""},
    {"recursion sees its own arguments at each level",
     u"<# set param: \"l.v\" to: \"a\"; set param: \"l.n.v\" to: \"b\"; set param: \"l.n.n.v\" to: \"c\" #>"
     u"<# makefunction name: \"walk\" arg: \"node\" content: (#>[<# use param: \"node.v\" #><# if paramset: \"node.n\" "
     u"then: (walk node: node.n) #><# use param: \"node.v\" #>]<#) #><# walk node: l #>",
     "[a[b[cc]b]a]", ""},
};

TEST(UserFunctions, CallsBindAndRestoreTheirArguments) { ExpectTemplateCases(kUserFunctionCases); }

const TemplateCase kUserFunctionErrors[] = {
    {"a single argument given twice", GREET u"<# greet who: \"a\" who: \"b\" #>", "",
     "- Argument \"who\" can only be specified once" AT(1, 107) SETUP_FAILED("greet", 1, 92)},
    {"an undeclared argument", GREET u"<# greet whom: \"a\" #>", "",
     "- Unknown argument \"whom\" found" AT(1, 98) SETUP_FAILED("greet", 1, 92)},
    {"multiarg is required", u"<# makefunction name: \"f\" multiarg: \"item\" content: \"x\" #><# f #>", "",
     "- Argument \"item\" is missing" AT(1, 62) CALL_FAILED("f", 1, 62)},
    {"an argument that fails to evaluate", u"<# makefunction name: \"f\" arg: \"x\" content: \"x\" #><# f x: missing #>", "",
     "- Parameter \"missing\" is not set when evaluating argument \"x\"" AT(1, 56) CALL_FAILED("f", 1, 54)},
    {"an invalid function name", u"<# makefunction name: \"bad.name\" content: \"x\" #>", "",
     "- The function name \"bad.name\" is not valid" AT(1, 17) CALL_FAILED("makefunction", 1, 4)},
    {"an argument name with components", u"<# makefunction name: \"f\" arg: \"a.b\" content: \"x\" #>", "",
     "- Argument definition name \"a.b\" contains indices" AT(1, 27) CALL_FAILED("makefunction", 1, 4)},
    {"makefunction without content", u"<# makefunction name: \"f\" #>", "", ARG_MISSING("Content", "makefunction")},
    {"makefunction without name", u"<# makefunction content: \"x\" #>", "", ARG_MISSING("Name", "makefunction")},
    {"makefunction with content twice", u"<# makefunction name: \"f\" content: \"x\" content: \"y\" #>", "",
     "- Argument \"content\" can only be specified once" AT(1, 40) SETUP_FAILED("makefunction", 1, 4)},
    {"a declaration without value", u"<# makefunction name: \"f\" optarg #>", "",
     ARG_MISSING("Content", "makefunction")},
    {"a declaration without value and a content",
     u"<# makefunction name: \"f\" optarg content: \"x\" #>", "",
     ARG_WITHOUT_VALUE("OptArg", 27, "makefunction")},
    {"deletefunction without name", u"<# deletefunction #>", "", ARG_MISSING("Name", "deletefunction")},
    {"deletefunction of an invalid name", u"<# deletefunction name: \"a b\" #>", "",
     "- The function name \"a b\" is not valid" AT(1, 19) CALL_FAILED("deletefunction", 1, 4)},
    {"deletefunction with an unknown argument", u"<# deletefunction name: \"f\" content: \"x\" #>", "",
     "- Unknown argument \"content\" found" AT(1, 29) SETUP_FAILED("deletefunction", 1, 4)},
};

TEST(UserFunctions, ErrorsAreReportedWhereTheyAreWritten) { ExpectTemplateCases(kUserFunctionErrors); }

TEST(UserFunctions, AFailingBodyLeavesTheArgumentsAsTheCallSetThem) {
  CProcessContext context;
  RunTemplate(context, u"<# set param: \"x\" to: \"old\"; makefunction name: \"f\" arg: \"x\" content: (error text: \"no\") #>");
  EXPECT_FALSE(RunTemplate(context, u"<# f x: \"new\" #>").errors.empty());
  EXPECT_EQ(WideToUtf8(RunTemplate(context, u"<# use param: \"x\" #>").output), "new");
}

}  // namespace
}  // namespace NScrivolt
