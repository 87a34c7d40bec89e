// Writing a file so that its content is replaced and nothing else.
//
// Two routes:
// - Replace: the new content goes into a new file in the target's folder
//   (unnamed, O_TMPFILE, where the file system allows it; otherwise under a
//   temporary name), which takes the target's permission bits, owner and
//   group and is moved over the target at the end. The target holds its old
//   content or the new one at every moment, even if the process is killed.
// - InPlace: the whole text is collected first and written into the target
//   itself at the end. It is taken for whatever is not an ordinary file
//   (devices, pipes, terminals), for paths under /dev and /proc, for a file
//   with more than one hard link, and for a file whose folder takes no new
//   file or whose owner a new file could not be given. An ordinary file
//   reserves its new size before the first byte is written, so running out
//   of space or over a file-size limit leaves it as it was.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/posix/descriptor_io.h"
#include "text/base/utf8.h"

namespace NScrivolt::Platform {

namespace {

constexpr int kMaxLinkHops = 40;
constexpr int kTemporaryNameAttempts = 100;

enum class Route { Replace, InPlace };

std::string FolderWithSeparator(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string FolderOf(const std::string& path) {
  const std::string folder = FolderWithSeparator(path);
  return folder.empty() ? std::string(".") : folder;
}

bool IsSystemPath(const std::string& path) { return path.rfind("/dev/", 0) == 0 || path.rfind("/proc/", 0) == 0; }

// The file that symbolic links at `path` lead to, also when it does not
// exist yet. A link's text is taken from the link's own folder. False for a
// loop of links.
bool FollowLinks(std::string path, std::string& target) {
  for (int hop = 0; hop < kMaxLinkHops; ++hop) {
    struct stat info;
    if (lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) {
      target = std::move(path);
      return true;
    }
    std::string link(PATH_MAX, '\0');
    const ssize_t length = readlink(path.c_str(), &link[0], link.size());
    if (length <= 0 || std::size_t(length) >= link.size()) return false;
    link.resize(std::size_t(length));
    path = link[0] == '/' ? link : FolderWithSeparator(path) + link;
  }
  return false;
}

// An existing ordinary file as a path of its own, without links.
std::string RealPath(const std::string& path) {
  std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
  return real ? std::string(real.get()) : std::string();
}

mode_t DefaultMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

// Gives the new file the owner, group and permission bits the old one had.
// The owner comes first: changing it clears the set-id bits.
bool TakeOverIdentity(int fd, const struct stat* existing) {
  if (existing == nullptr) return fchmod(fd, DefaultMode()) == 0;
  struct stat created;
  if (fstat(fd, &created) != 0) return false;
  if ((created.st_uid != existing->st_uid || created.st_gid != existing->st_gid) &&
      fchown(fd, existing->st_uid, existing->st_gid) != 0) {
    return false;
  }
  return fchmod(fd, existing->st_mode & 07777) == 0;
}

// Makes room for `size` bytes from the start of the file; when that fails
// (no space, a file-size limit) the file gets its old size back.
bool Reserve(int fd, off_t size, off_t oldSize) {
  if (size == 0 || fallocate(fd, 0, 0, size) == 0 || errno == EOPNOTSUPP) return true;
  const bool restored = ftruncate(fd, oldSize) == 0;
  static_cast<void>(restored);
  return false;
}

std::string TemporaryName(const std::string& target, int attempt) {
  return FolderWithSeparator(target) + ".scrivolt-" + std::to_string(getpid()) + "-" + std::to_string(attempt);
}

}  // namespace

struct CFileReplacement::CState {
  CState() = default;
  CState(const CState&) = delete;
  CState& operator=(const CState&) = delete;
  ~CState() {
    if (fd >= 0) close(fd);
    if (!temporary.empty()) unlink(temporary.c_str());
  }

