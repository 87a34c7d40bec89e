// Reading and writing through POSIX file descriptors, shared by the file
// reader and the file replacement.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace NScrivolt::Platform {

// The most one read or write call moves; larger transfers loop.
constexpr std::size_t kLargestTransfer = std::size_t(1) << 30;

// Writes all of `bytes`, going on after interruptions; false when a write
// fails (no space, a file-size limit, a closed pipe).
bool WriteAll(int fd, std::string_view bytes);

// Replaces `bytes` with the whole content of the file, read from its start
// whatever the descriptor's position; false when a read fails.
bool ReadWhole(int fd, std::string& bytes);

}  // namespace NScrivolt::Platform
