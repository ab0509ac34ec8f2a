#include "authoring/ColoratCheck.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/ColorDifference.h"
#include "authoring/Findings.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Codes = std::set<std::wstring_view>;

// A Colorat with the places of its lines.
struct PlacedColorat {
  std::wstring_view title;                           // of its last block
  std::map<std::wstring, std::wstring_view> lineOf;  // the first of each key text
};

std::map<std::wstring, PlacedColorat> PlacedColorats(const Account& account) {
  std::map<std::wstring, PlacedColorat> colorats;
  PlacedColorat* current = nullptr;
  for (const AccountEntry& entry : account.entries) {
    if (entry.outcome == Outcome::coloratHeading) colorats.clear();
    if (entry.outcome == Outcome::coloratTitle) {
      current = &colorats[entry.names[0]];
      current->title = entry.piece;
    }
    if (entry.outcome == Outcome::colorLine)
      current->lineOf.try_emplace(entry.names[0], entry.piece);
  }
  return colorats;
}

Codes CodesOf(const MapTextSection& section) {
  Codes codes = {section.defaultCode};
  for (const MapTextRecord& record : section.records) codes.insert(record.code);
  codes.erase(std::wstring_view());
  return codes;
}

bool BeginsACode(std::wstring_view key, const Codes& codes) {
  const auto code = codes.lower_bound(key);
  return code != codes.end() && code->starts_with(key);
}

bool HasColor(std::wstring_view code, const ColorMap& colors) {
  for (std::size_t size = 1; size <= code.size(); ++size) {
    if (colors.find(code.substr(0, size)) != colors.end()) return true;
  }
  return false;
}

class ColoratChecker {
 public:
  ColoratChecker(const LoadedFile& file, const Places& places, Report& report)
      : classificator_(*file.classificator),
        placed_(PlacedColorats(file.account)),
        codes_(CodesOf(classificator_.mapTextSection)),
        places_(places),
        report_(report) {}

  void Check() {
    for (const auto& [id, colors] : classificator_.colorats) {
      const PlacedColorat& placed = placed_.at(id);
      if (colors.size() == 0) AddFinding(report_, 612, places_.Of(placed.title), Fate::used);
      TellAlike(colors, placed);
      TellKeysWithoutCode(colors, placed);
      TellCodesWithoutColor(id, colors, placed);
    }
  }

 private:
  void TellAlike(const ColorMap& colors, const PlacedColorat& placed) {
    std::vector<RgbColor> channels;
    for (const auto& [key, color] : colors) {
      channels.push_back({color.channel1, color.channel2, color.channel3});
    }
    const std::vector<std::optional<std::size_t>> alike = FirstAlike(channels);
    for (std::size_t i = 0; i < alike.size(); ++i) {
      if (!alike[i]) continue;
      const std::wstring& key = (colors.begin() + static_cast<std::ptrdiff_t>(i))->first;
      const std::wstring& other = (colors.begin() + static_cast<std::ptrdiff_t>(*alike[i]))->first;
      AddFinding(report_, 609, places_.Of(placed.lineOf.at(key)), Fate::used, {key, other})
          .related.push_back({places_.Of(placed.lineOf.at(other)), RelatedKind::alike});
    }
  }

  // Without patterns there are no codes to compare with.
  void TellKeysWithoutCode(const ColorMap& colors, const PlacedColorat& placed) {
    if (classificator_.mapTextSection.records.empty()) return;
    for (const auto& [key, color] : colors) {
      if (BeginsACode(key, codes_)) continue;
      AddFinding(report_, 610, places_.Of(placed.lineOf.at(key)), Fate::used, {key});
    }
  }

  void TellCodesWithoutColor(const std::wstring& id, const ColorMap& colors,
                             const PlacedColorat& placed) {
    std::vector<std::wstring_view> bare;
    std::copy_if(codes_.begin(), codes_.end(), std::back_inserter(bare),
                 [&](std::wstring_view code) { return !HasColor(code, colors); });
    if (2 * bare.size() >= codes_.size()) return;
    for (const std::wstring_view code : bare) {
      AddFinding(report_, 611, places_.Of(placed.title), Fate::used, {code, id});
    }
  }

  const Classificator& classificator_;
  std::map<std::wstring, PlacedColorat> placed_;
  Codes codes_;
  const Places& places_;
  Report& report_;
};

}  // namespace

void CheckColorats(const LoadedFile& file, const Places& places, Report& report) {
  ColoratChecker(file, places, report).Check();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