  // Replace: makes the new file; false when the folder takes none or the
  // new file cannot have the old one's owner.
  bool StartReplacement(const struct stat* existing) {
    fd = open(FolderOf(target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (fd < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) CreateNamedTemporary();
    if (fd < 0 || !TakeOverIdentity(fd, existing)) return false;
    route = Route::Replace;
    return true;
  }

  void CreateNamedTemporary() {
    for (int attempt = 0; attempt < kTemporaryNameAttempts && fd < 0; ++attempt) {
      std::string name = TemporaryName(target, attempt);
      fd = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
      if (fd >= 0) temporary = std::move(name);
      if (fd < 0 && errno != EEXIST) return;
    }
  }

  // Gives the finished unnamed file the target's name: directly when there
  // is no target, else through a temporary name that is moved over it.
  bool LinkUnnamed() {
    const std::string self = "/proc/self/fd/" + std::to_string(fd);
    if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, target.c_str(), AT_SYMLINK_FOLLOW) == 0) return true;
    if (errno != EEXIST) return false;
    for (int attempt = 0; attempt < kTemporaryNameAttempts; ++attempt) {
      std::string name = TemporaryName(target, attempt);
      if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
        temporary = std::move(name);
        return MoveTemporary();
      }
      if (errno != EEXIST) return false;
    }
    return false;
  }

  bool MoveTemporary() {
    if (rename(temporary.c_str(), target.c_str()) != 0) return false;
    temporary.clear();
    return true;
  }

  bool CommitReplacement() {
    if (temporary.empty()) {
      const bool linked = LinkUnnamed();
      return close(std::exchange(fd, -1)) == 0 && linked;
    }
    return close(std::exchange(fd, -1)) == 0 && MoveTemporary();
  }

  // Reserves the new size first, so that a lack of space shows before the
  // old content is touched; file systems that cannot reserve just write.
  // Standard output is written as it stands, appending where it appends.
  bool CommitInPlace() {
    if (IsStandardStream(Utf8ToWide(target))) return WriteAll(STDOUT_FILENO, pending);
    fd = open(target.c_str(), O_WRONLY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat info;
    if (fstat(fd, &info) != 0) return false;
    const bool ordinary = S_ISREG(info.st_mode);
    if (ordinary && !Reserve(fd, off_t(pending.size()), info.st_size)) return false;
    const bool written = WriteAll(fd, pending) && (!ordinary || ftruncate(fd, off_t(pending.size())) == 0);
    return close(std::exchange(fd, -1)) == 0 && written;
  }

  Route route = Route::InPlace;
  int fd = -1;            // Replace: the new file
  std::string target;     // without links, for the Replace route
  std::string temporary;  // the new file's name while it has one
  std::string pending;    // InPlace: everything written so far
  bool failed = false;    // a write failed
};

CFileReplacement::CFileReplacement() = default;

CFileReplacement::~CFileReplacement() = default;

bool CFileReplacement::Open(const WString& path) {
  state_.reset();
  if (!IsWholePath(path)) return false;
  auto state = std::make_unique<CState>();
  const std::string given = WideToUtf8(path);
  struct stat info;
  if (IsStandardStream(path)) {
    state->target = given;
  } else if (stat(given.c_str(), &info) != 0) {
    if (errno != ENOENT || !FollowLinks(given, state->target) || !state->StartReplacement(nullptr)) return false;
  } else if (S_ISDIR(info.st_mode) || access(given.c_str(), W_OK) != 0) {
    return false;
  } else {
    state->target = S_ISREG(info.st_mode) && !IsSystemPath(given) ? RealPath(given) : std::string();
    const bool replace = !state->target.empty() && info.st_nlink == 1 && state->StartReplacement(&info);
    if (!replace) {
      state = std::make_unique<CState>();
      state->target = given;
    }
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
  state_->failed = !WriteAll(state_->fd, bytes);
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
  return ReadWhole(state->fd, bytes);
}

}  // namespace NScrivolt::Platform
