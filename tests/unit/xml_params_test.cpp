#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "engine/codecs/xml_params.h"
#include "engine/params/param_automatic_name.h"
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
    {"one element: the target is that element", u"<a x='1'><b>t</b>tail<c/></a>",
     "{Name=\"a\" Value=\"tail\" Attibutes={{Name=\"x\" Value=\"1\"}} "
     "SubTags={{Name=\"b\" Value=\"t\"} {Name=\"c\" Value=\"\"}}}", ""},
    {"texts around a comment are one text", u"<a>one<!-- c -->two</a>", "{Name=\"a\" Value=\"onetwo\"}", ""},
    // Anything beside the one element makes the target the nameless top level.
    {"an element and a comment after it", u"<a><b/></a><!-- c -->",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"a\" Value=\"\" SubTags={{Name=\"b\" Value=\"\"}}}}}", ""},
    {"an element and a text after it", u"<a/>tail", "{Name=\"\" Value=\"tail\" SubTags={{Name=\"a\" Value=\"\"}}}", ""},
    {"two elements", u"<a/> <b/>",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"a\" Value=\"\"} {Name=\"b\" Value=\"\"}}}", ""},
    {"a text before the element", u"x<a/>", "{Name=\"\" Value=\"x\" SubTags={{Name=\"a\" Value=\"\"}}}", ""},
    {"a declaration before the element", u"<?xml version=\"1.0\"?>\n<a/>",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"xml\" Value=\"\" Attibutes={{Name=\"version\" Value=\"1.0\"}}} "
     "{Name=\"a\" Value=\"\"}}}", ""},
    {"a declaration alone", u"<?xml version=\"1.0\"?>",
     "{Name=\"\" Value=\"\" SubTags={{Name=\"xml\" Value=\"\" Attibutes={{Name=\"version\" Value=\"1.0\"}}}}}", ""},
    // A problem leaves the target empty; the place is the reader's own.
    {"empty text", u"", "", "\n- The specified XML is invalid at line 0, column 0"},
    {"an error after elements were read", u"<a><b/><c></d>", "", "\n- The specified XML is invalid at line 1, column 11"},
    {"an error after a second top element", u"<a/><b>\n</c>", "", "\n- The specified XML is invalid at line 2, column 1"},
    {"an element left open", u"<a><b></b>", "", "\n- The specified XML is invalid at line 1, column 11"},
};

TEST(XmlParams, DecodeMapsTheDocumentOrReportsWhereReadingStopped) {
  for (const XmlDecodeCase& c : kDecodeCases) {
    CParam target;
    const CErrorText errors = DecodeXmlTree(c.text, target);
    EXPECT_EQ(Lines(errors.str()), c.errors) << c.name;
    if (errors.empty()) {
      EXPECT_EQ(Layout(target), c.layout) << c.name;
    } else {
      EXPECT_EQ(target.Count(), 0u) << c.name << ": the target stays empty";
    }
  }
}

// The automatic names of the numbered nodes below `param`, in document order.
void NumberedNames(const CParam& param, std::vector<std::string>& names) {
  for (const CParam* child : param.ListChildren()) {
    if (child->HasAutomaticName()) names.push_back(WideToUtf8(child->GetId().name));
    NumberedNames(*child, names);
  }
}

std::string AutomaticNameAfter(std::uint64_t last, std::uint64_t step) {
  return "Param" + std::to_string(last + step);
}

// Whatever shape a document turns out to have, and whether it fails, its
// numbered nodes take the automatic numbers that follow the last one handed
// out before, in document order, and a failed decoding takes none.
TEST(XmlParams, DecodeNumbersInDocumentOrderWhateverTheShape) {
  const WStringView documents[] = {u"<a x='1'><b/><c/></a>", u"<a x='1'><b/><c/></a><!-- after -->",
                                   u"<!-- before --><a x='1'><b/><c/></a>"};
  for (const WStringView document : documents) {
    const std::uint64_t before = LastAutomaticNumber();
    CParam target;
    ASSERT_EQ(Lines(DecodeXmlTree(document, target).str()), "") << WideToUtf8(document);
    std::vector<std::string> names;
    NumberedNames(target, names);
    ASSERT_FALSE(names.empty());
    for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(names[i], AutomaticNameAfter(before, i + 1));
    EXPECT_EQ(LastAutomaticNumber(), before + names.size()) << WideToUtf8(document);
  }
  for (const WStringView failing : {WStringView(u"<a><b/><c></d>"), WStringView(u"<a/><b x='1'><c>")}) {
    const std::uint64_t before = LastAutomaticNumber();
    CParam target;
    EXPECT_NE(Lines(DecodeXmlTree(failing, target).str()), "");
    EXPECT_EQ(LastAutomaticNumber(), before) << WideToUtf8(failing);
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
  EXPECT_EQ(EncodeXmlTree(Chain(kMaxEncodedXmlDepth), output).str(), u"");
  EXPECT_EQ(output.size(), kMaxEncodedXmlDepth * (kMaxEncodedXmlDepth - 1) + (kMaxEncodedXmlDepth - 1) * 8 + 5);
  output = u"kept";
  EXPECT_EQ(Lines(EncodeXmlTree(Chain(kMaxEncodedXmlDepth + 1), output).str()),
            "\n- Too many nested sub-tags (1000) to encode as XML");
  EXPECT_EQ(output, u"kept");
}

}  // namespace
}  // namespace NScrivolt
