#include "naive/ColoratSection.h"

#include <algorithm>
#include <cstddef>

#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

// Returns the value of a digit of any script that the Windows runtime knows, or -1.
int DigitOf(wchar_t unit) {
  const std::wstring zeros =
      L"0\u0660\u06F0\u0966\u09E6\u0A66\u0AE6\u0B66\u0C66\u0CE6\u0D66\u0E50\u0ED0\u0F20\u1040\u17E0"
      L"\u1810\uFF10";
  for (const wchar_t zero : zeros) {
    if (unit >= zero && unit <= zero + 9) return static_cast<int>(unit - zero);
  }
  return -1;
}

void TakeLine(ColorMap& colors, int& lineCounter, std::wstring line) {
  const Texts pieces = SplitTrimmed(line, L" ", false);
  if (pieces.size() != 5) return;
  ++lineCounter;
  ColorEntry entry;
  entry.number = lineCounter;
  entry.channel1 = std::clamp(ReadLeadingInt(pieces[1]), 0, 255);
  entry.channel2 = std::clamp(ReadLeadingInt(pieces[2]), 0, 255);
  entry.channel3 = std::clamp(ReadLeadingInt(pieces[3]), 0, 255);
  entry.percent = std::clamp(ReadLeadingInt(pieces[4]), 0, 100);
  if (colors.count(pieces[0]) == 0) colors[pieces[0]] = entry;
}

void TakeBlock(ColoratTable table, std::wstring block) {
  const Texts lineFeeds = SplitTrimmed(block, L"\n", false);
  const Texts semicolons = SplitTrimmed(block, L";", false);
  const Texts lines = lineFeeds.size() > semicolons.size() ? lineFeeds : semicolons;
  if (lines.size() < 2) return;
  const std::size_t blank = lines[0].find(L' ');
  if (blank == std::wstring::npos) return;
  const std::wstring id = lines[0].substr(0, blank);
  ColorMap& colors = table.colorats[id];
  int lineCounter = 0;
  for (std::size_t i = 1; i < lines.size(); ++i) TakeLine(colors, lineCounter, lines[i]);
  table.activeColoratId = id;
}

}  // namespace

int ParseColoratSection(ColoratTable table, std::wstring text) {
  table.colorats.clear();
  for (const std::wstring& block : SplitTrimmed(text, L"@", true)) TakeBlock(table, block);
  return static_cast<int>(table.colorats.size());
}

int ReadLeadingInt(std::wstring text) {
  const bool negative = !text.empty() && text[0] == L'-';
  if (negative || (!text.empty() && text[0] == L'+')) text.erase(0, 1);
  long long number = 0;
  for (const wchar_t unit : text) {
    const int digit = DigitOf(unit);
    if (digit < 0) break;
    // Saturates far beyond 32 bits, without overflowing 64.
    number = std::min(10 * number + digit, 1'000'000'000'000LL);
  }
  if (negative) number = -number;
  return static_cast<int>(std::clamp(number, -2'147'483'648LL, 2'147'483'647LL));
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
