// The fate of each kind of statement in a text file, and where a statement begins and ends.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "authoring/Report.h"
#include "support/CheckedFiles.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// A line for each statement: its place and its fate.
std::string FatesOf(std::string_view named, std::string_view bytes) {
  std::string fates;
  for (const Statement& statement : ReportOf({File(named, bytes)}).statements) {
    fates += TextOf(statement.place) + " " + std::string(NameOf(statement.fate)) + "\n";
  }
  return fates;
}

std::string FatesOf(std::string_view bytes) {
  return FatesOf("classificator c.txt", bytes);
}

// A heading that nobody reads is ignored with its section.
TEST(Fates, AreIgnoredOutsideSectionsThatAreRead) {
  EXPECT_EQ(FatesOf("notes\n==NOTES\nx\n==MAPTEXT\n==Maptext\ny\n"),
            "1:1-1:6 ignored\n"
            "2:1-2:8 ignored\n"
            "3:1-3:2 ignored\n"
            "4:1-4:10 used\n"
            "5:1-5:10 ignored\n"
            "6:1-6:2 ignored\n");
}

TEST(Fates, AreIgnoredInADomainFileButInItsDomenSections) {
  EXPECT_EQ(FatesOf("domen d.txt", "==MAPTEXT\n@A\n==DOMEN\n@@@ D\n==CLASS\n@@@ A\n"),
            "1:1-1:10 ignored\n"
            "2:1-2:3 ignored\n"
            "3:1-3:8 used\n"
            "4:1-4:6 used\n"
            "5:1-5:8 ignored\n"
            "6:1-6:6 ignored\n");
}

TEST(Fates, OfTheClassSection) {
  EXPECT_EQ(FatesOf("==CLASS x\n@@@ T\n@@ T\nremark\n"),
            "1:1-1:10 used\n"
            "2:1-2:6 used\n"
            "3:1-3:5 comment\n"
            "4:1-4:7 comment\n");
}

TEST(Fates, OfTheMapTextSection) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n/ c\n! c\n@@ (D)\n@@ D\n$ Z\n@$ [ ]\n@$ [\n@A [P=1]\nwall\n"
                    "wall in\n@B\n@C\nroof\n"),
            "1:1-1:10 used\n"
            "2:1-2:4 comment\n"
            "3:1-3:4 comment\n"
            "4:1-4:7 used\n"
            "5:1-5:5 lost\n"
            "6:1-6:4 used\n"
            "7:1-7:7 used\n"
            "8:1-8:5 lost\n"
            "9:1-9:9 used\n"
            "10:1-10:5 used\n"
            "11:1-11:8 unreachable\n"
            "12:1-12:3 lost\n"
            "13:1-13:3 used\n"
            "14:1-14:5 used\n");
}

TEST(Fates, OfWhatALaterStatementReplaces) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@@ (D)\n$ Y\n@@ (E)\n$ Z\n"),
            "1:1-1:10 used\n"
            "2:1-2:7 lost\n"
            "3:1-3:4 lost\n"
            "4:1-4:7 used\n"
            "5:1-5:4 used\n");
}

// The domain list stays in force, and the heading ends what is above it.
TEST(Fates, OfASectionThatALaterOneReplaces) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@@ (D)\n$ Y\n/ c\n@A\nw\n==MAPTEXT\n@B\nv\n"),
            "1:1-1:10 used\n"
            "2:1-2:7 used\n"
            "3:1-3:4 lost\n"
            "4:1-4:4 comment\n"
            "5:1-5:3 lost\n"
            "6:1-6:2 lost\n"
            "7:1-7:10 used\n"
            "8:1-8:3 used\n"
            "9:1-9:2 used\n");
}

TEST(Fates, OfTheParamSection) {
  EXPECT_EQ(FatesOf("==PARAM\n! c\n@@ (D)\nA P=1\n"),
            "1:1-1:8 used\n"
            "2:1-2:4 comment\n"
            "3:1-3:7 comment\n"
            "4:1-4:6 used\n");
}

