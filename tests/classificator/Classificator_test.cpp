#include "classificator/Classificator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/CodeLookup.h"
#include "support/GlobalLocale.h"
#include "support/TempFolder.h"
#include "support/UpperFails.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Texts = std::vector<std::wstring>;

// A new record after loading a file of these bytes.
struct Loaded {
  explicit Loaded(std::string_view bytes) : status(record.Load(folder.Write("a.txt", bytes))) {}

  // Returns the pattern lines, which show what has been parsed of ==MAPTEXT.
  Texts Patterns() const {
    Texts patterns;
    for (const MapTextRecord& one : record.mapTextSection.records) patterns.emplace_back(one.text);
    return patterns;
  }

  // Returns the codes of ==PARAM, for the same purpose.
  Texts ParamCodes() const {
    Texts codes;
    for (const ParamRecord& one : record.paramSection.records) codes.push_back(one.code);
    return codes;
  }

  TempFolder folder;
  Classificator record{L"id"};
  int status;
};

void ExpectNoSections(const Classificator& record) {
  EXPECT_EQ(record.mapTextSection.defaultCode, L"");
  EXPECT_TRUE(record.mapTextSection.records.empty());
  EXPECT_TRUE(record.mapTextSection.domenIds.empty());
  EXPECT_TRUE(record.paramSection.records.empty());
  EXPECT_TRUE(record.paramSection.domenIds.empty());
}

TEST(Classificator, StartsWithItsIdAndTheMarksAlone) {
  const Classificator record(L"Стены");
  EXPECT_EQ(record.classificatorId, L"Стены");
  EXPECT_EQ(record.classificatorName, L"");
  EXPECT_EQ(record.paramName, L"");
  EXPECT_EQ(record.filePath, L"");
  EXPECT_EQ(record.reservedText, L"");
  EXPECT_EQ(record.openMark, L"{");
  EXPECT_EQ(record.closeMark, L"}");
  ExpectNoSections(record);
}

// Returns a text of all members of a record except the items of its codes.
std::wstring Describe(const Classificator& record) {
  std::wstring all;
  const auto add = [&all](std::wstring_view text) { all.append(text).append(L"|"); };
  for (const std::wstring* text :
       {&record.classificatorId, &record.classificatorName, &record.paramName, &record.filePath,
        &record.classTitle, &record.classFirstWord, &record.classSecondWord, &record.reservedText,
        &record.openMark, &record.closeMark, &record.activeColoratId,
        &record.mapTextSection.defaultCode}) {
    add(*text);
  }
  for (const auto& [id, colors] : record.colorats) {
    add(L"colorat " + id);
    for (const auto& [key, color] : colors) {
      add(key);
      for (const int number :
           {color.number, color.channel1, color.channel2, color.channel3, color.percent}) {
        add(std::to_wstring(number));
      }
    }
  }
  for (const std::wstring& id : record.mapTextSection.domenIds) add(L"domain " + id);
  for (std::size_t i = 0; i < record.mapTextSection.records.size(); ++i) {
    add(record.mapTextSection.records[i].code);
    add(record.mapTextSection.records[i].text);
  }
  for (const ParamRecord& one : record.paramSection.records) add(one.code);
  for (const std::wstring& id : record.paramSection.domenIds) add(L"domain " + id);
  return all;
}

// Two files whose records differ in every member.
constexpr const char* fullFile =
    "==CLASS\n@@@ Title of walls (Aaaa Bbbb)\n==MAPTEXT\n@@ (Domain-of-walls)\n$ Z10\n"
    "@A-code-of-walls {P=1}\nwall of bricks and mortar\nwall of glass\n"
    "==PARAM\nA-code-of-walls P=1\nB P=2\n==COLORAT\n@walls Walls\nKey-text-of-a-wall 1 2 3 4\n";
constexpr const char* otherFile =
    "==CLASS\n@@@ Title of doors (Cccc Dddd)\n==MAPTEXT\n@@ (Domain-of-doors)\n$ Z20\n"
    "@C-code-of-doors {Q=5}\ndoor of planks and nails!\ndoor of steel\n"
    "==PARAM\nC-code-of-doors Q=5\nD Q=6\n==COLORAT\n@doors Doors\nKey-text-of-a-door 5 6 7 8\n";

