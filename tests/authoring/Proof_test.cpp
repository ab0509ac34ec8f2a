// What a check says of a statement is true: one that is said to have no effect has none, and one
// that is said to be used has one, or a reason that is listed here.

#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "authoring/AllAnswers.h"
#include "authoring/Check.h"
#include "authoring/Places.h"
#include "authoring/RandomFiles.h"
#include "authoring/Without.h"
#include "classify/Environment.h"
#include "mapping/CodeLookup.h"
#include "mapping/CodeParams.h"
#include "naive/CodeLookup.h"
#include "naive/Rows.h"
#include "support/DescribeDomens.h"
#include "support/Program.h"
#include "support/Random.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// How many times as many rounds are run as in a build.
std::size_t Rounds(std::size_t usual) {
  const std::string times = EnvironmentVariable("PROOF_ROUNDS");
  if (!times.empty()) return usual * std::stoul(times);
  return SLOW_BUILD ? usual / 10 + 1 : usual;
}

struct ProofFile {
  std::string name;
  std::string bytes;
  bool isClassificator;
};

using ProofFiles = std::vector<ProofFile>;

std::wstring Wide(const std::string& name) {
  return {name.begin(), name.end()};
}

ProofFile Sample(const std::string& name, bool isClassificator) {
  const std::filesystem::path folder = SOURCE_FOLDER;
  return {name, ReadBytes(folder / "data" / name), isClassificator};
}

std::vector<ProofFiles> Samples() {
  return {{Sample("uniformat.txt", true), Sample("domens.txt", false)},
          {Sample("classificator_ru.txt", true), Sample("domens.txt", false),
           Sample("zones.json", false)}};
}

// The files in a folder, as they are now.
class WrittenFiles {
 public:
  explicit WrittenFiles(ProofFiles files) : files_(std::move(files)) {
    list_.dataFolder = folder_.Wide();
    for (const ProofFile& file : files_) {
      folder_.Write(file.name, file.bytes);
      (file.isClassificator ? list_.classificators : list_.domens).push_back(Wide(file.name));
    }
  }

  void Load(LoadedFiles& loaded) const { ASSERT_EQ(LoadFiles(list_, loaded), std::nullopt); }

  // The number is that of the file in the report: classificators come first.
  const ProofFile& File(std::size_t number) const {
    for (const bool isClassificator : {true, false}) {
      for (const ProofFile& file : files_) {
        if (file.isClassificator == isClassificator && number-- == 0) return file;
      }
    }
    throw std::out_of_range("no such file");
  }

  void Replace(std::size_t number, std::string_view bytes) {
    folder_.Write(File(number).name, bytes);
  }

  void Restore(std::size_t number) { folder_.Write(File(number).name, File(number).bytes); }

  Answers Ask(const ProofQuestions& questions, bool exports) const {
    return AnswersAbout(list_, questions,
                        exports ? exportFolder_.Path() / "export.json" : std::filesystem::path());
  }

  const FileList& List() const { return list_; }

  // All files, for a message.
  std::string Shown() const {
    std::string shown;
    for (const ProofFile& file : files_) shown += "--- " + file.name + "\n" + file.bytes + "\n";
    return shown;
  }

 private:
  ProofFiles files_;
  FileList list_;
  TempFolder folder_;
  TempFolder exportFolder_;
};

ProofQuestions QuestionsAbout(const LoadedFiles& loaded, Random& random) {
  ProofQuestions questions;
  std::set<std::wstring> ids = {L"none"};
  for (const Classificator& classificator : loaded.classificators) {
    for (const MapTextRecord& record : classificator.mapTextSection.records) {
      questions.texts.emplace_back(record.text);
      if (random.OneIn(4)) questions.texts.push_back(std::wstring(record.text) + L" x");
    }
    for (const auto& [id, colors] : classificator.colorats) ids.insert(id);
  }
  for (int i = 0; i < 60; ++i) questions.texts.push_back(RandomDescription(random));
  questions.coloratIds = {ids.begin(), ids.end()};
  std::set<std::wstring> types = {L"Door", L"Room", L"none"};
  for (const auto& [id, domen] : loaded.domens.domens) {
    for (const auto& [key, property] : domen.properties) {
      types.insert(property.objectTypes.begin(), property.objectTypes.end());
    }
  }
  questions.objectTypes = {types.begin(), types.end()};
  return questions;
}

