// Conversions between text and parameter trees for the formats "urlparams",
// "csvline", "csvlines", "tsvline" and "tsvlines" ("xmltree" is in
// engine/codecs/xml_params.h). Decoding appends numbered children to a target that
// the caller has cleared; encoding reads the children of a source in number
// order. None of them can fail, and all take time linear in their text.
//
// Layouts:
//   urlparams           one child per parameter, with the children "Name" and "Value"
//   csvline, tsvline    one child per field, the field being its value
//   csvlines, tsvlines  one child per record, with one child per field
#pragma once

#include "engine/codecs/decoded_text.h"
#include "engine/params/param.h"
#include "text/base/wide_string.h"

namespace NScrivolt {

// Pieces between "&"; the first "=" of a piece ends the name. Percent forms
// are kept as they are.
void DecodeUrlParams(WStringView text, CParam& target);
// name=value pairs joined by "&", each side URL-encoded.
WString EncodeUrlParams(const CParam& source);

// The first record of the text; anything after its line end is ignored.
void DecodeCsvLine(WStringView text, CParam& target);
// Every record; a line break after the last one adds nothing, an empty text
// gives no record. `owner`, when given, holds `text` and is told after each
// record how far the decoding has come.
void DecodeCsvLines(WStringView text, CParam& target, CDecodedText* owner);
inline void DecodeCsvLines(WStringView text, CParam& target) { DecodeCsvLines(text, target, nullptr); }
// Fields encoded one by one and joined by ",".
WString EncodeCsvLine(const CParam& source);
// Records joined by CR LF, none after the last.
WString EncodeCsvLines(const CParam& source);

// Fields between tabs, without any quoting.
void DecodeTsvLine(WStringView text, CParam& target);
// Lines ended by CR LF, LF or CR; a line break at the end gives a last
// record with one empty field. `owner` as for DecodeCsvLines.
void DecodeTsvLines(WStringView text, CParam& target, CDecodedText* owner);
inline void DecodeTsvLines(WStringView text, CParam& target) { DecodeTsvLines(text, target, nullptr); }
// Fields, their tabs made 8 spaces, joined by tabs.
WString EncodeTsvLine(const CParam& source);
// Records joined by CR LF, none after the last.
WString EncodeTsvLines(const CParam& source);

}  // namespace NScrivolt
