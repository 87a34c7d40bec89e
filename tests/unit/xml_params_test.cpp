#include <gtest/gtest.h>

#include "engine/codecs/xml_params.h"
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
    {"attribute without value", u"<a checked y='2'/>",
     "{Name=\"a\" Value=\"\" Attibutes={{Name=\"checked\" Value=\"\"} {Name=\"y\" Value=\"2\"}}}", ""},
    {"CDATA is not represented", u"<a><![CDATA[<raw>]]></a>", "{Name=\"a\" Value=\"\"}", ""},
    // A problem leaves the target empty; the place is the reader's own.
    {"empty text", u"", "", "\n- The specified XML is invalid at line 0, column 0"},
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
