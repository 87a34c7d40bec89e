#include "platform/resources.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

ModuleHandle ExecutableModule() { return GetModuleHandleW(nullptr); }

// The string-table resource generated from the same list holds them already.
void InstallBuiltInStrings(const BuiltInString*, std::size_t) {}

int LoadStringResource(ModuleHandle module, std::uint32_t id, WChar* buffer, int bufferSize) {
  if (module == nullptr) return 0;
  auto instance = static_cast<HINSTANCE>(const_cast<void*>(module));
  return LoadStringW(instance, id, AsWin(buffer), bufferSize);
}

}  // namespace NScrivolt::Platform
