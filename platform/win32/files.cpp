#include "platform/files.h"

#include <io.h>

#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/wide_cast.h"
#include "text/base/wide_string.h"

namespace NScrivolt::Platform {

bool IsStandardStream(WStringView) { return false; }

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

}  // namespace NScrivolt::Platform
