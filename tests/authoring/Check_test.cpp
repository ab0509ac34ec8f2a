// What the check finds in text files: what provokes each finding, and what comes near.

#include "authoring/Check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Checks.h"
#include "authoring/Report.h"
#include "support/CheckedFiles.h"
#include "support/PathTexts.h"
#include "support/Program.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// The places of the findings of one number, with a blank between them.
std::string PlacesOf(const Report& report, int number) {
  std::string places;
  for (const Finding& finding : report.findings) {
    if (finding.number != number) continue;
    if (!places.empty()) places += ' ';
    places += TextOf(finding.place);
  }
  return places;
}

// What comes before the text of a case.
constexpr std::string_view whole;
constexpr std::string_view mapText = "==MAPTEXT\n";
constexpr std::string_view domen = "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\nS str 0 x\n";
constexpr std::string_view items =
    "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\nS str 0 x\n==MAPTEXT\n@@ (D)\n";
constexpr std::string_view colorat = "==COLORAT\n@a A\n";

struct Case {
  int number;
  std::string_view before;
  const char* provoking;
  const char* harmless;  // comes near
  const char* places;
  const char* named = "classificator c.txt";
};

GivenFile FileOf(const Case& one, std::string_view text) {
  return File(one.named, std::string(one.before).append(text));
}

