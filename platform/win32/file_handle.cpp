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

bool ReadWhole(HANDLE file, std::string& bytes) {
  bytes.clear();
  if (!SetFilePointerEx(file, LARGE_INTEGER{}, nullptr, FILE_BEGIN)) return false;
  constexpr DWORD kPiece = 1u << 20;
  for (;;) {
    const std::size_t filled = bytes.size();
    bytes.resize(filled + kPiece);
    DWORD read = 0;
    const bool ok = ReadFile(file, &bytes[filled], kPiece, &read, nullptr) != 0;
    bytes.resize(filled + read);
    if (!ok || read == 0) return ok;
  }
}

}  // namespace NScrivolt::Platform
