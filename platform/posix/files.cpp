#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "text/utf8.h"

namespace NScrivolt::Platform {

namespace {

constexpr size_t kLargestWrite = size_t(1) << 30;
constexpr size_t kProbeSize = 64 * 1024;
constexpr char kTemporaryName[] = ".scrivolt-XXXXXX";

// Fills `bytes` (sized from the file's size) and then reads on to the end, so
// a file that grew, or one whose size the system does not know, is read whole.
bool ReadToEnd(int fd, std::string& bytes) {
  size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t count = read(fd, &bytes[filled], bytes.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) {
      bytes.resize(filled);
      return true;
    }
    filled += size_t(count);
  }
  char probe[kProbeSize];
  for (;;) {
    const ssize_t count = read(fd, probe, sizeof probe);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) return true;
    bytes.append(probe, size_t(count));
  }
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), std::min(bytes.size(), kLargestWrite));
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

bool WriteTemporaryAndRename(const std::string& target, const struct stat* existing, std::string_view bytes) {
  std::string temporary = FolderWithSeparator(target) + kTemporaryName;
  const int fd = mkstemp(&temporary[0]);
  if (fd < 0) return false;
  bool ok = fchmod(fd, ModeFor(existing)) == 0 && WriteAll(fd, bytes);
  ok = close(fd) == 0 && ok;
  ok = ok && rename(temporary.c_str(), target.c_str()) == 0;
  if (!ok) unlink(temporary.c_str());
  return ok;
}

}  // namespace

bool FileExists(const WString& path) { return access(WideToUtf8(path).c_str(), F_OK) == 0; }

bool ReadWholeFile(const WString& path, std::string& bytes) {
  bytes.clear();
  const int fd = open(WideToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return false;
  struct stat info;
  bool ok = fstat(fd, &info) == 0 && !S_ISDIR(info.st_mode);
  if (ok && S_ISREG(info.st_mode)) bytes.resize(size_t(info.st_size));
  ok = ok && ReadToEnd(fd, bytes);
  close(fd);
  if (!ok) std::string().swap(bytes);
  return ok;
}

bool WriteWholeFile(const WString& path, std::string_view bytes) {
  const std::string target = WriteTarget(WideToUtf8(path));
  struct stat info;
  const bool exists = stat(target.c_str(), &info) == 0;
  if (exists && (S_ISDIR(info.st_mode) || access(target.c_str(), W_OK) != 0)) return false;
  return WriteTemporaryAndRename(target, exists ? &info : nullptr, bytes);
}

}  // namespace NScrivolt::Platform
