// Path text: full paths and the folder part. On Windows only "\" separates
// (full paths come back with "\" alone anyway); on POSIX "\" and "/" both do.
#pragma once

#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

bool IsPathSeparator(WChar c);

// The system reads a path only up to its first NUL character, so a path that
// holds one would silently name another file. Such a path names no file: the
// file calls here fail on it.
inline bool IsWholePath(WStringView path) { return path.find(u'\0') == WStringView::npos; }

// The absolute, normalised form of `path`, relative paths taken against the
// current directory. The file need not exist. False when the path is empty,
// holds a NUL, or the system cannot make it absolute.
//
// POSIX, lexically (links are not followed): every separator becomes "/",
// repeated separators are one, "." parts go, ".." removes the part before it
// (nothing above the root), and a trailing separator stays.
bool FullPath(const WString& path, WString& full);

// Everything before the last separator; empty when there is none. On POSIX a
// path whose only separator is its first character gives "/".
WString FolderPart(WStringView path);

}  // namespace NScrivolt::Platform
