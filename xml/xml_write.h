// Writing a tree of XmlTreeNode back as XML text.
#pragma once

#include "text/base/wide_string.h"
#include "xml/xml_tree.h"

namespace NScrivolt {

// Writes `node` and everything below it.
//
// Formatted, each tag, text and section stands on a line of its own, ended
// by a single LF and indented by one tab per level below the node written:
//
//   <a x="1">
//   \t<b>text</b>
//   \t<c/>
//   </a>
//
// An element whose whole content is one text is written on one line; one
// without content as "<c/>"; a declaration as "<?name attributes?>", its
// content not written. Texts and attribute values have "&", "<", ">", '"'
// and "'" replaced by their entities; sections are written as they were read.
// A nameless node writes only its content, at its own level. Attributes with
// an empty name are left out.
//
// Unformatted, the same markup is written without indents and line ends.
//
// Names are written as they stand. A name that would not read back as that
// name (one that begins with a quote or "?", an element name holding "/", or
// one that makes the tag read as a section, such as "PRE") gives text that
// reads back differently or not at all.
//
// Time and memory are linear in the output, and no stack depth grows with
// the nesting. Formatted output carries one tab per level on every line, so
// its length grows with the square of the nesting depth; deeply nested trees
// are better written unformatted.
WString WriteXmlText(const XmlTreeNode& node, bool formatted);

}  // namespace NScrivolt
