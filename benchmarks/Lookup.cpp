// Compares GetClaccificatorCodeId with its floor, a linear scan, RE2::Set and Hyperscan.
//
//   lookup_warm/WHO/SIZE   a lookup of one of 1,000 texts that were all looked up before
//   lookup_first/WHO/SIZE  a lookup of one of many texts, each for the first time, by a new
//                          contestant, with cold processor caches
//   lookup_build/WHO/SIZE  preparing the patterns for lookups; for the library this includes the
//                          first lookup, which builds the index
//
// With --titles=FOLDER there is one more size, with the tables of that folder.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "base/Utf8.h"
#include "classificator/Classificator.h"
#include "mapping/CodeLookup.h"
#include "mapping/MapTextSection.h"
#include "support/Patterns.h"
#include "support/Peers.h"
#include "support/Run.h"
#include "support/Schemes.h"
#include "support/TempFolder.h"
#include "support/Words.h"

namespace library = TolvenLibs::RevitMappingEditorDll;

namespace {

constexpr std::size_t textCount = 10'000;
constexpr std::size_t warmTextCount = 1'000;

// Hyperscan takes a quarter of a minute to prepare as many, and superlinear time for more.
constexpr std::size_t mostForHyperscan = 10'000;

class Editor {
 public:
  explicit Editor(const std::wstring& file) : editor_(L"", L"") {
    Require(editor_.CreateClassificator(L"S", L"", L"", file.c_str()) == 0, "the scheme's load");
    editor_.SetActiveClassificator(L"S");
    // The first lookup builds the index.
    editor_.GetClaccificatorCodeId(L"");
  }

  int Find(const std::wstring& text) { return editor_.GetClaccificatorCodeId(text.c_str()); }

 private:
  library::RevitMappingEditorDll editor_;
};

class Walker {
 public:
  explicit Walker(const std::vector<Tokens>& newRecords) : records_(newRecords) {}
  int Find(const std::wstring& text) { return Walk(records_, text); }

 private:
  const std::vector<Tokens>& records_;
};

class Floor {
 public:
  std::size_t Find(const std::wstring& text) { return words_.Cut(text).size(); }

 private:
  UpperWords words_;
};

// The data that the cases of one scheme share.
struct Size {
  Size(LookupData made, const TempFolder& folder)
      : data(std::move(made)),
        file(folder.Write(data.name + ".txt", MakeScheme(data.patterns, Headers::codes))) {
    for (const Tokens& tokens : data.records) expressions.push_back(MakeExpression(tokens));
    for (const std::wstring& text : data.texts) subjects.push_back(MakeSubject(text));
    warmTexts.assign(data.texts.begin(), data.texts.begin() + warmTextCount);
    warmSubjects.assign(subjects.begin(), subjects.begin() + warmTextCount);
  }