// Why a statement is used though nothing answers differently without it.
enum class Reason {
  none,
  heading,         // it ends the section above, even where either is empty
  classTitle,      // no call returns it
  param,           // the section names no domains
  finding,         // a finding at its place says what it does
  replacing,       // what it takes the place of may be the same
  objectTypes,     // they are those of the properties after them, which may have them anyway
  blockMarks,      // they matter to the headers after them, if those have blocks
  domainList,      // it matters to headers with items
  codeHeader,      // its patterns are unreachable, or have the code of the header above
  pattern,         // another pattern of its code, or the default code, takes its texts
  blockOfColorat,  // the block that needs it may have no colours, and the id of another
  definition,      // a later one may say the same
  domen,           // a later one may open it
};

class Proof {
 public:
  Proof(ProofFiles files, Random& random) : written_(std::move(files)), random_(random) {
    written_.Load(loaded_);
    report_ = CheckFiles(loaded_);
    questions_ = QuestionsAbout(loaded_, random);
    for (std::size_t i = 0; i < loaded_.files.size(); ++i) {
      entries_.merge(EntriesOf(loaded_.files[i], i));
    }
    for (const Finding& finding : report_.findings) {
      findings_.insert(finding.place);
      for (const Related& related : finding.related) {
        if (related.kind == RelatedKind::later) replacing_.insert(related.place);
        if (related.kind == RelatedKind::earlier) defined_.insert(related.place);
      }
    }
    usual_ = written_.Ask(questions_, false);
    withExports_ = written_.Ask(questions_, true);
  }

  // Of every statement, or of so many by chance.
  void HoldsForStatements(std::size_t most = 0) {
    const std::size_t count = report_.statements.size();
    for (std::size_t i = 0; i < count && !testing::Test::HasFailure(); ++i) {
      if (most == 0 || random_.Below(count) < most) HoldsFor(report_.statements[i]);
    }
  }

  // All that has no effect may go at once.
  void HoldsForAllAtOnce() {
    for (std::size_t i = 0; i < loaded_.files.size(); ++i) {
      if (!loaded_.files[i].text) continue;
      std::string bytes = written_.File(i).bytes;
      for (const Statement& statement : report_.statements) {
        if (statement.place.file != i || statement.fate == Fate::used) continue;
        if (IsRestOfFile(loaded_.files[i], statement)) continue;
        // Signs of one byte each move no character after them on a line of ASCII alone.
        masks_.push_back(MaskOf(statement));
      }
      for (auto place = masks_.rbegin(); place != masks_.rend(); ++place) {
        bytes = Masked(std::move(bytes), *place);
      }
      masks_.clear();
      written_.Replace(i, bytes);
    }
    EXPECT_EQ(FirstDifference(usual_, written_.Ask(questions_, false)), L"") << written_.Shown();
    for (std::size_t i = 0; i < loaded_.files.size(); ++i) written_.Restore(i);
  }

  // A pattern is unreachable if and only if the walk over the records, from the first on, answers
  // its own words with another record.
  void HoldsForPatterns() const {
    std::map<Place, Fate> fates;
    for (const Statement& statement : report_.statements) fates[statement.place] = statement.fate;
    for (std::size_t file = 0; file < loaded_.files.size(); ++file) {
      if (!loaded_.files[file].classificator) continue;
      const Places places(loaded_.files[file], file);
      const MapTextSection& section = loaded_.files[file].classificator->mapTextSection;
      const Naive::MapTextSection naive = Naive::CopyOf(section);
      for (std::size_t i = 0; i < section.records.size(); ++i) {
        const std::wstring_view text = section.records[i].text;
        const bool isFound = Naive::FindCodeId(naive, std::wstring(text)) == static_cast<int>(i);
        const auto fate = fates.find(places.Of(text));
        ASSERT_NE(fate, fates.end()) << written_.Shown();
        EXPECT_EQ(fate->second == Fate::unreachable, !isFound)
            << testing::PrintToString(std::wstring(text)) << "\n"
            << written_.Shown();
      }
    }
  }

