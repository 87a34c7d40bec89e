#include "engine/codecs/xml_params.h"

#include <utility>
#include <vector>

#include "text/error_text.h"
#include "text/text.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace NScrivolt {

namespace {

// --- decoding ------------------------------------------------------------------

// An element still to be decoded, and the "SubTags" parameter that receives
// it as its next numbered child.
struct DecodeStep {
  XmlTreeNode element;
  CParam* subTags;
};

void SetChildValue(CParam& param, WStringView name, WString value) {
  param.GetChildByName(name, true)->SetValue(std::move(value));
}

// Fills `target` with one element's name, first text and attributes, and
// leaves its child elements on `pending`, the first on top, so that the
// elements are decoded in document order and the numbered parameters get
// their automatic names in that order too.
void DecodeElement(const XmlTreeNode& element, CParam& target, std::vector<DecodeStep>& pending) {
  SetChildValue(target, u"Name", element.Name().value_or(WString()));
  SetChildValue(target, u"Value", WString(element.Text(0).value_or(WStringView())));
  if (element.AttributeCount() > 0) {
    CParam& attributes = *target.GetChildByName(u"Attibutes", true);
    for (std::size_t i = 0; i < element.AttributeCount(); ++i) {
      const XmlTreeAttribute& attribute = element.Attribute(i);
      CParam& entry = *attributes.AppendNumbered();
      SetChildValue(entry, u"Name", attribute.name);
      SetChildValue(entry, u"Value", attribute.value.value_or(WString()));
    }
  }
  if (element.ChildCount() > 0) {
    CParam* subTags = target.GetChildByName(u"SubTags", true);
    for (std::size_t i = element.ChildCount(); i > 0; --i) pending.push_back({element.Child(i - 1), subTags});
  }
}

WString InvalidXmlError(const XmlParseResult& result) {
  WString errorText;
  AddErrorDetail(errorText, CText(MsgInvalidXml)
                                .Fill({{u"[LINE]", IntegerToText(std::int64_t(result.line))},
                                       {u"[COLUMN]", IntegerToText(std::int64_t(result.column))}})
                                .str());
  return errorText;
}

// --- encoding ------------------------------------------------------------------

struct EncodeStep {
  const CParam* source;
  XmlTreeNode element;
  std::size_t depth;  // 1 for the top element
};

std::vector<const CParam*> ChildrenOf(const CParam& param, WStringView name) {
  const CParam* holder = param.GetChildByName(name);
  return holder != nullptr ? holder->ListChildren() : std::vector<const CParam*>();
}

// Gives `element` the text and attributes `source` describes, and creates
// its child elements, leaving them on `pending` to be filled. False when the
// children would lie deeper than the limit.
bool EncodeElement(const EncodeStep& step, std::vector<EncodeStep>& pending) {
  XmlTreeNode element = step.element;
  WString value = step.source->GetChildValue(u"value");
  if (!value.empty()) element.AppendElementText(std::move(value));
  for (const CParam* attribute : ChildrenOf(*step.source, u"attributes")) {
    element.AppendElementAttribute(attribute->GetChildValue(u"name"), attribute->GetChildValue(u"value"));
  }
  const std::vector<const CParam*> subTags = ChildrenOf(*step.source, u"subtags");
  if (!subTags.empty() && step.depth >= kMaxEncodedXmlDepth) return false;
  for (const CParam* subTag : subTags) {
    pending.push_back({subTag, element.AppendChildElement(subTag->GetChildValue(u"name")), step.depth + 1});
  }
  return true;
}

}  // namespace

// The steps hold the only handles to the document's elements, so each
// element is freed as soon as it is decoded, and the parameters made after
// it can take its memory.
WString DecodeXmlTree(WStringView text, CParam& target) {
  XmlParseResult result;
  XmlTreeNode root = ParseXmlText(text, u"", result);
  if (result.error != XmlParseError::None) return InvalidXmlError(result);
  std::vector<DecodeStep> pending;
  DecodeElement(root, target, pending);
  root = XmlTreeNode();
  while (!pending.empty()) {
    const DecodeStep step = std::move(pending.back());
    pending.pop_back();
    DecodeElement(step.element, *step.subTags->AppendNumbered(), pending);
  }
  return WString();
}

WString EncodeXmlTree(const CParam& source, WString& output) {
  WString name = source.GetChildValue(u"name");
  const XmlTreeNode root = name.empty() ? XmlTreeNode::CreateTopElement(std::nullopt)
                                        : XmlTreeNode::CreateTopElement(std::move(name));
  std::vector<EncodeStep> pending{{&source, root, 1}};
  while (!pending.empty()) {
    const EncodeStep step = std::move(pending.back());
    pending.pop_back();
    if (!EncodeElement(step, pending)) {
      WString errorText;
      AddErrorDetail(errorText,
                     CText(MsgXmlNestedTooDeep).Replace(u"[NUMBER]", std::int32_t(kMaxEncodedXmlDepth)).str());
      return errorText;
    }
  }
  output += WriteXmlText(root, true);
  return WString();
}

}  // namespace NScrivolt
