// Memory use of this process, for the benchmark programs.
#pragma once

#include <cstdint>

namespace NScrivolt::Platform {

// The largest resident set (working set) the process has had, in bytes;
// 0 when the system does not tell.
std::uint64_t PeakResidentBytes();

}  // namespace NScrivolt::Platform