constexpr Case cases[] = {
    {101, whole, "\xEF\xBB\xBF==MAPTEXT\n@A\nw\n", "\xEF\xBB\xBFnotes\n==MAPTEXT\n@A\nw\n",
     "1:1-1:11"},
    {102, mapText, "@A\nw ж😀 \xFF\nv\n", "@A\nw ж😀 ÿ\nv\n", "3:6-3:6"},
    {103, mapText, "@A\nw ж😀 \x1A\nv\n", "@A\nw ж😀 \x1B\nv\n", "3:6-3:6"},
    {104, mapText, "@A\nw\n == Maptext of the office\n", "@A\nw\n==MAPTEXTof the office\n",
     "4:2-4:26"},
    {105, mapText, "@A\nw\n == 😀\nv\n", "@A\nw\n=😀\nv\n", "4:2-4:6"},
    {106, mapText, "@A;w\nv;u;\nt\ns;\n", "@A {x\n};w\nv;u;\nt;\ns;\n", "1:1-1:10"},
    {107, mapText, "@A\nw;v\nu;t\n@B\nr\n", "@A\nw;v\nu;\n@B\nr\n", "1:1-1:10"},
    {108, whole, "  ==MAPTEXT 😀\n@A\nw\n==DOMEN\n", "==NOTES\n@A\nw\n==DOMEN\n", "1:3-1:14",
     "domen d.txt"},
    {109, whole, "@A\nw\n", "==CLASS\n", "1:1-1:1"},
    {110, mapText, "@A\nw\n ==COLORAT\n==MAPTEXT x\n@B\nv\n",
     "@A\nw\n==CLASS\n==CLASS\n==DOMEN\n==DOMEN\n", "1:1-1:10"},
    {111, mapText, "@A\nw\n==DOMEN\n@@@ D\n", "@A\nw\n==PARAM\n", "4:1-4:8", "classificator C.TXT"},
    {112, mapText, "/ a\nb;\n@A;w;\n", "/ a;\n@A;w;\n", "2:1-3:2"},
    {201, mapText, "  @@ D)\n", "@@ )(D\n", "2:3-2:8"},
    {202, mapText, " @@ (D)\n@@ (D)\n", "@@ (D)\n@@ D\n", "2:2-2:8"},
    {203, mapText, "@$ [\n", "@$ [ ]\n", "2:1-2:5"},
    {204, mapText, "$ Y\n@A\nw\n $ Z\n", "$ Y\n@A\nw\n==MAPTEXT\n$ Z\n", "2:1-2:4"},
    {205, mapText, "ж😀\n@A\nw\n", "@\nж😀\n@A\nw\n", "2:1-2:3"},
    {206, items, " @ {P} A\nw\n", "@A{P}\nw\n", "8:2-8:9"},
    {207, mapText, "@A\n$ Z\n@B\nw\n", "@A\n$ Z\n/ x\nw\n", "2:1-2:3"},
    {208, items, "@😀 {P} {P=1\nw\n", "@😀 {P} P=1}\nw\n", "8:8-8:12"},
    {209, mapText, "@A\nwal\n@B\nWALL in\nroof\n", "@A\nwall\n@B\nwal\n", "5:1-5:8"},
    {210, mapText, "@A\nw;\nv\n", "@A;w;\n", "3:1-3:3"},
    {211, mapText,
     "@A\na\tb\na\xC2\xA0"
     "c\n",
     "@A\nab\t\n/ a\tb\n", "3:1-3:4 4:1-4:4"},
    {212, mapText, "@A;w;\na\nb;\n", "@A;w;\na;\n\nb;\n", "3:1-4:2"},
    {213, mapText, "@A\na  b\n", "@A\na b\n/ a  b\n", "3:1-3:5"},
    {214, mapText, "@$ [[ ]\n", "@$ [ ]]\n", "2:1-2:8"},
    {215, mapText, "@A;\nw\n$ Z\n", "@A ;\nw\n$ Z\n", "2:1-2:4"},
    {216, mapText, "@A\nx cтена\n", "@A\nстена wall\n@cт\nx\n", "3:3-3:8"},
    {301, items, "@A {p=1}\nw\n", "@A {P=1}\nw\n@B {p=1}\n", "8:5-8:8"},
    {302, mapText, "@A {P=1} {P}\nw\n@B {P}\nv\n", "@A P=1\nw\n", "2:5-2:8"},
    {303, items, "@A {P=1.5}\nw\n", "@A {P=+7}\nw\n", "8:5-8:10"},
    {304, items, "@A {P=1,a,b}\nw\n", "@A {P=1,a,}\nw\n", "8:5-8:12"},
    {305, items, "@A {P:f=1}\nw\n", "@A {P:Fx=1}\nw\n", "8:5-8:10"},
    {306, items, "@A {P:F=1,S}\nw\n", "@A {P:F=1,s}\nw\n", "8:5-8:12"},
    {307, items, "@A {P=1=x}\nw\n", "@A {P=1,x}\nw\n@B {P:S=x}\nv\n", "8:4-8:11"},
    {308, items, "@@ (D E)\n", "@@ (D)\n", "8:1-8:9"},
    {309, whole, "==MAPTEXT\n@@ (D E)\n==DOMEN\n@@@ D\n@ P 0 1\n@@@ E\n@ P 0 1\n",
     "==MAPTEXT\n@@ (D D)\n==DOMEN\n@@@ D\n@ P 0 1\n@@@ E\n@ P 0 1\n", "2:1-2:9"},
    {401, domen, "@@@\n@@@ E\n", "@@@E\n", "6:1-6:4"},
    {402, whole, "==DOMEN\n @ P 0 1\n@@@ D\n", "==DOMEN\n@@@ D\n@ P 0 1\n", "2:2-2:9"},
    {403, domen, "@ Q 0\n", "@Q 0 1\n", "6:1-6:6"},
    {404, domen, "@ Q 0 1.0\n", "@ Q +2 -7\n", "6:1-6:10"},
    {405, domen, "@ P 0 1\n", "@@@ E\n@ P 0 1\n", "6:1-6:8"},
    {406, whole, "==DOMEN\n@@@ D\nF int 0 5\n", "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\n", "3:1-3:10"},
    {407, domen, "G int 5\n", "G int 0 5\n", "6:1-6:8"},
    {408, domen, "G Int 0 5\n", "G int 0 5\n", "6:1-6:10"},
    {409, domen, "G int 1.0 5\n", "G int -1 5\n", "6:1-6:12"},
    {410, domen, "F str 0 5\n", "@ Q 0 1\nF str 0 5\n", "6:1-6:10"},
    {310, items, "@A {P 1 S=2}\nw\n", "@A {P 1; P:S=2}\nw\n", "8:5-8:12"},
    {411, domen, "G int 0 5;\n", "G str 0 5;\n", "6:1-6:11"},
    {412, items, "==DOMEN\n@@@ E\n", "==DOMEN\n@@@ D\n", "9:1-9:6"},
    {413, items, "@A {P=1}\nw\n==DOMEN\n@@@ D\n@ Q 0 1\n",
     "@A {P=1}\nw\n@B {Q}\nv\n==DOMEN\n@@@ D\n@ Q 0 1\n@@@ E\n@ R 0 1\n", "12:1-12:8"},
    {601, colorat, "K 1 2 3 4\n@b B\n", "x\n@b B\nx\n", "4:2-4:5"},
    {602, whole, "==COLORAT\n@ a\nK 1 2 3 4\n", "==COLORAT\n@ a A\nK 1 2 3 4\n", "2:3-3:10"},
    {415, domen, "@@@ E;\n", "@@@ E ;\n@@@ F\n", "6:1-6:7"},
    {416, domen, "FF int 0 1\n", "f int 0 1\nGF int 0 1\n", "6:1-6:11"},
    {417, domen, "@@ Room\n@@@ E\n@ Q 0 1\n@ R 0 1\n", "@@ Room\n@@@ E\n@@\n@ Q 0 1\n", "8:1-8:8"},
    {603, colorat, "K 1 2 3\n", "K 1  2 3 4\n! K 1 2 3 4\n", "3:1-3:8"},
    {604, colorat, "K 1 2 3 4\nK 1 2 3 4\n", "K 1 2 3 4\n@b B\nK 1 2 3 4\n", "4:1-4:10"},
    {605, colorat, "😀 256 -1 0 101\n", "😀 255 0 0 100\n", "3:3-3:6 3:7-3:9 3:12-3:15"},
    {606, colorat, "K x #1 1 .5\n", "K +1 1x 1 0.5\n", "3:3-3:4 3:5-3:7 3:10-3:12"},
    {607, colorat, "! 1 2 3 x\n", "! 1 2 3\n", "3:1-3:10"},
    {608, colorat, "ж@b B\nK 1 2 3 4\n", "x\n  @ b B\nK 1 2 3 4\n", "3:3-3:6"},
    {612, colorat, "! none\n", "K 1 2 3 4\n", "2:2-2:5"},
    {613, colorat, "K 1 2 3 4; L 1 2 3 4\n", "K 1 2 3 4;\nL 1 2 3 4\nM 1 2 3 4\n", "2:2-3:10"},
    {609, colorat, "K 255 0 0 0\nL 254 2 0 0\n", "K 255 0 0 0\n@b B\nL 254 2 0 0\n", "4:1-4:12"},
    {610, mapText, "@AB\nw\n==COLORAT\n@a A\nA 1 2 3 4\nB 1 99 3 4\n",
     "@AB\nw\n==COLORAT\n@a A\nA 1 2 3 4\nAB 1 99 3 4\n", "7:1-7:11"},
    {611, mapText, "@A\nw\n@B\nv\n==COLORAT\n@a A\nA 1 2 3 4\nN 1 99 3 4\n",
     "@A\nw\n@B\nv\n==COLORAT\n@a A\nA 1 2 3 4\n", "7:2-7:5"},
    {701, whole, "==CLASS\n@@@ A\n", "==CLASS\n@@ A\n", "2:1-2:6"},
    {702, whole, "==PARAM\n", "==PARA\n", "1:1-1:8"},
    {801, items, "@A {PP=1}\nw\n", "@A {PPP=1}\nw\n", "8:5-8:9"},
};