// Returns a record of the first file, with the members that files don't fill in set too.
std::unique_ptr<Classificator> FullRecord(const TempFolder& folder) {
  auto record = std::make_unique<Classificator>(L"id");
  EXPECT_EQ(record->Load(folder.Write("full.txt", fullFile)), 0);
  record->classificatorName = L"name";
  record->paramName = L"Code";
  record->reservedText = L"r";
  record->openMark = L"[";
  record->closeMark = L"]";
  return record;
}

// Loads the other file and changes the members that files don't fill in.
void ChangeAll(Classificator& record, const TempFolder& folder) {
  record.colorats.at(L"walls").Add(L"Another-key-text", {2, 0, 0, 0, 0});
  record.mapTextSection.domenIds.emplace_back(L"Another-domain");
  record.paramSection.records.pop_back();
  record.paramSection.records.at(0).code = L"Another-code";
  for (std::wstring* text :
       {&record.classificatorId, &record.classificatorName, &record.paramName, &record.classTitle,
        &record.classFirstWord, &record.classSecondWord, &record.reservedText, &record.openMark,
        &record.closeMark, &record.activeColoratId, &record.mapTextSection.defaultCode}) {
    text->assign(text->size(), L'!');
  }
  const std::wstring changed = Describe(record);
  EXPECT_EQ(record.Load(folder.Write("other.txt", otherFile)), 0);
  EXPECT_NE(Describe(record), changed);
}

TEST(Classificator, IsCopiedWhole) {
  const TempFolder folder;
  const auto source = FullRecord(folder);
  const Classificator copy = *source;
  EXPECT_EQ(Describe(copy), Describe(*source));
  EXPECT_EQ(copy.classificatorId, L"id");
  EXPECT_EQ(copy.filePath, folder.Wide() + L"/full.txt");
  EXPECT_EQ(copy.classificatorName, L"name");
  EXPECT_EQ(copy.paramName, L"Code");
  EXPECT_EQ(copy.classTitle, L"Title of walls (Aaaa Bbbb)");
  EXPECT_EQ(copy.classFirstWord, L"Aaaa");
  EXPECT_EQ(copy.classSecondWord, L"Bbbb");
  EXPECT_EQ(copy.activeColoratId, L"walls");
  EXPECT_EQ(copy.colorats.at(L"walls").find(L"Key-text-of-a-wall")->second.percent, 4);
  EXPECT_EQ(copy.reservedText, L"r");
  EXPECT_EQ(copy.openMark, L"[");
  EXPECT_EQ(copy.closeMark, L"]");
  EXPECT_EQ(copy.mapTextSection.defaultCode, L"Z10");
  EXPECT_EQ(copy.mapTextSection.domenIds, Texts{L"Domain-of-walls"});
  ASSERT_EQ(copy.mapTextSection.records.size(), 2u);
  EXPECT_EQ(copy.mapTextSection.records[0].code, L"A-code-of-walls");
  EXPECT_EQ(copy.mapTextSection.records[0].text, L"wall of glass");
  ASSERT_EQ(copy.paramSection.records.size(), 2u);
  EXPECT_EQ(copy.paramSection.records[0].code, L"A-code-of-walls");
}

TEST(Classificator, IsUnchangedWhateverHappensToItsCopy) {
  const TempFolder folder;
  const auto source = FullRecord(folder);
  const std::wstring before = Describe(*source);
  Classificator copy = *source;
  ChangeAll(copy, folder);
  EXPECT_EQ(Describe(*source), before);
  copy = *source;
  ChangeAll(copy, folder);
  EXPECT_EQ(Describe(*source), before);
}

TEST(Classificator, IsUnchangedWhateverHappensToItsSource) {
  const TempFolder folder;
  auto source = FullRecord(folder);
  const std::wstring before = Describe(*source);
  const Classificator copy = *source;
  Classificator assigned(L"");
  assigned = *source;
  ChangeAll(*source, folder);
  EXPECT_EQ(Describe(copy), before);
  EXPECT_EQ(Describe(assigned), before);
  source.reset();
  EXPECT_EQ(Describe(copy), before);
  EXPECT_EQ(Describe(assigned), before);
}

