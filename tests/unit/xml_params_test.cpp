#include <gtest/gtest.h>

#include "engine/xml_params.h"
#include "param_layout.h"
#include "template_runner.h"

namespace NScrivolt {
namespace {

struct XmlDecodeCase {
  const char* name;
  const WChar* text;
  const char* layout;  // when errors is empty
  const char* errors;
};

const XmlDecodeCase kDecodeCases[] = {
    {"element, attribute, texts and a sub-tag", u"<a x=\"1\">t<b/>u</a>",
     "{Name=\"a\" Value=\"t\" Attibutes={{Name=\"x\" Value=\"1\"}} SubTags={{Name=\"b\" Value=\"\"}}}", ""},
    {"declaration gives a nameless top", u"<?xml version=\"1.0\"?>\n<r>v</r>",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"xml\" Value=\"\" Attibutes={{Name=\"version\" Value=\"1.0\"}}} "
     "{Name=\"r\" Value=\"v\"}}}",
     ""},
    {"two top elements", u"<a/><b/>",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"a\" Value=\"\"} {Name=\"b\" Value=\"\"}}}", ""},
    {"attribute without value", u"<a checked y='2'/>",
     "{Name=\"a\" Value=\"\" Attibutes={{Name=\"checked\" Value=\"\"} {Name=\"y\" Value=\"2\"}}}", ""},
    {"entities decoded", u"<a t=\"&lt;&#65;\">&AMP;&#x42;</a>",
     "{Name=\"a\" Value=\"&B\" Attibutes={{Name=\"t\" Value=\"<A\"}}}", ""},
    {"comment between texts joins them", u"<a> x <!-- c --> y </a>", "{Name=\"a\" Value=\"xy\"}", ""},
    {"CDATA is not represented", u"<a><![CDATA[<raw>]]></a>", "{Name=\"a\" Value=\"\"}", ""},
    {"nested sub-tags in order", u"<r><a><b>1</b></a><c/></r>",
     "{Name=\"r\" Value=\"\" SubTags={{Name=\"a\" Value=\"\" SubTags={{Name=\"b\" Value=\"1\"}}} "
     "{Name=\"c\" Value=\"\"}}}",
     ""},
    // Every problem the reader reports, each with its place.
    {"empty text", u"", "", "\n- The specified XML is invalid at line 0, column 0"},
    {"no element", u"  \r\n ", "", "\n- The specified XML is invalid at line 2, column 2"},
    {"text only", u"hello", "", "\n- The specified XML is invalid at line 1, column 6"},
    {"unclosed element", u"<a>\n<b/>", "", "\n- The specified XML is invalid at line 2, column 5"},
    {"end tag of an outer element", u"<a><b></a>", "", "\n- The specified XML is invalid at line 1, column 7"},
    {"end tag matching nothing", u"<a/>\n</b>", "", "\n- The specified XML is invalid at line 2, column 1"},
    {"missing start tag name", u"<a><></a>", "", "\n- The specified XML is invalid at line 1, column 5"},
    {"missing end tag name", u"<a></ ></a>", "", "\n- The specified XML is invalid at line 1, column 7"},
    {"section without its end", u"<a>\n  <!-- open</a>", "", "\n- The specified XML is invalid at line 2, column 3"},
    {"unexpected token", u"<a =\"1\"/>", "", "\n- The specified XML is invalid at line 1, column 4"},
    {"unknown entity", u"<a>\n x &nbsp;</a>", "", "\n- The specified XML is invalid at line 2, column 4"},
    {"numeric reference without ;", u"<a>&#65</a>", "", "\n- The specified XML is invalid at line 1, column 4"},
};

TEST(XmlParams, DecodeMapsTheDocumentOrReportsWhereReadingStopped) {
  for (const XmlDecodeCase& c : kDecodeCases) {
    CParam target;
    const WString errors = DecodeXmlTree(c.text, target);
    EXPECT_EQ(Lines(errors), c.errors) << c.name;
    if (errors.empty()) {
      EXPECT_EQ(Layout(target), c.layout) << c.name;
    } else {
      EXPECT_EQ(target.Count(), 0u) << c.name << ": the target stays empty";
    }
  }
}

// A source parameter described in the encoder's own names.
CParam& Named(CParam& parent, WStringView name, WStringView value) {
  CParam& child = *parent.GetChildByName(name, true);
  child.SetValue(WString(value));
  return child;
}

CParam& SubTag(CParam& parent, WStringView name) {
  CParam& tag = *parent.GetChildByName(u"SubTags", true)->AppendNumbered();
  Named(tag, u"Name", name);
  return tag;
}

void Attribute(CParam& element, WStringView name, WStringView value) {
  CParam& attribute = *element.GetChildByName(u"attributes", true)->AppendNumbered();
  Named(attribute, u"name", name);
  Named(attribute, u"value", value);
}

TEST(XmlParams, EncodeWritesFormattedXml) {
  CParam source;
  Named(source, u"NAME", u"a");
  Named(source, u"Value", u"t & <u>");
  Attribute(source, u"x", u"\"1\"");
  Attribute(source, u"y", u"");
  SubTag(source, u"b");
  Named(SubTag(source, u"c"), u"value", u"only text");
  WString output = u"kept:";
  EXPECT_EQ(EncodeXmlTree(source, output), u"");
  EXPECT_EQ(WideToUtf8(output),
            "kept:<a x=\"&quot;1&quot;\" y=\"\">\n\tt &amp; &lt;u&gt;\n\t<b/>\n\t<c>only text</c>\n</a>\n");
}

TEST(XmlParams, EncodeWithoutNameWritesTheContentOnly) {
  CParam source;
  SubTag(source, u"a");
  SubTag(source, u"b");
  WString output;
  EXPECT_EQ(EncodeXmlTree(source, output), u"");
  EXPECT_EQ(WideToUtf8(output), "<a/>\n<b/>\n");
}

TEST(XmlParams, DecodedTreesWriteBackWithoutAttributes) {
  CParam decoded;
  ASSERT_EQ(DecodeXmlTree(u"<r id=\"7\"><a>1</a><b><c/></b></r>", decoded), u"");
  WString output;
  EXPECT_EQ(EncodeXmlTree(decoded, output), u"");
  EXPECT_EQ(WideToUtf8(output), "<r>\n\t<a>1</a>\n\t<b>\n\t\t<c/>\n\t</b>\n</r>\n");
  CParam again;
  EXPECT_EQ(DecodeXmlTree(output, again), u"");
  decoded.DeleteParam({CParamId{false, 0, u"Attibutes", u"attibutes"}});
  EXPECT_EQ(Layout(again), Layout(decoded));
}

// A chain of sub-tags `levels` deep, the top included.
CParam Chain(std::size_t levels) {
  CParam source;
  Named(source, u"Name", u"e");
  CParam* element = &source;
  for (std::size_t level = 1; level < levels; ++level) element = &SubTag(*element, u"e");
  return source;
}

TEST(XmlParams, EncodeRefusesTreesNestedTooDeep) {
  WString output;
  EXPECT_EQ(EncodeXmlTree(Chain(kMaxEncodedXmlDepth), output), u"");
  EXPECT_EQ(output.size(), kMaxEncodedXmlDepth * (kMaxEncodedXmlDepth - 1) + (kMaxEncodedXmlDepth - 1) * 8 + 5);
  output = u"kept";
  EXPECT_EQ(Lines(EncodeXmlTree(Chain(kMaxEncodedXmlDepth + 1), output)),
            "\n- Too many nested sub-tags (1000) to encode as XML");
  EXPECT_EQ(output, u"kept");
}

}  // namespace
}  // namespace NScrivolt
