#include "platform/process_memory.h"

#include <windows.h>
#include <psapi.h>

namespace NScrivolt::Platform {

std::uint64_t PeakResidentBytes() {
  PROCESS_MEMORY_COUNTERS counters;
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return 0;
  return counters.PeakWorkingSetSize;
}

void DiscardMemory(void* begin, std::size_t bytes) {
  SYSTEM_INFO system;
  GetSystemInfo(&system);
  const std::uintptr_t page = system.dwPageSize;
  const auto start = reinterpret_cast<std::uintptr_t>(begin);
  const std::uintptr_t first = (start + page - 1) / page * page;
  const std::uintptr_t end = (start + bytes) / page * page;
  if (end > first) VirtualAlloc(reinterpret_cast<void*>(first), end - first, MEM_RESET, PAGE_READWRITE);
}

}  // namespace NScrivolt::Platform
