#include "platform/folders.h"

#include <sys/stat.h>

#include "platform/paths.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

bool ApplicationDataFolder(FolderScope, WString& folder) {
  folder.clear();
  return false;
}

bool CreateFolder(const WString& path) {
  return IsWholePath(path) && mkdir(WideToUtf8(path).c_str(), 0777) == 0;
}

}  // namespace NScrivolt::Platform
