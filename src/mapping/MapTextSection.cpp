#include "mapping/MapTextSection.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "mapping/CapitalWords.h"
#include "mapping/ParamSection.h"
#include "mapping/UpperTable.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsPattern(std::wstring_view statement) {
  return !statement.empty() && std::wstring_view(L"/!@$").find(statement.front()) == statement.npos;
}

// Returns whether the statements are so much of the file that the records may keep all of it alive.
// `file.size` counts bytes, of which a letter beyond ASCII takes two or more.
bool IsMuchOf(const std::vector<std::wstring_view>& statements, const TextFile& file) {
  std::size_t size = 0;
  for (const std::wstring_view statement : statements) {
    if (IsPattern(statement) || statement.starts_with(L'@')) size += statement.size();
  }
  return size >= file.size / 4;
}

std::wstring_view FirstWord(std::wstring_view text) {
  PieceReader words(text, L" ", true);
  std::wstring_view word;
  words.Next(word);
  return word;
}

// An arena of the texts that the records of one section view. Texts never move.
class SectionTexts {
 public:
  // For a section of `size` units, whose texts are at most twice as many. `file`, which contains
  // the section, may be null; if it isn't, it is kept alive and spares copies.
  SectionTexts(std::size_t size, std::shared_ptr<const TextFile> file)
      : file_(std::move(file)), blockSize_(std::min(2 * size, maxBlockSize)) {}

  // Returns a view of the text that is valid as long as the arena.
  std::wstring_view Keep(std::wstring_view text) {
    if (file_) return text;
    wchar_t* const start = Reserve(text.size());
    return {start, end_ = std::copy(text.begin(), text.end(), start)};
  }

  // Adds the words of the text, upper-cased and separated by one blank.
  std::wstring_view AddTokens(std::wstring_view text, std::size_t& count, const UpperTable& upper) {
    wchar_t* const start = Reserve(text.size());
    wchar_t* end = start;
    CapitalWords words(text, upper);
    count = 0;
    for (std::wstring_view word; words.Next(word); ++count) {
      if (count > 0) *end++ = L' ';
      for (const wchar_t unit : word) *end++ = upper.Upper(unit);
    }
    return {start, end_ = end};
  }

 private:
  static constexpr std::size_t maxBlockSize = 1 << 16;

  wchar_t* Reserve(std::size_t size) {
    if (size > static_cast<std::size_t>(blockEnd_ - end_)) {
      const std::size_t newSize = std::max(size, blockSize_);
      blocks_.push_back(std::make_unique_for_overwrite<wchar_t[]>(newSize));
      end_ = blocks_.back().get();
      blockEnd_ = end_ + newSize;
    }
    return end_;
  }

  std::shared_ptr<const TextFile> file_;
  std::size_t blockSize_;
  std::vector<std::unique_ptr<wchar_t[]>> blocks_;
  wchar_t* end_ = nullptr;  // of the used part of the last block
  wchar_t* blockEnd_ = nullptr;
};

// A pattern line, before it becomes a record.
struct PatternLine {
  std::wstring_view text;
  std::wstring_view tokens;
  std::size_t tokenCount;
  std::size_t header;
};

// The state between the statements of one section.
class MapTextParser {
 public:
  MapTextParser(MapTextSection& section, std::shared_ptr<SectionTexts> texts, Account* account)
      : section_(section), texts_(std::move(texts)), account_(account) {
    AddHeader({});
  }

  void ParseStatement(std::wstring_view statement) {
    statement_ = statement;
    if (statement.empty()) return Tell(Outcome::blank);
    switch (statement.front()) {
      case L'/':
      case L'!':
        return Tell(Outcome::comment);
      case L'@':
        return ParseAtSign(statement);
      case L'$':
        return SetDefaultCode(Trimmed(statement.substr(1)));
      default:
        AddPattern(statement);
        Tell(Outcome::pattern);
    }
  }

  // Stores a record of each pattern, in the order of the file, at the position that `positionFor`
  // returns for its number of tokens. Allocates nothing.
  template <class PositionFor>
  void StoreRecords(std::vector<MapTextRecord>& records, PositionFor positionFor) const noexcept {
    for (const PatternLine& line : patterns) {
      const std::shared_ptr<const CodeHeader>& header = headers_[line.header];
      records[positionFor(line.tokenCount)] = {header->code, line.text, line.tokens, header};
    }
  }

  std::vector<PatternLine> patterns;

