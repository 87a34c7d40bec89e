// Reading an XML document from wide text into a tree of XmlTreeNode.
#pragma once

#include <cstddef>

#include "text/base/wide_string.h"
#include "xml/xml_tree.h"

namespace NScrivolt {

enum class XmlParseError {
  None = 0,
  UnmatchedEndTagWarning = 1,
  NoXmlTagWarning = 2,
  NoXmlData = 3,
  MissingStartTagName = 4,
  MissingEndTagName = 5,
  UnmatchedEndTag = 6,
  UnmatchedClearTagEnd = 7,
  UnexpectedToken = 8,
  NoElementsFound = 9,
  FileNotFound = 10,
  FirstTagNotFound = 11,
  UnknownCharacterEntity = 12,
  CharacterCodeAbove255 = 13,
  WideMultiByteConversion = 14,
  FileNotWritable = 15,
  FileNotWritten = 16,
  Base64LengthNotMultipleOf4 = 17,
  Base64IllegalCharacter = 18,
  Base64Truncated = 19,
  Base64OutputTooSmall = 20,
};

// The fixed text of a code, such as "Error: Unmatched end tag"; empty for a
// value outside the list.
WStringView XmlParseErrorText(XmlParseError code);

// Codes 1 and 2 are warnings: the tree is still returned.
constexpr bool IsXmlParseWarning(XmlParseError code) {
  return code == XmlParseError::UnmatchedEndTagWarning || code == XmlParseError::NoXmlTagWarning;
}

struct XmlParseResult {
  XmlParseError error = XmlParseError::None;
  std::size_t line = 0;    // 1-based, 0 only for an empty text
  std::size_t column = 0;  // 1-based, counted in UTF-16 units
};

// Reads `text` as an XML document.
//
// The result is the document's single element when the top level holds
// exactly that one element and nothing else; otherwise it is a nameless node
// holding the top level in order (declarations, elements, texts, sections).
// A document holding only a declaration keeps it under the nameless node.
// With a non-empty `requiredTopTag` the result is instead the first top-level
// element of that name (ignoring case), and error 11 when there is none.
// Errors other than codes 0, 1 and 2 return an empty handle.
//
// Only the first problem is reported: an error stops reading at once; of
// several warnings the first is kept. Positions count lines from 1, each LF
// starting a new line, and columns from 1, every other unit (CR included)
// taking one column. The reported place is:
//   - error 4, 5 and 8: the start of the token that stands where a name, a
//     ">" or an attribute was expected, or the end of the text when the text
//     ends there after "<", "<?" or "</";
//   - error 6 and warning 1 for an end tag: the "<" of that end tag;
//   - warning 1 because the text ends inside an element or inside a start
//     tag: the end of the text (the column after the last character);
//   - error 7: the "<" of the section's open tag;
//   - error 12: the "&" that begins the unknown reference;
//   - warning 2 and error 11: the end of the text;
//   - error 9 (the text is empty): line 0, column 0.
// Code 3 is never given: an empty text is error 9, and a text of white space
// only is warning 2.
//
// Reading takes time linear in the length of the text and no stack depth that
// grows with the nesting of the document.
XmlTreeNode ParseXmlText(WStringView text, WStringView requiredTopTag, XmlParseResult& result);

}  // namespace NScrivolt