TEST(CheckFiles, FindsAtItsPlaceWhatProvokesEachCheck) {
  for (const Case& one : cases) {
    const Report report = ReportOf({FileOf(one, one.provoking)});
    EXPECT_EQ(PlacesOf(report, one.number), one.places) << one.number;
  }
}

TEST(CheckFiles, DoesNotFindWhatOnlyComesNear) {
  for (const Case& one : cases) {
    const Report report = ReportOf({FileOf(one, one.harmless)});
    EXPECT_EQ(PlacesOf(report, one.number), "") << one.number;
  }
}

// Those of a `.json` file, from 501 to 599, have tests of their own.
TEST(CheckFiles, HasACaseOfEachCheckOfTextFiles) {
  std::set<int> numbers;
  for (const Case& one : cases) numbers.insert(one.number);
  std::set<int> ofTextFiles;
  for (const Check& check : AllChecks()) {
    if (check.number / 100 != 5) ofTextFiles.insert(check.number);
  }
  EXPECT_EQ(numbers, ofTextFiles);
}

TEST(CheckFiles, FindsADomainFileWhoseNameIsNotRead) {
  for (const char* name : {"domen D.TXT", "domen d.csv", "domen d"}) {
    const Report report = ReportOf({File(name, "==DOMEN\n@@@ D\n")});
    EXPECT_EQ(PlacesOf(report, 111), "1:1-1:1") << name;
  }
  EXPECT_EQ(PlacesOf(ReportOf({File("domen d.json", "{}")}), 111), "");
}

TEST(CheckFiles, PutsFindingsIntoTheOrderOfFilesAndPlaces) {
  const Report report = ReportOf({File("classificator b.txt", "==PARAM\n==MAPTEXT\na  b;\n=\n@A\n"),
                                  File("classificator a.txt", "==PARAM\n")});
  EXPECT_EQ(report.files, (std::vector<std::string>{"b.txt", "a.txt"}));
  std::vector<std::size_t> numbers;
  for (const Finding& finding : report.findings) {
    numbers.push_back(1000 * finding.place.file + static_cast<std::size_t>(finding.number));
  }
  EXPECT_EQ(numbers, (std::vector<std::size_t>{702, 205, 210, 213, 205, 207, 1702}));
}

struct RelatedCase {
  int number;
  RelatedKind kind;
  std::vector<GivenFile> files;
  const char* place;  // of what is related to the first finding, after the number of its file
};

