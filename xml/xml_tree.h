// The in-memory XML document: a tree of element nodes behind shared handles.
#pragma once

#include <cstddef>
#include <optional>

#include "text/base/wide_string.h"

namespace NScrivolt {

struct XmlNodeData;

// One attribute of an element; the value is null when the attribute was
// written without "=".
struct XmlTreeAttribute {
  WString name;
  std::optional<WString> value;
};

// A section kept exactly as written: a comment, CDATA, DOCTYPE and the like.
struct XmlRawSection {
  WString openTag;
  WString value;
  WString closeTag;
};

// What an entry of a node's document order refers to; `index` points into
// the list of that kind (children, attributes, texts or sections).
enum class XmlItemKind { Child, Attribute, Text, Clear };

struct XmlOrderEntry {
  XmlItemKind kind;
  std::size_t index;
};

// A handle to one node. Copying a handle shares the node; the node is freed
// with its last handle, and freeing a tree takes no stack depth however deep
// it is nested. An empty handle stands for no node: it reads as a nameless
// node without content, and building on it does nothing.
//
// A node's content items are its child elements, texts and sections; the
// building calls take a `position` among them (0 puts the item first), and
// -1 or any position at or past the end appends.
class XmlTreeNode {
 public:
  XmlTreeNode() = default;
  XmlTreeNode(const XmlTreeNode& other);
  XmlTreeNode(XmlTreeNode&& other) noexcept;
  XmlTreeNode& operator=(XmlTreeNode other) noexcept;
  ~XmlTreeNode();

  explicit operator bool() const { return data_ != nullptr; }
  // True when both handles refer to the same node.
  bool operator==(const XmlTreeNode& other) const { return data_ == other.data_; }
  bool operator!=(const XmlTreeNode& other) const { return data_ != other.data_; }

  // A new node without parent; a null name makes the nameless node that
  // holds the top level of a document.
  static XmlTreeNode CreateTopElement(std::optional<WString> name, bool isDeclaration = false);

  // Returns the new child.
  XmlTreeNode AppendChildElement(WString name, bool isDeclaration = false,
                                 std::ptrdiff_t position = -1);
  void AppendElementText(WString text, std::ptrdiff_t position = -1);
  void AppendElementAttribute(WString name, std::optional<WString> value);
  void AppendElementClear(XmlRawSection section, std::ptrdiff_t position = -1);

  const std::optional<WString>& Name() const;
  bool IsDeclaration() const;
  // Empty for a node without parent, and once the parent has been freed.
  XmlTreeNode Parent() const;

  std::size_t ChildCount() const;
  XmlTreeNode Child(std::size_t i) const;
  std::size_t AttributeCount() const;
  const XmlTreeAttribute& Attribute(std::size_t i) const;
  std::size_t TextCount() const;
  // Null when there is no i-th text; the view lives as long as the node.
  std::optional<WStringView> Text(std::size_t i) const;
  std::size_t ClearCount() const;
  const XmlRawSection& Clear(std::size_t i) const;
  // Document order of everything the node holds, attributes included;
  // `i` must be below OrderCount().
  std::size_t OrderCount() const;
  XmlOrderEntry Order(std::size_t i) const;

 private:
  explicit XmlTreeNode(XmlNodeData* data);
  static void Release(XmlNodeData* data);

  XmlNodeData* data_ = nullptr;
};

}  // namespace NScrivolt
