#include "platform/error_text.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

std::uint32_t LastErrorCode() { return GetLastError(); }

bool SystemErrorDescription(std::uint32_t code, WString& description) {
  wchar_t* buffer = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<wchar_t*>(&buffer), 0,
      nullptr);
  if (length == 0 || buffer == nullptr) return false;
  description.assign(FromWin(buffer), length);
  LocalFree(buffer);
  return true;
}

}  // namespace NScrivolt::Platform
