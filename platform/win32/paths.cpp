#include "platform/paths.h"

#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

namespace {

constexpr DWORD kFirstBufferSize = MAX_PATH;

}  // namespace

bool IsPathSeparator(WChar c) { return c == u'\\'; }

// First with a buffer of MAX_PATH units, then once more with the size the
// system asked for.
bool FullPath(const WString& path, WString& full) {
  if (!IsWholePath(path)) return false;
  WString buffer(kFirstBufferSize, u'\0');
  DWORD length = GetFullPathNameW(AsWin(path), DWORD(buffer.size()), AsWin(&buffer[0]), nullptr);
  if (length >= buffer.size()) {
    buffer.assign(length, u'\0');
    length = GetFullPathNameW(AsWin(path), DWORD(buffer.size()), AsWin(&buffer[0]), nullptr);
    if (length >= buffer.size()) return false;
  }
  if (length == 0) return false;
  buffer.resize(length);
  full = std::move(buffer);
  return true;
}

WString FolderPart(WStringView path) {
  const size_t last = path.find_last_of(u'\\');
  return last == WStringView::npos ? WString() : WString(path.substr(0, last));
}

}  // namespace NScrivolt::Platform
