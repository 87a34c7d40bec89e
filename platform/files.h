// Whole files: existence, reading in one piece, and writing in one piece
// without ever leaving a half-written file. Paths are wide text; POSIX turns
// them into UTF-8 at the call.
#pragma once

#include <string>
#include <string_view>

#include "text/wide_string.h"

namespace NScrivolt::Platform {

// Something exists at `path`: a file or a folder.
bool FileExists(const WString& path);

// Replaces `bytes` by the whole content of the file. False, with `bytes`
// empty, when the file cannot be opened, sized or read; a folder is not a file.
bool ReadWholeFile(const WString& path, std::string& bytes);

// Writes `bytes` to a new temporary file in the target's folder and renames
// it over the target. On failure the target is as it was and the temporary
// file is gone. A read-only target is not replaced.
bool WriteWholeFile(const WString& path, std::string_view bytes);

}  // namespace NScrivolt::Platform
