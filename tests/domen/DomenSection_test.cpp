#include "domen/DomenSection.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "support/DescribeDomens.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

void Parse(DomenStore& store, std::wstring_view body) {
  FieldAdder fields;
  ParseDomenSection(store, fields, body);
}

// Returns the domains after parsing the body of a section into an empty store.
std::wstring Parsed(std::wstring_view body) {
  DomenStore store;
  Parse(store, body);
  return Describe(store);
}

std::wstring ActiveAfter(std::wstring_view body) {
  DomenStore store;
  store.activeDomenId = L"before";
  Parse(store, body);
  return store.activeDomenId;
}

// Returns the empty domain D after parsing one entry.
std::wstring ParsedInDomain(const std::wstring& entry) {
  DomenStore store;
  Parse(store, L"@@@ D\n" + entry);
  return Describe(store.domens.at(L"D").properties);
}

// Returns the property P without fields after parsing one entry.
std::wstring ParsedInProperty(const std::wstring& entry) {
  DomenStore store;
  Parse(store, L"@@@ D\n@ P 0 1\n" + entry);
  std::wstring text;
  for (const auto& field : store.domens.at(L"D").properties.at(L"P").fields)
    text += Describe(*field);
  return text;
}

// Examples

constexpr const wchar_t* openings =
    L"domain Openings 'Openings'\n"
    L"  property Exits 'Exits' 20 [Door|Room]\n"
    L"    rlist Widths 'Widths' = 0.9\n"
    L"    slist Names 'Names' flagged = main\n"
    L"  property Rating 'Element rating class' unique 10 [Door|Room]\n"
    L"    str Class 'Rating class' flagged = K30\n"
    L"    int Minutes 'Minutes' = 30\n"
    L"  property Steps 'Steps' 5 [Stair]\n"
    L"    ilist Count 'Number of steps' = 12\n";

TEST(TextDomainFile, IsReadLineByLine) {
  const TempFolder folder;
  const std::wstring path = folder.Write("domens.txt",
                                         "==DOMEN\n"
                                         "/ properties of doors and rooms\n"
                                         "@@@ Openings this rest of the line is ignored\n"
                                         "@@ Door Room\n"
                                         "@ Rating 1 10 Element rating class\n"
                                         "Class str 1 K30 Rating class\n"
                                         "Minutes int 0 30\n"
                                         "Broken nosuchtype 1 5\n"
                                         "@ Exits 0 20\n"
                                         "Widths rlist 0 0.9\n"
                                         "Names slist 1 main\n"
                                         "@@ Stair\n"
                                         "@ Steps 0 5\n"
                                         "Count ilist 0 12 Number of steps\n"
                                         "==NOTES\n"
                                         "@@@ NeverRead\n");
  DomenStore store;
  EXPECT_EQ(store.LoadDomen(path, L""), 0);
  EXPECT_EQ(Describe(store), openings);
  EXPECT_EQ(store.activeDomenId, L"Openings");
}

TEST(TextDomainFile, CanBeOneLineSplitAtSemicolons) {
  const TempFolder folder;
  const std::wstring path =
      folder.Write("domens.txt", "==DOMEN\n@@@ Simple;@@ Room;@ Area 0 1;Value real 1 0.5\n");
  DomenStore store;
  EXPECT_EQ(store.LoadDomen(path, L""), 0);
  EXPECT_EQ(Describe(store),
            L"domain Simple 'Simple'\n"
            L"  property Area 'Area' 1 [Room]\n"
            L"    real Value 'Value' flagged = 0.5\n");
  EXPECT_EQ(store.activeDomenId, L"Simple");
}

// Splitting into entries

TEST(ParseDomenSection, DoesNothingWithAnEmptyBody) {
  for (const wchar_t* body : {L"", L" ", L"\n", L";", L" ; \n ; "}) {
    EXPECT_EQ(Parsed(body), L"");
    EXPECT_EQ(ActiveAfter(body), L"before");
  }
}

TEST(ParseDomenSection, SplitsAtLineFeedsIfTheyYieldMorePieces) {
  // Three lines but two pieces at semicolons: the semicolon stays in its line.
  EXPECT_EQ(Parsed(L"@@@ D\n@ P 0 1 one;two\nF int 0 5"),
            L"domain D 'D'\n"
            L"  property P 'one;two' 1 []\n"
            L"    int F 'F' = 5\n");
}

