// Reading an XML document into whatever a caller builds from it: the reader
// reports what it finds in document order to an IXmlBuilder, which may make
// an XmlTreeNode tree (ParseXmlText) or anything else, without a document in
// between.
#pragma once

#include <cstddef>
#include <optional>

#include "text/base/wide_string.h"
#include "xml/xml_parse.h"
#include "xml/xml_tree.h"

namespace NScrivolt {

// The events of one reading. "The open element" starts as the top level of
// the document; every event but Attribute and EnterElement belongs to it.
class IXmlBuilder {
 public:
  virtual ~IXmlBuilder() = default;

  // A start tag or declaration, a new last child of the open element.
  virtual void StartElement(WStringView name, bool isDeclaration) = 0;
  // An attribute of the element started last; the value is null when the
  // attribute was written without "=".
  virtual void Attribute(WString name, std::optional<WString> value) = 0;
  // The element started last (never a declaration) becomes the open element.
  virtual void EnterElement() = 0;
  // The open element is closed: its parent is the open element again.
  virtual void LeaveElement() = 0;
  // A text of the open element: trimmed, entities decoded, never empty.
  virtual void Text(WString text) = 0;
  // A section kept as written (comment, CDATA, DOCTYPE) of the open element.
  virtual void Section(XmlRawSection section) = 0;
};

// What a reading found at the top level, for choosing the result.
struct XmlTopLevel {
  std::size_t items = 0;     // elements, declarations, texts and sections
  std::size_t elements = 0;  // elements and declarations
  bool firstIsDeclaration = false;
};

// Reads `text` (not empty) and reports it to `builder`. An error stops the
// reading at once; `result` then tells it, as for ParseXmlText, and the
// builder has seen only what came before it. A reading that ends with a
// warning has reported the whole document.
XmlTopLevel ReadXmlText(WStringView text, IXmlBuilder& builder, XmlParseResult& result);

// Line and column, as XmlParseResult gives them, of the place `at` in `text`.
void LocateInXmlText(WStringView text, std::size_t at, XmlParseResult& result);

}  // namespace NScrivolt
