// Random numbers that are the same on every platform. The standard fixes what its engines give, and
// not what its distributions make of that, so the latter are not used.

#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

class Random {
 public:
  explicit Random(std::uint64_t seed) : engine(seed) {}

  // From 0 up to, and not including, `end`. The bias of the remainder is far below what shows.
  std::size_t Below(std::size_t end) { return static_cast<std::size_t>(engine() % end); }

  // From `first` to `last`, both included.
  std::size_t Between(std::size_t first, std::size_t last) {
    return first + Below(last - first + 1);
  }

 private:
  std::mt19937_64 engine;
};
