#include "platform/files.h"

#include <io.h>

#include <algorithm>

#include "platform/win32/wide_cast.h"
#include "text/wide_string.h"

namespace NScrivolt::Platform {

namespace {

constexpr DWORD kLargestWrite = 1u << 30;
constexpr int kTemporaryNameAttempts = 100;

class CFileHandle {
 public:
  explicit CFileHandle(HANDLE handle) : handle_(handle) {}
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;
  ~CFileHandle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  bool Close() {
    if (!IsOpen()) return true;
    const bool closed = CloseHandle(handle_) != 0;
    handle_ = INVALID_HANDLE_VALUE;
    return closed;
  }

 private:
  HANDLE handle_;
};

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD wanted = DWORD(std::min<size_t>(bytes.size(), kLargestWrite));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), wanted, &written, nullptr) || written != wanted) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

// The target's own folder: everything up to its last "\", "/" or drive colon.
WString FolderWithSeparator(const WString& path) {
  const size_t last = path.find_last_of(u"\\/:");
  return last == WString::npos ? WString() : path.substr(0, last + 1);
}

// A new file with a name of its own beside the target; CREATE_NEW never
// takes over a file that is already there.
HANDLE CreateTemporaryBeside(const WString& target, WString& temporary) {
  static unsigned counter = 0;
  const WString folder = FolderWithSeparator(target);
  const WString process = IntegerToText(GetCurrentProcessId());
  for (int attempt = 0; attempt < kTemporaryNameAttempts; ++attempt) {
    temporary = folder + u"~scrivolt-" + process + u"-" + IntegerToText(++counter) + u".tmp";
    const HANDLE file = CreateFileW(AsWin(temporary), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return file;
  }
  return INVALID_HANDLE_VALUE;
}

}  // namespace

bool FileExists(const WString& path) { return _waccess(AsWin(path), 0) == 0; }

bool ReadWholeFile(const WString& path, std::string& bytes) {
  bytes.clear();
  CFileHandle file(CreateFileW(AsWin(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) return false;
  LARGE_INTEGER size;
  if (!GetFileSizeEx(file.Get(), &size) || size.QuadPart > LONGLONG(MAXDWORD)) return false;
  const DWORD wanted = DWORD(size.QuadPart);
  if (wanted == 0) return true;
  bytes.resize(wanted);
  DWORD read = 0;
  if (!ReadFile(file.Get(), &bytes[0], wanted, &read, nullptr) || read != wanted) {
    std::string().swap(bytes);
    return false;
  }
  return true;
}

bool WriteWholeFile(const WString& path, std::string_view bytes) {
  const DWORD attributes = GetFileAttributesW(AsWin(path));
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    return false;
  }
  WString temporary;
  CFileHandle file(CreateTemporaryBeside(path, temporary));
  if (!file.IsOpen()) return false;
  bool ok = WriteAll(file.Get(), bytes);
  ok = file.Close() && ok;
  ok = ok && MoveFileExW(AsWin(temporary), AsWin(path), MOVEFILE_REPLACE_EXISTING) != 0;
  if (!ok) DeleteFileW(AsWin(temporary));
  return ok;
}

}  // namespace NScrivolt::Platform
