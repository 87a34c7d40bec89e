#include "ui/win32/file_finder.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {

CFileFinder::CFileFinder(const WString& folder, const WString& pattern) : search_(folder) {
  if (!search_.empty() && search_.back() != u'\\' && search_.back() != u'/') search_ += u'\\';
  search_ += pattern;
}

// Moves to the next entry of the folder; records a failure, but not the end.
bool CFileFinder::Advance() {
  if (!started_) {
    started_ = true;
    find_ = FindFirstFileW(Platform::AsWin(search_), &data_);
    if (find_.IsValid()) return true;
  } else {
    if (!find_.IsValid()) return false;  // ended or failed before
    if (FindNextFileW(find_.Get(), &data_)) return true;
  }
  const DWORD error = GetLastError();
  if (error != ERROR_FILE_NOT_FOUND && error != ERROR_NO_MORE_FILES) error_ = error;
  find_.Reset();
  return false;
}

bool CFileFinder::Next(WString& name) {
  while (Advance()) {
    if (data_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
    name = Platform::FromWin(data_.cFileName);
    return true;
  }
  return false;
}

}  // namespace NScrivolt::Ui
