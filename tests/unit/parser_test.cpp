#include <gtest/gtest.h>

#include <string>

#include "engine/syntax/parse_tree_text.h"
#include "engine/syntax/parser.h"
#include "text/base/utf8.h"
#include "text/base/wide_string.h"

namespace NScrivolt {
namespace {

const WString kContext = u"file \"t.txt\"";

struct ShapeCase {
  const char* source;
  const char* tree;
};

// Quotes in text values are undoubled; comments are skipped wherever space may stand.
TEST(Parser, BuildsTheTreesOfWellFormedTemplates) {
  const ShapeCase cases[] = {
      {"", ""},
      {"plain text ) ; #> {not a comment}", "T\"plain text ) ; #> {not a comment}\""},
      {"Dear <# use param: \"Name\" #>,", "T\"Dear \", use(param=\"Name\"), T\",\""},
      {"<# set param: \"Total\" to: \"0\"; set param: \"Count\" to: \"0\" #>",
       "set(param=\"Total\" to=\"0\"), set(param=\"Count\" to=\"0\")"},
      {"<# if what: Mode is: \"full\" then: (#>all details<#) else: (#>summary<#) #>",
       "if(what=Mode is=\"full\" then:[T\"all details\"] else:[T\"summary\"])"},
      {"<# {a comment {nested} } nooutput content: (set param: \"x\" to: Y.#2.Z) #>",
       "nooutput(content:[set(param=\"x\" to=Y.#2.Z)])"},
      {"Price: 5 <#<# not a script #>#>", "T\"Price: 5 <#<# not a script #>#>\""},
      {"abc<#", "T\"abc\""},
      {"<##>", ""},
      {"<# ; #>", ""},
      {"<# f ; ; g #><#h#>", "f(), g(), h()"},
      {"<# f a:\"x\"b:\"y\" #>", "f(a=\"x\" b=\"y\")"},
      {"<# my-func_2 flag -1: 2.#3 _x : a.b-c.#_ #>", "my-func_2(flag -1=2.#3 _x=a.b-c.#_)"},
      {"<# f x: \"two\nlines\" #>", "f(x=\"two\nlines\")"},
      {"<#\tf\r\n\tx:\r\n(\r\n)#>", "f(x:[])"},
      {"<# f c: (#>a<# g c: (#>b<#) #>c<#) #>", "f(c:[T\"a\", g(c:[T\"b\"]), T\"c\"])"},
      {"<# f c: (g; h c: (i)) d #>", "f(c:[g(), h(c:[i()])] d)"},
      {"a <#<#<# f #>", "T\"a <#<#\", f()"},
      {"\xC3\xA9<# f x: \"\xE2\x82\xAC\" #>\xF0\x9F\x98\x80",
       "T\"\xC3\xA9\", f(x=\"\xE2\x82\xAC\"), T\"\xF0\x9F\x98\x80\""},
      {"<# f x: \"\" #>", "f(x=\"\")"},
      {"<# f x: \"\"\"\" #>", "f(x=\"\"\")"},
      {"<# f x: \"a\"\"b\" #>", "f(x=\"a\"b\")"},
      {"<# f x: \"a\"\"\" #>", "f(x=\"a\"\")"},
      {"<# f x: \"\"\"\"\"\" #>", "f(x=\"\"\"\")"},
      {"<# f x: \"<#<# #>\" #>", "f(x=\"<#<# #>\")"},
      {"<# {c} f #>", "f()"},
      {"<# { {{ } f #>", "f()"},
      {"<# { { } f } g #>", "g()"},
      {"<# { a }} f } g #>", "g()"},
      {"<# { #> ; ) \" } f #>", "f()"},
      {"<# f{c}x{c}:{c}\"1\"{c}y #>", "f(x=\"1\" y)"},
      {"<# f x: ({c}) #>", "f(x:[])"},
      {"{c}<# f #>", "T\"{c}\", f()"},
  };
  for (const ShapeCase& c : cases) {
    CParser parser;
    EXPECT_EQ(WideToUtf8(parser.Parse(Utf8ToWide(c.source), kContext).str()), "") << c.source;
    EXPECT_EQ(ParseTreeText(*parser.GetRoot()), c.tree) << c.source;
  }
}

TEST(Parser, LocatesPartsAtTheirFirstCharacter) {
  CParser parser;
  ASSERT_EQ(parser.Parse(u"ab\r\n<# f\n  x: \"v\" c: (#>t<#) #>", kContext).str(), u"");
  const CParsePart& root = *parser.GetRoot();
  ASSERT_EQ(root.Children().size(), 2u);
  const CParsePart& text = *root.Children()[0];
  const CParsePart& call = *root.Children()[1];
  ASSERT_EQ(call.Children().size(), 2u);
  const CParsePart& content = *call.Children()[1];
  struct Expected {
    const CParsePart* part;
    std::size_t position, line, column;
  };
  const Expected expected[] = {
      {&root, 0, 1, 1}, {&text, 0, 1, 1}, {&call, 7, 2, 4}, {call.Children()[0].Get(), 11, 3, 3},
      {&content, 18, 3, 10}, {content.Children()[0].Get(), 24, 3, 16},
  };
  for (const Expected& e : expected) {
    const ParseLocation location = e.part->Location();
    EXPECT_EQ(location.position, e.position) << ParseTreeText(*e.part);
    EXPECT_EQ(location.line, e.line) << ParseTreeText(*e.part);
    EXPECT_EQ(location.column, e.column) << ParseTreeText(*e.part);
    EXPECT_EQ(location.context, kContext);
  }
}

struct ErrorCase {
  const char* source;  // "\n" stands for the line break under test
  const char* message;
  std::size_t line;
  std::size_t column;
};

std::string ExpectedErrorLine(const ErrorCase& c) {
  return std::string("- ") + c.message + " at line " + std::to_string(c.line) + ", column " +
         std::to_string(c.column) + ", file \"t.txt\"";
}

TEST(Parser, ReportsEachSyntaxErrorAtItsPlaceForEveryLineEnd) {
  const ErrorCase cases[] = {
      {"abc<# set", "Script not closed before end of template", 1, 4},
      {"<# x;", "Script not closed before end of template", 1, 1},
      {"<# ", "Script not closed before end of template", 1, 1},
      {"a\n\n <# f a: \"1\";\n g", "Script not closed before end of template", 3, 2},
      {"<# f {open comment #>", "Script not closed before end of template", 1, 1},
      {"<# a b: #>", "Illegal content found in stead of argument value", 1, 9},
      {"<# f x: \"1\" y: ) #>", "Illegal content found in stead of argument value", 1, 16},
      {"<# a b:", "Argument value not found before end of template", 1, 8},
      {"<# a b:\n  ", "Argument value not found before end of template", 2, 3},
      {"<# a b: {unclosed", "Argument value not found before end of template", 1, 18},
      {"<# f\n  x: \"\"\"", "Text value not closed properly", 2, 7},
      {"<# f x: (#>text #>", "Argument content not closed before end of template", 1, 9},
      {"<# f x: (#>text\n<#", "Argument content not closed before end of template", 1, 9},
      {"<# f x: (", "Argument content not closed before end of template", 1, 9},
      {"<# f x: (g #>", "Argument content not closed before end of template", 1, 9},
      {"<# f x: (g y: (h)\n", "Script not closed before end of template", 1, 9},
      {"<# f x: ( g", "Script not closed before end of template", 1, 9},
      {"<# f x: (g y: (\nh; ", "Script not closed before end of template", 1, 15},
      {"<# f ) #>", "Script continuation without open script", 1, 6},
      {"x\n<# f x: (g) ) #>", "Script continuation without open script", 2, 13},
      {"<# my.func #>", "Illegal content found in stead of argument name", 1, 6},
      {"<# f x: a..b #>", "Illegal content found in stead of argument name", 1, 11},
      {"<# f x: a.#.b #>", "Illegal content found in stead of argument name", 1, 12},
      {"<# f \"x\" #>", "Illegal content found in stead of argument name", 1, 6},
      {"<# <# #>", "Illegal content found in stead of function name", 1, 4},
      {"text\n<# f;\n .g #>", "Illegal content found in stead of function name", 3, 2},
  };
  const std::pair<WStringView, const char*> lineEnds[] = {{u"\n", "LF"}, {u"\r", "CR"}, {u"\r\n", "CRLF"}};
  for (const auto& [lineEnd, name] : lineEnds) {
    for (const ErrorCase& c : cases) {
      CParser parser;
      EXPECT_EQ(WideToUtf8(parser.Parse(ReplaceAll(Utf8ToWide(c.source), u"\n", lineEnd), kContext).str()),
                ExpectedErrorLine(c))
          << c.source << " with " << name;
    }
  }
}

// A template that is one text without escapes is its own output; escapes,
// scripts (even empty ones) and an empty template are not.
TEST(Parser, TellsATemplateThatIsItsOwnOutput) {
  const std::pair<WStringView, bool> cases[] = {
      {u"plain text", true},          {u"a #> b ) ; {x}", true}, {u"a <# #>", false}, {u"<##>abc", false},
      {u"a <#<# b", false},           {u"a #>#> b", false},      {u"", false},        {u"abc<#", false},
  };
  for (const auto& [text, verbatim] : cases) {
    CParser parser;
    ASSERT_EQ(parser.Parse(WString(text), kContext).str(), u"") << WideToUtf8(text);
    EXPECT_EQ(parser.IsVerbatim(), verbatim) << WideToUtf8(text);
  }
}

TEST(Parser, HandsOutItsTextAndEndsTheParse) {
  CParser parser;
  ASSERT_EQ(parser.Parse(u"a text long enough to live on the heap", kContext).str(), u"");
  EXPECT_EQ(parser.TakeText(), u"a text long enough to live on the heap");
  EXPECT_EQ(ParseTreeText(*parser.GetRoot()), "");
  EXPECT_FALSE(parser.IsVerbatim());
}

// A part held elsewhere views the text, so the text is copied, not moved.
TEST(Parser, CopiesTheTextWhileAPartIsHeldElsewhere) {
  CParser parser;
  ASSERT_EQ(parser.Parse(u"a text long enough to live on the heap", kContext).str(), u"");
  const CParsePartRef text = parser.GetRoot()->Children()[0];
  const WString taken = parser.TakeText();
  EXPECT_EQ(taken, u"a text long enough to live on the heap");
  EXPECT_NE(taken.data(), text->Value().data());
  EXPECT_EQ(text->Value(), u"a text long enough to live on the heap");
}

// Builds "<#" followed by `depth` times "f x: (", optionally closed again.
WString NestedContents(std::size_t depth, bool closed) {
  WString text = u"<#";
  text.reserve(2 + depth * 7 + 2);
  for (std::size_t i = 0; i < depth; ++i) text += u"f x: (";
  if (closed) {
    text.append(depth, u')');
    text += u"#>";
  }
  return text;
}

constexpr std::size_t kDeepNesting = 1000000;

TEST(Parser, ParsesAndFreesAMillionNestedContents) {
  CParsePartRef root;
  {
    CParser parser;
    ASSERT_EQ(parser.Parse(NestedContents(kDeepNesting, true), kContext).str(), u"");
    root = parser.GetRoot();
  }
  std::size_t depth = 0;
  const CParsePart* part = root.Get();
  while (!part->Children().empty()) {
    part = part->Children()[0].Get();
    if (part->Kind() == PartKind::ArgContent) ++depth;
  }
  EXPECT_EQ(depth, kDeepNesting);
  root.Reset();  // frees the whole chain without recursing
}

TEST(Parser, ReportsAMillionNestedUnclosedContentsAtTheInnermost) {
  CParser parser;
  const std::size_t innermost = 2 + 6 * (kDeepNesting - 1) + 5;
  EXPECT_EQ(WideToUtf8(parser.Parse(NestedContents(kDeepNesting, false), kContext).str()),
            "- Argument content not closed before end of template at line 1, column " + std::to_string(innermost + 1) +
                ", file \"t.txt\"");
}

}  // namespace
}  // namespace NScrivolt