 private:
  // Says what became of the statement.
  void Tell(Outcome outcome, std::initializer_list<std::wstring_view> names = {}) const {
    Note(account_, outcome, statement_, names);
  }

  void ParseAtSign(std::wstring_view statement) {
    if (StartsWith(statement, L"@@")) return SetDomenIds(Trimmed(statement.substr(2)));
    if (StartsWith(statement, L"@$")) return SetMarks(statement.substr(2));
    AddHeader(Trimmed(statement.substr(1)));
    Tell(Outcome::codeHeader, {headers_.back()->code});
  }

  void SetDomenIds(std::wstring_view list) {
    const std::size_t open = list.find(L'(');
    const std::size_t close = list.find(L')');
    if (open == list.npos || close == list.npos) return Tell(Outcome::domainListWithoutBrackets);
    // A closing bracket before the opening one closes nothing: the list runs to the end.
    const std::size_t end = close > open ? close : list.size();
    section_.domenIds = SplitTrimmed(list.substr(open + 1, end - open - 1), L" ", false);
    Tell(Outcome::domainList);
  }

  void SetMarks(std::wstring_view marks) {
    PieceReader pieces(marks, L" ", false);
    std::wstring_view open;
    std::wstring_view close;
    if (!pieces.Next(open) || !pieces.Next(close)) return Tell(Outcome::blockMarksMissing);
    openMark_ = texts_->Keep(open);
    closeMark_ = texts_->Keep(close);
    Tell(Outcome::blockMarks, {open, close});
  }

  void SetDefaultCode(std::wstring_view text) {
    section_.defaultCode = FirstWord(text);
    Tell(Outcome::defaultCode, {section_.defaultCode});
  }

  void AddHeader(std::wstring_view text) {
    const std::size_t open = std::min(FindText(text, openMark_, 0), text.size());
    const std::wstring_view code = texts_->Keep(FirstWord(text.substr(0, open)));
    const std::wstring_view blocks = texts_->Keep(text.substr(open));
    headers_.push_back(std::make_shared<const CodeHeader>(
        CodeHeader{texts_, code, blocks, openMark_, closeMark_}));
  }

  void AddPattern(std::wstring_view line) {
    std::size_t tokenCount = 0;
    const std::wstring_view text = texts_->Keep(line);
    const std::wstring_view tokens = texts_->AddTokens(line, tokenCount, upper_);
    patterns.push_back({text, tokens, tokenCount, headers_.size() - 1});
  }

  MapTextSection& section_;
  std::shared_ptr<SectionTexts> texts_;
  Account* account_;
  std::wstring_view statement_;                             // that is being parsed
  std::vector<std::shared_ptr<const CodeHeader>> headers_;  // the first for lines before any header
  UpperTable upper_;
  std::wstring_view openMark_ = L"{";
  std::wstring_view closeMark_ = L"}";
};

// For each number of tokens, the position of the first record with that number: the prefix sums of
// a counting sort.
std::vector<std::size_t> FirstPositions(const std::vector<PatternLine>& patterns) {
  std::size_t most = 0;
  for (const PatternLine& line : patterns) most = std::max(most, line.tokenCount);
  std::vector<std::size_t> positions(most + 2);
  for (const PatternLine& line : patterns) ++positions[line.tokenCount + 1];
  std::partial_sum(positions.begin(), positions.end(), positions.begin());
  return positions;
}

}  // namespace

void ParseMapTextSection(MapTextSection& section, std::wstring_view text,
                         std::shared_ptr<const TextFile> file, Account* account) {
  section.records = {};
  section.defaultCode = L"N00";
  const std::vector<std::wstring_view> statements = SplitStatements(text, account);
  if (file && !account && !IsMuchOf(statements, *file)) file = nullptr;
  MapTextParser parser(section, std::make_shared<SectionTexts>(text.size(), std::move(file)),
                       account);
  // All memory is allocated before the first line is read: none is lost when memory runs out.
  std::vector<MapTextRecord> records(
      static_cast<std::size_t>(std::count_if(statements.begin(), statements.end(), IsPattern)));
  parser.patterns.reserve(records.size());
  try {
    for (const std::wstring_view statement : statements) parser.ParseStatement(statement);
    std::vector<std::size_t> positions = FirstPositions(parser.patterns);
    parser.StoreRecords(records, [&positions](std::size_t count) { return positions[count]++; });
  } catch (...) {
    std::size_t position = 0;
    parser.StoreRecords(records, [&position](std::size_t) { return position++; });
    records.resize(position);
    section.records.Swap(records);
    throw;
  }
  section.records.Swap(records);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
