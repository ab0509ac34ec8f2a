#include "authoring/ColorDifference.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <unordered_map>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr double degree = std::numbers::pi / 180;

double Square(double number) {
  return number * number;
}

double Cosine(double degrees) {
  return std::cos(degrees * degree);
}

double Sine(double degrees) {
  return std::sin(degrees * degree);
}

// The light of a channel, from 0 to 1.
double Linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

// The cube root, with a line in its place near black.
double Root(double light) {
  constexpr double bend = 6.0 / 29;
  if (light > bend * bend * bend) return std::cbrt(light);
  return light / (3 * bend * bend) + 4.0 / 29;
}

// Grows from 0 for greys to nearly 1 for vivid colours.
double Vividness(double chroma) {
  const double power = std::pow(chroma / 25, 7);
  return std::sqrt(power / (power + 1));
}

struct Polar {
  double chroma;
  double hue;  // in degrees, from 0 to 360
};

Polar PolarOf(double a, double b) {
  const double angle = std::atan2(b, a) / degree;
  return {std::hypot(a, b), angle < 0 ? angle + 360 : angle};
}

// The angle to the right hue by the shorter arc.
double HueStep(double left, double right) {
  const double step = right - left;
  if (std::abs(step) <= 180) return step;
  return step > 0 ? step - 360 : step + 360;
}

// The middle of the shorter arc, but for whole turns.
double MeanHue(double left, double right) {
  const double mean = (left + right) / 2;
  if (std::abs(right - left) <= 180) return mean;
  return mean < 180 ? mean + 180 : mean - 180;
}

double WeightOfLightness(double lightness) {
  const double square = Square(lightness - 50);
  return 1 + 0.015 * square / std::sqrt(20 + square);
}

double WeightOfChroma(double chroma) {
  return 1 + 0.045 * chroma;
}

double WeightOfHue(double chroma, double hue) {
  const double factor = 1 - 0.17 * Cosine(hue - 30) + 0.24 * Cosine(2 * hue) +
                        0.32 * Cosine(3 * hue + 6) - 0.20 * Cosine(4 * hue - 63);
  return 1 + 0.015 * chroma * factor;
}

// How differences in chroma and in hue act on each other, which they do among the blues.
double Rotation(double chroma, double hue) {
  const double angle = 30 * std::exp(-Square((hue - 275) / 25));
  return -2 * Vividness(chroma) * Sine(2 * angle);
}

// CIELAB in cells, each of which holds the colours that were added in it. Finds those that are
// alike without a look at all.
//
// It misses none, since the difference has a lower bound:
//
//   1. The difference is the root of (dL/SL)^2 + x^2 + y^2 + RT x y, where x is dC'/SC and y is
//      dH'/SH. |RT| is below 2 sin 60°, so that the terms after the first are at least
//      (1 - sin 60°) (x^2 + y^2), which is not negative.
//   2. So the difference is at least |dL|/SL. SL is greatest for black and for white.
//   3. SH is at most SC, since the factor of hue is at most 1.93, and 0.015 * 1.93 < 0.045. So
//      x^2 + y^2 is at least (dC'^2 + dH'^2) / SC^2.
//   4. dC'^2 + dH'^2 is the square of the distance in the plane of (1 + G) a and b. That in the
//      plane of a and b, d, is no greater: G is the same for both colours, and not negative.
//   5. SC is 1 + 0.045 C', and C' is at most (1 + G) C, where C is the mean chroma in the plane of
//      a and b. G is a function of C, and G C is at most 6.38, at C = 16.6.
//
// So if colours are alike, d < slope (1 / 0.045 + 6.4 + C), where slope is
// 0.045 alikeBelow / sqrt(1 - sin 60°). C is at most the chroma of either colour plus d/2, so that
// the chroma of one of them bounds d, too.
class ColorCells {
 public:
  // REQUIRES: the position is greater than all before.
  void Add(const LabColor& color, std::size_t position) {
    cells_[Place(lightness.CellOf(color.lightness), hues.CellOf(color.a), hues.CellOf(color.b))]
        .push_back({color, position});
  }

  // Returns the least position of a colour that is alike.
  std::optional<std::size_t> FirstAlike(const LabColor& color) const {
    const double reach = Reach(std::hypot(color.a, color.b));
    std::optional<std::size_t> first;
    const Span ls = lightness.CellsAround(color.lightness, lightnessReach_);
    const Span as = hues.CellsAround(color.a, reach);
    const Span bs = hues.CellsAround(color.b, reach);
    for (std::size_t l = ls.first; l <= ls.last; ++l) {
      for (std::size_t a = as.first; a <= as.last; ++a) {
        for (std::size_t b = bs.first; b <= bs.last; ++b) {
          LookInto(cells_[Place(l, a, b)], color, first);
        }
      }
    }
    return first;
  }

