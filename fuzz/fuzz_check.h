// What the codec fuzz targets share: a check that stops the run, and the
// fuzz input as wide text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "engine/params/param.h"
#include "text/base/utf8.h"

namespace NScrivolt {

inline void Check(bool condition) {
  if (!condition) std::abort();
}

inline WString FuzzText(const std::uint8_t* data, std::size_t size) {
  return Utf8ToWide(std::string_view(reinterpret_cast<const char*>(data), size));
}

// The values of a two-level tree (records of fields), for comparing trees.
inline std::vector<std::vector<WString>> Records(const CParam& records) {
  std::vector<std::vector<WString>> result;
  for (const CParam* record : records.ListChildren()) {
    std::vector<WString>& fields = result.emplace_back();
    for (const CParam* field : record->ListChildren()) fields.push_back(field->GetValue());
  }
  return result;
}

}  // namespace NScrivolt
