// The "json" format: a JSON document as a parameter tree, both ways, and the
// "jsonstring" format: text as the inside of a JSON string literal.
//
// Layout under the target (decoding) or source (encoding) parameter:
//   object   one child per member, in document order, named by the member's
//            key; a key given twice keeps the later value in the earlier
//            place (keys that differ only in the case of A-Z are one key,
//            as everywhere in the parameter tree)
//   array    one numbered child per element, in order
//   string   the value, unescaped
//   number, true, false
//            the value is the literal as written, kept as ValueKind::Literal
//   null     an empty value of ValueKind::Null
//   {} []    no value and no children, of ValueKind::EmptyObject / EmptyArray
// The top-level value maps onto the parameter itself.
//
// Encoding writes a node with children as an array when every child is
// numbered, and as an object otherwise (a numbered child then writes its
// automatic name as its key); the value of a node with children is not
// written, since JSON has no place for it. A node without children is a
// string holding its value, unless its kind says it is still the literal,
// null or empty collection that decoding gave it.
//
// Neither direction recurses: both walk with a stack of their own, so no
// nesting depth of a document can exhaust the call stack.
#pragma once

#include <cstddef>

#include "engine/params/param.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

// Formatted JSON indents each line by two spaces per level, so its length
// grows with the square of the nesting; trees nested deeper than this are
// refused.
constexpr std::size_t kMaxEncodedJsonDepth = 1000;

// Reads `text` as one JSON document into `target`, which the caller has
// cleared. A malformed document leaves the target empty and returns the
// detail line MsgInvalidJson with the line and column of the first fault
// (1-based; columns count characters).
CErrorText DecodeJsonTree(WStringView text, CParam& target);

// Writes `source` as a JSON document indented by two spaces per level, with
// LF line breaks and none after the last line, into `output`. Returns the
// error text: a detail line when children nest deeper than
// kMaxEncodedJsonDepth levels, and then `output` is untouched.
CErrorText EncodeJsonTree(const CParam& source, WString& output);

// The inside of a string literal: `"` and `\` escaped with a backslash,
// control characters and unpaired surrogates as \u followed by four hex digits.
WString JsonStringEncode(WStringView text);
// Undoes every escape of a string literal, joining surrogate pairs; a
// backslash that starts no valid escape is kept as written.
WString JsonStringDecode(WStringView text);

}  // namespace NScrivolt