TEST(CheckFiles, LeadsFromAFindingToTheLineThatMatters) {
  const GivenFile repeated =
      File("domen d.txt", "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\n@ P 0 1\nF int 0 5\n");
  const GivenFile other = File("domen e.txt", "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\n");
  const RelatedCase relatedCases[] = {
      {110,
       RelatedKind::later,
       {File("classificator c.txt", "==PARAM\n\n ==PARAM\n")},
       "0 3:2-3:9"},
      {202,
       RelatedKind::later,
       {File("classificator c.txt", "==MAPTEXT\n@@ (D)\n==MAPTEXT\n@@ (E)\n")},
       "0 4:1-4:7"},
      {204,
       RelatedKind::later,
       {File("classificator c.txt", "==MAPTEXT\n$ A\n$ B\n$ C\n")},
       "0 3:1-3:4"},
      {209,
       RelatedKind::winner,
       {File("classificator c.txt", "==MAPTEXT\n@A\nwall in\nwall\n")},
       "0 4:1-4:5"},
      {405, RelatedKind::earlier, {repeated}, "0 3:1-3:8"},
      {405, RelatedKind::earlier, {other, repeated}, "0 3:1-3:8"},
      {410, RelatedKind::earlier, {repeated}, "0 4:1-4:10"},
      {410, RelatedKind::earlier, {repeated, other}, "0 4:1-4:10"},
      {604,
       RelatedKind::earlier,
       {File("classificator c.txt", "==COLORAT\n@a A\nK 1 2 3 4\nK 1 2 3 4\nK 1 2 3 4\n")},
       "0 3:1-3:10"},
      {609,
       RelatedKind::alike,
       {File("classificator c.txt", "==COLORAT\n@a A\nK 9 9 9 4\nL 9 9 9 4\nM 9 9 9 4\n")},
       "0 3:1-3:10"},
  };
  for (const RelatedCase& one : relatedCases) {
    const Report report = ReportOf(one.files);
    const auto finding =
        std::find_if(report.findings.begin(), report.findings.end(),
                     [&](const Finding& each) { return each.number == one.number; });
    ASSERT_NE(finding, report.findings.end()) << one.number;
    ASSERT_EQ(finding->related.size(), 1U) << one.number;
    const Related& related = finding->related.front();
    EXPECT_EQ(related.kind, one.kind) << one.number;
    EXPECT_EQ(std::to_string(related.place.file) + " " + TextOf(related.place), one.place)
        << one.number;
  }
}

TEST(CheckFiles, FindsAnEarlierDefinitionInAFileThatWasLoadedBefore) {
  const GivenFile first = File("domen c.txt", "==DOMEN\n@@@ D\n@ P 0 1\nF int 0 5\n");
  const GivenFile second = File("domen d.txt", "==DOMEN\n@@@ D\n@ P 0 2\nF str 0 x\nG int 0 7\n");
  const Report report = ReportOf({first, second});
  ASSERT_EQ(report.findings.size(), 2U);
  for (const Finding& finding : report.findings) {
    EXPECT_EQ(finding.place.file, 1U);
    ASSERT_EQ(finding.related.size(), 1U);
    EXPECT_EQ(finding.related.front().place.file, 0U);
  }
  EXPECT_EQ(PlacesOf(report, 405), "3:1-3:8");
  EXPECT_EQ(PlacesOf(report, 410), "4:1-4:10");
}

TEST(CheckFiles, SeesTheDomainsOfAllFiles) {
  const GivenFile scheme = File("classificator c.txt", "==MAPTEXT\n@@ (D)\n@A {P=1}\nw\n");
  const GivenFile domens = File("domen d.txt", domen);
  EXPECT_EQ(ReportOf({scheme, domens}).findings.size(), 0U);
  EXPECT_EQ(PlacesOf(ReportOf({scheme}), 308), "2:1-2:7");
}

// A file of data/.
GivenFile Sample(const std::string& loadedAs, const std::string& name) {
  return File(loadedAs + " " + name, ReadBytes(Utf8Path(SOURCE_FOLDER) / "data" / name));
}

TEST(CheckFiles, FindsNoMoreThanHintsInTheSampleFiles) {
  const std::vector<std::vector<GivenFile>> samples = {
      {Sample("classificator", "uniformat.txt"), Sample("domen", "domens.txt")},
      {Sample("classificator", "classificator_ru.txt")},
      {Sample("domen", "domens.txt"), Sample("domen", "zones.json")},
  };
  for (const std::vector<GivenFile>& files : samples) {
    const CheckedFiles checked(files);
    EXPECT_GE(checked.report.statements.size(), 30U);
    for (const Finding& finding : checked.report.findings) {
      EXPECT_EQ(CheckOf(finding.number).severity, Severity::hint)
          << checked.report.files[finding.place.file] << ":" << TextOf(finding.place) << " "
          << finding.number;
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
