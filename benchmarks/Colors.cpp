// Compares GetColorNum and GetColor on 10,000 key texts in random order with a binary search in a
// sorted array of the same keys.
//
//   color_num/WHO/10000, color/WHO/10000

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "base/Utf8.h"
#include "support/Random.h"
#include "support/Run.h"
#include "support/TempFolder.h"
#include "support/Vocabulary.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
using TolvenLibs::RevitMappingEditorDll::EncodeUtf8;

struct Color {
  int number;
  int channel1;
  int channel2;
  int channel3;
  int percent;

  bool operator==(const Color&) const = default;
};

using SortedColors = std::vector<std::pair<std::wstring, Color>>;

const Color& Find(const SortedColors& colors, std::wstring_view key) {
  return std::lower_bound(
             colors.begin(), colors.end(), key,
             [](const auto& entry, std::wstring_view text) { return entry.first < text; })
      ->second;
}

// In file order, which is not that of the keys.
SortedColors MakeColors(std::size_t count) {
  Random random(count);
  const Vocabulary vocabulary;
  SortedColors colors;
  for (int number = 1; colors.size() < count; ++number) {
    const auto value = [&random](std::size_t end) { return static_cast<int>(random.Below(end)); };
    colors.emplace_back(vocabulary.Any(random) + std::to_wstring(number),
                        Color{number, value(256), value(256), value(256), value(101)});
  }
  return colors;
}

std::string MakeFile(const SortedColors& colors) {
  std::string text = "==COLORAT\n@main Main colouring\n";
  for (const auto& [key, color] : colors) {
    text += EncodeUtf8(key).value();
    for (const int value : {color.channel1, color.channel2, color.channel3, color.percent}) {
      text += " " + std::to_string(value);
    }
    text += "\n";
  }
  return text;
}

Color Ask(Editor& editor, const std::wstring& key) {
  Color color;
  editor.GetColor(key.c_str(), color.number, color.channel1, color.channel2, color.channel3,
                  color.percent);
  return color;
}

// Adds a case that looks up one key after the other.
template <class Lookup>
void AddLookup(const std::string& name, const std::vector<std::wstring>& keys, Lookup lookup) {
  AddCase(name, [&keys, lookup, next = std::size_t{0}]() mutable {
    benchmark::DoNotOptimize(lookup(keys[next]));
    next = next + 1 == keys.size() ? 0 : next + 1;
  });
}

}  // namespace

int main(int argumentCount, char** arguments) {
  TakeBrief(argumentCount, arguments);
  const TempFolder folder;
  SortedColors sorted = MakeColors(10'000);
  const std::wstring file = folder.Write("colors.txt", MakeFile(sorted));
  std::vector<std::wstring> keys;
  for (const auto& [key, color] : sorted) keys.push_back(key);
  std::sort(sorted.begin(), sorted.end(),
            [](const auto& left, const auto& right) { return left.first < right.first; });

  Editor editor(L"", L"");
  Require(editor.CreateClassificator(L"S", L"", L"", file.c_str()) == 0, "the load of colours");
  editor.SetActiveClassificator(L"S");
  for (const std::wstring& key : keys) {
    Require(Ask(editor, key) == Find(sorted, key), "GetColor");
    Require(editor.GetColorNum(key.c_str()) == Find(sorted, key).number, "GetColorNum");
  }

  AddLookup("color_num/ours/10000", keys,
            [&](const std::wstring& key) { return editor.GetColorNum(key.c_str()); });
  AddLookup("color_num/floor/10000", keys,
            [&](const std::wstring& key) { return Find(sorted, key.c_str()).number; });
  AddLookup("color/ours/10000", keys, [&](const std::wstring& key) { return Ask(editor, key); });
  AddLookup("color/floor/10000", keys,
            [&](const std::wstring& key) { return Find(sorted, key.c_str()); });
  return RunCases(argumentCount, arguments);
}
