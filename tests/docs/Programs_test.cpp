// Tests that the programs in the documents print the output below them.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/Documents.h"
#include "support/PathTexts.h"
#include "support/Program.h"

namespace {

const std::filesystem::path sources = Utf8Path(SOURCE_FOLDER);

// Returns the start of the last line of a text.
std::size_t LastLine(const std::string& text) {
  return text.rfind('\n', text.size() - 2) + 1;
}

TEST(Readme, TheProgramPrintsWhatIsBelowIt) {
  const Outcome outcome = RunProgram(README_PROGRAM, "", sources);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(WithoutCarriageReturns(outcome.output), BlocksOfKind("README.md", "text output"));
}

TEST(ApiGuide, TheExamplesPrintWhatIsBelowThem) {
  const Outcome outcome = RunProgram(API_PROGRAM, "", sources);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(WithoutCarriageReturns(outcome.output), BlocksOfKind("docs/api.md", "text output"));
}

TEST(ApiGuide, HasAChapterOrSectionForEachExport) {
  const std::string guide = ReadBytes(sources / "docs/api.md");
  std::string headings;
  for (const std::string& line : Lines(guide)) {
    if (line.starts_with("#")) headings += line + "\n";
  }
  for (const char* name : {"CreateClassificator",
                           "CreateDomen",
                           "ExportJson",
                           "GetActiveClassificatorParamName",
                           "GetActiveDomenId",
                           "GetClaccificatorCode",
                           "GetClaccificatorCodeId",
                           "GetClaccificatorCodeParams",
                           "GetClassificatorsNames",
                           "GetColor",
                           "GetColorNum",
                           "GetColoratsIds",
                           "GetDefaultClaccificatorCode",
                           "GetDomenPropertiesCheckInfo",
                           "GetDomenPropertyFieldsValues",
                           "GetDomenPropertysByObjType",
                           "GetDomenPropertysByObjTypes",
                           "GetDomensIds",
                           "GetDomensNames",
                           "GetEndMark",
                           "GetMappingStr",
                           "GetPropertiesSortIndex",
                           "GetStartMark",
                           "SetActiveClassificator",
                           "SetActiveColorat",
                           "SetActiveDomenByName",
                           "SetActiveDomenId",
                           "SetEndMark",
                           "SetStartMark"}) {
    EXPECT_NE(headings.find(std::string("### ") + name + "\n"), std::string::npos) << name;
  }
}

TEST(Readme, TheDemoShowsTheFirstElementsAndTheSummary) {
  const Outcome outcome = RunProgram(
      CLASSIFY_PROGRAM,
      "--classificator data/uniformat.txt --domen data/domens.txt --column 2 data/elements.tsv",
      sources);
  EXPECT_EQ(outcome.status, 0);
  const std::string demo = BlocksOfKind("README.md", "text demo");
  const std::size_t gap = demo.find("...\n\n");
  ASSERT_NE(gap, std::string::npos);
  EXPECT_TRUE(outcome.output.starts_with(demo.substr(0, gap)));
  // The last line has the speed, which varies.
  const std::string summary = demo.substr(gap + 5);
  EXPECT_EQ(outcome.errors.substr(0, LastLine(outcome.errors)),
            summary.substr(0, LastLine(summary)));
}

}  // namespace
