#include "text/digit_set.h"

namespace NScrivolt {

int CDigitSet::ValueOf(WChar c) const {
  const WChar key = caseSensitive ? c : LowerAscii(c);
  const size_t found = digits.find(key);
  return found == WString::npos ? -1 : int(found);
}

const CDigitSet& DecimalDigits() {
  static const CDigitSet set{u"0123456789", true};
  return set;
}

const CDigitSet& HexDigits() {
  static const CDigitSet set{u"0123456789abcdef", false};
  return set;
}

}  // namespace NScrivolt
