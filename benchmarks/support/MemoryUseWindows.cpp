#include <windows.h>
// In this order, because the second needs the first.
#include <psapi.h>

#include <stdexcept>

#include "support/MemoryUse.h"

MemoryUse ReadMemoryUse() {
  PROCESS_MEMORY_COUNTERS counters = {};
  if (!GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)) {
    throw std::runtime_error("the system doesn't tell how much memory is used");
  }
  return {counters.WorkingSetSize, counters.PeakWorkingSetSize};
}
