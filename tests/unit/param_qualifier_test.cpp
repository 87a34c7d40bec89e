#include <gtest/gtest.h>

#include "unit/param_test_util.h"

namespace NScrivolt {
namespace {

// Components written as "name" for a name and "#index" (0-based, as stored)
// for a number, joined by "|".
std::string Describe(const CParamQualifier& qualifier) {
  std::string text;
  for (const CParamId& id : qualifier) {
    if (!text.empty()) text += "|";
    if (id.numbered) {
      text += "#" + std::to_string(id.index);
      if (!id.name.empty() || !id.key.empty()) text += "(named?)";
    } else {
      text += WideToUtf8(id.name) + "/" + WideToUtf8(id.key);
    }
  }
  return text;
}

TEST(ParamQualifier, ValidReferences) {
  struct Case {
    const char16_t* text;
    const char* components;
  } const cases[] = {
      {u"Customer.Address.City", "Customer/customer|Address/address|City/city"},
      {u"Lines.#3.Price", "Lines/lines|#2|Price/price"},
      {u"#2", "#1"},
      {u"x.#1", "x/x|#0"},
      {u"a.#-3", "a/a|#-3"},
      {u"_Base-Path9", "_Base-Path9/_base-path9"},
      {u"#00012", "#11"},
      {u"#99999999999", "#2147483646"},
      {u"#-99999999999", "#-2147483648"},
      {u"#2147483648", "#2147483646"},
      {u"#-2147483649", "#-2147483648"},
  };
  for (const Case& c : cases) {
    const CQualifierParse parse = ParseQualifierText(c.text, u"Param");
    EXPECT_EQ(parse.message, u"") << WideToUtf8(c.text);
    EXPECT_EQ(Describe(parse.qualifier), c.components) << WideToUtf8(c.text);
  }
}

TEST(ParamQualifier, InvalidReferencesGiveTheExactMessage) {
  struct Case {
    const char16_t* text;
    const char16_t* message;
  } const cases[] = {
      {u"a.", u"Invalid parameter name \"\" found in parameter qualifier \"a.\" while processing argument \"Param\""},
      {u"", u"Invalid parameter name \"\" found in parameter qualifier \"\" while processing argument \"Param\""},
      {u".a", u"Invalid parameter name \"\" found in parameter qualifier \".a\" while processing argument \"Param\""},
      {u"a.b c.#x", u"Invalid parameter name \"b c\" found in parameter qualifier \"a.b c.#x\" while processing argument \"Param\""},
      {u"caf\u00e9", u"Invalid parameter name \"caf\u00e9\" found in parameter qualifier \"caf\u00e9\" while processing argument \"Param\""},
      {u"a.#", u"Invalid numeric parameter index \"#\" found in parameter qualifier \"a.#\" while processing argument \"Param\""},
      {u"a.#x", u"Invalid numeric parameter index \"#x\" found in parameter qualifier \"a.#x\" while processing argument \"Param\""},
      {u"a.#-", u"Invalid numeric parameter index \"#-\" found in parameter qualifier \"a.#-\" while processing argument \"Param\""},
      {u"#+1", u"Invalid numeric parameter index \"#+1\" found in parameter qualifier \"#+1\" while processing argument \"Param\""},
      {u"# 1", u"Invalid numeric parameter index \"# 1\" found in parameter qualifier \"# 1\" while processing argument \"Param\""},
      {u"#1a.b", u"Invalid numeric parameter index \"#1a\" found in parameter qualifier \"#1a.b\" while processing argument \"Param\""},
      {u"#--1", u"Invalid numeric parameter index \"#--1\" found in parameter qualifier \"#--1\" while processing argument \"Param\""},
      {u"a#1", u"Invalid parameter name \"a#1\" found in parameter qualifier \"a#1\" while processing argument \"Param\""},
  };
  for (const Case& c : cases) {
    const CQualifierParse parse = ParseQualifierText(c.text, u"Param");
    EXPECT_EQ(parse.message, c.message) << WideToUtf8(c.text);
    EXPECT_TRUE(parse.qualifier.empty()) << WideToUtf8(c.text);
  }
}

// Placeholder texts inside the values are copied, never filled in turn.
TEST(ParamQualifier, ValuesHoldingPlaceholdersStayAsWritten) {
  const CQualifierParse parse = ParseQualifierText(u"[PARAM].x", u"/set [NAME]");
  EXPECT_EQ(parse.message,
            u"Invalid parameter name \"[PARAM]\" found in parameter qualifier \"[PARAM].x\" while "
            u"processing argument \"/set [NAME]\"");
}

}  // namespace
}  // namespace NScrivolt
