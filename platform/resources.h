// String resources: the texts a module carries, looked up by id.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// A module that holds string resources. On Windows a module instance handle;
// on POSIX a pointer to a StringTable (platform/posix/string_table.h).
using ModuleHandle = const void*;

// The program's own module, which holds the built-in English texts.
ModuleHandle ExecutableModule();

// One built-in text of the program.
struct BuiltInString {
  std::uint32_t id;
  const WChar* text;
};

// Hands over the built-in texts, which the layers above own. On POSIX the
// executable module serves them from then on; on Windows they are the
// program's string-table resource already and the call changes nothing.
void InstallBuiltInStrings(const BuiltInString* entries, std::size_t count);

// Copies the text of string `id` of `module` into `buffer`, cut to
// `bufferSize - 1` units and terminated by a zero; returns the number of units
// copied, 0 when the module has no such string.
int LoadStringResource(ModuleHandle module, std::uint32_t id, WChar* buffer, int bufferSize);

}  // namespace NScrivolt::Platform