  // No line is without a statement, but for those that only separate.
  void HoldsForLines() {
    std::set<std::pair<std::size_t, std::size_t>> told;
    for (const Statement& statement : report_.statements) {
      const auto& [file, line, column, endLine, endColumn] = statement.place;
      for (std::size_t each = line; each <= endLine; ++each) told.emplace(file, each);
    }
    for (std::size_t file = 0; file < loaded_.files.size(); ++file) {
      if (!loaded_.files[file].text) continue;
      std::istringstream lines(written_.File(file).bytes);
      std::size_t number = 0;
      for (std::string line; std::getline(lines, line);) {
        const bool separates =
            line.find_first_not_of(" \t\r;@") == line.npos && line.find_first_of(";@") != line.npos;
        EXPECT_TRUE(told.contains({file, ++number}) || separates) << "line " << number << "\n"
                                                                  << written_.Shown();
      }
    }
  }

 private:
  void HoldsFor(const Statement& statement) {
    if (!loaded_.files[statement.place.file].text) return;
    const std::optional<std::string> without = FileWithout(statement);
    if (!without) return;
    written_.Replace(statement.place.file, *without);
    const bool exports = random_.OneIn(100);
    const std::wstring difference =
        FirstDifference(exports ? withExports_ : usual_, written_.Ask(questions_, exports));
    if (statement.fate != Fate::used) {
      EXPECT_EQ(difference, L"") << Told(statement) << *without;
    } else if (difference.empty()) {
      EXPECT_NE(ReasonOf(statement), Reason::none) << Told(statement) << *without;
    }
    written_.Restore(statement.place.file);
  }

  // Without the statement, but cut as before. Nothing if no file is both.
  std::optional<std::string> FileWithout(const Statement& statement) {
    const std::size_t number = statement.place.file;
    const LoadedFile& file = loaded_.files[number];
    const std::string& bytes = written_.File(number).bytes;
    if (IsUnreadHeading(statement)) {
      std::string masked = Masked(bytes, MaskOf(statement));
      return masked == bytes ? std::nullopt : std::optional(masked);
    }
    const std::optional<std::string> leftOut = LeftOut(bytes, file, statement);
    if (leftOut && (IsUnread(statement) || IsRestOfFile(file, statement) ||
                    CutWith(number, *leftOut) == CutOf(file))) {
      return leftOut;
    }
    std::string masked = Masked(bytes, statement.place);
    if (masked == bytes || IsColor(statement)) return std::nullopt;
    return masked;
  }

  Cut CutWith(std::size_t number, const std::string& bytes) {
    written_.Replace(number, bytes);
    LoadedFiles loaded;
    written_.Load(loaded);
    written_.Restore(number);
    return CutOf(loaded.files[number]);
  }

  std::optional<Outcome> OutcomeOf(const Statement& statement) const {
    const auto entry = entries_.find(statement.place);
    return entry == entries_.end() ? std::nullopt : std::optional(entry->second->outcome);
  }

  bool IsUnreadHeading(const Statement& statement) const {
    return IsUnread(statement) &&
           IsHeadingAt(written_.File(statement.place.file).bytes, statement.place);
  }

  // What is masked of a statement. The heading of a section that nobody reads ends the one above
  // it: it stays a heading.
  Place MaskOf(const Statement& statement) const {
    Place place = statement.place;
    if (IsUnreadHeading(statement)) place.column += 2;
    return place;
  }

  bool IsUnread(const Statement& statement) const {
    return statement.fate == Fate::ignored && !OutcomeOf(statement);
  }

  // Signs of a comment are five words as well.
  bool IsColor(const Statement& statement) const {
    const std::optional<Outcome> outcome = OutcomeOf(statement);
    return outcome == Outcome::colorLine || outcome == Outcome::coloratTitle;
  }

  Reason ReasonOf(const Statement& statement) const {
    if (findings_.contains(statement.place)) return Reason::finding;
    if (defined_.contains(statement.place)) return Reason::definition;
    if (replacing_.contains(statement.place)) return Reason::replacing;
    const std::optional<Outcome> outcome = OutcomeOf(statement);
    if (!outcome || *outcome <= Outcome::domenHeading) return Reason::heading;
    switch (*outcome) {
      case Outcome::classTitle:
        return Reason::classTitle;
      case Outcome::paramStatement:
        return Reason::param;
      case Outcome::objectTypes:
        return Reason::objectTypes;
      case Outcome::blockMarks:
        return Reason::blockMarks;
      case Outcome::domainList:
        return Reason::domainList;
      case Outcome::codeHeader:
        return Reason::codeHeader;
      case Outcome::pattern:
        return Reason::pattern;
      case Outcome::coloratTitle:
      case Outcome::notFiveWords:
        return Reason::blockOfColorat;
      case Outcome::domen:
      case Outcome::domenAgain:
        return Reason::domen;
      default:
        return Reason::none;
    }
  }

