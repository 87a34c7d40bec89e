// The format keywords of encode and decode and the conversion behind each.
#pragma once

#include <cstddef>

#include "engine/codecs/decoded_text.h"
#include "engine/params/param.h"
#include "text/base/wide_string.h"
#include "text/error_text.h"

namespace NScrivolt {

// A format converts between two texts, or between a text and the
// sub-parameters of a parameter; exactly one pair of operations is set.
struct CCodecFormat {
  WStringView keyword;
  WString (*encodeText)(WStringView text);
  WString (*decodeText)(WStringView text);
  // Structured formats: return the error text; `output` is appended to.
  CErrorText (*encodeTree)(const CParam& source, WString& output);
  CErrorText (*decodeTree)(CDecodedText& text, CParam& target);
  // Where a text format has it: encodeText appending to `output` in place.
  // It encodes each unit on its own, so a text handed over in pieces cut
  // anywhere but inside a surrogate pair comes out as the whole text would.
  void (*appendEncodedText)(WStringView text, WString& output) = nullptr;
  // Where a text format has it: appendEncodedText for a text whose units
  // are all below 0x100, held one byte each (a narrow parameter value).
  void (*appendEncodedNarrow)(const unsigned char* units, std::size_t count, WString& output) = nullptr;

  bool IsStructured() const { return encodeTree != nullptr; }
};

// The format whose keyword equals `keyword` ignoring case, trying them in a
// fixed order; null when there is none.
const CCodecFormat* FindCodecFormat(WStringView keyword);

}  // namespace NScrivolt