TEST(ParseDomenSection, SplitsAtSemicolonsIfTheyYieldMorePieces) {
  EXPECT_EQ(Parsed(L"@@@ D;@ P 0 1;F int 0 5;G\nint 0 6"),
            L"domain D 'D'\n"
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n");
}

TEST(ParseDomenSection, SplitsAtSemicolonsOnATie) {
  // Two semicolons in the comment split the three lines into three pieces: a comment and two
  // entries without meaning.
  EXPECT_EQ(Parsed(L"/ walls; roofs; stairs\n@@@ D\n@ P 0 1"), L"");
  // The line ends stay in the entries as white space, which separates no pieces.
  EXPECT_EQ(Parsed(L"@@@ D\nx;@ P 0 1"), L"domain D\nx 'D\nx'\n  property P 'P' 1 []\n");
  EXPECT_EQ(Parsed(L"@@@ D;@ P 0 1 one\ntwo"), L"domain D 'D'\n  property P 'one\ntwo' 1 []\n");
  EXPECT_EQ(Parsed(L"@@@ D;@ P 0 1\nF int 0 5"), L"domain D 'D'\n");
}

TEST(ParseDomenSection, SplitsABodyOfOneLineAtSemicolons) {
  EXPECT_EQ(Parsed(L"@@@ D"), L"domain D 'D'\n");
  EXPECT_EQ(Parsed(L"@@@ D;"), L"domain D 'D'\n");
  EXPECT_EQ(Parsed(L"@@@ D;@ P 0 1"), L"domain D 'D'\n  property P 'P' 1 []\n");
}

TEST(ParseDomenSection, DoesNotCountEmptyPieces) {
  // Two lines, and only one piece at the many semicolons.
  EXPECT_EQ(Parsed(L"@@@ D\n@ P 0 1;;;; ; ;;"), L"domain D 'D'\n");
  EXPECT_EQ(Parsed(L"@@@ D;\n\n\n \n@ P 0 1;\nF int 0 5;G int 0 6"),
            L"domain D 'D'\n"
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n"
            L"    int G 'G' = 6\n");
}

TEST(ParseDomenSection, TrimsEveryEntry) {
  EXPECT_EQ(Parsed(L"\t @@@ D \t; \n @ P 0 1\r ;\x3000"
                   L"F int 0 5\xA0"),
            L"domain D 'D'\n"
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n");
}

// Comments

TEST(ParseDomenSection, SkipsAnEntryThatBeginsWithASlashOrAnExclamationMark) {
  for (const wchar_t* comment :
       {L"/", L"//", L"!", L"!!", L"/ @@@ X", L"!@@@ X", L"/@ Q 0 2", L"! @@ Door", L"/F int 0 6",
        L"!F int 0 6", L"/ int 0 6", L"! int 0 6", L"\t/ int 0 6", L"\t! int 0 6"}) {
    EXPECT_EQ(Parsed(L"@@@ D\n"s + comment + L"\n@ P 0 1\n" + comment + L"\nF int 0 5"),
              L"domain D 'D'\n"
              L"  property P 'P' 1 []\n"
              L"    int F 'F' = 5\n")
        << comment;
  }
}

TEST(ParseDomenSection, TakesNoCommentAfterOtherText) {
  EXPECT_EQ(ParsedInDomain(L"@ P 1 2 / text"), L"  property P '/ text' unique 2 []\n");
  EXPECT_EQ(ParsedInDomain(L"@ P 1 2 ! text"), L"  property P '! text' unique 2 []\n");
  EXPECT_EQ(ParsedInDomain(L"@ /P 0 1"), L"  property /P '/P' 1 []\n");
  EXPECT_EQ(ParsedInDomain(L"@ P 0 1/"), L"");
  EXPECT_EQ(ParsedInProperty(L"F str 0 a / text"), L"str F '/ text' = a\n");
  EXPECT_EQ(Parsed(L"@@@ /D"), L"domain /D '/D'\n");
  EXPECT_EQ(Parsed(L"@@@ D\n@@ / Door\n@ P 0 1"), L"domain D 'D'\n  property P 'P' 1 [/|Door]\n");
}

// Domains

TEST(ParseDomenSection, OpensADomainNamedByItsId) {
  EXPECT_EQ(Parsed(L"@@@ A B"), L"domain A 'A'\n");
  for (const wchar_t* entry : {L"@@@ Door", L"@@@Door", L"@@@   Door", L"@@@\tDoor",
                               L"@@@\xA0"
                               L"Door",
                               L"@@@ Door ", L"@@@ Door  the rest", L"@@@Door / x"}) {
    EXPECT_EQ(Parsed(entry), L"domain Door 'Door'\n") << entry;
    EXPECT_EQ(ActiveAfter(entry), L"Door") << entry;
  }
}

TEST(ParseDomenSection, EndsADomainsIdAtABlankOnly) {
  EXPECT_EQ(Parsed(L"@@@ A\tB C"), L"domain A\tB 'A\tB'\n");
  EXPECT_EQ(Parsed(L"@@@ A\xA0"
                   L"B"),
            L"domain A\xA0"
            L"B 'A\xA0"
            L"B'\n");
  EXPECT_EQ(Parsed(L"@@@ A,B\" C"), L"domain A,B\" 'A,B\"'\n");
  EXPECT_EQ(Parsed(L"@@@@ B"), L"domain @ '@'\n");
  EXPECT_EQ(Parsed(L"@@@@@@"), L"domain @@@ '@@@'\n");
}

TEST(ParseDomenSection, SkipsEverythingFromAnEmptyDomainToTheNextGoodOne) {
  for (const wchar_t* entry : {L"@@@", L"@@@ ", L"@@@\t"}) {
    const std::wstring body =
        L"@@@ A\n@ P 0 1\n"s + entry + L"\n@ Q 0 2\nF int 0 5\n@@@ B\n@ R 0 3\nG int 0 6";
    EXPECT_EQ(Parsed(body),
              L"domain A 'A'\n"
              L"  property P 'P' 1 []\n"
              L"domain B 'B'\n"
              L"  property R 'R' 3 []\n"
              L"    int G 'G' = 6\n");
  }
}

TEST(ParseDomenSection, KeepsTheActiveDomainAtAnEmptyOne) {
  EXPECT_EQ(ActiveAfter(L"@@@"), L"before");
  EXPECT_EQ(ActiveAfter(L"@@@ A\n@@@"), L"A");
}

TEST(ParseDomenSection, MakesTheLastDomainActiveEvenIfItExists) {
  EXPECT_EQ(ActiveAfter(L"@@@ A\n@@@ B"), L"B");
  EXPECT_EQ(ActiveAfter(L"@@@ A\n@@@ B\n@@@ A"), L"A");
  EXPECT_EQ(ActiveAfter(L"@ P 0 1\nF int 0 5\n@@ Door"), L"before");
}

TEST(ParseDomenSection, ExtendsADomainThatAppearsAgain) {
  EXPECT_EQ(Parsed(L"@@@ A first\n@ P 0 1\n@@@ B\n@ Q 0 2\n@@@ A second\n@ R 0 3"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"  property R 'R' 3 []\n"
            L"domain B 'B'\n"
            L"  property Q 'Q' 2 []\n");
}

TEST(ParseDomenSection, DistinguishesDomainsByCase) {
  EXPECT_EQ(Parsed(L"@@@ a\n@@@ A"), L"domain A 'A'\ndomain a 'a'\n");
}

TEST(ParseDomenSection, IgnoresPropertiesAndFieldsBeforeTheFirstDomain) {
  EXPECT_EQ(Parsed(L"@ P 0 1\nF int 0 5"), L"");
  EXPECT_EQ(Parsed(L"@ P 0 1\n@@@ D\nF int 0 5"), L"domain D 'D'\n");
}

// Object types

TEST(ParseDomenSection, AppliesObjectTypesToEveryPropertyUpToTheNextSuchEntry) {
  EXPECT_EQ(
      Parsed(L"@@@ D\n@ A 0 1\n@@ Door Room\n@ B 0 1\n@ C 0 1\n@@ Stair\n@ D 0 1\n@@\n@ E 0 1"),
      L"domain D 'D'\n"
      L"  property A 'A' 1 []\n"
      L"  property B 'B' 1 [Door|Room]\n"
      L"  property C 'C' 1 [Door|Room]\n"
      L"  property D 'D' 1 [Stair]\n"
      L"  property E 'E' 1 []\n");
}

TEST(ParseDomenSection, SplitsObjectTypesAtBlanksAndKeepsTheirOrder) {
  struct Case {
    const wchar_t* entry;
    const wchar_t* types;
  };
  const Case cases[] = {
      {L"@@ Door Room", L"Door|Room"},
      {L"@@Door Room", L"Door|Room"},
      {L"@@  Room   Door ", L"Room|Door"},
      {L"@@\tRoom Door", L"Room|Door"},
      {L"@@ Room Door Room", L"Room|Door|Room"},
      {L"@@ Room\tDoor Stair", L"Room\tDoor|Stair"},
      {L"@@ Room \t Door", L"Room|Door"},
      {L"@@ \"Door Room\"", L"\"Door|Room\""},
      {L"@@ Door,Room", L"Door,Room"},
      {L"@@ @ Door", L"@|Door"},
      {L"@@", L""},
      {L"@@ Дверь", L"Дверь"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ParsedInDomain(one.entry + L"\n@ P 0 1"s),
              L"  property P 'P' 1 ["s + one.types + L"]\n")
        << one.entry;
  }
}

TEST(ParseDomenSection, TakesObjectTypesBeforeTheFirstDomain) {
  EXPECT_EQ(Parsed(L"@@ Door\n@@@ D\n@ P 0 1"), L"domain D 'D'\n  property P 'P' 1 [Door]\n");
}

TEST(ParseDomenSection, CarriesObjectTypesOnOverDomains) {
  EXPECT_EQ(Parsed(L"@@@ A\n@@ Door\n@ P 0 1\n@@@ B\n@ P 0 1\n@@@\n@@@ C\n@ P 0 1"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 [Door]\n"
            L"domain B 'B'\n"
            L"  property P 'P' 1 [Door]\n"
            L"domain C 'C'\n"
            L"  property P 'P' 1 [Door]\n");
}

TEST(ParseDomenSection, LeavesTheCurrentPropertyAloneAtObjectTypes) {
  EXPECT_EQ(ParsedInDomain(L"@ P 0 1\n@@ Door\nF int 0 5"),
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n");
}

// Properties

TEST(ParseDomenSection, ReadsTheColumnsOfAProperty) {
  struct Case {
    const wchar_t* entry;
    const wchar_t* property;
  };
  const Case cases[] = {
      {L"@ P 1 2", L"P 'P' unique 2 []"},
      {L"@P 1 2", L"P 'P' unique 2 []"},
      {L"@  P   1  2 ", L"P 'P' unique 2 []"},
      {L"@\tP 1 2", L"P 'P' unique 2 []"},
      {L"@ P \t1 \t 2", L"P 'P' unique 2 []"},
      {L"@ P 1 2 Title", L"P 'Title' unique 2 []"},
      {L"@ P 1 2 Long   title", L"P 'Long title' unique 2 []"},
      {L"@ P 1 2 of \t four  5 \"words\"", L"P 'of four 5 \"words\"' unique 2 []"},
      {L"@ P 1 2 a\t b\tc", L"P 'a b\tc' unique 2 []"},
      {L"@ P 0 2", L"P 'P' 2 []"},
      {L"@ P +1 2", L"P 'P' unique 2 []"},
      {L"@ P 001 2", L"P 'P' unique 2 []"},
      {L"@ P 2 2", L"P 'P' 2 []"},
      {L"@ P -1 2", L"P 'P' 2 []"},
      {L"@ P 10 2", L"P 'P' 2 []"},
      {L"@ P 0 -5", L"P 'P' -5 []"},
      {L"@ P 0 +5", L"P 'P' 5 []"},
      {L"@ P 0 2147483647", L"P 'P' 2147483647 []"},
      {L"@ P 0 -2147483648", L"P 'P' -2147483648 []"},
      {L"@ Свойство 0 1 Имя свойства", L"Свойство 'Имя свойства' 1 []"},
      {L"@ @P 0 1", L"@P '@P' 1 []"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ParsedInDomain(one.entry), L"  property "s + one.property + L"\n") << one.entry;
  }
}

TEST(ParseDomenSection, SkipsAPropertyWithTooFewColumnsOrANumberThatIsNone) {
  for (const wchar_t* entry :
       {L"@", L"@ ", L"@ P", L"@ P 1", L"@ P 1 x", L"@ P x 1", L"@ P x x", L"@ P 1 2.5",
        L"@ P 1.0 2", L"@ P yes 1 Title", L"@ P 1 2,", L"@ P 0x1 2", L"@ P 0 2147483648",
        L"@ P 4294967297 1", L"@ P\t1\t2", L"@ P 1\t2", L"@ P 1 2\tTitle", L"@ P Title 1 2",
        L"@ \"P Q\" 1 2"}) {
    EXPECT_EQ(ParsedInDomain(entry), L"") << entry;
    EXPECT_EQ(ParsedInDomain(entry + L"\nF int 0 5"s), L"") << entry;
  }
}

TEST(ParseDomenSection, KeepsTheFieldsAfterABadPropertyOutOfTheOneBefore) {
  for (const wchar_t* entry : {L"@", L"@ Q", L"@ Q 1", L"@ Q 1 x", L"@ Q x 1"}) {
    EXPECT_EQ(ParsedInProperty(L"F int 0 5\n"s + entry + L"\nG int 0 6"), L"int F 'F' = 5\n")
        << entry;
  }
}

TEST(ParseDomenSection, KeepsTheFirstPropertyOfAnIdAndAddsToItTheFieldsAfterTheSecond) {
  EXPECT_EQ(Parsed(L"@@@ D\n@@ Door\n@ P 1 10 First\nF int 0 5\n@ Q 0 1\n"
                   L"@@ Room\n@ P 0 20 Second\nF str 1 x\nG int 0 6"),
            L"domain D 'D'\n"
            L"  property P 'First' unique 10 [Door]\n"
            L"    int F 'F' = 5\n"
            L"    int G 'G' = 6\n"
            L"  property Q 'Q' 1 [Door]\n");
}

TEST(ParseDomenSection, DistinguishesPropertiesByCaseAndByDomain) {
  EXPECT_EQ(Parsed(L"@@@ A\n@ P 0 1\n@ p 0 2\n@@@ B\n@ P 0 3"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"  property p 'p' 2 []\n"
            L"domain B 'B'\n"
            L"  property P 'P' 3 []\n");
}

// Value lines

TEST(ParseDomenSection, ReadsTheColumnsOfAField) {
  struct Case {
    const wchar_t* entry;
    const wchar_t* field;
  };
  const Case cases[] = {
      {L"F int 0 5", L"int F 'F' = 5"},
      {L"F real 0 2.50", L"real F 'F' = 2.5"},
      {L"F str 0 K30", L"str F 'F' = K30"},
      {L"F ilist 0 12", L"ilist F 'F' = 12"},
      {L"F rlist 0 0.9", L"rlist F 'F' = 0.9"},
      {L"F slist 0 main", L"slist F 'F' = main"},
      {L"F   int  0   5 ", L"int F 'F' = 5"},
      {L"F int \t0 5", L"int F 'F' = 5"},
      {L"F int 0 5 Title", L"int F 'Title' = 5"},
      {L"F int 0 5 A   long \t title  ", L"int F 'A long title' = 5"},
      {L"F int 0 5 6 7 8", L"int F '6 7 8' = 5"},
      {L"F int 1 5", L"int F 'F' flagged = 5"},
      {L"F int 2 5", L"int F 'F' flagged = 5"},
      {L"F int -1 5", L"int F 'F' flagged = 5"},
      {L"F int 2147483647 5", L"int F 'F' flagged = 5"},
      {L"F int 00 5", L"int F 'F' = 5"},
      {L"F int -0 5", L"int F 'F' = 5"},
      {L"Поле str 0 да Имя поля", L"str Поле 'Имя поля' = да"},
      {L"int int 0 5", L"int int 'int' = 5"},
      {L"=F int 0 5", L"int =F '=F' = 5"},
      {L"F@ int 0 5", L"int F@ 'F@' = 5"},
      {L"\"F\" int 0 5", L"int \"F\" '\"F\"' = 5"},
      {L"7 int 0 5", L"int 7 '7' = 5"},
      {L"==F int 0 5", L"int ==F '==F' = 5"},
      {L"== int 0 5", L"int == '==' = 5"},
      {L"# int 0 5", L"int # '#' = 5"},
      {L"$ int 0 5", L"int $ '$' = 5"},
      {L"*F int 0 5", L"int *F '*F' = 5"},
      {L"- int 0 5", L"int - '-' = 5"},
      {L"{F} int 0 5", L"int {F} '{F}' = 5"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ParsedInProperty(one.entry), one.field + L"\n"s) << one.entry;
  }
}

TEST(ParseDomenSection, SkipsAFieldWithTooFewColumnsOrWithoutTypeOrFlag) {
  for (const wchar_t* entry : {L"F",
                               L"F int",
                               L"F int 1",
                               L"F int x 3",
                               L"F Int 0 5",
                               L"F integer 0 5",
                               L"F list 0 5",
                               L"F nosuchtype 1 5",
                               L"F 0 0 5",
                               L"int 0 5",
                               L"F int 5",
                               L"F int yes 5",
                               L"F int 0.5 5",
                               L"F int 1, 5",
                               L"F int 2147483648 5",
                               L"F\tint\t0\t5",
                               L"F int 0\t5",
                               L"F int\t0 5 Title",
                               L"F 0 int 5",
                               L"F int \"0\" 5"}) {
    EXPECT_EQ(ParsedInProperty(entry), L"") << entry;
    EXPECT_EQ(ParsedInProperty(entry + L"\nG int 0 6"s), L"int G 'G' = 6\n") << entry;
  }
}

TEST(ParseDomenSection, TakesOneWordAsTheDefault) {
  struct Case {
    const wchar_t* entry;
    const wchar_t* field;
  };
  const Case cases[] = {
      {L"F ilist 0 1 2 3", L"ilist F '2 3' = 1"},
      {L"F slist 0 a b", L"slist F 'b' = a"},
      {L"F str 0 \"two words\" Title", L"str F 'words\" Title' = two"},
      {L"F str 0 \"word\"", L"str F 'F' = word"},
      {L"F str 0 \"\"", L"str F 'F' = "},
      {L"F slist 0 \"a b\"", L"slist F 'b\"' = a"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ParsedInProperty(one.entry), one.field + L"\n"s) << one.entry;
  }
}

TEST(ParseDomenSection, LeavesTheInitialValueIfTheFieldRefusesTheDefault) {
  struct Case {
    const wchar_t* entry;
    const wchar_t* field;
  };
  const Case cases[] = {
      {L"F int 0 x", L"int F 'F' = 1"},           {L"F int 0 2.5", L"int F 'F' = 1"},
      {L"F real 0 1,5", L"real F 'F' = 1"},       {L"F ilist 0 x", L"ilist F 'F' = 1"},
      {L"F ilist 0 1,2", L"ilist F 'F' = 1"},     {L"F rlist 0 x", L"rlist F 'F' = 1"},
      {L"F int 0 x Title", L"int F 'Title' = 1"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(ParsedInProperty(one.entry), one.field + L"\n"s) << one.entry;
  }
}

TEST(ParseDomenSection, KeepsFieldsInTheOrderOfTheFile) {
  EXPECT_EQ(ParsedInProperty(L"c int 0 1\nB int 0 2\na int 0 3"),
            L"int c 'c' = 1\nint B 'B' = 2\nint a 'a' = 3\n");
}

TEST(ParseDomenSection, KeepsTheFirstFieldOfAName) {
  EXPECT_EQ(ParsedInProperty(L"F int 0 5 First\nF str 1 x Second\nf int 0 6"),
            L"int F 'First' = 5\nint f 'f' = 6\n");
}

TEST(ParseDomenSection, IgnoresFieldsBeforeTheFirstProperty) {
  EXPECT_EQ(ParsedInDomain(L"F int 0 5\n@ P 0 1"), L"  property P 'P' 1 []\n");
}

TEST(ParseDomenSection, DoesNotTreatNoPropertyAsOneWithAnEmptyId) {
  DomenStore store;
  Domen domen(L"D", L"D");
  domen.AddProperty(L"", DomenProperty(L"", L"", {}, false, 0));
  store.AddDomen(L"D", std::move(domen));
  Parse(store, L"@@@ D\nF int 0 5");
  EXPECT_TRUE(store.domens.at(L"D").properties.at(L"").fields.empty());
}

// The current property outlives a change of domain.

TEST(ParseDomenSection, AddsAFieldAfterADomainToItsPropertyOfTheSameId) {
  EXPECT_EQ(Parsed(L"@@@ A\n@ P 0 1\n@@@ B\n@ P 0 2\n@@@ A\nF int 0 5"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n"
            L"domain B 'B'\n"
            L"  property P 'P' 2 []\n");
}

TEST(ParseDomenSection, DropsAFieldAfterADomainWithoutAPropertyOfThatId) {
  EXPECT_EQ(Parsed(L"@@@ A\n@ P 0 1\n@@@ B\nF int 0 5\n@@@ C\n@ Q 0 1"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"domain B 'B'\n"
            L"domain C 'C'\n"
            L"  property Q 'Q' 1 []\n");
}

TEST(ParseDomenSection, KeepsTheCurrentPropertyOverAnEmptyDomain) {
  EXPECT_EQ(Parsed(L"@@@ A\n@ P 0 1\n@@@\nF int 0 5\n@@@ A\nG int 0 6"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"    int G 'G' = 6\n");
}

TEST(ParseDomenSection, ForgetsTheCurrentPropertyAtAPropertyWithoutADomain) {
  EXPECT_EQ(Parsed(L"@@@ A\n@ P 0 1\n@@@\n@ P 0 1\n@@@ A\nF int 0 5"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n");
}

// Several sections

TEST(ParseDomenSection, StartsWithoutADomainWithoutObjectTypesAndWithoutAProperty) {
  DomenStore store;
  Parse(store, L"@@@ A\n@@ Door\n@ P 0 1");
  Parse(store, L"@ Q 0 1\nF int 0 5");
  Parse(store, L"@@@ A\nF int 0 5\n@ R 0 1");
  EXPECT_EQ(Describe(store),
            L"domain A 'A'\n"
            L"  property P 'P' 1 [Door]\n"
            L"  property R 'R' 1 []\n");
}

// Long texts and all units

TEST(ParseDomenSection, TakesUnitsOfAnyKind) {
  EXPECT_EQ(Parsed(L"@@@ A\0B\n@@ \U0001F6AA\n@ P\0 0 1 \0\nF str 0 \0"s),
            L"domain A\0B 'A\0B'\n"
            L"  property P\0 '\0' 1 [\U0001F6AA]\n"
            L"    str F 'F' = \0\n"s);
  const std::wstring lone(1, static_cast<wchar_t>(0xD800));
  EXPECT_EQ(Parsed(L"@@@ " + lone), L"domain " + lone + L" '" + lone + L"'\n");
}

TEST(ParseDomenSection, TakesATokenOfMegabytes) {
  const std::wstring word(5'000'000, L'x');
  DomenStore store;
  Parse(store, L"@@@ D\n@ P 0 1\nF str 0 " + word + L"\nG int 0 " + word + L"\nH int " + word +
                   L" 5\nI " + word + L" 0 5");
  const auto& fields = store.domens.at(L"D").properties.at(L"P").fields;
  ASSERT_EQ(fields.size(), 2u);
  EXPECT_TRUE(fields[0]->GetValue() == word);
  EXPECT_EQ(fields[1]->GetValue(), L"1");
}

TEST(ParseDomenSection, TakesALineOfMegabytesOfMarkers) {
  DomenStore store;
  Parse(store, std::wstring(5'000'000, L'@'));
  ASSERT_EQ(store.domens.size(), 1u);
  EXPECT_EQ(store.activeDomenId.size(), 5'000'000u - 3);
}

TEST(ParseDomenSection, TakesAMillionSeparators) {
  const std::wstring blanks(1'000'000, L' ');
  EXPECT_EQ(Parsed(std::wstring(1'000'000, L';') + L"@@@ D" + std::wstring(1'000'000, L';') +
                   L"@ P" + blanks + L"0 1 a" + blanks + L"b"),
            L"domain D 'D'\n  property P 'a b' 1 []\n");
}

TEST(ParseDomenSection, TakesAMillionWords) {
  std::wstring words;
  for (int i = 0; i < 1'000'000; ++i) words += L" x";
  DomenStore store;
  Parse(store, L"@@@ D\n@@" + words + L"\n@ P 0 1" + words);
  const DomenProperty& property = store.domens.at(L"D").properties.at(L"P");
  EXPECT_EQ(property.objectTypes.size(), 1'000'000u);
  EXPECT_TRUE(property.name == words.substr(1));
}

TEST(ParseDomenSection, TakesManyPropertiesAndFields) {
  std::wstring body = L"@@@ D";
  for (int i = 0; i < 20'000; ++i) {
    const std::wstring number = std::to_wstring(i);
    body += L"\n@ P" + number + L" 0 " + number + L"\nF int 0 " + number;
  }
  DomenStore store;
  Parse(store, body);
  const DomenProperties& properties = store.domens.at(L"D").properties;
  EXPECT_EQ(properties.size(), 20'000u);
  EXPECT_EQ(properties.at(L"P19999").fields.at(0)->GetValue(), L"19999");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
