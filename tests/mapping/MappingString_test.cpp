// Tests of mapping strings, from files on disk to the exports.

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

#include "RevitMappingEditorDll.h"
#include "support/LoadedScheme.h"
#include "support/OutOfRange.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

constexpr std::string_view worked =
    "==MAPTEXT\n"
    "@@ (D1 D2)\n"
    "$ Z99\n"
    "! walls\n"
    "@W10 {GRADE=60,A LEN:a=1,b=2}\n"
    "basic wall\n"
    "@D20 {KIND red green; NOTE x=1 y=2 z} {TAIL}\n"
    "door\n"
    "==PARAM\n"
    "W10 {GRADE=30,B LEN:a=3,b=4}\n"
    "Z99 GRADE\n"
    "==DOMEN\n"
    "@@@ D1\n"
    "@ GRADE 0 1\n"
    "Rating int 0 30\n"
    "Class str 0 K\n"
    "@@@ D2\n"
    "@ LEN 0 2\n"
    "a real 0 0.5\n"
    "b real 0 0.25\n";

constexpr int sourcesOfNothing[] = {0, 3, -1, INT_MAX, INT_MIN};

// Returns the mapping string of "wall" with the items of one header. The domain A has the
// properties GRADE and LEN of the worked file, EMPTY without fields, and LIST.
std::wstring WallOf(std::string_view header) {
  LoadedScheme scheme(std::string("==MAPTEXT\n@@ (A)\n")
                          .append(header)
                          .append("\nwall\n!\n!\n!\n!\n"
                                  "==DOMEN\n"
                                  "@@@ A\n"
                                  "@ GRADE 0 1\n"
                                  "Rating int 0 30\n"
                                  "Class str 0 K\n"
                                  "@ LEN 0 2\n"
                                  "a real 0 0.5\n"
                                  "b real 0 0.25\n"
                                  "@ EMPTY 0 3\n"
                                  "@ LIST 0 4\n"
                                  "n ilist 0 7\n"
                                  "s slist 0 x\n"));
  return Take(scheme.editor.GetMappingStr(L"wall", 1, L"="));
}

TEST(GetMappingStr, ComposesMarksParameterNameCodeAndItems) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"[[");
  scheme.editor.SetEndMark(L"]]");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Basic Wall 200", 1, L"=")),
            L"[[ClassCode W10;GRADE= 60 A;LEN= 1 2;]]");
}

TEST(GetMappingStr, HasTheDefaultCodeWithoutItemsForATextThatMatchesNothing) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"[[");
  scheme.editor.SetEndMark(L"]]");
  for (const int source : {1, 2, 0, 3, -1}) {
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Roof", source, L"=")), L"[[ClassCode Z99;]]")
        << source;
  }
  for (const wchar_t* text : {L"", L" basic wall", L"basic", L"basic\twall"}) {
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(text, 1, L"=")), L"[[ClassCode Z99;]]") << text;
  }
}

TEST(GetMappingStr, TakesNoItemsFromParamSinceThatSectionNamesNoDomains) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Basic Wall 200", 2, L"=")), L"ClassCode W10;");
}

TEST(GetMappingStr, TakesNoItemsFromAnyOtherSource) {
  LoadedScheme scheme(worked);
  for (const int source : sourcesOfNothing) {
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Basic Wall 200", source, L"=")), L"ClassCode W10;")
        << source;
  }
}

TEST(GetMappingStr, LeavesOutItemsThatNoDomainKnows) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"door", 1, L"=")), L"ClassCode D20;");
  EXPECT_EQ(WallOf("@W {A=1 GRADE=60 grade=1 LENGTH=2}"), L"ClassCode W;GRADE= 60 K;");
}

TEST(GetMappingStr, BeginsWithTheParameterNameWithoutAStartMark) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Basic Wall", 1, L"=")),
            L"ClassCode W10;GRADE= 60 A;LEN= 1 2;");
}