  LookupData data;
  std::wstring file;
  std::vector<std::string> expressions;
  std::vector<std::string> subjects;
  std::vector<std::wstring> warmTexts;
  std::vector<std::string> warmSubjects;
};

// Writes to twice the memory of a last-level cache.
void EvictCaches() {
  static std::vector<char> other(std::size_t{64} << 20);
  for (std::size_t i = 0; i < other.size(); i += 64) ++other[i];
  benchmark::ClobberMemory();
}

template <class Contestant, class Text>
std::vector<int> Answers(Contestant& contestant, const std::vector<Text>& texts) {
  std::vector<int> answers;
  for (const Text& text : texts) answers.push_back(contestant.Find(text));
  return answers;
}

template <class Contestant, class Text>
void AddWarm(const std::string& name, std::shared_ptr<Contestant> contestant,
             const std::vector<Text>& texts) {
  AddCase(name, [contestant = std::move(contestant), &texts, next = std::size_t{0}]() mutable {
    benchmark::DoNotOptimize(contestant->Find(texts[next]));
    next = next + 1 == texts.size() ? 0 : next + 1;
  });
}

template <class Make, class Text>
void AddFirstPass(const std::string& name, Make make, const std::vector<Text>& texts) {
  AddTimedCase(name, [make, &texts] {
    auto contestant = make();
    EvictCaches();
    const double seconds = Seconds([&contestant, &texts] {
      for (const Text& text : texts) benchmark::DoNotOptimize(contestant.Find(text));
    });
    return seconds / static_cast<double>(texts.size());
  })->Iterations(1);
}

// Adds the cases of a contestant, after checking that its answers are the expected ones.
template <class Make, class Text>
void AddContestant(const std::string& who, const Size& size, const std::vector<int>& expected,
                   Make make, const std::vector<Text>& texts, const std::vector<Text>& warmTexts) {
  using Contestant = decltype(make());
  std::shared_ptr<Contestant> contestant(new Contestant(make()));
  Require(Answers(*contestant, texts) == expected, who + " among " + size.data.name + " patterns");
  AddWarm(CaseName("lookup_warm", who, size.data.name), contestant, warmTexts);
  AddFirstPass(CaseName("lookup_first", who, size.data.name), make, texts);
}

template <class Build>
benchmark::internal::Benchmark* AddBuild(const std::string& who, const Size& size, Build build) {
  return AddCase(CaseName("lookup_build", who, size.data.name), build)
      ->Unit(benchmark::kMillisecond);
}

// Includes parsing the section, so this is an upper bound for the index alone.
void AddOwnBuild(const Size& size) {
  const std::wstring text = library::DecodeUtf8(MakeMapText(size.data.patterns, Headers::codes));
  AddBuild("ours", size, [text] {
    library::Classificator classificator(L"S");
    library::ParseMapTextSection(classificator.mapTextSection, text);
    benchmark::DoNotOptimize(
        library::FindCodeId(classificator.mapTextSection, L"the first lookup"));
  });
}

void AddOurs(const Size& size, const std::vector<int>& expected) {
  const auto make = [&size] { return Editor(size.file); };
  AddContestant("ours", size, expected, make, size.data.texts, size.warmTexts);
  AddOwnBuild(size);
}

void AddRe2(const Size& size, const std::vector<int>& expected) {
  const auto make = [&size] { return Re2Peer(size.expressions); };
  AddContestant("re2", size, expected, make, size.subjects, size.warmSubjects);
  AddBuild("re2", size, [make] { make(); });
}

// Timed once each, because they take so long.
void AddHyperscan(const Size& size, const std::vector<int>& expected) {
  if (size.expressions.size() > mostForHyperscan) return;
  const HyperscanPeer peer(size.expressions);
  const auto copy = [peer] { return peer; };
  AddContestant("hyperscan", size, expected, copy, size.subjects, size.warmSubjects);
  AddBuild("hyperscan", size, [&size] { HyperscanPeer built(size.expressions); })
      ->Iterations(1)
      ->Repetitions(1);
}

// The scan is slow among many patterns, so it gets only the warm texts.
void AddWalk(const Size& size, const std::vector<int>& expected) {
  const auto walker = std::make_shared<Walker>(size.data.records);
  const std::vector<int> warmExpected(expected.begin(), expected.begin() + warmTextCount);
  Require(Answers(*walker, size.warmTexts) == warmExpected, "the walk over " + size.data.name);
  AddWarm(CaseName("lookup_warm", "walk", size.data.name), walker, size.warmTexts);
}

void AddFloor(const Size& size) {
  AddWarm(CaseName("lookup_warm", "floor", size.data.name), std::make_shared<Floor>(),
          size.warmTexts);
  AddFirstPass(
      CaseName("lookup_first", "floor", size.data.name), [] { return Floor(); }, size.data.texts);
}

void AddCases(const Size& size) {
  Editor editor(size.file);
  const std::vector<int> expected = Answers(editor, size.data.texts);
  AddWalk(size, expected);
  AddOurs(size, expected);
  AddRe2(size, expected);
  AddHyperscan(size, expected);
  AddFloor(size);
}

LookupData ReadRealData(const std::string& folder) {
  LookupData data = ReadLookupData(folder);
  if (data.texts.size() >= warmTextCount) return data;
  throw std::runtime_error(folder + " has too few descriptions");
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const std::string titles = TakeTitles(argumentCount, arguments);
  const TempFolder folder;
  std::vector<std::unique_ptr<Size>> sizes;
  for (const std::size_t count : {100, 1'000, 10'000, 100'000}) {
    if (brief && count > 1'000) break;  // among fewer, hardly any text matches two
    sizes.push_back(std::make_unique<Size>(MakeLookupData(count, textCount), folder));
  }
  if (!titles.empty()) sizes.push_back(std::make_unique<Size>(ReadRealData(titles), folder));
  for (const std::unique_ptr<Size>& size : sizes) AddCases(*size);
  return RunCases(argumentCount, arguments);
}
