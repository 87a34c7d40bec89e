// Bytes written out for the messages of failed comparisons.
#pragma once

#include <string>
#include <string_view>

namespace NScrivolt::Testing {

// Bytes as "EF BB BF", so a failed comparison shows what was there.
inline std::string Hex(std::string_view bytes) {
  static const char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (const char c : bytes) {
    if (!hex.empty()) hex += ' ';
    hex += kDigits[(static_cast<unsigned char>(c) >> 4) & 0xF];
    hex += kDigits[static_cast<unsigned char>(c) & 0xF];
  }
  return hex;
}

}  // namespace NScrivolt::Testing
