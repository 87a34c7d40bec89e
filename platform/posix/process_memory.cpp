#include "platform/process_memory.h"

#include <sys/resource.h>

namespace NScrivolt::Platform {

std::uint64_t PeakResidentBytes() {
  struct rusage usage;
  if (getrusage(RUSAGE_SELF, &usage) != 0) return 0;
  return std::uint64_t(usage.ru_maxrss) * 1024;  // Linux counts kilobytes
}

}  // namespace NScrivolt::Platform