// Each section alone, so that none keeps the file for another. The memory of the source's texts may
// be reused by texts of the same length.
TEST(Classificator, KeepsItsTextsWhenItsSourceIsGone) {
  const TempFolder folder;
  for (const std::string bytes :
       {"==CLASS\n@@@ Title (Seven Elements)\n",
        "==MAPTEXT\n@@ (Elements)\n@E-code\nexterior wall\n", "==PARAM\nE-code P=1\nF-code P=2\n",
        "==COLORAT\n@main Main\nKey-of-seven-letters 1 2 3 4\n"}) {
    auto source = std::make_unique<Classificator>(L"id");
    ASSERT_EQ(source->Load(folder.Write("one.txt", bytes)), 0);
    const std::wstring before = Describe(*source);
    const Classificator copy = *source;
    source.reset();
    std::string otherBytes = bytes;
    std::replace(otherBytes.begin(), otherBytes.end(), 'e', 'o');
    Classificator other(L"id");
    ASSERT_EQ(other.Load(folder.Write("one.txt", otherBytes)), 0);
    EXPECT_NE(Describe(other), before);
    EXPECT_EQ(Describe(copy), before);
  }
}

TEST(Load, LeavesTheRecordEmptyForAFileWithoutSections) {
  for (const char* bytes : {"", "\n", "  \r\n\t", "wall\n@A\n$ Z", "= =MAPTEXT\n$ Z"}) {
    const Loaded loaded(bytes);
    EXPECT_EQ(loaded.status, 0) << bytes;
    ExpectNoSections(loaded.record);
  }
}

TEST(Load, StoresThePathWhateverTheStatus) {
  const TempFolder folder;
  const std::wstring paths[] = {folder.Write("a.txt", ""), folder.Wide() + L"/missing.txt",
                                folder.Wide()};
  for (const std::wstring& path : paths) {
    Classificator record(L"id");
    record.Load(path);
    EXPECT_EQ(record.filePath, path);
  }
}

TEST(Load, Returns2ForWhatCannotBeOpenedAndChangesNothingElse) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path() / "folder.txt");
  for (const std::wstring& path :
       {folder.Wide() + L"/missing.txt", folder.Wide() + L"/folder.txt", L""s}) {
    Classificator record(L"id");
    record.classificatorName = L"name";
    record.paramName = L"param";
    EXPECT_EQ(record.Load(path), 2) << path;
    EXPECT_EQ(record.classificatorId, L"id");
    EXPECT_EQ(record.classificatorName, L"name");
    EXPECT_EQ(record.paramName, L"param");
    EXPECT_EQ(record.openMark, L"{");
    ExpectNoSections(record);
  }
}

TEST(Load, PassesEachSectionToItsParser) {
  const Loaded loaded(
      "Remarks\n"
      "@R\n"
      "==CLASS\n"
      "@@@ Example scheme (ABC Classification)\n"
      "==MAPTEXT\n"
      "@A\n"
      "wall\n"
      "==PARAM\n"
      "A P=1\n"
      "B P=2\n"
      "==COLORAT\n"
      "@main Main colouring\n"
      "A100 255 0 0 50\n"
      "==DOMEN\n"
      "@@@ Walls\n"
      "@P 0 1\n"
      "==NOTES\n"
      "door\n");
  EXPECT_EQ(loaded.status, 0);
  EXPECT_EQ(loaded.Patterns(), Texts{L"wall"});
  EXPECT_EQ(loaded.record.mapTextSection.records[0].code, L"A");
  EXPECT_EQ(loaded.ParamCodes(), (Texts{L"A", L"B"}));
  EXPECT_EQ(loaded.record.classTitle, L"Example scheme (ABC Classification)");
  EXPECT_EQ(loaded.record.classFirstWord, L"ABC");
  EXPECT_EQ(loaded.record.classSecondWord, L"Classification");
  EXPECT_EQ(loaded.record.activeColoratId, L"main");
  ASSERT_TRUE(loaded.record.colorats.contains(L"main"));
  EXPECT_EQ(loaded.record.colorats.at(L"main").find(L"A100")->second.channel1, 255);
}

TEST(Load, ReadsTheSectionsInAnyOrder) {
  const Loaded loaded("==PARAM\nA P=1\nB P=2\n==NOTES\nroof\n==MAPTEXT\n@A\nwall");
  EXPECT_EQ(loaded.Patterns(), Texts{L"wall"});
  EXPECT_EQ(loaded.ParamCodes(), (Texts{L"A", L"B"}));
}

