#include "authoring/ColorDifference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

#include "support/AtOnce.h"
#include "support/Random.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Found = std::optional<std::size_t>;
using Positions = std::vector<Found>;

constexpr RgbColor black = {0, 0, 0};
constexpr RgbColor white = {255, 255, 255};

// The test data that Sharma, Wu and Dalal published with their notes on the formula.
TEST(ColorDifference, IsThatOfThePublishedPairs) {
  struct Case {
    LabColor left;
    LabColor right;
    double difference;
  };
  const Case cases[] = {
      {{50.0000, 2.6772, -79.7751}, {50.0000, 0.0000, -82.7485}, 2.0425},
      {{50.0000, 3.1571, -77.2803}, {50.0000, 0.0000, -82.7485}, 2.8615},
      {{50.0000, 2.8361, -74.0200}, {50.0000, 0.0000, -82.7485}, 3.4412},
      {{50.0000, -1.3802, -84.2814}, {50.0000, 0.0000, -82.7485}, 1.0000},
      {{50.0000, -1.1848, -84.8006}, {50.0000, 0.0000, -82.7485}, 1.0000},
      {{50.0000, -0.9009, -85.5211}, {50.0000, 0.0000, -82.7485}, 1.0000},
      {{50.0000, 0.0000, 0.0000}, {50.0000, -1.0000, 2.0000}, 2.3669},
      {{50.0000, -1.0000, 2.0000}, {50.0000, 0.0000, 0.0000}, 2.3669},
      {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0009}, 7.1792},
      {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0010}, 7.1792},
      {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0011}, 7.2195},
      {{50.0000, 2.4900, -0.0010}, {50.0000, -2.4900, 0.0012}, 7.2195},
      {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0009, -2.4900}, 4.8045},
      {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0010, -2.4900}, 4.8045},
      {{50.0000, -0.0010, 2.4900}, {50.0000, 0.0011, -2.4900}, 4.7461},
      {{50.0000, 2.5000, 0.0000}, {50.0000, 0.0000, -2.5000}, 4.3065},
      {{50.0000, 2.5000, 0.0000}, {73.0000, 25.0000, -18.0000}, 27.1492},
      {{50.0000, 2.5000, 0.0000}, {61.0000, -5.0000, 29.0000}, 22.8977},
      {{50.0000, 2.5000, 0.0000}, {56.0000, -27.0000, -3.0000}, 31.9030},
      {{50.0000, 2.5000, 0.0000}, {58.0000, 24.0000, 15.0000}, 19.4535},
      {{50.0000, 2.5000, 0.0000}, {50.0000, 3.1736, 0.5854}, 1.0000},
      {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2972, 0.0000}, 1.0000},
      {{50.0000, 2.5000, 0.0000}, {50.0000, 1.8634, 0.5757}, 1.0000},
      {{50.0000, 2.5000, 0.0000}, {50.0000, 3.2592, 0.3350}, 1.0000},
      {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
      {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
      {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
      {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
      {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
      {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
      {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
      {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
      {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
      {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
  };
  int number = 0;
  for (const Case& one : cases) {
    ++number;
    EXPECT_NEAR(ColorDifference(one.left, one.right), one.difference, 1e-4) << number;
    EXPECT_NEAR(ColorDifference(one.right, one.left), one.difference, 1e-4) << number;
  }
  EXPECT_EQ(number, 34);
}

TEST(ColorDifference, OfBlackAndWhiteIs100) {
  EXPECT_NEAR(ColorDifference(black, white), 100, 1e-9);
  EXPECT_NEAR(ColorDifference(white, black), 100, 1e-9);
}

TEST(ColorDifference, OfEqualColorsIs0) {
  for (const RgbColor color : {black, white, RgbColor{255, 0, 0}, RgbColor{12, 200, 99}}) {
    EXPECT_EQ(ColorDifference(color, color), 0);
  }
}

// The corners of the sRGB cube, as tables of colours have them to two decimals.
TEST(LabOf, IsThatOfTheKnownColors) {
  struct Case {
    RgbColor color;
    LabColor lab;
  };
  const Case cases[] = {
      {black, {0, 0, 0}},
      {white, {100, 0, 0}},
      {{255, 0, 0}, {53.24, 80.09, 67.20}},
      {{0, 255, 0}, {87.73, -86.18, 83.18}},
      {{0, 0, 255}, {32.30, 79.19, -107.86}},
      {{255, 255, 0}, {97.14, -21.55, 94.48}},
      {{0, 255, 255}, {91.11, -48.09, -14.13}},
      {{255, 0, 255}, {60.32, 98.23, -60.82}},
      {{128, 128, 128}, {53.59, 0, 0}},
      {{10, 10, 10}, {2.74, 0, 0}},
  };
  for (const auto& [color, lab] : cases) {
    const LabColor found = LabOf(color);
    EXPECT_NEAR(found.lightness, lab.lightness, 0.006) << color.red << ' ' << color.green;
    EXPECT_NEAR(found.a, lab.a, 0.006) << color.red << ' ' << color.green;
    EXPECT_NEAR(found.b, lab.b, 0.006) << color.red << ' ' << color.green;
  }
}

// What `FirstAlike` returns, by a comparison of all pairs.
Positions FirstAlikeOfAllPairs(const std::vector<RgbColor>& colors) {
  std::vector<LabColor> labs;
  Positions alike;
  for (const RgbColor& color : colors) {
    const LabColor lab = LabOf(color);
    std::size_t first = 0;
    while (first != labs.size() && ColorDifference(labs[first], lab) >= alikeBelow) ++first;
    alike.push_back(first == labs.size() ? std::nullopt : std::optional(first));
    labs.push_back(lab);
  }
  return alike;
}

TEST(FirstAlike, IsTheFirstColorBeforeThatIsAlike) {
  const RgbColor red = {200, 30, 30};
  const RgbColor nearlyRed = {203, 30, 30};
  const RgbColor green = {30, 160, 40};
  struct Case {
    std::vector<RgbColor> colors;
    Positions alike;
  };
  const Case cases[] = {
      {{}, {}},
      {{red}, {{}}},
      {{red, green, white, black}, {{}, {}, {}, {}}},
      {{red, nearlyRed}, {{}, 0}},
      {{nearlyRed, red}, {{}, 0}},
      {{green, red, green, nearlyRed}, {{}, {}, 0, 1}},
      {{red, red, red}, {{}, 0, 0}},
      {{red, nearlyRed, nearlyRed, red}, {{}, 0, 0, 0}},
  };
  for (const Case& one : cases) EXPECT_EQ(FirstAlike(one.colors), one.alike);
}

// Of three greys in a row, the middle one is alike to both others, which are not alike.
TEST(FirstAlike, IsLookedForAmongColorsThatAreAlikeToOthersToo) {
  const RgbColor dark = {100, 100, 100};
  const RgbColor middle = {106, 106, 106};
  const RgbColor light = {112, 112, 112};
  ASSERT_GE(ColorDifference(dark, light), alikeBelow);
  EXPECT_EQ(FirstAlike({dark, middle, light, middle}), (Positions{{}, 0, 1, 0}));
}

std::vector<RgbColor> RandomColors(std::size_t count, unsigned seed) {
  Random random(seed);
  std::vector<RgbColor> colors(count);
  for (auto& [red, green, blue] : colors) {
    red = random.Between(0, 255);
    green = random.Between(0, 255);
    blue = random.Between(0, 255);
  }
  return colors;
}

TEST(FirstAlike, IsThatOfAllPairs) {
  const std::vector<RgbColor> colors = RandomColors(SLOW_BUILD ? 600 : 4000, 1);
  EXPECT_TRUE(FirstAlike(colors) == FirstAlikeOfAllPairs(colors));
}

// Of a few channels each, so that many are alike, and some are equal.
TEST(FirstAlike, IsThatOfAllPairsWhereMostAreAlike) {
  std::vector<RgbColor> colors = RandomColors(SLOW_BUILD ? 600 : 4000, 2);
  for (RgbColor& color : colors) color = {color.red / 16, color.green / 16, 240 + color.blue / 16};
  EXPECT_TRUE(FirstAlike(colors) == FirstAlikeOfAllPairs(colors));
}

TEST(FirstAlike, FindsEveryAlikePair) {
  Random random(2);
  double farthest = 0;
  for (int i = 0; i < (SLOW_BUILD ? 2000 : 20'000); ++i) {
    const int width = random.Between(1, 60);
    const auto near = [&](int channel) {
      return std::clamp(channel + random.Between(-width, width), 0, 255);
    };
    const RgbColor left = {random.Between(0, 255), random.Between(0, 255), random.Between(0, 255)};
    const RgbColor right = {near(left.red), near(left.green), near(left.blue)};
    const Found expected = ColorDifference(left, right) < alikeBelow ? Found(0) : Found();
    ASSERT_EQ(FirstAlike({left, right})[1], expected);
    if (!expected) continue;
    const LabColor one = LabOf(left);
    const LabColor other = LabOf(right);
    farthest = std::max(farthest, std::hypot(one.a - other.a, one.b - other.b));
  }
  EXPECT_GT(farthest, 12);  // the pairs are not just those of neighbours in CIELAB
}

TEST(FirstAlike, IsFoundAtOnceAmongManyColors) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    const std::vector<RgbColor> equal(size, RgbColor{10, 20, 30});
    Positions alike(size, 0);
    alike.front() = std::nullopt;
    EXPECT_TRUE(FirstAlike(equal) == alike);
  });
  ExpectDoneAtOnce(
      20'000, [](std::size_t size) { EXPECT_EQ(FirstAlike(RandomColors(size, 3)).size(), size); });
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
