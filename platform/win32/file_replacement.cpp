// Writing a file so that its content is replaced and nothing else.
//
// Two routes:
// - Replace: the new content goes into a new file beside the target, which
//   takes the target's place at the end with ReplaceFileW, so the target
//   keeps its attributes, security descriptor and creation time, and holds
//   its old content or the new one at every moment.
// - InPlace: the whole text is collected first and written into the target
//   itself at the end. It is taken for devices (NUL, CON, ...) and pipes,
//   for a file with more than one hard link, and for a file whose folder
//   takes no new file. A disk file is given its new size before the first
//   byte is written, so a full disk leaves it as it was.
#include <windows.h>

#include <memory>
#include <utility>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/wide_cast.h"

namespace NScrivolt::Platform {

namespace {

constexpr int kTemporaryNameAttempts = 100;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

enum class Route { Replace, InPlace };

// The target's own folder: everything up to its last "\", "/" or drive colon.
WString FolderWithSeparator(const WString& path) {
  const size_t last = path.find_last_of(u"\\/:");
  return last == WString::npos ? WString() : path.substr(0, last + 1);
}

// A new file with a name of its own beside the target; CREATE_NEW never
// takes over a file that is already there. It may be deleted through its
// handle (see MarkForDeletion).
HANDLE CreateTemporaryBeside(const WString& target, WString& temporary) {
  static unsigned counter = 0;
  const WString folder = FolderWithSeparator(target);
  const WString process = IntegerToText(GetCurrentProcessId());
  for (int attempt = 0; attempt < kTemporaryNameAttempts; ++attempt) {
    temporary = folder + u"~scrivolt-" + process + u"-" + IntegerToText(++counter) + u".tmp";
    const HANDLE file = CreateFileW(AsWin(temporary), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return file;
  }
  return INVALID_HANDLE_VALUE;
}

// Marks an open file to be deleted when its last handle closes, or takes the
// mark back. While the new content is written the temporary file carries the
// mark, so a run that is killed, or ends in any other way before the
// replacement, leaves no file behind: the system closes the handle and the
// file goes with it.
bool MarkForDeletion(HANDLE file, bool deleteOnClose) {
  FILE_DISPOSITION_INFO disposition{};
  disposition.DeleteFile = deleteOnClose ? TRUE : FALSE;
  return SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

bool SetSize(HANDLE file, std::uint64_t size) {
  LARGE_INTEGER position;
  position.QuadPart = LONGLONG(size);
  return SetFilePointerEx(file, position, nullptr, FILE_BEGIN) && SetEndOfFile(file);
}

// Makes room for `size` bytes; when that fails the file gets its old size back.
bool Reserve(HANDLE file, std::uint64_t size) {
  LARGE_INTEGER old;
  if (!GetFileSizeEx(file, &old)) return false;
  if (size <= std::uint64_t(old.QuadPart) || SetSize(file, size)) return true;
  SetSize(file, std::uint64_t(old.QuadPart));
  return false;
}

}  // namespace

struct CFileReplacement::CState {
  CState() = default;
  CState(const CState&) = delete;
  CState& operator=(const CState&) = delete;
  ~CState() {
    file.Close();
    if (!temporary.empty()) DeleteFileW(AsWin(temporary));
  }

  bool StartReplacement() {
    WString name;
    file.Reset(CreateTemporaryBeside(target, name));
    if (!file.IsOpen()) return false;
    temporary = std::move(name);
    route = Route::Replace;
    markedForDeletion = MarkForDeletion(file.Get(), true);
    return true;
  }

  bool CommitReplacement() {
    if (markedForDeletion && !MarkForDeletion(file.Get(), false)) return false;
    if (!file.Close()) return false;
    const bool moved = existing ? ReplaceFileW(AsWin(target), AsWin(temporary), nullptr,
                                               REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0
                                : MoveFileExW(AsWin(temporary), AsWin(target), MOVEFILE_REPLACE_EXISTING) != 0;
    if (!moved) return false;
    temporary.clear();
    // ReplaceFileW keeps them on Windows; other implementations may not.
    if (existing && GetFileAttributesW(AsWin(target)) != attributes) SetFileAttributesW(AsWin(target), attributes);
    return true;
  }

  bool CommitInPlace() {
    if (!file.IsOpen()) {
      file.Reset(CreateFileW(AsWin(target), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    if (!file.IsOpen()) return false;
    const bool disk = GetFileType(file.Get()) == FILE_TYPE_DISK;
    if (disk && (!Reserve(file.Get(), pending.size()) || !SetFilePointerEx(file.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN))) {
      return false;
    }
    const bool written = WriteAll(file.Get(), pending) && (!disk || SetSize(file.Get(), pending.size()));
    return file.Close() && written;
  }

  Route route = Route::InPlace;
  CFileHandle file;     // Replace: the new file; InPlace: an open device
  WString target;
  WString temporary;    // empty once moved, or when none was made
  std::string pending;  // InPlace: everything written so far
  bool existing = false;
  bool markedForDeletion = false;  // Replace: the new file goes when its handle closes
  DWORD attributes = 0;  // of an existing target
  bool failed = false;  // a write failed
};

CFileReplacement::CFileReplacement() = default;

CFileReplacement::~CFileReplacement() = default;

// Opening the target tells what it is: a device or pipe, a disk file with
// its number of links, or nothing yet. A folder or a read-only file cannot
// be opened for writing.
bool CFileReplacement::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  auto state = std::make_unique<CState>();
  state->target = path;
  state->file.Reset(CreateFileW(AsWin(path), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!state->file.IsOpen()) {
    if (GetLastError() != ERROR_FILE_NOT_FOUND || !state->StartReplacement()) return false;
  } else if (GetFileType(state->file.Get()) == FILE_TYPE_DISK) {
    BY_HANDLE_FILE_INFORMATION information;
    const bool single = GetFileInformationByHandle(state->file.Get(), &information) && information.nNumberOfLinks == 1;
    state->file.Close();
    state->existing = true;
    state->attributes = GetFileAttributesW(AsWin(path));
    // Without a new file beside it, the file is written in place.
    if (single) static_cast<void>(state->StartReplacement());
  }
  state_ = std::move(state);
  return true;
}

bool CFileReplacement::Write(std::string_view bytes) {
  if (!state_ || state_->failed) return false;
  if (state_->route == Route::InPlace) {
    state_->pending.append(bytes);
    return true;
  }
  state_->failed = !WriteAll(state_->file.Get(), bytes);
  return !state_->failed;
}

bool CFileReplacement::Commit() {
  if (!state_) return false;
  std::unique_ptr<CState> state = std::move(state_);
  if (state->failed) return false;
  return state->route == Route::Replace ? state->CommitReplacement() : state->CommitInPlace();
}

bool CFileReplacement::WritesToNewFile() const { return state_ && state_->route == Route::Replace; }

bool CFileReplacement::TakeBack(std::string& bytes) {
  const std::unique_ptr<CState> state = std::move(state_);
  if (!state) return false;
  if (state->route == Route::InPlace) {
    bytes = std::move(state->pending);
    return true;
  }
  return ReadWhole(state->file.Get(), bytes);
}

}  // namespace NScrivolt::Platform