  std::string Told(const Statement& statement) const {
    const Place& place = statement.place;
    const std::optional<Outcome> outcome = OutcomeOf(statement);
    return std::to_string(place.line) + ":" + std::to_string(place.column) + " is " +
           std::string(NameOf(statement.fate)) + ", outcome " +
           (outcome ? std::to_string(static_cast<int>(*outcome)) : "none") + "\n" +
           written_.Shown() + "--- without\n";
  }

  WrittenFiles written_;
  Random& random_;
  LoadedFiles loaded_;
  Report report_;
  ProofQuestions questions_;
  std::map<Place, const AccountEntry*> entries_;
  std::set<Place> findings_;
  std::set<Place> replacing_;  // what takes the place of others
  std::set<Place> defined_;    // what later ones define again
  std::vector<Place> masks_;
  Answers usual_;
  Answers withExports_;
};

ProofFiles RandomSet(Random& random) {
  ProofFiles files = {{"scheme.txt", RandomClassificator(random), true}};
  if (random.OneIn(20)) files[0].name = "scheme.dat";
  if (random.OneIn(8)) files.push_back({"scheme2.txt", RandomClassificator(random), true});
  if (random.OneIn(2)) files.push_back({"domens.txt", RandomDomens(random), false});
  if (random.OneIn(20)) files.push_back({"domens.dat", RandomDomens(random), false});
  if (random.OneIn(2)) {
    for (ProofFile& file : files) {
      for (std::size_t count = random.Below(4); count > 0; --count) {
        file.bytes = Damaged(std::move(file.bytes), random);
      }
    }
  }
  return files;
}

TEST(CheckProof, HoldsForRandomFiles) {
  for (std::size_t seed = 0; seed < Rounds(300) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    Proof proof(RandomSet(random), random);
    proof.HoldsForStatements();
    proof.HoldsForAllAtOnce();
    proof.HoldsForLines();
  }
}

TEST(CheckProof, HoldsForTheSamples) {
  Random random(1);
  for (const ProofFiles& files : Samples()) {
    Proof proof(files, random);
    proof.HoldsForStatements(Rounds(100));
    proof.HoldsForAllAtOnce();
    proof.HoldsForLines();
    proof.HoldsForPatterns();
  }
}

TEST(CheckProof, HoldsForDamagedSamples) {
  for (std::size_t seed = 0; seed < Rounds(30) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    ProofFiles files = Samples()[seed % 2];
    ProofFile& file = files[random.Below(2)];
    for (int i = 0; i < 5; ++i) file.bytes = Damaged(std::move(file.bytes), random);
    Proof proof(std::move(files), random);
    proof.HoldsForStatements(5);
    proof.HoldsForAllAtOnce();
    proof.HoldsForLines();
    proof.HoldsForPatterns();
  }
}

// Schemes of real titles: the patterns are the words of titles, cut short by chance, so that many
// shadow one another.
std::string SchemeOfTitles(const std::filesystem::path& table, std::size_t most, Random& random) {
  std::ifstream file(table);
  std::string scheme = "==MAPTEXT\n@@ (Openings)\n$ Z99\n";
  std::size_t count = 0;
  for (std::string line; std::getline(file, line);) {
    const std::size_t tab = line.find('\t');
    if (tab == line.npos || !random.OneIn(20)) continue;
    if (++count > most) break;
    std::string title = line.substr(tab + 1);
    if (random.OneIn(2)) title = title.substr(0, title.find(' '));
    scheme += "@" + line.substr(0, tab) + "\n" + title + "\n";
  }
  return scheme;
}

