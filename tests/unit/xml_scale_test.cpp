// Documents far larger or deeper than usual: they must read, write and free
// without deep recursion and with work in proportion to their size.
#include <gtest/gtest.h>

#include "repeated_text.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace NScrivolt {
namespace {

using Testing::kDeepNesting;
using Testing::kHugeLength;
using Testing::Repeat;

TEST(XmlScale, MillionLevelsReadWriteAndFree) {
  const WString text = Repeat(u"<a>", kDeepNesting) + Repeat(u"</a>", kDeepNesting);
  XmlParseResult result;
  XmlTreeNode tree = ParseXmlText(text, u"", result);
  ASSERT_EQ(result.error, XmlParseError::None);
  std::size_t depth = 1;
  for (XmlTreeNode node = tree; node.ChildCount() == 1; node = node.Child(0)) ++depth;
  EXPECT_EQ(depth, kDeepNesting);

  const WString written = WriteXmlText(tree, false);
  EXPECT_EQ(written, Repeat(u"<a>", kDeepNesting - 1) + u"<a/>" + Repeat(u"</a>", kDeepNesting - 1));
  tree = XmlTreeNode();
  tree = ParseXmlText(written, u"", result);
  EXPECT_EQ(result.error, XmlParseError::None);
}

TEST(XmlScale, MillionUnclosedLevelsWarnAtTheEnd) {
  const WString text = Repeat(u"<a>", kDeepNesting);
  XmlParseResult result;
  const XmlTreeNode tree = ParseXmlText(text, u"", result);
  EXPECT_EQ(result.error, XmlParseError::UnmatchedEndTagWarning);
  EXPECT_EQ(result.line, 1u);
  EXPECT_EQ(result.column, text.size() + 1);
  EXPECT_EQ(WriteXmlText(tree, false).size(), (kDeepNesting - 1) * 7 + 4);
}

TEST(XmlScale, HugeAttributeValueAndText) {
  const WString value(kHugeLength, u'v');
  const WString text = u"<a x=\"" + value + u"\">" + WString(kHugeLength, u't') + u"&amp;</a>";
  XmlParseResult result;
  const XmlTreeNode tree = ParseXmlText(text, u"", result);
  ASSERT_EQ(result.error, XmlParseError::None);
  EXPECT_EQ(tree.Attribute(0).value, value);
  EXPECT_EQ(tree.Text(0)->size(), kHugeLength + 1);
  const WString written = WriteXmlText(tree, true);
  EXPECT_EQ(written.size(), text.size() + 1);
}

}  // namespace
}  // namespace NScrivolt
