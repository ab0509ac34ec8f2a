// A bound on the time that work of any size takes, for work that would take hours if it looked at
// anything more than a few times.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ctime>

// Several times what the largest work of these tests takes. Where the clock can, it counts the time
// of the process alone, so that a busy machine doesn't count.
inline constexpr double atOnceSeconds = SLOW_BUILD ? 60 : 5;

// Does the work for sizes that grow up to this one. Work that grows faster than its size is over
// the bound at one of the smaller ones, and isn't done for the others.
template <class Work>
void ExpectDoneAtOnce(std::size_t largest, Work work) {
  for (std::size_t size = largest / 1024 + 1;; size = std::min(2 * size, largest)) {
    const std::clock_t start = std::clock();
    work(size);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    ASSERT_LT(seconds, atOnceSeconds) << "with a size of " << size;
    if (size == largest) return;
  }
}
