#include <gtest/gtest.h>

#include <string>

#include "engine/codecs/json_params.h"
#include "param_layout.h"
#include "template_runner.h"
#include "text/base/utf8.h"

namespace NScrivolt {
namespace {

// --- decoding ------------------------------------------------------------------

struct DecodeCase {
  const char* name;
  const WChar* text;
  const char* layout;  // when error is empty
  const char* error;   // line and column of the fault
};

const DecodeCase kDecodeCases[] = {
    // Mapping.
    {"object members in document order", u"{\"b\": 1, \"a\": \"x\", \"c\": true}", "{b=\"1\" a=\"x\" c=\"true\"}", ""},
    {"array elements numbered", u"[\"x\", [1, 2], {}]", "{\"x\" {\"1\" \"2\"} \"\"}", ""},
    {"string at the top", u"  \"text\"\r\n", "\"text\"", ""},
    {"number at the top kept as written", u"-12.50e+003", "\"-12.50e+003\"", ""},
    {"big number kept as written", u"123456789012345678901234567890", "\"123456789012345678901234567890\"", ""},
    {"null is empty", u"{\"a\": null}", "{a=\"\"}", ""},
    {"empty object and array at the top", u"{}", "\"\"", ""},
    {"empty text value", u"[\"\"]", "{\"\"}", ""},
    {"later duplicate wins in the earlier place", u"{\"a\": 1, \"b\": 2, \"a\": {\"c\": 3}}", "{a={c=\"3\"} b=\"2\"}", ""},
    {"keys differing in case are one key", u"{\"Key\": 1, \"KEY\": 2}", "{Key=\"2\"}", ""},
    {"keys that are no reference names", u"{\"a b\": 1, \"#1\": 2, \"\": 3}", "{a b=\"1\" #1=\"2\" =\"3\"}", ""},
    {"every escape", u"\"\\\" \\\\ \\/ \\b \\f \\n \\r \\t \\u0041\\u00e9\"", "\"\" \\ / \b \f \n \r \t A\xC3\xA9\"", ""},
    {"surrogate pair joined", u"\"\\ud83d\\ude00\"", "\"\xF0\x9F\x98\x80\"", ""},
    {"raw non-ASCII kept", u"\"\u00e9\U0001F600\"", "\"\xC3\xA9\xF0\x9F\x98\x80\"", ""},
    // Strictness: the first character that does not fit.
    {"empty text", u"", "", "1, column 1"},
    {"only white space", u" \n ", "", "2, column 2"},
    {"trailing comma in object", u"{\"a\": 1,}", "", "1, column 9"},
    {"trailing comma in array", u"[1,\n 2,\n]", "", "3, column 1"},
    {"comment", u"[1 /* no */]", "", "1, column 4"},
    {"single quotes", u"{'a': 1}", "", "1, column 2"},
    {"leading zero", u"[01]", "", "1, column 3"},
    {"bare control character in string", u"[\"a\tb\"]", "", "1, column 4"},
    {"unknown escape", u"\"\\x\"", "", "1, column 3"},
    {"short unicode escape", u"\"\\u12G4\"", "", "1, column 6"},
    {"unclosed array", u"[1, 2", "", "1, column 6"},
    {"unclosed string", u"\"abc", "", "1, column 5"},
    {"unpaired closer", u"[1]]", "", "1, column 4"},
    {"text after the document", u"{} x", "", "1, column 4"},
    {"missing colon", u"{\"a\" 1}", "", "1, column 6"},
    {"key that is no string", u"{a: 1}", "", "1, column 2"},
    {"number without digits", u"-", "", "1, column 2"},
    {"fraction without digits", u"1.e5", "", "1, column 3"},
    {"misspelt literal", u"[tru]", "", "1, column 5"},
    {"CR LF is one line break", u"[\r\n\r\n  x]", "", "3, column 3"},
    {"surrogate pair is one column", u"\"\U0001F600\" x", "", "1, column 5"},
};

TEST(JsonParams, DecodeMapsTheDocumentOrReportsTheFirstFault) {
  for (const DecodeCase& c : kDecodeCases) {
    CParam target;
    const CErrorText errors = DecodeJsonTree(c.text, target);
    if (*c.error == '\0') {
      EXPECT_EQ(Lines(errors.str()), "") << c.name;
      EXPECT_EQ(Layout(target), c.layout) << c.name;
    } else {
      EXPECT_EQ(Lines(errors.str()), std::string("\n- The specified JSON is invalid at line ") + c.error) << c.name;
      EXPECT_EQ(Layout(target), "\"\"") << c.name << ": the target stays empty";
    }
  }
}

TEST(JsonParams, DecodeKeepsWhatEachValueStoodFor) {
  CParam target;
  ASSERT_EQ(DecodeJsonTree(u"[1, true, false, null, {}, [], \"1\"]", target).str(), u"");
  const ValueKind expected[] = {ValueKind::Literal,     ValueKind::Literal,    ValueKind::Literal, ValueKind::Null,
                                ValueKind::EmptyObject, ValueKind::EmptyArray, ValueKind::Text};
  ASSERT_EQ(target.Count(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(target.GetByNumber(std::int32_t(i))->GetValueKind(), expected[i]) << i;
  }
  CParam* number = target.GetByNumber(0);
  number->SetValue(u"2");
  EXPECT_EQ(number->GetValueKind(), ValueKind::Text) << "a changed value is text";
}

// Depth is limited by memory only: nothing recurses.
TEST(JsonParams, DecodesDeepNestingWithoutRecursion) {
  constexpr std::size_t kDepth = 200000;
  WString text(kDepth, u'[');
  text.append(kDepth, u']');
  CParam target;
  ASSERT_EQ(DecodeJsonTree(text, target).str(), u"");
  const CParam* node = &target;
  std::size_t depth = 1;
  while (node->Count() > 0) {
    node = std::as_const(*node).GetByNumber(0);
    ++depth;
  }
  EXPECT_EQ(depth, kDepth);
  EXPECT_EQ(node->GetValueKind(), ValueKind::EmptyArray);
}

// --- encoding ------------------------------------------------------------------

// The output with the numbers of automatic names, which depend on what ran
// before, written as "#".
std::string WithoutAutomaticNumbers(WStringView output) {
  std::string text = WideToUtf8(output);
  for (std::size_t at = text.find("Param"); at != std::string::npos; at = text.find("Param", at + 1)) {
    std::size_t end = at + 5;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
    if (end > at + 5) text.replace(at + 5, end - at - 5, "#");
  }
  return text;
}

// Documents that decoding and encoding give back unchanged, formatting and all.
const WChar* const kRoundTrips[] = {
    u"\"text\"",
    u"-0.5E-7",
    u"null",
    u"{}",
    u"[]",
    u"{\n  \"b\": 1,\n  \"a\": [\n    true,\n    false,\n    null,\n    {},\n    [],\n    \"\"\n  ]\n}",
    u"[\n  [\n    [\n      \"deep\"\n    ]\n  ]\n]",
    u"{\n  \"a b\": \"quote \\\" backslash \\\\ tab \\u0009 \\u001f\",\n  \"\": \"\u00e9\U0001F600\"\n}",
    u"\"lone \\udc00 and \\ud800\"",
    u"123456789012345678901234567890.000",
};

TEST(JsonParams, DecodingAndEncodingGiveTheDocumentBack) {
  for (const WChar* document : kRoundTrips) {
    CParam tree;
    ASSERT_EQ(DecodeJsonTree(document, tree).str(), u"") << WideToUtf8(document);
    WString output;
    EXPECT_EQ(EncodeJsonTree(tree, output).str(), u"");
    EXPECT_EQ(WideToUtf8(output), WideToUtf8(document));
  }
}

struct EncodeCase {
  const char* name;
  const WChar* script;  // builds the parameter "P"
  const char* json;
};

const EncodeCase kEncodeCases[] = {
    {"leaf is a string", u"set param: \"P\" to: \"12\"", "\"12\""},
    {"named children make an object", u"set param: \"P.x\" to: \"1\"; set param: \"P.Y\" to: \"2\"",
     "{\n  \"x\": \"1\",\n  \"Y\": \"2\"\n}"},
    {"numbered children make an array", u"setsubparams param: \"P\" to: \"a\" to: \"b\"", "[\n  \"a\",\n  \"b\"\n]"},
    {"a mix is an object with automatic names",
     u"setsubparams param: \"P\" to: \"a\"; set param: \"P.n\" to: \"b\"", "{\n  \"Param#\": \"a\",\n  \"n\": \"b\"\n}"},
    {"value beside children is not written", u"set param: \"P\" to: \"v\"; set param: \"P.c\" to: \"w\"",
     "{\n  \"c\": \"w\"\n}"},
    {"changed literal becomes a string", u"decode what: \"[1, null]\" from: \"json\" to: \"P\"; set param: \"P.#1\" to: \"1\"",
     "[\n  \"1\",\n  null\n]"},
    {"copied literal stays a literal", u"decode what: \"[7]\" from: \"json\" to: \"J\"; set param: \"P\" to: J", "[\n  7\n]"},
};

TEST(JsonParams, EncodeWritesTheTreeAsBuiltByATemplate) {
  for (const EncodeCase& c : kEncodeCases) {
    CProcessContext context;
    const WString script = u"<#" + WString(c.script) + u"; encode what: P for: \"json\" #>";
    const TemplateRun run = RunTemplate(context, script);
    EXPECT_EQ(Lines(run.errors), "") << c.name;
    EXPECT_EQ(WithoutAutomaticNumbers(run.output), c.json) << c.name;
  }
}

TEST(JsonParams, EncodeRefusesTreesNestedTooDeep) {
  auto chain = [](std::size_t levels) {
    CParam top;
    CParam* node = &top;
    for (std::size_t level = 1; level < levels; ++level) node = node->AppendNumbered();
    node->SetValue(u"x");
    return top;
  };
  WString output;
  EXPECT_EQ(EncodeJsonTree(chain(kMaxEncodedJsonDepth), output).str(), u"");
  output = u"kept";
  EXPECT_EQ(Lines(EncodeJsonTree(chain(kMaxEncodedJsonDepth + 1), output).str()),
            "\n- Too many nested levels (1000) to encode as JSON");
  EXPECT_EQ(output, u"kept");
}

// --- jsonstring --------------------------------------------------------------------

struct StringCase {
  const WChar* text;
  const WChar* escaped;
};

const StringCase kStringCases[] = {
    {u"plain \u00e9\U0001F600", u"plain \u00e9\U0001F600"},
    {u"\"q\" \\ /", u"\\\"q\\\" \\\\ /"},
    {u"\n\r\t\x01\x1f", u"\\u000a\\u000d\\u0009\\u0001\\u001f"},
    {u"lone \xd800 x", u"lone \\ud800 x"},
};

TEST(JsonParams, StringEscapesAndUnescapes) {
  for (const StringCase& c : kStringCases) {
    EXPECT_EQ(WideToUtf8(JsonStringEncode(c.text)), WideToUtf8(c.escaped));
    EXPECT_EQ(JsonStringDecode(c.escaped), WString(c.text));
  }
  // Every short escape reads back; a backslash that starts none is kept.
  EXPECT_EQ(JsonStringDecode(u"\\n\\t\\/\\b\\f\\u00E9"), WString(u"\n\t/\b\f\u00e9"));
  EXPECT_EQ(JsonStringDecode(u"a\\x \\u12 \\"), WString(u"a\\x \\u12 \\"));
}

}  // namespace
}  // namespace NScrivolt
