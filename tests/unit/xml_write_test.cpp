#include <gtest/gtest.h>

#include "text/base/utf8.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace NScrivolt {
namespace {

TEST(XmlWrite, FormatsADocumentExactly) {
  XmlTreeNode doc = XmlTreeNode::CreateTopElement(WString(u"doc"));
  doc.AppendElementAttribute(u"id", WString(u"7 & \"8\""));
  doc.AppendElementAttribute(u"flag", std::nullopt);
  doc.AppendElementAttribute(u"", WString(u"left out"));
  doc.AppendChildElement(u"name").AppendElementText(u"<Tom's>");
  doc.AppendChildElement(u"empty").AppendElementAttribute(u"a", WString(u""));
  XmlTreeNode list = doc.AppendChildElement(u"list");
  list.AppendElementText(u"one");
  list.AppendChildElement(u"item").AppendElementText(u"x");
  list.AppendElementText(u"two");
  EXPECT_EQ(WideToUtf8(WriteXmlText(doc, true)),
            "<doc id=\"7 &amp; &quot;8&quot;\" flag>\n"
            "\t<name>&lt;Tom&apos;s&gt;</name>\n"
            "\t<empty a=\"\"/>\n"
            "\t<list>\n"
            "\t\tone\n"
            "\t\t<item>x</item>\n"
            "\t\ttwo\n"
            "\t</list>\n"
            "</doc>\n");
}

TEST(XmlWrite, NamelessTopDeclarationsAndSections) {
  XmlTreeNode top = XmlTreeNode::CreateTopElement(std::nullopt);
  XmlTreeNode declaration = top.AppendChildElement(u"xml", true);
  declaration.AppendElementAttribute(u"version", WString(u"1.0"));
  declaration.AppendElementText(u"not written");
  top.AppendElementClear({u"<!--", u" note ", u"-->"});
  XmlTreeNode root = top.AppendChildElement(u"root");
  root.AppendElementClear({u"<![CDATA[", u"a<b&", u"]]>"});
  XmlTreeNode inner = root.AppendChildElement(u"inner");
  inner.AppendChildElement(u"x", true);
  EXPECT_EQ(WideToUtf8(WriteXmlText(top, true)),
            "<?xml version=\"1.0\"?>\n"
            "<!-- note -->\n"
            "<root>\n"
            "\t<![CDATA[a<b&]]>\n"
            "\t<inner>\n"
            "\t\t<?x?>\n"
            "\t</inner>\n"
            "</root>\n");
  EXPECT_EQ(WriteXmlText(XmlTreeNode(), true), u"");
  EXPECT_EQ(WriteXmlText(XmlTreeNode::CreateTopElement(std::nullopt), true), u"");
}

// Reading and writing again gives the formatted text, which reads back to
// the same tree.
TEST(XmlWrite, RoundTrips) {
  struct RoundTrip {
    const WChar* text;
    const char* formatted;
  };
  const RoundTrip cases[] = {
      {u"<a>t<!--c--></a>", "<a>\n\tt\n\t<!--c-->\n</a>\n"},
      {u"<?xml version=\"1.0\"?><r><s>&lt;&#38;</s>tail</r>",
       "<?xml version=\"1.0\"?>\n<r>\n\t<s>&lt;&amp;</s>\n\ttail\n</r>\n"},
      {u"<!DOCTYPE r [<!ELEMENT r ANY>]><r/>", "<!DOCTYPE r [<!ELEMENT r ANY>]>\n<r/>\n"},
  };
  for (const RoundTrip& c : cases) {
    SCOPED_TRACE(WideToUtf8(c.text));
    XmlParseResult result;
    const WString written = WriteXmlText(ParseXmlText(c.text, u"", result), true);
    EXPECT_EQ(result.error, XmlParseError::None);
    EXPECT_EQ(WideToUtf8(written), c.formatted);
    EXPECT_EQ(WriteXmlText(ParseXmlText(written, u"", result), true), written);
    EXPECT_EQ(result.error, XmlParseError::None);
  }
}

}  // namespace
}  // namespace NScrivolt
