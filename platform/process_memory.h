// Memory use of this process.
#pragma once

#include <cstddef>
#include <cstdint>

namespace NScrivolt::Platform {

// The largest resident set (working set) the process has had, in bytes;
// 0 when the system does not tell.
std::uint64_t PeakResidentBytes();

// Gives the whole pages inside [begin, begin + bytes) back to the system.
// The memory stays the caller's, but what it held is gone: for memory that
// is never read again before it is freed or written anew.
void DiscardMemory(void* begin, std::size_t bytes);

}  // namespace NScrivolt::Platform
