#include "classificator/ColoratSection.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/Text.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// The zeros of the scripts whose digits `_wtoi` accepts. The other nine digits follow each.
constexpr std::wstring_view zeros =
    L"0\u0660\u06F0\u0966\u09E6\u0A66\u0AE6\u0B66\u0C66\u0CE6\u0D66\u0E50\u0ED0\u0F20\u1040"
    L"\u17E0\u1810\uFF10";

// The value of a decimal digit, or -1.
int DigitValue(wchar_t unit) {
  for (const wchar_t zero : zeros) {
    if (unit >= zero && unit <= zero + 9) return static_cast<int>(unit - zero);
  }
  return -1;
}

bool BeginsAsNumber(std::wstring_view text) {
  if (text.starts_with(L'-') || text.starts_with(L'+')) text.remove_prefix(1);
  return !text.empty() && DigitValue(text.front()) >= 0;
}

int ReadClamped(std::wstring_view text, int top, Account* account) {
  const int number = ReadLeadingInt(text);
  const int clamped = std::clamp(number, 0, top);
  if (account && !BeginsAsNumber(text)) {
    Note(account, Outcome::colorValueRefused, text);
  } else if (account && clamped != number) {
    Note(account, Outcome::colorValueClamped, text);
  }
  return clamped;
}

// Returns the key text and the four values of a line, or nothing if it hasn't exactly five pieces.
std::optional<std::array<std::wstring_view, 5>> CutColorLine(std::wstring_view line) {
  WordReader reader(line);
  std::array<std::wstring_view, 5> pieces;
  for (std::wstring_view& piece : pieces) {
    if (!reader.Next(piece)) return std::nullopt;
  }
  std::wstring_view sixth;
  if (reader.Next(sixth)) return std::nullopt;
  return pieces;
}

// Adds the colours of a block's lines after its title.
void AddColors(ColorMap& colors, PieceReader lines, Account* account) {
  int number = 0;
  for (std::wstring_view line; lines.Next(line);) {
    const auto pieces = CutColorLine(line);
    if (!pieces) {
      Note(account, Outcome::notFiveWords, line);
      continue;
    }
    const auto& [key, channel1, channel2, channel3, percent] = *pieces;
    Note(account, Outcome::colorLine, line, {key});
    ++number;
    colors.Add(key,
               {number, ReadClamped(channel1, 255, account), ReadClamped(channel2, 255, account),
                ReadClamped(channel3, 255, account), ReadClamped(percent, 100, account)});
  }
}

}  // namespace

int ReadLeadingInt(std::wstring_view text) {
  const bool negative = text.starts_with(L'-');
  if (negative || text.starts_with(L'+')) text.remove_prefix(1);
  // The magnitude saturates one above the maximum, which is the magnitude of the minimum.
  constexpr std::int64_t beyond = std::int64_t{std::numeric_limits<int>::max()} + 1;
  std::int64_t magnitude = 0;
  for (const wchar_t unit : text) {
    const int digit = DigitValue(unit);
    if (digit < 0) break;
    magnitude = std::min(10 * magnitude + digit, beyond);
  }
  return static_cast<int>(negative ? -magnitude : std::min(magnitude, beyond - 1));
}

void ColorMap::Add(std::wstring_view key, const ColorEntry& entry) {
  colors_.emplace_back(key, entry);
  ordered_ = false;
}

std::vector<ColorMap::Color>::const_iterator ColorMap::find(std::wstring_view key) const {
  const std::vector<Color>& all = Ordered();
  const auto found = std::lower_bound(
      all.begin(), all.end(), key,
      [](const Color& color, std::wstring_view text) { return color.first < text; });
  return found != all.end() && found->first == key ? found : all.end();
}

const std::vector<ColorMap::Color>& ColorMap::Ordered() const {
  if (ordered_) return colors_;
  const auto byKey = [](const Color& left, const Color& right) { return left.first < right.first; };
  if (!std::is_sorted(colors_.begin(), colors_.end(), byKey)) {
    std::stable_sort(colors_.begin(), colors_.end(), byKey);
  }
  const auto repeated =
      std::unique(colors_.begin(), colors_.end(),
                  [](const Color& left, const Color& right) { return left.first == right.first; });
  colors_.erase(repeated, colors_.end());
  ordered_ = true;
  return colors_;
}

int ParseColoratSection(ColoratTable table, std::wstring_view text, Account* account) {
  table.colorats.clear();
  PieceReader blocks(text, L"@", true);
  for (std::wstring_view block; blocks.Next(block);) {
    PieceReader lines = CutEntries(block, false, account);
    std::wstring_view title;
    lines.Next(title);
    std::wstring_view firstLine;
    if (!PieceReader(lines).Next(firstLine)) {
      if (!block.empty()) Note(account, Outcome::coloratWithoutLines, block);
      continue;
    }
    const std::size_t blank = title.find(L' ');
    if (blank == title.npos) {
      Note(account, Outcome::coloratTitleWithoutBlank, block);
      continue;
    }
    const std::wstring id(title.substr(0, blank));
    Note(account, Outcome::coloratTitle, title, {id});
    AddColors(table.colorats.try_emplace(id).first->second, lines, account);
    table.activeColoratId = id;
  }
  return static_cast<int>(table.colorats.size());
}

}  // namespace TolvenLibs::RevitMappingEditorDll
