// Folders: the system's application-data folder and making a folder.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

// Whose application-data folder: the user's roaming one, or the one shared
// by all users.
enum class FolderScope { PerUser, AllUsers };

// The application-data folder of `scope`, not created when missing. False
// when the system has none; POSIX has none, settings live only on Windows.
bool ApplicationDataFolder(FolderScope scope, WString& folder);

// Makes the folder at `path`, one level, with default rights. False when it
// cannot be made (an existing one included).
bool CreateFolder(const WString& path);

}  // namespace NScrivolt::Platform
