// Random choices that are the same on every platform. The standard specifies the results of its
// engines but not of its distributions, so the latter are not used.

#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

class Random {
 public:
  explicit Random(std::uint64_t seed) : engine(seed) {}

  // Returns a number from 0 to `bound` - 1. The bias of the remainder is negligible.
  std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(engine() % bound); }

  // Returns a number from `first` to `last`, both included.
  template <std::integral Number>
  Number Between(Number first, Number last) {
    return static_cast<Number>(
        first + static_cast<Number>(Below(static_cast<std::size_t>(last - first) + 1)));
  }

  bool OneIn(std::size_t times) { return Below(times) == 0; }

  template <class Values>
  auto& OneOf(Values& values) {
    return values[Below(std::size(values))];
  }

 private:
  std::mt19937_64 engine;
};