 private:
  struct Placed {
    LabColor color;
    std::size_t position;
  };

  struct Span {
    std::size_t first;
    std::size_t last;
  };

  // Cells side by side. The first and the last go on without end.
  struct Axis {
    double begin;
    double size;  // of a cell
    std::size_t count;

    std::size_t CellOf(double value) const {
      const double cell = std::floor((value - begin) / size);
      return static_cast<std::size_t>(std::clamp(cell, 0.0, static_cast<double>(count - 1)));
    }

    Span CellsAround(double value, double reach) const {
      return {CellOf(value - reach), CellOf(value + reach)};
    }
  };

  static constexpr Axis lightness = {0, 5, 20};
  static constexpr Axis hues = {-110, 10, 21};  // of a, and of b: what sRGB takes of them

  static std::size_t Place(std::size_t l, std::size_t a, std::size_t b) {
    return (l * hues.count + a) * hues.count + b;
  }

  // No colour that is alike to one of this chroma is further from it in the plane of a and b.
  double Reach(double chroma) const {
    return slope_ * (1 / 0.045 + 6.4 + chroma) / (1 - slope_ / 2);
  }

  // Most colours within reach are told apart by this, without the many angles of the difference.
  bool AreFarApart(const LabColor& left, const LabColor& right) const {
    const double chroma = (std::hypot(left.a, left.b) + std::hypot(right.a, right.b)) / 2;
    const double square = Square(left.a - right.a) + Square(left.b - right.b);
    return square > Square(slope_ * (1 / 0.045 + 6.4 + chroma));
  }

  void LookInto(const std::vector<Placed>& cell, const LabColor& color,
                std::optional<std::size_t>& first) const {
    for (const Placed& other : cell) {
      if (first && *first < other.position) return;
      if (AreFarApart(color, other.color)) continue;
      if (ColorDifference(color, other.color) < alikeBelow) {
        first = other.position;
        return;
      }
    }
  }

  const double slope_ = 0.045 * alikeBelow / std::sqrt(1 - Sine(60));
  const double lightnessReach_ = alikeBelow * WeightOfLightness(0);
  std::vector<std::vector<Placed>> cells_{lightness.count * hues.count * hues.count};
};

}  // namespace

// The sums of the rows are the white of D65, by which they are divided.
LabColor LabOf(const RgbColor& color) {
  const double red = Linear(color.red);
  const double green = Linear(color.green);
  const double blue = Linear(color.blue);
  const auto root = [=](double ofRed, double ofGreen, double ofBlue) {
    return Root((ofRed * red + ofGreen * green + ofBlue * blue) / (ofRed + ofGreen + ofBlue));
  };
  const double x = root(0.4124564, 0.3575761, 0.1804375);
  const double y = root(0.2126729, 0.7151522, 0.0721750);
  const double z = root(0.0193339, 0.1191920, 0.9503041);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double ColorDifference(const LabColor& left, const LabColor& right) {
  const double plainChroma = (std::hypot(left.a, left.b) + std::hypot(right.a, right.b)) / 2;
  const double stretch = 1 + (1 - Vividness(plainChroma)) / 2;
  const Polar one = PolarOf(stretch * left.a, left.b);
  const Polar other = PolarOf(stretch * right.a, right.b);
  const double chroma = (one.chroma + other.chroma) / 2;
  const double hue = MeanHue(one.hue, other.hue);
  const double hueChord =
      2 * std::sqrt(one.chroma * other.chroma) * Sine(HueStep(one.hue, other.hue) / 2);

  const double l = (right.lightness - left.lightness) /
                   WeightOfLightness((left.lightness + right.lightness) / 2);
  const double c = (other.chroma - one.chroma) / WeightOfChroma(chroma);
  const double h = hueChord / WeightOfHue(chroma, hue);
  return std::sqrt(l * l + c * c + h * h + Rotation(chroma, hue) * c * h);
}

double ColorDifference(const RgbColor& left, const RgbColor& right) {
  return ColorDifference(LabOf(left), LabOf(right));
}

// Of equal colours only the first is looked for. All others are alike to it, and to what it is
// alike to.
std::vector<std::optional<std::size_t>> FirstAlike(const std::vector<RgbColor>& colors) {
  std::vector<std::optional<std::size_t>> alike(colors.size());
  std::unordered_map<int, std::size_t> firstEqual;
  ColorCells cells;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const RgbColor& color = colors[i];
    const int key = (color.red * 256 + color.green) * 256 + color.blue;
    const auto [equal, isNew] = firstEqual.try_emplace(key, i);
    if (!isNew) {
      alike[i] = alike[equal->second].value_or(equal->second);
      continue;
    }
    const LabColor lab = LabOf(color);
    alike[i] = cells.FirstAlike(lab);
    cells.Add(lab, i);
  }
  return alike;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
