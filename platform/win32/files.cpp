#include "platform/files.h"

#include <io.h>

#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "platform/win32/wide_cast.h"
#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

namespace {

constexpr DWORD kLargestTransfer = 1u << 30;
constexpr int kTemporaryNameAttempts = 100;

class CFileHandle {
 public:
  explicit CFileHandle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;
  ~CFileHandle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  void Reset(HANDLE handle) {
    Close();
    handle_ = handle;
  }
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
    const DWORD wanted = DWORD(std::min<size_t>(bytes.size(), kLargestTransfer));
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

bool FileExists(const WString& path) { return IsWholePath(path) && _waccess(AsWin(path), 0) == 0; }

// --- CFileReader ----------------------------------------------------------------

struct CFileReader::CState {
  CFileHandle file;
  std::uint64_t size = 0;
};

CFileReader::CFileReader() = default;

CFileReader::~CFileReader() = default;

// A folder cannot be opened this way (that would take FILE_FLAG_BACKUP_SEMANTICS).
bool CFileReader::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  auto state = std::make_unique<CState>();
  state->file.Reset(CreateFileW(AsWin(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  LARGE_INTEGER size;
  if (!state->file.IsOpen() || !GetFileSizeEx(state->file.Get(), &size)) return false;
  state->size = std::uint64_t(size.QuadPart);
  state_ = std::move(state);
  return true;
}

std::uint64_t CFileReader::SizeHint() const { return state_ ? state_->size : 0; }

bool CFileReader::Read(char* buffer, std::size_t capacity, std::size_t& count) {
  count = 0;
  DWORD read = 0;
  if (!state_ || !ReadFile(state_->file.Get(), buffer, DWORD(std::min<size_t>(capacity, kLargestTransfer)), &read,
                           nullptr)) {
    return false;
  }
  count = read;
  return true;
}

// --- CFileReplacement -------------------------------------------------------------

struct CFileReplacement::CState {
  CState() = default;
  CState(const CState&) = delete;
  CState& operator=(const CState&) = delete;
  ~CState() {
    file.Close();
    if (!temporary.empty()) DeleteFileW(AsWin(temporary));
  }

  CFileHandle file;
  WString target;
  WString temporary;    // empty once moved, or when none was made
  bool failed = false;  // a write failed
};

CFileReplacement::CFileReplacement() = default;

CFileReplacement::~CFileReplacement() = default;

bool CFileReplacement::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  const DWORD attributes = GetFileAttributesW(AsWin(path));
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
    return false;
  }
  auto state = std::make_unique<CState>();
  state->target = path;
  WString temporary;
  state->file.Reset(CreateTemporaryBeside(path, temporary));
  if (!state->file.IsOpen()) return false;
  state->temporary = std::move(temporary);
  state_ = std::move(state);
  return true;
}

bool CFileReplacement::Write(std::string_view bytes) {
  if (!state_ || state_->failed) return false;
  state_->failed = !WriteAll(state_->file.Get(), bytes);
  return !state_->failed;
}

bool CFileReplacement::Commit() {
  if (!state_) return false;
  std::unique_ptr<CState> state = std::move(state_);
  const bool closed = state->file.Close();
  if (!closed || state->failed ||
      MoveFileExW(AsWin(state->temporary), AsWin(state->target), MOVEFILE_REPLACE_EXISTING) == 0) {
    return false;
  }
  state->temporary.clear();
  return true;
}

}  // namespace NScrivolt::Platform
