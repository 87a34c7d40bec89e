#include "engine/codecs/xml_params.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "engine/params/param_automatic_name.h"
#include "text/error_text.h"
#include "text/text.h"
#include "xml/xml_builder.h"
#include "xml/xml_parse.h"
#include "xml/xml_write.h"

namespace NScrivolt {

namespace {

// --- decoding ------------------------------------------------------------------

CParamIdShare NamedId(WStringView name) {
  CParamId id;
  id.numbered = false;
  id.name = WString(name);
  id.key = ToLowerAscii(name);
  return CParamIdShare::Make(std::move(id));
}

// The names of a decoded element's parts, spelled once and shared by the
// nodes of all elements. Never destroyed: decoded trees may be left alive
// to the end of the process.
const CParamIdShare& NameId() {
  static const auto* id = new CParamIdShare(NamedId(u"Name"));
  return *id;
}
const CParamIdShare& ValueId() {
  static const auto* id = new CParamIdShare(NamedId(u"Value"));
  return *id;
}
const CParamIdShare& AttributesId() {
  static const auto* id = new CParamIdShare(NamedId(u"Attibutes"));
  return *id;
}
const CParamIdShare& SubTagsId() {
  static const auto* id = new CParamIdShare(NamedId(u"SubTags"));
  return *id;
}

// Builds the parameters of a document while it is read: each element a node
// with "Name", "Value" (its first text), "Attibutes" (numbered, each with
// "Name" and "Value") and "SubTags" (its child elements, numbered), created
// in document order, so that numbered nodes get their automatic names in
// that order. The document is the nameless node of its top level, unless
// that holds just one element (not a declaration): then `target` is that
// element. Which of the two a document is shows only at its end, so the
// builder is told which to build; it notes when the document is the other.
class CParamXmlBuilder : public IXmlBuilder {
 public:
  CParamXmlBuilder(CParam& target, bool singleElement) : target_(target), singleElement_(singleElement) {
    open_.push_back(singleElement ? Node{} : StartNode(target, WString()));
  }

  void StartElement(WStringView name, bool isDeclaration) override {
    if (AtTopOfSingleElement(!isDeclaration && !rootSeen_)) {
      rootSeen_ = true;
      last_ = StartNode(target_, WString(name));
      return;
    }
    if (guessedWrong_) return;
    Node& parent = open_.back();
    if (parent.subTags == nullptr) parent.subTags = parent.param->AddChild(SubTagsId());
    last_ = StartNode(*parent.subTags->AppendNumbered(), WString(name));
  }

  void Attribute(WString name, std::optional<WString> value) override {
    if (guessedWrong_) return;
    if (last_.attributes == nullptr) last_.attributes = last_.param->AddChild(AttributesId());
    CParam& entry = *last_.attributes->AppendNumbered();
    entry.AddChild(NameId())->SetValue(std::move(name));
    entry.AddChild(ValueId())->SetValue(value ? std::move(*value) : WString());
  }

  void EnterElement() override { open_.push_back(last_); }
  void LeaveElement() override { open_.pop_back(); }

  void Text(WString text) override {
    if (AtTopOfSingleElement(false) || guessedWrong_) return;
    Node& node = open_.back();
    if (node.hasText) return;
    node.value->SetValue(std::move(text));
    node.hasText = true;
  }

  void Section(XmlRawSection) override { AtTopOfSingleElement(false); }

 private:
  struct Node {
    CParam* param = nullptr;
    CParam* value = nullptr;
    CParam* attributes = nullptr;  // made with the first attribute
    CParam* subTags = nullptr;     // made with the first child element
    bool hasText = false;
  };

  // The node's first children: its name, and its value to come. On a new
  // node (and the target, cleared) no child has those keys yet.
  static Node StartNode(CParam& param, WString name) {
    param.AddChild(NameId())->SetValue(std::move(name));
    return Node{&param, param.AddChild(ValueId())};
  }

  // Whether an item comes to the top level of a document built as a single
  // element; anything there but that one element (`fits`) shows the guess
  // wrong.
  bool AtTopOfSingleElement(bool fits) {
    if (!singleElement_ || open_.size() > 1) return false;
    if (!fits) guessedWrong_ = true;
    return fits;
  }

  CParam& target_;
  const bool singleElement_;
  bool rootSeen_ = false;
  bool guessedWrong_ = false;
  std::vector<Node> open_;  // the top level first, the innermost open element last
  Node last_;               // the element started last
};

// Whether the document most likely is one element, judged by its start: a
// text, declaration or section first makes it more than that.
bool LooksLikeSingleElement(WStringView text) {
  const std::size_t first = text.find_first_not_of(u" \t\r\n");
  if (first == WStringView::npos || text[first] != u'<') return false;
  return first + 1 < text.size() && text[first + 1] != u'?' && text[first + 1] != u'!';
}

CErrorText InvalidXmlError(const XmlParseResult& result) {
  return PositionError(MsgInvalidXml, result.line, result.column);
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

// Reads the document into `target` built as the given shape. On an error,
// or when the document is of the other shape, what was built is freed and
// the automatic numbers it took are given back. Returns the shape the
// document has.
bool BuildFromXml(WStringView text, CParam& target, bool singleElement, XmlParseResult& result) {
  const std::uint64_t numbersBefore = LastAutomaticNumber();
  CParamXmlBuilder builder(target, singleElement);
  const XmlTopLevel topLevel = ReadXmlText(text, builder, result);
  const bool isSingleElement = topLevel.items == 1 && topLevel.elements == 1 && !topLevel.firstIsDeclaration;
  if (result.error != XmlParseError::None || isSingleElement != singleElement) {
    target.Clear();
    TakeBackAutomaticNumbers(numbersBefore);
  }
  return isSingleElement;
}

}  // namespace

// The tree is built while the document is read, as the shape its start
// suggests; a document of the other shape is read once more.
CErrorText DecodeXmlTree(WStringView text, CParam& target) {
  XmlParseResult result;
  if (text.empty()) {
    result = {XmlParseError::NoElementsFound, 0, 0};
    return InvalidXmlError(result);
  }
  const bool guess = LooksLikeSingleElement(text);
  const bool shape = BuildFromXml(text, target, guess, result);
  if (result.error == XmlParseError::None && shape != guess) BuildFromXml(text, target, shape, result);
  if (result.error != XmlParseError::None) return InvalidXmlError(result);
  return CErrorText();
}

CErrorText EncodeXmlTree(const CParam& source, WString& output) {
  WString name = source.GetChildValue(u"name");
  const XmlTreeNode root = name.empty() ? XmlTreeNode::CreateTopElement(std::nullopt)
                                        : XmlTreeNode::CreateTopElement(std::move(name));
  std::vector<EncodeStep> pending{{&source, root, 1}};
  while (!pending.empty()) {
    const EncodeStep step = std::move(pending.back());
    pending.pop_back();
    if (!EncodeElement(step, pending)) {
      return DetailError(MsgXmlNestedTooDeep, {{u"[NUMBER]", IntegerToText(std::int64_t(kMaxEncodedXmlDepth))}});
    }
  }
  output += WriteXmlText(root, true);
  return CErrorText();
}

}  // namespace NScrivolt