TEST(Load, KnowsAHeadingByItsBeginning) {
  struct Case {
    const char* heading;
    std::string_view keyword;  // by which it is recognised; none if empty
  };
  const Case cases[] = {
      {"==MAPTEXT", "==MAPTEXT"},
      {"==MAPTEXT of the office", "==MAPTEXT"},
      {"==MAPTEXTS", "==MAPTEXT"},
      {"==MAPTEXT==PARAM", "==MAPTEXT"},
      {"  \t==MAPTEXT  ", "==MAPTEXT"},
      {"==MAPTEX", ""},
      {"==maptext", ""},
      {"==Maptext", ""},
      {"== MAPTEXT", ""},
      {"===MAPTEXT", ""},
      {"=MAPTEXT", ""},
      {"x==MAPTEXT", ""},
      {"==PARAM", "==PARAM"},
      {"==PARAMETERS", "==PARAM"},
      {"==PARA", ""},
      {"==param", ""},
      {"==CLASS", "==CLASS"},
      {"==CLASS x", "==CLASS"},
      {"==CLASSES", "==CLASS"},
      {"==CLASS MAPTEXT", "==CLASS"},
      {"==CLAS", ""},
      {"==class", ""},
      {"==Class", ""},
      {"== CLASS", ""},
      {"==COLORAT", "==COLORAT"},
      {"==COLORATS of all kinds", "==COLORAT"},
      {"==COLORA", ""},
      {"==colorat", ""},
      {"==Colorat", ""},
      {"== COLORAT", ""},
      {"==DOMEN", ""},
      {"==", ""},
  };
  for (const auto& [heading, keyword] : cases) {
    SCOPED_TRACE(heading);
    const bool isMapText = keyword == "==MAPTEXT";
    const Loaded loaded(heading + "\n$ Z\nwall"s);
    EXPECT_EQ(loaded.status, 0);
    EXPECT_EQ(loaded.record.mapTextSection.defaultCode, isMapText ? L"Z" : L"");
    EXPECT_EQ(loaded.Patterns(), isMapText ? Texts{L"wall"} : Texts{});
    EXPECT_EQ(!loaded.ParamCodes().empty(), keyword == "==PARAM");
    const Loaded titled(heading + "\n@@@ T (A B)"s);
    EXPECT_EQ(titled.record.classTitle, keyword == "==CLASS" ? L"T (A B)" : L"");
    const Loaded colored(heading + "\n@m M\nA 1 2 3 4"s);
    EXPECT_EQ(colored.record.colorats.contains(L"m"), keyword == "==COLORAT");
  }
}

TEST(Load, TakesABodyLineThatBeginsWithTwoEqualSignsAsAHeading) {
  const Loaded loaded("==MAPTEXT\nwall\n==door\nroof");
  EXPECT_EQ(loaded.Patterns(), Texts{L"wall"});
}

TEST(Load, RunsTheParserOnceForEachOccurrenceOfASection) {
  const Loaded loaded(
      "==MAPTEXT\n@@ (D)\n$ Y\nwall\n"
      "==PARAM\nA P=1\nB P=2\n"
      "==MAPTEXT\n$ Z\ndoor\n"
      "==PARAM\nC P=1\nD P=2");
  EXPECT_EQ(loaded.Patterns(), Texts{L"door"});
  EXPECT_EQ(loaded.record.mapTextSection.defaultCode, L"Z");
  EXPECT_EQ(loaded.record.mapTextSection.domenIds, Texts{L"D"});
  EXPECT_EQ(loaded.ParamCodes(), (Texts{L"C", L"D"}));
}

TEST(Load, RunsTheParserOnTheEmptyTextOfASectionWithoutLines) {
  for (const char* bytes : {"==MAPTEXT\n$ Z\nwall\n==MAPTEXT", "==MAPTEXT\n==NOTES\nwall",
                            "==MAPTEXT\n$ Z\n==MAPTEXT\n \r\n\t\n==PARAM", "==MAPTEXT"}) {
    const Loaded loaded(bytes);
    EXPECT_EQ(loaded.status, 0);
    EXPECT_EQ(loaded.record.mapTextSection.defaultCode, L"N00") << bytes;
    EXPECT_EQ(loaded.Patterns(), Texts{}) << bytes;
  }
}

