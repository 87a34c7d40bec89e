// An owned file handle and whole writes through it, shared by the file
// reader and the file replacement.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace NScrivolt::Platform {

// The most one read or write call moves; larger transfers loop.
constexpr DWORD kLargestTransfer = 1u << 30;

class CFileHandle {
 public:
  explicit CFileHandle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  CFileHandle(const CFileHandle&) = delete;
  CFileHandle& operator=(const CFileHandle&) = delete;
  ~CFileHandle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  void Reset(HANDLE handle) {
    Close();
    handle_ = handle;
  }
  bool Close() {
    if (!IsOpen()) return true;
    const bool closed = CloseHandle(handle_) != 0;
    handle_ = INVALID_HANDLE_VALUE;
    return closed;
  }

 private:
  HANDLE handle_;
};

// Writes all of `bytes`; false when a write fails or stops short.
bool WriteAll(HANDLE file, std::string_view bytes);

// Replaces `bytes` with the whole content of the file, read from its start;
// false when a read fails. Leaves the file's position at its end.
bool ReadWhole(HANDLE file, std::string& bytes);

}  // namespace NScrivolt::Platform
