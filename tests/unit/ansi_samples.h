// Samples that depend on the ANSI code page the tests happen to run under.
#pragma once

#include <string>

#include "text/encoding.h"

namespace NScrivolt::Testing {

// Bytes that strict decoding in the current code page rejects. Windows-1252
// as Windows has it accepts every byte, so there may be none.
inline bool FindBytesInvalidInAnsi(std::string& sample) {
  for (const char* candidate : {"\x81", "\x8D\x8F", "\xFF", "\x82\x20", "\xC3\x28"}) {
    if (!DecodeBytes(candidate, EncodingType::Ascii, 0).ok) {
      sample = candidate;
      return true;
    }
  }
  return false;
}

// A lone surrogate is a character no code page holds, UTF-8 included.
inline const WString kNotInAnyCodePage = u"a\xD800z";

}  // namespace NScrivolt::Testing
