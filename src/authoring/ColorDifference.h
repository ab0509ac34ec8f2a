// How different two colours look, and which colours of a list look alike.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// A colour of the sRGB space. Each channel is from 0 to 255.
struct RgbColor {
  int red;
  int green;
  int blue;
};

// A colour of the CIELAB space.
struct LabColor {
  double lightness;  // from 0, black, to 100, white
  double a;          // from green to red
  double b;          // from blue to yellow
};

// Colours are alike if and only if their difference is less. Two areas of a drawing that are not
// beside each other are then hard to tell apart.
inline constexpr double alikeBelow = 3.0;

// Returns the colour as CIELAB has it under the light of D65. REQUIRES: the channels are in range.
LabColor LabOf(const RgbColor& color);

// Returns the difference by the formula CIEDE2000, whose weights kL, kC and kH are 1 here: 0 for
// equal colours, 100 for black and white. The order of the colours does not matter.
double ColorDifference(const LabColor& left, const LabColor& right);

// The difference of two sRGB colours. REQUIRES: the channels are in range.
double ColorDifference(const RgbColor& left, const RgbColor& right);

// Returns for each colour the position of the first colour before it that is alike, if there is
// one. Equal colours are alike, so that of a thousand equal ones all but the first have the
// position of the first, or of one before it. Takes time in proportion to the number of colours, as
// long as few of the different ones are alike. REQUIRES: the channels are in range.
std::vector<std::optional<std::size_t>> FirstAlike(const std::vector<RgbColor>& colors);

}  // namespace TolvenLibs::RevitMappingEditorDll
