#pragma once

#include <cstddef>

// The memory of this process that is in the machine's main memory, in bytes.
struct MemoryUse {
  std::size_t now;
  std::size_t peak;
};

MemoryUse ReadMemoryUse();
