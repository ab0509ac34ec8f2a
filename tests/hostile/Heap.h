// Counts the heap allocations of a program. The library uses the program's operators too.

#pragma once

#include <cstddef>

struct HeapUse {
  std::size_t allocated = 0;  // bytes of all blocks, including released ones
  std::size_t taken = 0;      // bytes of the blocks that are not released
  std::size_t peak = 0;       // the maximum of `taken`
};

// Sets `allocated` to 0 and `peak` to `taken`.
void ResetHeapUse();

// Returns the sums of all threads. REQUIRES: no two threads allocate at the same time.
HeapUse ReadHeapUse();
