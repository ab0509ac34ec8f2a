// Random choices that a seed alone decides, on every platform: the standard's engines give the same
// numbers everywhere, its distributions don't.

#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace TolvenLibs::RevitMappingEditorDll::Naive {

class Random {
 public:
  explicit Random(unsigned seed) : engine(seed) {}

  // From 0 to `bound` - 1.
  std::size_t Below(std::size_t bound) { return static_cast<std::uint32_t>(engine()) % bound; }

  int Number(int least, int greatest) {
    return least + static_cast<int>(Below(static_cast<std::size_t>(greatest - least) + 1));
  }

  bool OneIn(std::size_t times) { return Below(times) == 0; }

  template <class Values>
  auto& OneOf(Values& values) {
    return values[Below(std::size(values))];
  }

 private:
  std::mt19937 engine;
};

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
