#include "platform/win32/standard_error.h"

#include <windows.h>

#include <string>

#include "text/base/utf8.h"

namespace NScrivolt::Platform {

void WriteMessageToStandardError(WStringView text, WStringView title) {
  const HANDLE destination = GetStdHandle(STD_ERROR_HANDLE);
  if (destination == nullptr || destination == INVALID_HANDLE_VALUE) return;
  const std::string shown = WideToUtf8(title) + "\n" + WideToUtf8(text) + "\n";
  DWORD written = 0;
  WriteFile(destination, shown.data(), DWORD(shown.size()), &written, nullptr);
}

}  // namespace NScrivolt::Platform
