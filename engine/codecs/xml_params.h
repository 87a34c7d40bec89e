// The "xmltree" format: an XML document as a parameter tree, both ways.
//
// Layout under the target (decoding) or source (encoding) parameter, one
// level per element:
//   Name        the element's name (empty for the nameless top of a document
//               that holds more than one element, a declaration, top-level
//               text or a comment)
//   Value       the element's first text
//   Attibutes   decoding: one numbered child per attribute, each with Name
//               and Value; only when the element has attributes
//   SubTags     one numbered child per child element, in document order,
//               each laid out the same way; only when there are any
// Encoding looks its children up ignoring case and reads attributes from
// "attributes", so a decoded tree writes back its names, texts and sub-tags,
// and its attributes once they are moved to "attributes".
//
// Neither direction recurses: both walk the tree with a stack of their own,
// so no nesting depth of a document can exhaust the call stack.
#pragma once

#include <cstddef>

#include "engine/params/param.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

// Formatted XML indents each line by one tab per level, so its length grows
// with the square of the nesting; trees nested deeper than this are refused.
constexpr std::size_t kMaxEncodedXmlDepth = 1000;

// Reads `text` as an XML document into `target`, which the caller has
// cleared. Any problem the reader finds, warnings included, leaves the target
// empty and returns the detail line MsgInvalidXml with the line and column
// (line 0, column 0 for an empty text).
CErrorText DecodeXmlTree(WStringView text, CParam& target);

// Builds a document from `source` and writes it formatted (tabs, LF after
// every line, no declaration) into `output`. A source without a name writes
// only its content. Returns the error text: a detail line when sub-tags
// nest deeper than kMaxEncodedXmlDepth levels, and then `output` is untouched.
CErrorText EncodeXmlTree(const CParam& source, WString& output);

}  // namespace NScrivolt
