// The two shared digit sets used when numbers are read from text.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt {

struct CDigitSet {
  WString digits;
  bool caseSensitive;

  // The digit's value, or -1 when the unit is not one of the digits.
  int ValueOf(WChar c) const;
};

// "0123456789", matched case-sensitively.
const CDigitSet& DecimalDigits();
// "0123456789abcdef", matched after lower-casing the unit.
const CDigitSet& HexDigits();

}  // namespace NScrivolt
