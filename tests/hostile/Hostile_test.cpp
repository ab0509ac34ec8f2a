// Tests that the cost of every input is linear in its size. The allocated bytes, the peak and the
// stack are the same in every run. Times are not, so their bound catches only a cost of a higher
// order; scripts/hostile.sh measures them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>

#include "hostile/Case.h"
#include "hostile/Measure.h"

namespace {

// Returns a part of the full size that is large enough to be significant.
std::size_t TestedSize(std::size_t size) {
  return std::max<std::size_t>(size / (SLOW_BUILD ? 1000 : 100), 300);
}

// Returns a test name of letters and digits.
std::string NameOf(const testing::TestParamInfo<HostileCase>& info) {
  std::string name = std::string(info.param.reader) + "_" + info.param.input;
  std::erase_if(name, [](unsigned char unit) { return std::ispunct(unit) && unit != '_'; });
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
}

Cost BestOf(int times, const PreparedCase& prepared) {
  Cost best = prepared.Measure();
  for (int i = 1; i < times; ++i) {
    best.seconds = std::min(best.seconds, prepared.Measure().seconds);
  }
  return best;
}

class HostileInput : public testing::TestWithParam<HostileCase> {};

TEST_P(HostileInput, CostsNoMoreThanItsSize) {
  const HostileCase& input = GetParam();
  const std::size_t size = TestedSize(input.size);
  const PreparedCase once(input, size);
  const PreparedCase twice(input, 2 * size);
  const Cost small = once.Measure();
  const Cost large = twice.Measure();
  EXPECT_LE(static_cast<double>(large.allocated),
            input.most * static_cast<double>(small.allocated));
  EXPECT_LE(static_cast<double>(large.peak), input.most * static_cast<double>(small.peak));

  constexpr std::size_t depth = SLOW_BUILD ? 64 << 10 : 16 << 10;
  EXPECT_LE(large.stack, depth);
  // A sort or a balanced tree is one level deeper.
  EXPECT_LE(large.stack, small.stack + 1024);

  constexpr double noise = 0.2;
  if (large.seconds < noise) return;
  const double smallSeconds = std::min(small.seconds, BestOf(2, once).seconds);
  const double largeSeconds = std::min(large.seconds, BestOf(2, twice).seconds);
  EXPECT_LE(largeSeconds, 1.6 * input.most * smallSeconds);
}

INSTANTIATE_TEST_SUITE_P(Hostile, HostileInput, testing::ValuesIn(AllHostileCases()), NameOf);

}  // namespace

// Prints the case of a failed test.
void PrintTo(const HostileCase& input, std::ostream* out) {
  *out << input.reader << ": " << input.input;
}
