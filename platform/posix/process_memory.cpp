#include "platform/process_memory.h"

#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace NScrivolt::Platform {

std::uint64_t PeakResidentBytes() {
  struct rusage usage;
  if (getrusage(RUSAGE_SELF, &usage) != 0) return 0;
  return std::uint64_t(usage.ru_maxrss) * 1024;  // Linux counts kilobytes
}

void DiscardMemory(void* begin, std::size_t bytes) {
  static const auto page = std::uintptr_t(sysconf(_SC_PAGESIZE));
  const auto start = reinterpret_cast<std::uintptr_t>(begin);
  const std::uintptr_t first = (start + page - 1) / page * page;
  const std::uintptr_t end = (start + bytes) / page * page;
  if (end > first) madvise(reinterpret_cast<void*>(first), end - first, MADV_DONTNEED);
}

}  // namespace NScrivolt::Platform
