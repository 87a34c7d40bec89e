#include "platform/win32/file_handle.h"

#include <algorithm>

namespace NScrivolt::Platform {

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD wanted = DWORD(std::min<std::size_t>(bytes.size(), kLargestTransfer));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), wanted, &written, nullptr) || written != wanted) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

}  // namespace NScrivolt::Platform