// A block that is left out is one statement.
TEST(Fates, OfTheColoratSection) {
  EXPECT_EQ(FatesOf("==COLORAT\n@a A\nK 1 2 3 4\n! r\n/ 1 2 3 4\nx\n@b\nK 1 2 3 4\n@c C\n"),
            "1:1-1:10 used\n"
            "2:2-2:5 used\n"
            "3:1-3:10 used\n"
            "4:1-4:4 comment\n"
            "5:1-5:10 used\n"
            "6:1-6:2 lost\n"
            "7:2-8:10 lost\n"
            "9:2-9:5 lost\n");
}

// A block needs one line below its title.
TEST(Fates, OfTheOnlyLineOfAColorat) {
  EXPECT_EQ(FatesOf("==COLORAT\n@a A\nx\n@b B\n/ c\n@c C\nx\ny\n"),
            "1:1-1:10 used\n"
            "2:2-2:5 used\n"
            "3:1-3:2 used\n"
            "4:2-4:5 used\n"
            "5:1-5:4 used\n"
            "6:2-6:5 used\n"
            "7:1-7:2 lost\n"
            "8:1-8:2 lost\n");
}

TEST(Fates, OfAPropertyOutsideAllDomains) {
  EXPECT_EQ(FatesOf("==DOMEN\n@@@ D\n@ P 0 1\n@@@\n@ P 0 1\n@ Q 0 1\n"),
            "1:1-1:8 used\n"
            "2:1-2:6 used\n"
            "3:1-3:8 used\n"
            "4:1-4:4 used\n"
            "5:1-5:8 used\n"
            "6:1-6:8 lost\n");
}

// What forgets the domain or the property above it has an effect.
TEST(Fates, OfTheDomenSection) {
  EXPECT_EQ(FatesOf("domen d.txt",
                    "==DOMEN\n/ c\n@ Q 0 1\n@@@\nF int 0 5\n@@@ D\n@@ Door\n@ P 0 1\nF int 0 x\n"
                    "F int 0 5\nG int 5\nH x 0 5\nI int x 5\n@ P 0 1\n@ R 0\n@ S x 0\nF int 0 5\n"),
            "1:1-1:8 used\n"
            "2:1-2:4 comment\n"
            "3:1-3:8 lost\n"
            "4:1-4:4 used\n"
            "5:1-5:10 lost\n"
            "6:1-6:6 used\n"
            "7:1-7:8 used\n"
            "8:1-8:8 used\n"
            "9:1-9:10 used\n"
            "10:1-10:10 shadowed\n"
            "11:1-11:8 lost\n"
            "12:1-12:8 lost\n"
            "13:1-13:10 lost\n"
            "14:1-14:8 used\n"
            "15:1-15:6 used\n"
            "16:1-16:8 used\n"
            "17:1-17:10 lost\n");
}

TEST(Fates, AreThoseOfPiecesWhereSemicolonsWin) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@A; wall\n in;; /\n@B;\n door ;"),
            "1:1-1:10 used\n"
            "2:1-2:3 used\n"
            "2:5-3:4 used\n"
            "3:5-3:5 blank\n"
            "3:7-4:3 comment\n"
            "5:2-5:6 used\n"
            "5:8-5:8 blank\n");
}

TEST(Fates, AreThoseOfLinesWhereLineEndsWin) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@A; x\nwall; in\n/ c\nroof\n"),
            "1:1-1:10 used\n"
            "2:1-2:6 used\n"
            "3:1-3:9 used\n"
            "4:1-4:4 comment\n"
            "5:1-5:5 used\n");
}

