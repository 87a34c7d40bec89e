#include "ui/win32/cur_dir_changer.h"

#include <windows.h>

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Ui {
namespace {

constexpr DWORD kFirstBufferSize = 260;

// The current directory, read into a buffer enlarged as long as it is too small.
bool ReadCurrentDirectory(WString& directory) {
  directory.assign(kFirstBufferSize, u'\0');
  for (;;) {
    const DWORD length = GetCurrentDirectoryW(DWORD(directory.size()), Platform::AsWin(&directory[0]));
    if (length == 0) return false;
    if (length < directory.size()) {
      directory.resize(length);
      return true;
    }
    directory.assign(length, u'\0');  // length counts the terminating zero here
  }
}

}  // namespace

CCurDirChanger::~CCurDirChanger() {
  if (hasRemembered_) SetCurrentDirectoryW(Platform::AsWin(remembered_));
}

bool CCurDirChanger::ChangeTo(const WString& folder) {
  if (!hasRemembered_) {
    if (!ReadCurrentDirectory(remembered_)) return false;
    hasRemembered_ = true;
  }
  return SetCurrentDirectoryW(Platform::AsWin(folder)) != FALSE;
}

bool CCurDirChanger::ChangeToFolderOf(const WString& filePath) {
  const size_t slash = filePath.rfind(u'\\');
  if (slash == WString::npos) return false;
  return ChangeTo(filePath.substr(0, slash));
}

}  // namespace NScrivolt::Ui
