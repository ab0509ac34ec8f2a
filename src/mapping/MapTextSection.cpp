#include "mapping/MapTextSection.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numeric>
#include <utility>

#include "classificator/TextFile.h"
#include "editor/Text.h"
#include "mapping/ParamSection.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A code and its items, as a header's views into the text of the section.
struct CodeHeader {
  std::wstring_view code;
  ItemSource items;
};

// What the records of one section look at.
struct PatternTexts {
  std::shared_ptr<const void> section;     // the owner of the text of the section
  std::vector<CodeHeader> headers = {{}};  // the first for the lines ahead of any header
  std::unique_ptr<wchar_t[]> capitals;     // of the pattern lines, one behind the other
  std::vector<std::wstring_view> tokens;
};

namespace {

struct PatternLine {
  std::wstring_view text;
  std::uint32_t header;
  std::uint32_t tokenCount;
};

std::wstring_view FirstWord(std::wstring_view text) {
  PieceReader words(text, L" ", true);
  std::wstring_view word;
  words.Next(word);
  return word;
}

// One list for each block of a header, whose text begins with the first.
std::vector<ParamItemList> ReadItemBlocks(const ItemSource& header) {
  std::vector<ParamItemList> lists;
  for (std::size_t open = 0; open != header.text.npos;) {
    const std::size_t close =
        FindText(header.text, header.closeMark, open + header.openMark.size());
    if (close == header.text.npos) break;
    // From one unit behind the mark's start: the rest of a longer mark stays in the block, and has
    // to.
    std::vector<std::wstring> tokens =
        SplitTrimmed(header.text.substr(open + 1, close - open - 1), L" ", false);
    lists.push_back(ParseParamItems(tokens, false));
    open = FindText(header.text, header.openMark, close + header.closeMark.size());
  }
  return lists;
}

// What the statements of one section build on.
class MapTextParser {
 public:
  MapTextParser(MapTextSection& target, PatternTexts& targetTexts)
      : section(target), texts(targetTexts), capitalsEnd(texts.capitals.get()) {}

  void ParseStatement(std::wstring_view statement) {
    if (statement.empty()) return;
    switch (statement.front()) {
      case L'/':
      case L'!':
        return;
      case L'@':
        return ParseAtSign(statement);
      case L'$':
        return SetDefaultCode(Trimmed(statement.substr(1)));
      default:
        AddPattern(statement);
    }
  }

  std::vector<PatternLine> patterns;

 private:
  void ParseAtSign(std::wstring_view statement) {
    if (StartsWith(statement, L"@@")) return SetDomenIds(Trimmed(statement.substr(2)));
    if (StartsWith(statement, L"@$")) return SetMarks(statement.substr(2));
    AddHeader(Trimmed(statement.substr(1)));
  }

  void SetDomenIds(std::wstring_view list) {
    const std::size_t open = list.find(L'(');
    const std::size_t close = list.find(L')');
    if (open == list.npos || close == list.npos) return;
    // A closing bracket ahead of the opening one closes nothing, and the list runs to the end.
    const std::size_t end = close > open ? close : list.size();
    section.domenIds = SplitTrimmed(list.substr(open + 1, end - open - 1), L" ", false);
  }

  void SetMarks(std::wstring_view marks) {
    PieceReader pieces(marks, L" ", false);
    std::wstring_view open;
    std::wstring_view close;
    if (!pieces.Next(open) || !pieces.Next(close)) return;
    openMark = open;
    closeMark = close;
  }

  void SetDefaultCode(std::wstring_view text) { section.defaultCode = FirstWord(text); }

  void AddHeader(std::wstring_view header) {
    const std::size_t open = std::min(FindText(header, openMark, 0), header.size());
    texts.headers.push_back({FirstWord(header.substr(0, open)),
                             {ReadItemBlocks, header.substr(open), openMark, closeMark, {}}});
  }

  void AddPattern(std::wstring_view line) {
    const std::size_t tokensBefore = texts.tokens.size();
    for (std::wstring_view rest = line;;) {
      const std::wstring_view token = TakeCapitals(rest);
      texts.tokens.push_back(Trimmed(token));
      if (rest.empty()) break;
      rest.remove_prefix(1);
    }
    patterns.push_back({line, static_cast<std::uint32_t>(texts.headers.size() - 1),
                        static_cast<std::uint32_t>(texts.tokens.size() - tokensBefore)});
  }