TEST(GetMappingStr, WritesTheMarksUnchangedThoughTheirGettersAddABlank) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"<");
  scheme.editor.SetEndMark(L">");
  ASSERT_EQ(Take(scheme.editor.GetStartMark()), L" <");
  ASSERT_EQ(Take(scheme.editor.GetEndMark()), L"> ");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Roof", 1, L"")), L"<ClassCode Z99;>");
  scheme.editor.SetStartMark(L" начало ");
  scheme.editor.SetEndMark(L";\n");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Roof", 1, L"")), L" начало ClassCode Z99;;\n");
}

TEST(GetMappingStr, WritesTheSemicolonAfterACodeWithoutItems) {
  EXPECT_EQ(WallOf("@W"), L"ClassCode W;");
  EXPECT_EQ(WallOf("@W {}"), L"ClassCode W;");
}

TEST(GetMappingStr, WritesAnEmptyCodeWhereThereIsNone) {
  EXPECT_EQ(WallOf("@"), L"ClassCode ;");
  EXPECT_EQ(WallOf("@ {GRADE=60}"), L"ClassCode ;GRADE= 60 K;");
  LoadedScheme scheme("==PARAM\nW10\n");
  scheme.editor.SetStartMark(L"[[");
  scheme.editor.SetEndMark(L"]]");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), L"[[ClassCode ;]]");
}

TEST(GetMappingStr, KeepsTheBlankAfterAnEmptyParameterName) {
  TempFolder folder;
  const std::wstring file = folder.Write("s.txt", "==MAPTEXT\n@W\nwall\n");
  RevitMappingEditorDll editor(L"", L"");
  ASSERT_EQ(editor.CreateClassificator(L"S", L"", L"", file.c_str()), 0);
  ASSERT_EQ(editor.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L" W;");
}

TEST(GetMappingStr, StartsWithTheTextThatTheParameterNamesGetterReturns) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Roof", 1, L"")),
            Take(scheme.editor.GetActiveClassificatorParamName()) + L" Z99;");
}

TEST(GetMappingStr, PutsTheSuffixRightAfterTheId) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"basic wall", 1, L"")),
            L"ClassCode W10;GRADE 60 A;LEN 1 2;");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"basic wall", 1, L" :")),
            L"ClassCode W10;GRADE : 60 A;LEN : 1 2;");
}

TEST(GetMappingStr, WritesAPropertyWithoutFieldsAsItsNameAndABlank) {
  EXPECT_EQ(WallOf("@W {EMPTY}"), L"ClassCode W;EMPTY= ;");
  EXPECT_EQ(WallOf("@W {EMPTY=1,2}"), L"ClassCode W;EMPTY= ;");
}

TEST(GetMappingStr, PrintsTheDomainsValuesOfFieldsThatTheItemLeavesOut) {
  EXPECT_EQ(WallOf("@W {GRADE=60}"), L"ClassCode W;GRADE= 60 K;");
  EXPECT_EQ(WallOf("@W {GRADE}"), L"ClassCode W;GRADE= 30 K;");
  EXPECT_EQ(WallOf("@W {LEN:b=4}"), L"ClassCode W;LEN= 0.5 4;");
}

TEST(GetMappingStr, KeepsTheDomainsValueWhereAFieldRefusesItsOwn) {
  EXPECT_EQ(WallOf("@W {GRADE=x,A LEN:a=1;5,b=y}"), L"ClassCode W;GRADE= 30 A;LEN= 0.5 0.25;");
}

TEST(GetMappingStr, IgnoresASemicolonAfterAValue) {
  EXPECT_EQ(WallOf("@W {GRADE=60;,A;}"), L"ClassCode W;GRADE= 60 A;");
}

TEST(GetMappingStr, FillsFieldsByPositionWhenTheFirstWordHoldsNoEqualsSign) {
  EXPECT_EQ(WallOf("@W {GRADE 60 Class=A}"), L"ClassCode W;GRADE= 60 Class=A;");
}

TEST(GetMappingStr, IgnoresANamedWordOfAnUnknownField) {
  EXPECT_EQ(WallOf("@W {LEN:c=1,b=2}"), L"ClassCode W;LEN= 0.5 2;");
  EXPECT_EQ(WallOf("@W {LEN:b=2,c}"), L"ClassCode W;LEN= 0.5 2;");
}

