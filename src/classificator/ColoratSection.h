// The ==COLORAT section of a classificator file: colouring schemes, each a map from key texts to
// colours.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;

// The colour of one key text. The library knows nothing of the values but their ranges.
struct ColorEntry {
  int number;    // of the line in its block, from 1; lines left out don't count
  int channel1;  // 0 to 255
  int channel2;  // 0 to 255
  int channel3;  // 0 to 255
  int percent;   // 0 to 100
};

// The colours of one Colorat, an ordered map from key text to colour. Unlike `std::map` it is
// sorted by the first question, not on insertion, so that loads are fast.
class ColorMap {
 public:
  using Color = std::pair<std::wstring, ColorEntry>;

  // Of equal keys, the first stays.
  void Add(std::wstring_view key, const ColorEntry& entry);

  std::size_t size() const { return Ordered().size(); }
  auto begin() const { return Ordered().begin(); }
  auto end() const { return Ordered().end(); }

  // Returns the entry of the key text, or `end()`. Binary search.
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

// Replaces the Colorats by those of the section's text, and returns their number. The last one
// becomes the active one; if there is none, the active id stays as it was.
//
//   @main Main colouring
//   A100 255 0 0 50
//   A200 0 128 255 0
//
// At-signs separate blocks, wherever they are; the text before the first is a block too. The lines
// of a block end at line feeds or at semicolons. A block without two lines, or without a blank
// after its id, is left out, as is a line that hasn't exactly five pieces. A value that isn't a
// number is 0; values are clamped to their range. Of equal keys in a Colorat the first stays.
// Blocks of the same id make one Colorat.
int ParseColoratSection(ColoratTable table, std::wstring_view text, Account* account = nullptr);

// Returns the number at the start of the text as `_wtoi` of Windows does: an optional sign, then
// decimal digits of any script that it knows. Returns 0 if there is none; clamps to 32 bits.
int ReadLeadingInt(std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