  // The capitals of the line up to the next blank among them, which the line loses.
  std::wstring_view TakeCapitals(std::wstring_view& line) {
    wchar_t* const start = capitalsEnd;
    wchar_t* end = start;
    const wchar_t* unit = line.data();
    const wchar_t* const lineEnd = unit + line.size();
    for (; unit != lineEnd; ++unit) {
      const wchar_t capital = upper.Upper(*unit);
      if (capital == L' ') break;
      *end++ = capital;
    }
    line.remove_prefix(static_cast<std::size_t>(unit - line.data()));
    capitalsEnd = end;
    return {start, end};
  }

  MapTextSection& section;
  PatternTexts& texts;
  wchar_t* capitalsEnd;
  UpperTable upper;
  std::wstring_view openMark = L"{";
  std::wstring_view closeMark = L"}";
};

// For each number of tokens, the position of the first record that has so many.
std::vector<std::size_t> FirstPositions(const std::vector<PatternLine>& patterns) {
  std::uint32_t most = 0;
  for (const PatternLine& pattern : patterns) most = std::max(most, pattern.tokenCount);
  std::vector<std::size_t> positions(most + std::size_t{2});
  for (const PatternLine& pattern : patterns) ++positions[pattern.tokenCount + std::size_t{1}];
  std::partial_sum(positions.begin(), positions.end(), positions.begin());
  return positions;
}

// The items of a header. They don't keep the texts that they look at: the records do.
ItemLists ItemsOf(const CodeHeader& header) {
  if (header.items.text.empty()) return {};
  return ItemLists(std::shared_ptr<const ItemSource>(std::shared_ptr<void>(), &header.items));
}

// One of each pattern, at the position that the function gives for its number of tokens.
template <class PositionFor>
std::vector<MapTextRecord> MakeRecords(const std::vector<PatternLine>& patterns,
                                       const PatternTexts& texts, PositionFor positionFor) {
  std::vector<MapTextRecord> records(patterns.size());
  const std::wstring_view* tokens = texts.tokens.data();
  for (const PatternLine& pattern : patterns) {
    const CodeHeader& header = texts.headers[pattern.header];
    records[positionFor(pattern.tokenCount)] = {header.code, ItemsOf(header), pattern.text,
                                                Tokens(tokens, pattern.tokenCount)};
    tokens += pattern.tokenCount;
  }
  return records;
}

// Sorted by the number of tokens, and among equals in the order of the file.
std::vector<MapTextRecord> SortedRecords(const std::vector<PatternLine>& patterns,
                                         const PatternTexts& texts) {
  std::vector<std::size_t> positions = FirstPositions(patterns);
  return MakeRecords(patterns, texts,
                     [&positions](std::uint32_t count) { return positions[count]++; });
}

std::vector<MapTextRecord> RecordsAsWritten(const std::vector<PatternLine>& patterns,
                                            const PatternTexts& texts) {
  std::size_t position = 0;
  return MakeRecords(patterns, texts, [&position](std::uint32_t) { return position++; });
}

}  // namespace

void ParseMapTextSection(MapTextSection& section, std::wstring_view text,
                         std::shared_ptr<const void> owner) {
  if (!owner) owner = KeepCopy(text);
  section.records = {};
  section.defaultCode = L"N00";
  const auto texts = std::make_shared<PatternTexts>();
  texts->section = std::move(owner);
  texts->capitals = std::make_unique_for_overwrite<wchar_t[]>(text.size());
  MapTextParser parser(section, *texts);
  try {
    PieceReader statements = SplitStatements(text);
    for (std::wstring_view statement; statements.Next(statement);) parser.ParseStatement(statement);
  } catch (...) {
    // The lines that have been read stay, in the order of the file.
    section.records = {RecordsAsWritten(parser.patterns, *texts), texts};
    section.records.Edit();
    throw;
  }
  if (!parser.patterns.empty()) section.records = {SortedRecords(parser.patterns, *texts), texts};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