TEST(GetMappingStr, CollectsNumberedWordsIntoOneList) {
  EXPECT_EQ(WallOf("@W {LIST n1=1 n2=2 s1=u s2=v}"), L"ClassCode W;LIST= 1 2 u v;");
  EXPECT_EQ(WallOf("@W {LIST:n1=1,n=3,n2=2}"), L"ClassCode W;LIST= 3 x;");
}

TEST(GetMappingStr, DropsAnItemWithAnEqualsSignMissingAndKeepsItsNeighbours) {
  EXPECT_EQ(WallOf("@W {GRADE=60,A LEN:a=1,b GRADE=10}"), L"ClassCode W;GRADE= 60 A;GRADE= 10 K;");
}

TEST(GetMappingStr, WritesEveryItemOfAPropertyInTheOrderOfTheLists) {
  EXPECT_EQ(WallOf("@W {GRADE=60,A LEN:a=1} {GRADE=,B} {} {GRADE=10}"),
            L"ClassCode W;GRADE= 60 A;LEN= 1 0.25;GRADE= 30 K;GRADE= 10 K;");
}

TEST(GetMappingStr, TakesItemsOutOfMarksThatTheSectionSets) {
  EXPECT_EQ(WallOf("@$ [ ]\n@W [GRADE=60]"), L"ClassCode W;GRADE= 60 K;");
}

TEST(GetMappingStr, TakesAPropertyFromTheFirstDomainOfTheListThatHoldsIt) {
  constexpr std::string_view domains =
      "==DOMEN\n@@@ D1\n@ P 0 0\nf int 0 1\n@@@ D2\n@ P 0 0\nf int 0 2\n@ Q 0 0\nf int 0 3\n";
  struct Case {
    const char* list;
    const wchar_t* mapping;
  };
  const Case cases[] = {
      {"@@ (D1 D2)", L"ClassCode W;Q 3;P 1;"},    {"@@ (D2 D1)", L"ClassCode W;Q 3;P 2;"},
      {"@@ (D1)", L"ClassCode W;P 1;"},           {"@@ (D0 D2 D1)", L"ClassCode W;Q 3;P 2;"},
      {"@@ (d1 D2)", L"ClassCode W;Q 3;P 2;"},    {"@@ ()", L"ClassCode W;"},
      {"@@ (D1 D1 D2)", L"ClassCode W;Q 3;P 1;"}, {"! no list", L"ClassCode W;"},
  };
  for (const Case& one : cases) {
    LoadedScheme scheme(
        std::string("==MAPTEXT\n").append(one.list).append("\n@W {Q} {P}\nwall\n").append(domains));
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"")), one.mapping) << one.list;
  }
}

TEST(GetMappingStr, SearchesDomainsOfOtherFilesWhateverDomainIsActive) {
  LoadedScheme scheme("==MAPTEXT\n@@ (D1)\n@W {P=5}\nwall\n");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), L"ClassCode W;");
  const std::wstring file =
      scheme.folder.Write("d.txt", "==DOMEN\n@@@ D1\n@ P 0 0\nf int 0 1\n@@@ D2\n@ P 0 0\n");
  ASSERT_EQ(scheme.editor.CreateDomen(file.c_str()), 0);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), L"ClassCode W;P= 5;");
}

TEST(GetMappingStr, ComposesTheSameStringAgainInABufferOfItsOwn) {
  LoadedScheme scheme(worked);
  const wchar_t* first = scheme.editor.GetMappingStr(L"basic wall", 1, L"=");
  const wchar_t* second = scheme.editor.GetMappingStr(L"basic wall", 1, L"=");
  EXPECT_NE(first, second);
  EXPECT_EQ(Take(first), Take(second));
  Take(scheme.editor.GetMappingStr(L"Roof", 2, L""));
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"basic wall", 1, L"=")),
            L"ClassCode W10;GRADE= 60 A;LEN= 1 2;");
}

TEST(GetMappingStr, ReadsNoOlderStringOutOfTheText) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"[[");
  scheme.editor.SetEndMark(L"]]");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"door [[ClassCode W10;]]", 1, L"=")),
            L"[[ClassCode D20;]]");
}

