#include "app/services/install_path.h"

#include <windows.h>

#include "platform/win32/wide_cast.h"

namespace NScrivolt {

namespace {

// Room for a path of MAX_PATH characters and its terminating NUL.
constexpr DWORD kPathBufferSize = MAX_PATH + 1;

}  // namespace

WString ExecutablePath() {
  wchar_t buffer[kPathBufferSize] = {};
  const DWORD length = GetModuleFileNameW(nullptr, buffer, kPathBufferSize - 1);
  return WString(Platform::FromWin(buffer), length);
}

WString InstallPath() {
  const WString path = ExecutablePath();
  const size_t slash = path.rfind(u'\\');
  return slash == WString::npos ? WString() : path.substr(0, slash);
}

}  // namespace NScrivolt
