#include "platform/current_directory.h"

#include "platform/paths.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

// Asks for the size first; asks again should the directory change between the calls.
bool CurrentDirectory(WString& directory) {
  for (;;) {
    const DWORD needed = GetCurrentDirectoryW(0, nullptr);
    if (needed == 0) return false;
    WString buffer(needed, u'\0');
    const DWORD length = GetCurrentDirectoryW(needed, AsWin(&buffer[0]));
    if (length == 0) return false;
    if (length < needed) {
      buffer.resize(length);
      directory = std::move(buffer);
      return true;
    }
  }
}

bool ChangeCurrentDirectory(const WString& directory) {
  return IsWholePath(directory) && SetCurrentDirectoryW(AsWin(directory)) != 0;
}

}  // namespace NScrivolt::Platform