TEST(CheckProof, HoldsForSchemesOfRealTitles) {
  const std::filesystem::path folder =
      std::filesystem::path(SOURCE_FOLDER) / "../shared/data/classifications";
  if (!std::filesystem::exists(folder)) GTEST_SKIP() << "no " << folder;
  for (const char* table : {"uniformat2.tsv", "okpd2_even_ru.tsv", "ifc4x3_types.tsv"}) {
    SCOPED_TRACE(table);
    Random random(1);
    Proof proof({{"scheme.txt", SchemeOfTitles(folder / table, 300, random), true}}, random);
    proof.HoldsForStatements(Rounds(60));
    proof.HoldsForAllAtOnce();
    proof.HoldsForLines();
    proof.HoldsForPatterns();
  }
}

TEST(CheckProof, FindsExactlyThePatternsThatAreUnreachable) {
  for (std::size_t seed = 0; seed < Rounds(1000) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    Proof(RandomSet(random), random).HoldsForPatterns();
  }
}

// All that a classificator record has from its file.
auto RowsOf(const Classificator& classificator) {
  const Naive::MapTextSection mapText = Naive::CopyOf(classificator.mapTextSection);
  const Naive::ParamSection param = Naive::CopyOf(classificator.paramSection);
  Naive::ColorRows colors;
  for (const auto& [id, map] : classificator.colorats) {
    auto& keys = colors[id];
    for (const auto& [key, color] : map) {
      keys[key] = {color.number, color.channel1, color.channel2, color.channel3, color.percent};
    }
  }
  return std::tuple(classificator.classTitle, classificator.classFirstWord,
                    classificator.classSecondWord, mapText.domenIds, mapText.defaultCode,
                    Naive::RowsOf(mapText), param.domenIds, Naive::RowsOf(param), colors,
                    classificator.activeColoratId, classificator.filePath);
}

void ExpectSameSections(const Classificator& told, const Classificator& plain, Random& random) {
  EXPECT_EQ(RowsOf(told), RowsOf(plain));
  for (int i = 0; i < 40; ++i) {
    const std::wstring text = RandomDescription(random);
    EXPECT_EQ(FindCodeId(told.mapTextSection, text), FindCodeId(plain.mapTextSection, text));
  }
}

// The items of all codes of both, as their stores have them.
void ExpectSameItems(const Classificator& told, const DomenStore& toldStore,
                     const Classificator& plain, const DomenStore& plainStore) {
  const int count = static_cast<int>(plain.mapTextSection.records.size());
  for (int codeId = noCodeId; codeId < count; ++codeId) {
    CodeItems composed, plainComposed;
    EXPECT_EQ(
        FindCodeItems(SectionsOf(told), toldStore, codeId, sourceMapText, composed).text,
        FindCodeItems(SectionsOf(plain), plainStore, codeId, sourceMapText, plainComposed).text);
  }
}

// Loads the files with an account and checks them, and loads them as the editor does.
void ExpectSameLoads(const ProofFiles& files, Random& random) {
  const WrittenFiles written(files);
  LoadedFiles told;
  written.Load(told);
  CheckFiles(told);
  std::deque<Classificator> classificators;
  DomenStore store;
  for (const std::wstring& name : written.List().classificators) {
    const std::wstring path = written.List().dataFolder + L"/" + name;
    Classificator& classificator = classificators.emplace_back(name);
    std::shared_ptr<const TextFile> read;
    ASSERT_EQ(classificator.Load(path, &read), 0);
    store.LoadDomen(path, L"", read);
  }
  for (const std::wstring& name : written.List().domens) {
    store.LoadDomen(written.List().dataFolder + L"/" + name, L"");
  }
  ASSERT_EQ(told.classificators.size(), classificators.size());
  EXPECT_EQ(told.domens.activeDomenId, store.activeDomenId) << written.Shown();
  EXPECT_EQ(Describe(told.domens), Describe(store)) << written.Shown();
  for (std::size_t i = 0; i < classificators.size(); ++i) {
    ExpectSameSections(told.classificators[i], classificators[i], random);
    ExpectSameItems(told.classificators[i], told.domens, classificators[i], store);
  }
}

TEST(LoadWithAnAccount, FillsTheSameRecordsForTheSamples) {
  Random random(1);
  for (const ProofFiles& files : Samples()) ExpectSameLoads(files, random);
}

TEST(LoadWithAnAccount, FillsTheSameRecordsForRandomFiles) {
  for (std::size_t seed = 0; seed < Rounds(500) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    ExpectSameLoads(RandomSet(random), random);
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
