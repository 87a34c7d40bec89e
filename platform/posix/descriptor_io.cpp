#include "platform/posix/descriptor_io.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace NScrivolt::Platform {

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), std::min(bytes.size(), kLargestTransfer));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(std::size_t(count));
  }
  return true;
}

bool ReadWhole(int fd, std::string& bytes) {
  bytes.clear();
  constexpr std::size_t kPiece = std::size_t(1) << 20;
  for (;;) {
    const std::size_t filled = bytes.size();
    bytes.resize(filled + kPiece);
    const ssize_t count = pread(fd, &bytes[filled], kPiece, off_t(filled));
    if (count < 0 && errno == EINTR) {
      bytes.resize(filled);
      continue;
    }
    bytes.resize(filled + std::size_t(std::max<ssize_t>(count, 0)));
    if (count <= 0) return count == 0;
  }
}

}  // namespace NScrivolt::Platform
