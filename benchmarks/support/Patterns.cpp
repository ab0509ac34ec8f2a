#include "support/Patterns.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/Utf8.h"

namespace fs = std::filesystem;
using TolvenLibs::RevitMappingEditorDll::DecodeUtf8;

namespace {

std::vector<std::wstring> MakePatterns(const Vocabulary& vocabulary, std::size_t count,
                                       Random& random) {
  std::vector<std::wstring> patterns;
  std::unordered_set<std::wstring> known;
  while (patterns.size() < count) {
    std::wstring pattern = MakePattern(vocabulary, random);
    if (known.insert(pattern).second) patterns.push_back(std::move(pattern));
  }
  return patterns;
}

// Returns the words of a pattern as in a description: capitalised, some with an ending.
std::wstring MakeBeginning(std::wstring_view pattern, Random& random) {
  std::wstring text;
  bool atStart = true;
  for (const wchar_t unit : pattern) {
    if (unit == L' ' && random.Below(4) == 0) text += L"s";
    text += atStart ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
    atStart = unit == L' ';
  }
  return text;
}

// Inserts an "x", which no word of the vocabulary has, into the first or second word, so that no
// pattern with this word matches.
void Misspell(std::wstring& text, Random& random) {
  const std::size_t blank = text.find(L' ');
  const bool inFirst = blank == text.npos || random.Below(2) == 0;
  text[inFirst ? 1 : blank + 2] = L'x';
}

// Appends words and sizes until there are 20 to 80 characters.
std::wstring Lengthen(std::wstring text, const Vocabulary& vocabulary, Random& random) {
  const std::size_t length = std::max(text.size(), random.Between<std::size_t>(20, 80));
  while (text.size() < length) {
    text += L' ';
    text += random.Below(3) == 0 ? std::to_wstring(random.Between(1, 300) * 10) + L"mm"
                                 : vocabulary.Frequent(random);
  }
  text.resize(length);
  if (text.back() == L' ') text.back() = L'2';
  return text;
}

std::vector<Tokens> TakeOneWordRecords(const std::vector<Tokens>& records) {
  const auto end = std::find_if(records.begin(), records.end(),
                                [](const Tokens& tokens) { return tokens.size() > 1; });
  return std::vector<Tokens>(records.begin(), end);
}

// Half of the texts begin with the words of a pattern, the others nearly do.
std::vector<std::wstring> MakeTexts(const LookupData& data, std::size_t count,
                                    const Vocabulary& vocabulary, Random& random) {
  const std::vector<Tokens> oneWordRecords = TakeOneWordRecords(data.records);
  std::vector<std::wstring> texts;
  std::unordered_set<std::wstring> known;
  while (texts.size() < count) {
    std::wstring text = MakeBeginning(data.patterns[random.Below(data.patterns.size())], random);
    const bool fits = texts.size() % 2 == 0;
    if (!fits) Misspell(text, random);
    text = Lengthen(std::move(text), vocabulary, random);
    if (!fits && Walk(oneWordRecords, text) >= 0) continue;
    if (known.insert(text).second) texts.push_back(std::move(text));
  }
  return texts;
}

std::vector<Tokens> MakeRecords(const std::vector<std::wstring>& patterns) {
  std::vector<Tokens> records;
  for (const std::wstring& pattern : patterns) records.push_back(MakeTokens(pattern));
  std::stable_sort(records.begin(), records.end(), [](const Tokens& left, const Tokens& right) {
    return left.size() < right.size();
  });
  return records;
}

// Returns the second column of all tables in a folder, in the order of the file names.
std::vector<std::wstring> ReadSecondColumn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  std::vector<std::wstring> texts;
  for (const fs::path& path : files) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      const std::size_t start = line.find('\t') + 1;
      texts.push_back(DecodeUtf8(line.substr(start, line.find('\t', start) - start)));
    }
  }
  return texts;
}

}  // namespace

// Two percent of the patterns have a single word, which may be a rare one: if it were always
// frequent, nearly every description would match them.
std::wstring MakePattern(const Vocabulary& vocabulary, Random& random) {
  const std::size_t kind = random.Below(100);
  if (kind < 2) return vocabulary.Any(random);
  const int words = kind < 35 ? 2 : kind < 70 ? 3 : 4;
  std::wstring pattern = vocabulary.Frequent(random);
  for (int i = 1; i < words; ++i) pattern += L" " + vocabulary.Frequent(random);
  return pattern;
}

LookupData MakeLookupData(std::size_t count, std::size_t textCount) {
  Random random(count);
  const Vocabulary vocabulary;
  LookupData data;
  data.name = std::to_string(count);
  data.patterns = MakePatterns(vocabulary, count, random);
  data.records = MakeRecords(data.patterns);
  data.texts = MakeTexts(data, textCount, vocabulary, random);
  return data;
}

LookupData ReadLookupData(const fs::path& folder) {
  LookupData data;
  data.name = "tables";
  data.patterns = ReadSecondColumn(folder / "classifications");
  data.records = MakeRecords(data.patterns);
  data.texts = ReadSecondColumn(folder / "models");
  return data;
}
