// A bound on the time of linear work, which would take hours if it were quadratic.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ctime>

// Several times what the largest work of these tests takes. If the clock supports it, this is the
// time of the process, which doesn't depend on the load of the machine.
inline constexpr double atOnceSeconds = SLOW_BUILD ? 60 : 5;

// Does the work for sizes that grow up to this one. Superlinear work exceeds the bound at one of
// the smaller sizes and isn't done for the larger ones.
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
