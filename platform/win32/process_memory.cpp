#include "platform/process_memory.h"

#include <windows.h>
#include <psapi.h>

namespace NScrivolt::Platform {

std::uint64_t PeakResidentBytes() {
  PROCESS_MEMORY_COUNTERS counters;
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) return 0;
  return counters.PeakWorkingSetSize;
}

}  // namespace NScrivolt::Platform
