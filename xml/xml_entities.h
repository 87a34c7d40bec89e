// Character entities, in both directions: "&amp;", "&lt;", "&gt;", "&quot;"
// and "&apos;", plus numeric references when reading.
#pragma once

#include <cstddef>

#include "text/base/wide_string.h"

namespace NScrivolt {

constexpr std::size_t kEntitiesDecoded = WStringView::npos;

// Appends `raw` to `out` with every reference replaced by its character: the
// five named entities (names compared ignoring case), "&#" decimal digits ";"
// and "&#x" (or "&#X") hexadecimal digits ";" up to U+10FFFF, code points
// above U+FFFF becoming a surrogate pair. Returns kEntitiesDecoded, or the
// offset in `raw` of the "&" that begins anything else.
std::size_t DecodeXmlEntities(WStringView raw, WString& out);

// Appends `text` to `out` with each of the five characters replaced by its
// entity; nothing else changes.
void AppendXmlEscaped(WStringView text, WString& out);

}  // namespace NScrivolt
