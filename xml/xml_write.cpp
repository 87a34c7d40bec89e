#include "xml/xml_write.h"

#include <vector>

#include "xml/xml_entities.h"

namespace NScrivolt {

namespace {

class XmlWriter {
 public:
  explicit XmlWriter(bool formatted) : formatted_(formatted) {}

  void Write(const XmlTreeNode& node);
  WString TakeText() { return std::move(out_); }

 private:
  // A node whose content is being written; `depth` is the level of its content.
  struct OpenNode {
    XmlTreeNode node;
    std::size_t nextItem;
    std::size_t depth;
  };

  void WriteItem(const XmlTreeNode& parent, XmlOrderEntry item, std::size_t depth);
  void Enter(const XmlTreeNode& node, std::size_t depth);
  bool WriteStartTag(const XmlTreeNode& node, std::size_t depth);
  void WriteAttributes(const XmlTreeNode& node);
  void WriteEndTag(const XmlTreeNode& node, std::size_t depth);
  void WriteSection(const XmlRawSection& section, std::size_t depth);
  void WriteTextLine(WStringView text, std::size_t depth);
  void Indent(std::size_t depth);
  void EndLine();

  bool formatted_;
  WString out_;
  std::vector<OpenNode> open_;
};

bool HasContent(const XmlTreeNode& node) {
  return node.ChildCount() + node.TextCount() + node.ClearCount() > 0;
}

bool IsOneTextElement(const XmlTreeNode& node) {
  return !node.IsDeclaration() && node.TextCount() == 1 && node.ChildCount() == 0 &&
         node.ClearCount() == 0;
}

// Walks the tree with a stack of the open nodes rather than by recursion.
void XmlWriter::Write(const XmlTreeNode& node) {
  Enter(node, 0);
  while (!open_.empty()) {
    OpenNode& top = open_.back();
    if (top.nextItem == top.node.OrderCount()) {
      const OpenNode done = std::move(top);
      open_.pop_back();
      if (done.node.Name()) WriteEndTag(done.node, done.depth - 1);
      continue;
    }
    const XmlTreeNode parent = top.node;
    const XmlOrderEntry item = parent.Order(top.nextItem++);
    WriteItem(parent, item, top.depth);
  }
}

void XmlWriter::WriteItem(const XmlTreeNode& parent, XmlOrderEntry item, std::size_t depth) {
  switch (item.kind) {
    case XmlItemKind::Child:
      Enter(parent.Child(item.index), depth);
      break;
    case XmlItemKind::Text:
      WriteTextLine(*parent.Text(item.index), depth);
      break;
    case XmlItemKind::Clear:
      WriteSection(parent.Clear(item.index), depth);
      break;
    case XmlItemKind::Attribute:
      break;  // written with the start tag
  }
}

// Writes what can be written of `node` at once and leaves it open on the
// stack when its content follows.
void XmlWriter::Enter(const XmlTreeNode& node, std::size_t depth) {
  if (!node.Name()) {
    open_.push_back({node, 0, depth});
  } else if (WriteStartTag(node, depth)) {
    open_.push_back({node, 0, depth + 1});
  }
}

// Returns true when the element's content and end tag are still to come.
bool XmlWriter::WriteStartTag(const XmlTreeNode& node, std::size_t depth) {
  Indent(depth);
  out_.push_back(u'<');
  if (node.IsDeclaration()) out_.push_back(u'?');
  out_.append(*node.Name());
  WriteAttributes(node);
  if (node.IsDeclaration()) {
    out_.append(u"?>");
  } else if (!HasContent(node)) {
    out_.append(u"/>");
  } else if (IsOneTextElement(node)) {
    out_.push_back(u'>');
    AppendXmlEscaped(*node.Text(0), out_);
    out_.append(u"</");
    out_.append(*node.Name());
    out_.push_back(u'>');
  } else {
    out_.push_back(u'>');
    EndLine();
    return true;
  }
  EndLine();
  return false;
}

void XmlWriter::WriteAttributes(const XmlTreeNode& node) {
  for (std::size_t i = 0; i < node.AttributeCount(); ++i) {
    const XmlTreeAttribute& attribute = node.Attribute(i);
    if (attribute.name.empty()) continue;
    out_.push_back(u' ');
    out_.append(attribute.name);
    if (!attribute.value) continue;
    out_.append(u"=\"");
    AppendXmlEscaped(*attribute.value, out_);
    out_.push_back(u'"');
  }
}

void XmlWriter::WriteEndTag(const XmlTreeNode& node, std::size_t depth) {
  Indent(depth);
  out_.append(u"</");
  out_.append(*node.Name());
  out_.push_back(u'>');
  EndLine();
}

void XmlWriter::WriteSection(const XmlRawSection& section, std::size_t depth) {
  Indent(depth);
  out_.append(section.openTag);
  out_.append(section.value);
  out_.append(section.closeTag);
  EndLine();
}

void XmlWriter::WriteTextLine(WStringView text, std::size_t depth) {
  Indent(depth);
  AppendXmlEscaped(text, out_);
  EndLine();
}

void XmlWriter::Indent(std::size_t depth) {
  if (formatted_) out_.append(depth, u'\t');
}

void XmlWriter::EndLine() {
  if (formatted_) out_.push_back(u'\n');
}

}  // namespace

WString WriteXmlText(const XmlTreeNode& node, bool formatted) {
  if (!node) return {};
  XmlWriter writer(formatted);
  writer.Write(node);
  return writer.TakeText();
}

}  // namespace NScrivolt
