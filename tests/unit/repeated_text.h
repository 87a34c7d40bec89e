// Large inputs for scale tests: one piece of text repeated.
#pragma once

#include <cstddef>

#include "text/base/wide_string.h"

namespace NScrivolt::Testing {

inline constexpr std::size_t kDeepNesting = 1000000;
inline constexpr std::size_t kHugeLength = 50 * 1024 * 1024;

inline WString Repeat(WStringView piece, std::size_t count) {
  WString text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text.append(piece);
  return text;
}

}  // namespace NScrivolt::Testing