TEST(Load, ReadsCarriageReturnsIndentationAndBlankLinesAsIfTheyWereNotThere) {
  const Loaded plain("==MAPTEXT\n@A {P=1}\nbasic wall\n$ Z\n==PARAM\nA P=1\nB P=2");
  for (const char* bytes : {
           "==MAPTEXT\r\n@A {P=1}\r\nbasic wall\r\n$ Z\r\n==PARAM\r\nA P=1\r\nB P=2\r\n",
           "\n\n  ==MAPTEXT \n\n\t@A {P=1}\n \n  basic wall\n$ Z\t\n\r\n==PARAM\n\nA P=1\n B P=2\n",
       }) {
    const Loaded other(bytes);
    EXPECT_EQ(other.status, 0);
    EXPECT_EQ(other.Patterns(), plain.Patterns());
    EXPECT_EQ(other.record.mapTextSection.records[0].code, L"A");
    EXPECT_EQ(ReadItemLists(other.record.mapTextSection.records[0]).size(), 1u);
    EXPECT_EQ(other.record.mapTextSection.defaultCode, L"Z");
    EXPECT_EQ(other.ParamCodes(), plain.ParamCodes());
  }
}

TEST(Load, CutsTheSectionWithoutTheBlankLinesBetween) {
  // If blank lines counted, the section would have more lines than pieces at semicolons.
  const Loaded loaded("==MAPTEXT\n\n\n\n\nwall;door\n\n\n\n\nroof\n\n\n");
  EXPECT_EQ(loaded.Patterns(), (Texts{L"wall", L"door\nroof"}));
}

TEST(Load, ProcessesWhatIsBeforeBytesThatCannotBeDecoded) {
  struct Case {
    std::string bytes;
    Texts patterns;
  };
  const Case cases[] = {
      {"==MAPTEXT\nwall\nba\xFFsic\ndoor", {L"wall", L"ba"}},
      {"==MAPTEXT\nwall\nСт\xD0", {L"wall", L"Ст"}},  // the file ends within a letter
      {"==MAPTEXT\nwall\n\xC0\x80\ndoor", {L"wall"}},
      {"==MAPTEXT\nwall\n==MAPTEXT\xED\xA0\x80\ndoor", {}},  // the cut line is still a heading
      {"==MAPTEXT\nwall\n==\xF5MAPTEXT\ndoor", {L"wall"}},
      {"\xFF==MAPTEXT\nwall", {}},
  };
  for (const Case& one : cases) {
    const Loaded loaded(one.bytes);
    EXPECT_EQ(loaded.status, 0) << one.bytes;
    EXPECT_EQ(loaded.Patterns(), one.patterns) << one.bytes;
  }
}

TEST(Load, ProcessesWhatIsBeforeAReadError) {
  if (!std::ifstream("/proc/self/mem")) GTEST_SKIP() << "no file here fails so";
  Classificator record(L"id");
  EXPECT_EQ(record.Load(L"/proc/self/mem"), 0);
  ExpectNoSections(record);
}

TEST(Load, LosesAFirstHeadingAfterAByteOrderMarkAndReadsTheRest) {
  const Loaded lost("\xEF\xBB\xBF==MAPTEXT\n$ Z\nwall\n==PARAM\nA P=1\nB P=2");
  EXPECT_EQ(lost.status, 0);
  EXPECT_EQ(lost.record.mapTextSection.defaultCode, L"");
  EXPECT_EQ(lost.ParamCodes(), (Texts{L"A", L"B"}));

  const Loaded kept("\xEF\xBB\xBFRemarks\n==MAPTEXT\nwall");
  EXPECT_EQ(kept.Patterns(), Texts{L"wall"});
}

TEST(Load, TakesTextInAnyScript) {
  const Loaded loaded("==MAPTEXT\n@С10\nСтена наружная\n\xF0\x9F\x98\x80");
  EXPECT_EQ(loaded.Patterns(), (Texts{L"\U0001F600", L"Стена наружная"}));
  EXPECT_EQ(loaded.record.mapTextSection.records[1].code, L"С10");
}

