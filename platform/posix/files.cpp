#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

#include "platform/paths.h"
#include "platform/posix/descriptor_io.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

bool IsStandardStream(WStringView path) { return path == u"-"; }

bool FileExists(const WString& path) {
  return IsStandardStream(path) || (IsWholePath(path) && access(WideToUtf8(path).c_str(), F_OK) == 0);
}

// --- CFileReader ----------------------------------------------------------------

struct CFileReader::CState {
  CState(const CState&) = delete;
  CState& operator=(const CState&) = delete;
  explicit CState(int descriptor) : fd(descriptor) {}
  ~CState() { close(fd); }

  int fd;
  std::uint64_t size = 0;
};

CFileReader::CFileReader() = default;

CFileReader::~CFileReader() = default;

// Only a regular file has a size worth hinting; pipes and the files of /proc
// report 0 or nothing useful.
bool CFileReader::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  const int fd = IsStandardStream(path) ? dup(STDIN_FILENO) : open(WideToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  auto state = std::make_unique<CState>(fd);
  struct stat info;
  if (fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) return false;
  if (S_ISREG(info.st_mode)) state->size = std::uint64_t(info.st_size);
  state_ = std::move(state);
  return true;
}

std::uint64_t CFileReader::SizeHint() const { return state_ ? state_->size : 0; }

bool CFileReader::Read(char* buffer, std::size_t capacity, std::size_t& count) {
  count = 0;
  if (!state_) return false;
  for (;;) {
    const ssize_t read = ::read(state_->fd, buffer, std::min(capacity, kLargestTransfer));
    if (read < 0 && errno == EINTR) continue;
    if (read < 0) return false;
    count = size_t(read);
    return true;
  }
}

}  // namespace NScrivolt::Platform