TEST(Fates, AreThoseOfPiecesInABlockOfColoursWhereSemicolonsWin) {
  EXPECT_EQ(FatesOf("==COLORAT\n@a A; K 1 2 3 4; x; L 1 2\n3 4\n@b B\nM 1 2 3 4\n"),
            "1:1-1:10 used\n"
            "2:2-2:5 used\n"
            "2:7-2:16 used\n"
            "2:18-2:19 lost\n"
            "2:21-3:4 lost\n"
            "4:2-4:5 used\n"
            "5:1-5:10 used\n");
}

// A line is as long as its text without white space at its ends, which a carriage return is too.
TEST(Fates, AreFoundInFilesWithCarriageReturns) {
  EXPECT_EQ(FatesOf("\r\n==MAPTEXT\r\n \t@A\r\n\t\r\nwall\r\n"),
            "1:1-1:1 blank\n"
            "2:1-2:10 used\n"
            "3:3-3:5 used\n"
            "4:1-4:1 blank\n"
            "5:1-5:5 used\n");
}

TEST(Fates, HaveColumnsThatCountCodePoints) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@😀; ж😀ж; 😀\n😀 x; \xC2\xA0y\n"),
            "1:1-1:10 used\n"
            "2:1-2:3 used\n"
            "2:5-2:8 used\n"
            "2:10-3:4 used\n"
            "3:7-3:8 used\n");
}

TEST(Fates, AreLostAfterByte1A) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@A\nж\x1A x\n==DOMEN\n\n@@@ D\n"),
            "1:1-1:10 used\n"
            "2:1-2:3 used\n"
            "3:1-3:2 used\n"
            "3:2-7:1 lost\n");
}

TEST(Fates, AreLostAfterBytesThatAreNotUtf8) {
  EXPECT_EQ(FatesOf("==MAPTEXT\n@A\n😀\xFFx\n==DOMEN\n\xFF\n"),
            "1:1-1:10 used\n"
            "2:1-2:3 used\n"
            "3:1-3:2 used\n"
            "3:2-6:1 lost\n");
}

TEST(Fates, AreIgnoredBelowAHeadingWithAByteOrderMark) {
  EXPECT_EQ(FatesOf("\xEF\xBB\xBF==MAPTEXT\n@A\nw\n==DOMEN\n@@@ D\n"),
            "1:1-1:11 ignored\n"
            "2:1-2:3 ignored\n"
            "3:1-3:2 ignored\n"
            "4:1-4:8 used\n"
            "5:1-5:6 used\n");
}

TEST(Fates, AreThoseOfBlankLinesUpToTheEndOfTheReading) {
  EXPECT_EQ(FatesOf("==CLASS\n\n \n"),
            "1:1-1:8 used\n"
            "2:1-2:1 blank\n"
            "3:1-3:1 blank\n");
  EXPECT_EQ(FatesOf("==CLASS\n\n \x1A\n"),
            "1:1-1:8 used\n"
            "2:1-2:1 blank\n"
            "3:2-4:1 lost\n");
}

TEST(Fates, AreNoneInAnEmptyFile) {
  EXPECT_EQ(FatesOf(""), "");
}

TEST(Fates, AreThoseOfTheHeadingsWhereSectionsHaveNoLines) {
  EXPECT_EQ(FatesOf("==CLASS\n==MAPTEXT\n==PARAM\n==COLORAT\n==DOMEN\n==NOTES\nx\n"),
            "1:1-1:8 used\n"
            "2:1-2:10 used\n"
            "3:1-3:8 used\n"
            "4:1-4:10 used\n"
            "5:1-5:8 used\n"
            "6:1-6:8 ignored\n"
            "7:1-7:2 ignored\n");
}

TEST(Fates, GoWithTheHeadingsOfTheirSections) {
  std::string sections;
  const Report report =
      ReportOf({File("classificator c.txt", "x\n==MAPTEXT of\n@A\nw\n==NOTES\ny\n")});
  for (const Statement& statement : report.statements) {
    sections += report.sections[statement.section] + "|";
  }
  EXPECT_EQ(sections, "|==MAPTEXT of|==MAPTEXT of|==MAPTEXT of|==NOTES|==NOTES|");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
