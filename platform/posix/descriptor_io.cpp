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

}  // namespace NScrivolt::Platform
