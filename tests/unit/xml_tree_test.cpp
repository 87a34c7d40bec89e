#include <gtest/gtest.h>

#include "xml/xml_tree.h"
#include "xml/xml_write.h"

namespace NScrivolt {
namespace {

TEST(XmlTree, PositionsCountContentItemsInDocumentOrder) {
  XmlTreeNode node = XmlTreeNode::CreateTopElement(WString(u"n"));
  node.AppendElementAttribute(u"k", WString(u"v"));
  node.AppendElementText(u"t2");
  node.AppendChildElement(u"c2");
  node.AppendChildElement(u"c1", false, 0);
  node.AppendElementText(u"t1", 1);
  node.AppendElementClear({u"<!--", u"s", u"-->"}, 3);
  node.AppendChildElement(u"c3", false, 99);
  EXPECT_EQ(WriteXmlText(node, false), u"<n k=\"v\"><c1/>t1t2<!--s--><c2/><c3/></n>");
  ASSERT_EQ(node.ChildCount(), 3u);
  EXPECT_EQ(*node.Child(0).Name(), u"c1");
  EXPECT_EQ(*node.Child(1).Name(), u"c2");
  EXPECT_EQ(node.Text(0), WStringView(u"t1"));
  EXPECT_EQ(node.Text(1), WStringView(u"t2"));
  EXPECT_EQ(node.Order(0).kind, XmlItemKind::Attribute);
  EXPECT_EQ(node.Order(2).kind, XmlItemKind::Text);
  EXPECT_EQ(node.Order(2).index, 0u);
}

TEST(XmlTree, ChildOutlivesItsParent) {
  XmlTreeNode child;
  {
    XmlTreeNode top = XmlTreeNode::CreateTopElement(WString(u"top"));
    child = top.AppendChildElement(u"c");
    child.AppendChildElement(u"grandchild");
  }
  EXPECT_FALSE(child.Parent());
  EXPECT_EQ(*child.Name(), u"c");
  EXPECT_EQ(child.Child(0).Parent(), child);
}

TEST(XmlTree, EmptyHandleReadsAsNoNode) {
  XmlTreeNode none;
  EXPECT_FALSE(none);
  EXPECT_FALSE(none.Name());
  EXPECT_FALSE(none.AppendChildElement(u"c"));
  none.AppendElementText(u"t");
  EXPECT_EQ(none.ChildCount() + none.TextCount() + none.AttributeCount() + none.OrderCount(), 0u);
  EXPECT_FALSE(none.Text(0));
  EXPECT_FALSE(none.Child(0));
  EXPECT_EQ(none.Attribute(0).name, u"");
  EXPECT_EQ(none.Clear(0).openTag, u"");
}

}  // namespace
}  // namespace NScrivolt
