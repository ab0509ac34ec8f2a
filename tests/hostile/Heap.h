// What a program takes from the heap, the library included, whose operators are the program's own.

#pragma once

#include <cstddef>

struct HeapUse {
  std::size_t allocated = 0;  // bytes of all blocks, those given back included
  std::size_t taken = 0;      // bytes of the blocks that are not given back
  std::size_t peak = 0;       // the most that was taken at once
};

// Starts anew: with nothing allocated, and the peak where it is.
void ResetHeapUse();

// Of all threads together. No two of them may be at work at once.
HeapUse ReadHeapUse();
