#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/paths.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

namespace {

constexpr size_t kLargestTransfer = size_t(1) << 30;
constexpr char kTemporaryName[] = ".scrivolt-XXXXXX";

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), std::min(bytes.size(), kLargestTransfer));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(size_t(count));
  }
  return true;
}

// A symbolic link is written through, as opening it for writing would.
std::string WriteTarget(const std::string& path) {
  struct stat info;
  if (lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
  std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
  return real ? std::string(real.get()) : path;
}

std::string FolderWithSeparator(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// An existing target keeps its permission bits; a new one gets what a plain
// create would give it.
mode_t ModeFor(const struct stat* existing) {
  if (existing != nullptr) return existing->st_mode & 07777;
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

bool FileExists(const WString& path) {
  return IsWholePath(path) && access(WideToUtf8(path).c_str(), F_OK) == 0;
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
  const int fd = open(WideToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC);
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

// --- CFileReplacement -------------------------------------------------------------

struct CFileReplacement::CState {
  CState() = default;
  CState(const CState&) = delete;
  CState& operator=(const CState&) = delete;
  ~CState() {
    if (fd >= 0) close(fd);
    if (!temporary.empty()) unlink(temporary.c_str());
  }

  int fd = -1;
  std::string target;
  std::string temporary;  // empty once renamed, or when none was made
  bool failed = false;    // a write failed
};

CFileReplacement::CFileReplacement() = default;

CFileReplacement::~CFileReplacement() = default;

bool CFileReplacement::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  auto state = std::make_unique<CState>();
  state->target = WriteTarget(WideToUtf8(path));
  struct stat info;
  const bool exists = stat(state->target.c_str(), &info) == 0;
  if (exists && (S_ISDIR(info.st_mode) || access(state->target.c_str(), W_OK) != 0)) return false;
  std::string temporary = FolderWithSeparator(state->target) + kTemporaryName;
  state->fd = mkstemp(&temporary[0]);
  if (state->fd < 0) return false;
  state->temporary = std::move(temporary);
  if (fchmod(state->fd, ModeFor(exists ? &info : nullptr)) != 0) return false;
  state_ = std::move(state);
  return true;
}

bool CFileReplacement::Write(std::string_view bytes) {
  if (!state_ || state_->failed) return false;
  state_->failed = !WriteAll(state_->fd, bytes);
  return !state_->failed;
}

bool CFileReplacement::Commit() {
  if (!state_) return false;
  std::unique_ptr<CState> state = std::move(state_);
  const bool closed = close(std::exchange(state->fd, -1)) == 0;
  if (!closed || state->failed || rename(state->temporary.c_str(), state->target.c_str()) != 0) return false;
  state->temporary.clear();
  return true;
}

}  // namespace NScrivolt::Platform