TEST(Load, KeepsNulsInTheLines) {
  const Loaded loaded("==MAPTEXT\0\nwa\0ll\n\0\n$ Z\0 Y"s);
  EXPECT_EQ(loaded.status, 0);
  EXPECT_EQ(loaded.Patterns(), (Texts{L"wa\0ll"s, L"\0"s}));
  EXPECT_EQ(loaded.record.mapTextSection.defaultCode, L"Z\0"s);
}

TEST(Load, ProcessesWhatIsBeforeTheFirstByte1A) {
  struct Case {
    std::string bytes;
    Texts patterns;
  };
  const Case cases[] = {
      {"==MAPTEXT\nwall\ndoor\n\x1A", {L"wall", L"door"}},
      {"==MAPTEXT\nwall\n\x1A\ndoor\n", {L"wall"}},
      {"==MAPTEXT\nwall\nba\x1Asic\ndoor", {L"wall", L"ba"}},
      {"==MAPTEXT\nwall\n==MAPTEXT\x1A\ndoor", {}},  // the cut line is still a heading
      {"\x1A==MAPTEXT\nwall", {}},
  };
  for (const Case& one : cases) {
    const Loaded loaded(one.bytes);
    EXPECT_EQ(loaded.status, 0) << one.bytes;
    EXPECT_EQ(loaded.Patterns(), one.patterns) << one.bytes;
  }
  const Loaded between("==PARAM\nA P=1\nB P=2\x1A\n==MAPTEXT\n$ Z\nwall");
  EXPECT_EQ(between.ParamCodes(), (Texts{L"A", L"B"}));
  EXPECT_EQ(between.record.mapTextSection.defaultCode, L"");
}

TEST(Load, ReadsALineOfFiveMegabytes) {
  const Loaded loaded("==NOTES\n" + std::string(5'000'000, 'a') + "\n==MAPTEXT\nwall\n" +
                      std::string(100'000, 'b'));
  EXPECT_EQ(loaded.status, 0);
  ASSERT_EQ(loaded.Patterns().size(), 2u);
  EXPECT_TRUE(loaded.Patterns()[1] == std::wstring(100'000, L'b'));
}

TEST(Load, ReadsOverAMillionHeadings) {
  std::string bytes;
  for (int i = 0; i < 1'000'000; ++i) bytes += "==\n";
  const Loaded loaded(bytes + "==MAPTEXT\nwall");
  EXPECT_EQ(loaded.status, 0);
  EXPECT_EQ(loaded.Patterns(), Texts{L"wall"});
}

TEST(Load, Returns3ForAnyExceptionAndKeepsWhatWasReadBefore) {
  const GlobalLocale failing(UpperFails);
  const Loaded loaded(
      "==PARAM\nA P=1\nB P=2\n"
      "==MAPTEXT\n@@ (D)\n$ Y\nwall\n$ Z\n"
      "==PARAM\nC P=1\nD P=2");
  EXPECT_EQ(loaded.status, 3);
  EXPECT_FALSE(loaded.record.filePath.empty());
  EXPECT_EQ(loaded.ParamCodes(), (Texts{L"A", L"B"}));
  EXPECT_EQ(loaded.record.mapTextSection.domenIds, Texts{L"D"});
  EXPECT_EQ(loaded.record.mapTextSection.defaultCode, L"Y");
  EXPECT_EQ(loaded.Patterns(), Texts{});
}

// They are sorted only at the end of the section.
TEST(Load, KeepsThePatternsBeforeAnExceptionInFileOrder) {
  const GlobalLocale failing(
      [](wchar_t unit) { return unit == L'#' ? UpperFails(unit) : UpperOfLatin(unit); });
  const Loaded loaded("==MAPTEXT\n@A\nbasic wall\nwall\n@B\ndoor#\nroof");
  EXPECT_EQ(loaded.status, 3);
  EXPECT_EQ(loaded.Patterns(), (Texts{L"basic wall", L"wall"}));
  EXPECT_EQ(loaded.record.mapTextSection.records[1].code, L"A");
  EXPECT_EQ(FindCodeId(loaded.record.mapTextSection, L"Basic walls"), 0);
  EXPECT_EQ(FindCodeId(loaded.record.mapTextSection, L"Walls"), 1);
  EXPECT_EQ(FindCodeId(loaded.record.mapTextSection, L"Roof"), -1);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
