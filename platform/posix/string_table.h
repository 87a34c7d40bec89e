// On POSIX a "module" of string resources is a table compiled into the program.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

struct StringTableEntry {
  std::uint32_t id;
  const WChar* text;
};

// Entries sorted by id.
struct StringTable {
  const StringTableEntry* entries;
  std::size_t count;
};

}  // namespace NScrivolt::Platform
