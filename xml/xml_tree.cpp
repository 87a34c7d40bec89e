#include "xml/xml_tree.h"

#include <utility>
#include <vector>

namespace NScrivolt {

struct XmlNodeData {
  std::size_t references = 1;
  std::optional<WString> name;
  bool isDeclaration = false;
  XmlNodeData* parent = nullptr;  // not owning
  std::vector<XmlTreeNode> children;
  std::vector<WString> texts;
  std::vector<XmlRawSection> clears;
  std::vector<XmlTreeAttribute> attributes;
  std::vector<XmlOrderEntry> order;
};

namespace {

const std::optional<WString> kNoName;
const XmlTreeAttribute kNoAttribute;
const XmlRawSection kNoSection;

std::size_t ContentCount(const XmlNodeData& node) {
  return node.children.size() + node.texts.size() + node.clears.size();
}

// Puts an item of `kind` into the document order at content `position` and
// returns the index its own list must give it. Later items of the same kind
// move up by one.
std::size_t PlaceInOrder(XmlNodeData& node, XmlItemKind kind, std::size_t listSize,
                         std::ptrdiff_t position) {
  if (position < 0 || static_cast<std::size_t>(position) >= ContentCount(node)) {
    node.order.push_back({kind, listSize});
    return listSize;
  }
  std::size_t at = 0;
  std::size_t contentSeen = 0;
  std::size_t sameKindBefore = 0;
  for (; at < node.order.size(); ++at) {
    const XmlOrderEntry& entry = node.order[at];
    if (entry.kind == XmlItemKind::Attribute) continue;
    if (contentSeen == static_cast<std::size_t>(position)) break;
    ++contentSeen;
    if (entry.kind == kind) ++sameKindBefore;
  }
  for (std::size_t later = at; later < node.order.size(); ++later) {
    if (node.order[later].kind == kind) ++node.order[later].index;
  }
  node.order.insert(node.order.begin() + static_cast<std::ptrdiff_t>(at), {kind, sameKindBefore});
  return sameKindBefore;
}

template <typename Item>
void InsertInto(std::vector<Item>& list, std::size_t index, Item item) {
  list.insert(list.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
}

}  // namespace

XmlTreeNode::XmlTreeNode(XmlNodeData* data) : data_(data) {
  if (data_) ++data_->references;
}

XmlTreeNode::XmlTreeNode(const XmlTreeNode& other) : XmlTreeNode(other.data_) {}

XmlTreeNode::XmlTreeNode(XmlTreeNode&& other) noexcept : data_(std::exchange(other.data_, nullptr)) {}

XmlTreeNode& XmlTreeNode::operator=(XmlTreeNode other) noexcept {
  std::swap(data_, other.data_);
  return *this;
}

XmlTreeNode::~XmlTreeNode() {
  if (data_) Release(data_);
}

// Frees with a work list instead of nested destructor calls, so a tree nested
// a million levels deep goes without exhausting the stack. A child that is
// still held elsewhere survives and loses its parent.
void XmlTreeNode::Release(XmlNodeData* data) {
  if (--data->references != 0) return;
  std::vector<XmlNodeData*> doomed{data};
  while (!doomed.empty()) {
    XmlNodeData* node = doomed.back();
    doomed.pop_back();
    for (XmlTreeNode& child : node->children) {
      XmlNodeData* childData = std::exchange(child.data_, nullptr);
      if (--childData->references == 0) {
        doomed.push_back(childData);
      } else {
        childData->parent = nullptr;
      }
    }
    delete node;
  }
}

XmlTreeNode XmlTreeNode::CreateTopElement(std::optional<WString> name, bool isDeclaration) {
  XmlTreeNode node;
  node.data_ = new XmlNodeData;
  node.data_->name = std::move(name);
  node.data_->isDeclaration = isDeclaration;
  return node;
}

XmlTreeNode XmlTreeNode::AppendChildElement(WString name, bool isDeclaration,
                                            std::ptrdiff_t position) {
  if (!data_) return {};
  XmlTreeNode child = CreateTopElement(std::move(name), isDeclaration);
  child.data_->parent = data_;
  std::size_t index = PlaceInOrder(*data_, XmlItemKind::Child, data_->children.size(), position);
  InsertInto(data_->children, index, child);
  return child;
}

void XmlTreeNode::AppendElementText(WString text, std::ptrdiff_t position) {
  if (!data_) return;
  std::size_t index = PlaceInOrder(*data_, XmlItemKind::Text, data_->texts.size(), position);
  InsertInto(data_->texts, index, std::move(text));
}

void XmlTreeNode::AppendElementClear(XmlRawSection section, std::ptrdiff_t position) {
  if (!data_) return;
  std::size_t index = PlaceInOrder(*data_, XmlItemKind::Clear, data_->clears.size(), position);
  InsertInto(data_->clears, index, std::move(section));
}

void XmlTreeNode::AppendElementAttribute(WString name, std::optional<WString> value) {
  if (!data_) return;
  data_->order.push_back({XmlItemKind::Attribute, data_->attributes.size()});
  data_->attributes.push_back({std::move(name), std::move(value)});
}

const std::optional<WString>& XmlTreeNode::Name() const { return data_ ? data_->name : kNoName; }

bool XmlTreeNode::IsDeclaration() const { return data_ && data_->isDeclaration; }

XmlTreeNode XmlTreeNode::Parent() const { return XmlTreeNode(data_ ? data_->parent : nullptr); }

std::size_t XmlTreeNode::ChildCount() const { return data_ ? data_->children.size() : 0; }

XmlTreeNode XmlTreeNode::Child(std::size_t i) const {
  return i < ChildCount() ? data_->children[i] : XmlTreeNode();
}

std::size_t XmlTreeNode::AttributeCount() const { return data_ ? data_->attributes.size() : 0; }

const XmlTreeAttribute& XmlTreeNode::Attribute(std::size_t i) const {
  return i < AttributeCount() ? data_->attributes[i] : kNoAttribute;
}

std::size_t XmlTreeNode::TextCount() const { return data_ ? data_->texts.size() : 0; }

std::optional<WStringView> XmlTreeNode::Text(std::size_t i) const {
  if (i >= TextCount()) return std::nullopt;
  return WStringView(data_->texts[i]);
}

std::size_t XmlTreeNode::ClearCount() const { return data_ ? data_->clears.size() : 0; }

const XmlRawSection& XmlTreeNode::Clear(std::size_t i) const {
  return i < ClearCount() ? data_->clears[i] : kNoSection;
}

std::size_t XmlTreeNode::OrderCount() const { return data_ ? data_->order.size() : 0; }

XmlOrderEntry XmlTreeNode::Order(std::size_t i) const { return data_->order[i]; }

}  // namespace NScrivolt