// A word of a domain file has no blanks, so tabs are used as the white space that a copy trims.
// Reading removes the outer marks, collecting the properties removes one layer of tabs and marks,
// and the copy that the item fills another.
TEST(GetMappingStr, PassesDomainValuesThroughTheirTextTwice) {
  struct Case {
    const char* type;
    const char* defaultText;
    const wchar_t* printed;
  };
  const Case cases[] = {
      {"str", "\"K\"", L"K"},
      {"str", "\"\"\"K\"\"\"", L"K"},
      {"str", "\"\tK\t\"", L"K"},
      {"str", "\"\t\"\tK\t\"\t\"", L"K"},
      {"str", "\"\t\"\t\"\tK\t\"\t\"\t\"", L"\tK\t"},
      {"str", "\"\t\"\t\"\t\"\tK\t\"\t\"\t\"\t\"", L"\t\"\tK\t\"\t"},
      {"slist", "\"\tK\t\"", L"K"},
      {"slist", "\"\t\"\tK\t\"\t\"", L"K"},
      {"slist", "\"\t\"\t\"\tK\t\"\t\"\t\"", L"\tK\t"},
      {"slist", "\"\t\"\t\"\t\"\tK\t\"\t\"\t\"\t\"", L"\t\"\tK\t\"\t"},
  };
  for (const Case& one : cases) {
    LoadedScheme scheme(std::string("==MAPTEXT\n@@ (A)\n@W {P}\nwall\n==DOMEN\n@@@ A\n@ P 0 0\nf ")
                            .append(one.type)
                            .append(" 0 ")
                            .append(one.defaultText));
    const std::wstring expected = L"ClassCode W;P= "s + one.printed + L";";
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), expected)
        << one.type << " " << one.defaultText;
    EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), expected)
        << one.type << " " << one.defaultText << ", again";
  }
}

TEST(GetMappingStr, PassesDomainValuesOfACopiedEditorThroughTheirTextOnceMore) {
  LoadedScheme scheme(
      "==MAPTEXT\n@@ (A)\n@W {P}\nwall\n==DOMEN\n@@@ A\n@ P 0 0\n"
      "f str 0 \"\t\"\t\"\t\"\t\"\tK\t\"\t\"\t\"\t\"\t\"\n");
  const auto mapping = [](RevitMappingEditorDll& editor) {
    return Take(editor.GetMappingStr(L"wall", 1, L""));
  };
  RevitMappingEditorDll copy(scheme.editor);
  RevitMappingEditorDll assigned(L"", L"");
  assigned = copy;
  EXPECT_EQ(mapping(scheme.editor), L"ClassCode W;P \t\"\t\"\tK\t\"\t\"\t;");
  EXPECT_EQ(mapping(copy), L"ClassCode W;P \t\"\tK\t\"\t;");
  EXPECT_EQ(mapping(assigned), L"ClassCode W;P \tK\t;");
  assigned = copy;
  EXPECT_EQ(mapping(assigned), L"ClassCode W;P \tK\t;");
}

TEST(GetMappingStr, ComposesAlikeInACopyOfTheEditor) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"[[");
  RevitMappingEditorDll copy(scheme.editor);
  scheme.editor.SetStartMark(L"");
  EXPECT_EQ(Take(copy.GetMappingStr(L"basic wall", 1, L"=")),
            L"[[ClassCode W10;GRADE= 60 A;LEN= 1 2;");
}

TEST(GetMappingStr, TakesTheLastOfTwoSections) {
  LoadedScheme scheme(
      "==MAPTEXT\n@@ (A)\n$ Z1\n@V {P=1}\nwall\nroof\n"
      "==MAPTEXT\n@W {P=2}\nwall\n"
      "==DOMEN\n@@@ A\n@ P 0 0\nf int 0 0\n");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), L"ClassCode W;P= 2;");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"roof", 1, L"=")), L"ClassCode N00;");
}

TEST(GetMappingStr, ComposesAlikeFromAFileWithCarriageReturns) {
  std::string text(worked);
  for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += 2) text.insert(at, "\r");
  LoadedScheme scheme(text);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"Basic Wall 200", 1, L"=")),
            L"ClassCode W10;GRADE= 60 A;LEN= 1 2;");
}

