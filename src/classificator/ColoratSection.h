// The ==COLORAT section of a classificator file: colouring schemes, each a table that gives a
// colour to each of a number of key texts.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// The colour of one key text. The ranges are all that the library knows of the values.
struct ColorEntry {
  int number;    // of the line in its block, from 1, counted over the lines that were accepted
  int channel1;  // 0 to 255
  int channel2;  // 0 to 255
  int channel3;  // 0 to 255
  int percent;   // 0 to 100
};

// The colours of one Colorat, an ordered map from key text to colour. A load has no time to put
// them in order, as `std::map` would: the first question does.
class ColorMap {
 public:
  using Color = std::pair<std::wstring, ColorEntry>;

  // A colour of a key text that has one already is dropped.
  void Add(std::wstring_view key, const ColorEntry& entry);

  std::size_t size() const { return Ordered().size(); }
  auto begin() const { return Ordered().begin(); }
  auto end() const { return Ordered().end(); }

  // The entry of a key text, or the end.
  std::vector<Color>::const_iterator find(std::wstring_view key) const;

 private:
  const std::vector<Color>& Ordered() const;

  mutable std::vector<Color> colors_;
  mutable bool ordered_ = true;
};

using Colorats = std::map<std::wstring, ColorMap, std::less<>>;  // by the Colorat's id

// The two members of a `Classificator` that the section fills.
struct ColoratTable {
  Colorats& colorats;
  std::wstring& activeColoratId;
};

// Replaces the Colorats by what the section's text says, and gives their number. The id of the last
// block that is one becomes the active one; without any it stays as it was.
//
//   @main Main colouring
//   A100 255 0 0 50
//   A200 0 128 255 0
//
// A block begins at each at-sign, wherever it stands; one in front of the first is a block too. Its
// lines end at line feeds or at semicolons. A block needs two lines, and a blank behind its id; any
// other is left out, and so is a line that hasn't exactly five pieces. Values that are no numbers
// are 0, those out of range are moved to its nearer end. Of equal keys in a Colorat the first
// stays; blocks of one id make one Colorat.
int ParseColoratSection(ColoratTable table, std::wstring_view text);

// The number at the head of the text, as `_wtoi` of Windows reads it: an optional sign, then
// decimal digits of any script that it knows. 0 if there is none; beyond 32 bits the nearest limit.
int ReadLeadingInt(std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
