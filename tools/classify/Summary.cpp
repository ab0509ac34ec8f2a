#include "Summary.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "Wide.h"

namespace {

using CodeCount = std::pair<std::wstring, std::size_t>;

std::vector<CodeCount> MostFrequent(const std::map<std::wstring, std::size_t>& elementsByCode) {
  std::vector<CodeCount> counts(elementsByCode.begin(), elementsByCode.end());
  std::stable_sort(counts.begin(), counts.end(), [](const CodeCount& left, const CodeCount& right) {
    return left.second > right.second;
  });
  counts.resize(std::min<std::size_t>(counts.size(), 10));
  return counts;
}

std::string Count(std::size_t number, const char* one, const char* many) {
  return std::to_string(number) + " " + (number == 1 ? one : many);
}

std::string Rounded(double number, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return text;
}

}  // namespace

std::string FormatSummary(const Summary& summary) {
  const auto elements = static_cast<double>(summary.elements);
  const double share =
      summary.elements == 0 ? 0 : 100 * static_cast<double>(summary.matched) / elements;
  std::string text = Count(summary.elements, "element", "elements") + ", " +
                     std::to_string(summary.matched) + " matched (" + Rounded(share, 1) + " %)\n";
  if (summary.elements == 0) return text;
  text += "most frequent codes:\n";
  for (const auto& [code, count] : MostFrequent(summary.elementsByCode)) {
    std::string number = std::to_string(count);
    number.insert(0, number.size() < 8 ? 8 - number.size() : 0, ' ');
    text += number + "  " + ToUtf8(code) + "\n";
  }
  const double seconds = std::max(summary.time.count(), 1e-9);
  return text + Rounded(elements / seconds, 0) + " elements per second\n";
}
