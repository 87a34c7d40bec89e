#include <gtest/gtest.h>

#include "text/base/utf8.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace NScrivolt {
namespace {

using E = XmlParseError;

struct ParseCase {
  const WChar* text;
  XmlParseError error;
  std::size_t line;
  std::size_t column;
  const WChar* tree;  // written unformatted; null when the tree is dropped
};

// Documents, entities in texts and values, texts and comments, then problems
// with their places: warnings keep the tree, errors drop it.
TEST(XmlParse, ReadsDocumentsOrReportsWhereReadingStopped) {
  const ParseCase cases[] = {
      {u"<a>x</a>", E::None, 0, 0, u"<a>x</a>"},
      {u"<A>x</a >", E::None, 0, 0, u"<A>x</A>"},
      {u"< a >x</a>", E::None, 0, 0, u"<a>x</a>"},
      {u"<a x y='2' z=w/>", E::None, 0, 0, u"<a x y=\"2\" z=\"w\"/>"},
      {u"<a x = \"1\"b='2'/>", E::None, 0, 0, u"<a x=\"1\" b=\"2\"/>"},
      {u"<a x=\"it's\" y='say \"hi\"'/>", E::None, 0, 0,
       u"<a x=\"it&apos;s\" y=\"say &quot;hi&quot;\"/>"},
      {u"<a x=\"1/>", E::None, 0, 0, u"<a x=\"&quot;1\"/>"},
      {u"<a>\n  <b/>\r\n\t<c>t</c>  \n</a>", E::None, 0, 0, u"<a><b/><c>t</c></a>"},
      {u"<a/><b/>", E::None, 0, 0, u"<a/><b/>"},
      {u"<?xml version=\"1.0\"?><a/>", E::None, 0, 0, u"<?xml version=\"1.0\"?><a/>"},
      {u"<?xml a b=c?>", E::None, 0, 0, u"<?xml a b=\"c\"?>"},
      {u"<?pi ?>\n<?xml?>", E::None, 0, 0, u"<?pi?><?xml?>"},
      {u"<a>x<b/>y</a>", E::None, 0, 0, u"<a>x<b/>y</a>"},
      {u"<a>top</a>tail", E::None, 0, 0, u"<a>top</a>tail"},
      {u"<a>&AMP;&Lt;&gt;&quot;&apos;</a>", E::None, 0, 0,
       u"<a>&amp;&lt;&gt;&quot;&apos;</a>"},
      {u"<a>&#65;&#x41;&#X4a;&#0065;</a>", E::None, 0, 0, u"<a>AAJA</a>"},
      {u"<a x='&#60;&amp;'/>", E::None, 0, 0, u"<a x=\"&lt;&amp;\"/>"},
      {u"<a>&#x1F600;</a>", E::None, 0, 0, u"<a>\U0001F600</a>"},
      {u"<a>\n ok &bad; </a>", E::UnknownCharacterEntity, 2, 5, nullptr},
      {u"<a>R & D</a>", E::UnknownCharacterEntity, 1, 6, nullptr},
      {u"<a>&#65</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a>&#;</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a>&#x;</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a>&#6A;</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a>&#x110000;</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a>&amp</a>", E::UnknownCharacterEntity, 1, 4, nullptr},
      {u"<a x=\"ok&wrong;\"/>", E::UnknownCharacterEntity, 1, 9, nullptr},
      {u"<a x=a&b/>", E::UnknownCharacterEntity, 1, 7, nullptr},
      {u"<a&b>x</a&b>", E::None, 0, 0, u"<a&b>x</a&b>"},
      {u"<a> x <!-- c --> y </a>", E::None, 0, 0, u"<a>xy</a>"},
      {u"<a>x<!--1-->y<!--2-->z</a>", E::None, 0, 0, u"<a>xyz</a>"},
      {u"<a>x<!--c--></a>", E::None, 0, 0, u"<a>x<!--c--></a>"},
      {u"<a>x<!--c--> \n <b/></a>", E::None, 0, 0, u"<a>x<!--c--><b/></a>"},
      {u"<a>x<!--c--><!--d-->y</a>", E::None, 0, 0, u"<a>x<!--c--><!--d-->y</a>"},
      {u"<a><!--c-->y</a>", E::None, 0, 0, u"<a><!--c-->y</a>"},
      {u"<a>x<![CDATA[<y>&z;]]>w</a>", E::None, 0, 0, u"<a>x<![CDATA[<y>&z;]]>w</a>"},
      {u"<a><PRE><b></PRE><Script>if (a<b)</Script></a>", E::None, 0, 0,
       u"<a><PRE><b></PRE><Script>if (a<b)</Script></a>"},
      {u"<a><pre>t</pre></a>", E::None, 0, 0, u"<a><pre>t</pre></a>"},
      {u"<!DOCTYPE n [<!ELEMENT n (#PCDATA)>]><n>t</n>", E::None, 0, 0,
       u"<!DOCTYPE n [<!ELEMENT n (#PCDATA)>]><n>t</n>"},
      {u"<!DOCTYPE html><n/>", E::None, 0, 0, u"<!DOCTYPE html><n/>"},
      {u"<n/><!-- after -->", E::None, 0, 0, u"<n/><!-- after -->"},
      {u"", E::NoElementsFound, 0, 0, nullptr},
      {u"<a>", E::UnmatchedEndTagWarning, 1, 4, u"<a/>"},
      {u"<a>\n<b>x", E::UnmatchedEndTagWarning, 2, 5, u"<a><b>x</b></a>"},
      {u"<a x=\"1\"", E::UnmatchedEndTagWarning, 1, 9, u"<a x=\"1\"/>"},
      {u"<a x=", E::UnmatchedEndTagWarning, 1, 6, u"<a x/>"},
      {u"<?xml", E::UnmatchedEndTagWarning, 1, 6, u"<?xml?>"},
      {u"<a><b></a>", E::UnmatchedEndTagWarning, 1, 7, u"<a><b/></a>"},
      {u"<a><b></a><c>", E::UnmatchedEndTagWarning, 1, 7, u"<a><b/></a><c/>"},
      {u" \r\n ", E::NoXmlTagWarning, 2, 2, u""},
      {u"hello", E::NoXmlTagWarning, 1, 6, u"hello"},
      {u"<!--only-->", E::NoXmlTagWarning, 1, 12, u"<!--only-->"},
      {u"<", E::MissingStartTagName, 1, 2, nullptr},
      {u"<a>< >", E::MissingStartTagName, 1, 6, nullptr},
      {u"<a>\n<='x'>", E::MissingStartTagName, 2, 2, nullptr},
      {u"<?\?>", E::MissingStartTagName, 1, 3, nullptr},
      {u"<a>\n  <b/>\n</ >", E::MissingEndTagName, 3, 4, nullptr},
      {u"<a></>", E::MissingEndTagName, 1, 6, nullptr},
      {u"<a></a", E::MissingEndTagName, 1, 7, nullptr},
      {u"<a></a b>", E::MissingEndTagName, 1, 8, nullptr},
      {u"<a/b>x</a/b>", E::MissingEndTagName, 1, 10, nullptr},
      {u"</a>", E::UnmatchedEndTag, 1, 1, nullptr},
      {u"<a></b>", E::UnmatchedEndTag, 1, 4, nullptr},
      {u"<a></a>\r\r</a>", E::UnmatchedEndTag, 1, 10, nullptr},
      {u"<a>\n<!-- open", E::UnmatchedClearTagEnd, 2, 1, nullptr},
      {u"<![CDATA[x]>", E::UnmatchedClearTagEnd, 1, 1, nullptr},
      {u"<!DOCTYPE a [<!ENTITY x>", E::UnmatchedClearTagEnd, 1, 1, nullptr},
      {u"<a x=>", E::UnexpectedToken, 1, 6, nullptr},
      {u"<a =1>", E::UnexpectedToken, 1, 4, nullptr},
      {u"<a \"x\">", E::UnexpectedToken, 1, 4, nullptr},
      {u"<a x=/>", E::UnexpectedToken, 1, 6, nullptr},
      {u"<a x=\"1<b\">", E::UnexpectedToken, 1, 8, nullptr},
      {u"<a\n<b>", E::UnexpectedToken, 2, 1, nullptr},
  };
  for (const ParseCase& c : cases) {
    SCOPED_TRACE(WideToUtf8(c.text));
    XmlParseResult result;
    const XmlTreeNode tree = ParseXmlText(c.text, u"", result);
    EXPECT_EQ(XmlParseErrorText(result.error), XmlParseErrorText(c.error));
    EXPECT_EQ(result.line, c.line);
    EXPECT_EQ(result.column, c.column);
    if (c.tree) {
      EXPECT_TRUE(tree);
      EXPECT_EQ(WideToUtf8(WriteXmlText(tree, false)), WideToUtf8(c.tree));
    } else {
      EXPECT_FALSE(tree);
    }
  }
}

TEST(XmlParse, TopNodeIsTheSingleElementOrNameless) {
  struct TopCase {
    const WChar* text;
    bool nameless;
    std::size_t children;
  };
  const TopCase cases[] = {
      {u"  <a><b/></a>  ", false, 1},
      {u"<a/><b/>", true, 2},
      {u"<?xml version='1.0'?><a/>", true, 2},
      {u"<?xml version='1.0'?>", true, 1},
      {u"<!--c--><a/>", true, 1},
      {u"t<a/>", true, 1},
  };
  for (const TopCase& c : cases) {
    SCOPED_TRACE(WideToUtf8(c.text));
    XmlParseResult result;
    const XmlTreeNode tree = ParseXmlText(c.text, u"", result);
    EXPECT_EQ(result.error, E::None);
    EXPECT_EQ(!tree.Name(), c.nameless);
    EXPECT_EQ(tree.ChildCount(), c.children);
    EXPECT_FALSE(tree.Parent());
  }
}

TEST(XmlParse, RequiredTopTagSelectsATopLevelElement) {
  const WChar* text = u"<?xml?><A>1</A><b>2</b>";
  struct TagCase {
    const WChar* tag;
    XmlParseError error;
    const WChar* tree;
  };
  const TagCase cases[] = {
      {u"a", E::None, u"<A>1</A>"},
      {u"B", E::None, u"<b>2</b>"},
      {u"xml", E::FirstTagNotFound, u""},
      {u"c", E::FirstTagNotFound, u""},
  };
  for (const TagCase& c : cases) {
    XmlParseResult result;
    const XmlTreeNode tree = ParseXmlText(text, c.tag, result);
    EXPECT_EQ(result.error, c.error) << WideToUtf8(c.tag);
    EXPECT_EQ(WriteXmlText(tree, false), c.tree) << WideToUtf8(c.tag);
  }
  XmlParseResult result;
  ParseXmlText(text, u"c", result);
  EXPECT_EQ(result.line, 1u);
  EXPECT_EQ(result.column, 24u);
}

}  // namespace
}  // namespace NScrivolt
