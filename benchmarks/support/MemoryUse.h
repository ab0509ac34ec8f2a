#pragma once

#include <cstddef>

// The resident memory of this process, in bytes.
struct MemoryUse {
  std::size_t now;
  std::size_t peak;
};

MemoryUse ReadMemoryUse();