TEST(GetMappingStr, TakesWhatIsBeforeBytesThatAreNoText) {
  LoadedScheme scheme(
      "==MAPTEXT\n$ Z\n@W\nwall\n@R\nro\xFF"
      "of\ndoor\n"s);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"")), L"ClassCode W;");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"robot", 1, L"")), L"ClassCode R;");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"door", 1, L"")), L"ClassCode Z;");
}

TEST(GetMappingStr, EndsAtTheFirstNulOfAFile) {
  LoadedScheme scheme("==MAPTEXT\n@W\0X {A}\nwall\n"s);
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"wall", 1, L"=")), L"ClassCode W");
}

TEST(GetMappingStr, WritesRussianTexts) {
  LoadedScheme scheme(
      "==MAPTEXT\n@@ (Стены)\n@С-10 {МАРКА=60,Кирпич}\nСТЕНА\n"
      "==DOMEN\n@@@ Стены\n@ МАРКА 0 0 Марка материала\nПредел int 0 0\nВид str 0 Бетон\n");
  scheme.editor.SetStartMark(L"«");
  scheme.editor.SetEndMark(L"»");
  EXPECT_EQ(Take(scheme.editor.GetMappingStr(L"СТЕНА 200", 1, L":")),
            L"«ClassCode С-10;МАРКА: 60 Кирпич;»");
}

TEST(GetMappingStr, WritesAHundredThousandItems) {
  std::string blocks;
  std::wstring items;
  for (int i = 0; i < 100'000; ++i) blocks += "{EMPTY}";
  for (int i = 0; i < 100'000; ++i) items += L"EMPTY= ;";
  EXPECT_EQ(WallOf("@W " + blocks), L"ClassCode W;" + items);
}

TEST(GetClaccificatorCodeParams, ReturnsTheItemsAlone) {
  LoadedScheme scheme(worked);
  scheme.editor.SetStartMark(L"[[");
  scheme.editor.SetEndMark(L"]]");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(1, 1, L"")), L"GRADE 60 A;LEN 1 2;");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(1, 1, L"=")), L"GRADE= 60 A;LEN= 1 2;");
}

TEST(GetClaccificatorCodeParams, ReturnsNothingForACodeWithoutItems) {
  LoadedScheme scheme(worked);
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(0, 1, L"=")), L"");
  for (const int source : {1, 2, 0, 3, -1}) {
    EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(-1, source, L"=")), L"") << source;
  }
}

TEST(GetClaccificatorCodeParams, ReturnsNothingFromParamOrAnyOtherSource) {
  LoadedScheme scheme(worked);
  for (const int source : {2, 0, 3, -1}) {
    EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(1, source, L"=")), L"") << source;
  }
}

TEST(GetClaccificatorCodeParams, RaisesForAnIdThatIsNeitherMinusOneNorACodeId) {
  LoadedScheme scheme(worked);
  for (const int codeId : {2, INT_MAX, -2, INT_MIN}) {
    for (const int source : {1, 2}) {
      EXPECT_EQ(
          OutOfRangeOf([&] { scheme.editor.GetClaccificatorCodeParams(codeId, source, L"="); }),
          badSubscript)
          << codeId << ", " << source;
    }
  }
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(1, 1, L"")), L"GRADE 60 A;LEN 1 2;");
}

TEST(GetClaccificatorCodeParams, LooksAtNoIdForAnyOtherSource) {
  LoadedScheme scheme(worked);
  for (const int codeId : {2, INT_MAX, -2, INT_MIN}) {
    for (const int source : sourcesOfNothing) {
      EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(codeId, source, L"=")), L"")
          << codeId << ", " << source;
    }
  }
}

TEST(GetClaccificatorCodeParams, KnowsOnlyMinusOneWithoutASection) {
  LoadedScheme scheme("==PARAM\nW10\n");
  for (const int source : {1, 2}) {
    EXPECT_EQ(Take(scheme.editor.GetClaccificatorCodeParams(-1, source, L"=")), L"") << source;
    EXPECT_EQ(OutOfRangeOf([&] { scheme.editor.GetClaccificatorCodeParams(0, source, L"="); }),
              badSubscript)
        << source;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
