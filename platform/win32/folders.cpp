#include "platform/folders.h"

#include <shlobj.h>

#include "platform/paths.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

bool ApplicationDataFolder(FolderScope scope, WString& folder) {
  folder.clear();
  wchar_t buffer[MAX_PATH + 1] = {};
  const int id = scope == FolderScope::PerUser ? CSIDL_APPDATA : CSIDL_COMMON_APPDATA;
  if (!SHGetSpecialFolderPathW(nullptr, buffer, id, FALSE)) return false;
  folder = FromWin(buffer);
  return true;
}

bool CreateFolder(const WString& path) {
  return IsWholePath(path) && CreateDirectoryW(AsWin(path), nullptr) != FALSE;
}

}  // namespace NScrivolt::Platform
