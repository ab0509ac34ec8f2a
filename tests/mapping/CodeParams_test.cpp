#include "mapping/CodeParams.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "classificator/Classificator.h"
#include "domen/PropertyType.h"
#include "support/MapTextByHand.h"
#include "support/OutOfRange.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Texts = std::vector<std::wstring>;

constexpr int sourcesOfNothing[] = {0, 3, -1, INT_MAX, INT_MIN};

struct FieldOf {
  const wchar_t* name;
  int valueType;
  const wchar_t* defaultText;
};

DomenProperty PropertyOf(const std::vector<FieldOf>& fields) {
  DomenProperty property(L"id of its own", L"name", {}, false, 0);
  for (const FieldOf& field : fields) {
    EXPECT_EQ(property.AddValueField(field.name, L"", field.valueType, true, field.defaultText), 0);
  }
  return property;
}

// Returns the properties P, with these fields, and Q, with one.
DomenProperties PropertiesOf(const std::vector<FieldOf>& fields) {
  DomenProperties properties;
  properties.emplace(L"P", PropertyOf(fields));
  properties.emplace(L"Q", PropertyOf({{L"q", typeInt, L"0"}}));
  return properties;
}

// Returns P with three fields whose values no test sets.
DomenProperties ThreeFields() {
  return PropertiesOf({{L"a", typeInt, L"5"}, {L"b", typeStr, L"K"}, {L"c", typeRList, L"1 2"}});
}

// Returns a classificator with one ==MAPTEXT record of code W10, and one ==PARAM record for it. The
// composition of items doesn't depend on their section.
Classificator WithItems(std::vector<ParamItemList> lists) {
  Classificator classificator(L"S");
  std::vector<MapTextRecord> records(1);
  records[0].code = L"W10";
  classificator.mapTextSection.records.Swap(records);
  classificator.paramSection.records.push_back({L"W10", std::move(lists)});
  return classificator;
}

// Returns a classificator with records in ==MAPTEXT and ==PARAM for the codes A and B, and one in
// ==PARAM for the default code.
Classificator WithBothSections() {
  Classificator classificator(L"S");
  MapTextSection& mapText = classificator.mapTextSection;
  mapText.defaultCode = L"Z";
  mapText.domenIds = {L"D2", L"D1", L"D2"};
  std::vector<MapTextRecord> records(2);
  records[0].code = L"A";
  records[0].header = HeaderOf(L"{Q=1} {} {P=2 Q=3}");
  records[1].code = L"B";
  mapText.records.Swap(records);
  ParamSection& param = classificator.paramSection;
  param.domenIds = {L"D3"};
  param.records.push_back({L"A", {{{L"4", L"Q"}, {L"5", L"P"}, {L"6", L"Q"}}}});
  param.records.push_back({L"A", {{{L"7", L"R"}}}});
  param.records.push_back({L"Z", {{{L"8", L"Q"}}, {{L"9", L"P"}}}});
  return classificator;
}

// Returns what P prints after this value text has filled its fields.
std::wstring Filled(const std::wstring& valueText, const DomenProperties& properties) {
  return ComposeCodeParams(SectionsOf(WithItems({{{valueText, L"P"}}})), 0, sourceParam, L"=",
                           properties);
}

struct Case {
  std::wstring valueText;
  std::wstring item;
};

void ExpectFilled(const DomenProperties& properties, const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    EXPECT_EQ(Filled(one.valueText, properties), one.item) << one.valueText;
  }
}

TEST(GetCodeDomenIds, ReturnsTheListOfTheSectionThatTheSourceNames) {
  const Classificator classificator = WithBothSections();
  EXPECT_EQ(GetCodeDomenIds(SectionsOf(classificator), sourceMapText),
            (Texts{L"D2", L"D1", L"D2"}));
  EXPECT_EQ(GetCodeDomenIds(SectionsOf(classificator), sourceParam), (Texts{L"D3"}));
  for (const int source : sourcesOfNothing) {
    EXPECT_TRUE(GetCodeDomenIds(SectionsOf(classificator), source).empty()) << source;
  }
}

TEST(GetCodeDomenIds, ReturnsNothingForParamAsAFileFillsIt) {
  Classificator classificator(L"S");
  ParseParamSection(classificator.paramSection, L"@@ (D1 D2)\nW10");
  EXPECT_TRUE(GetCodeDomenIds(SectionsOf(classificator), sourceParam).empty());
}

TEST(GetCodePropertyIds, ReturnsTheIdsOfAllListsOfTheRecordSortedAndOnce) {
  EXPECT_EQ(GetCodePropertyIds(SectionsOf(WithBothSections()), 0, sourceMapText),
            (Texts{L"P", L"Q"}));
  const Classificator many = WithItems({{{L"", L"Ж"}, {L"", L"b"}, {L"", L"ab"}},
                                        {{L"", L"C"}, {L"", L"a"}, {L"", L"b"}, {L"", L""}}});
  EXPECT_EQ(GetCodePropertyIds(SectionsOf(many), 0, sourceParam),
            (Texts{L"", L"C", L"a", L"ab", L"b", L"Ж"}));
}

TEST(GetCodePropertyIds, ReturnsNothingFromMapTextForAnIdThatIsNoPosition) {
  const Classificator classificator = WithBothSections();
  for (const int codeId : {-1, 2, INT_MAX, -2, INT_MIN}) {
    EXPECT_TRUE(GetCodePropertyIds(SectionsOf(classificator), codeId, sourceMapText).empty())
        << codeId;
  }
  EXPECT_TRUE(GetCodePropertyIds(SectionsOf(classificator), 1, sourceMapText).empty());
}

TEST(GetCodePropertyIds, ReturnsTheIdsOfTheFirstParamRecordOfTheCode) {
  const Classificator classificator = WithBothSections();
  EXPECT_EQ(GetCodePropertyIds(SectionsOf(classificator), 0, sourceParam), (Texts{L"P", L"Q"}));
  EXPECT_TRUE(GetCodePropertyIds(SectionsOf(classificator), 1, sourceParam).empty());
}

TEST(GetCodePropertyIds, ReturnsTheParamRecordOfTheDefaultCodeForMinusOne) {
  Classificator classificator = WithBothSections();
  EXPECT_EQ(GetCodePropertyIds(SectionsOf(classificator), -1, sourceParam), (Texts{L"P", L"Q"}));
  classificator.mapTextSection.defaultCode = L"";
  classificator.paramSection.records[2].code = L"";
  EXPECT_TRUE(GetCodePropertyIds(SectionsOf(classificator), -1, sourceParam).empty());
}

TEST(GetCodePropertyIds, RaisesForAnIdThatChoosesNoCodeForParam) {
  const Classificator classificator = WithBothSections();
  for (const int codeId : {2, INT_MAX, -2, INT_MIN}) {
    EXPECT_EQ(
        OutOfRangeOf([&] { GetCodePropertyIds(SectionsOf(classificator), codeId, sourceParam); }),
        badSubscript)
        << codeId;
  }
}

TEST(GetCodePropertyIds, LooksAtNoIdForAnyOtherSource) {
  const Classificator classificator = WithBothSections();
  for (const int source : sourcesOfNothing) {
    for (const int codeId : {0, -1, 2, INT_MAX, INT_MIN}) {
      EXPECT_TRUE(GetCodePropertyIds(SectionsOf(classificator), codeId, source).empty()) << source;
    }
  }
}

TEST(ComposeCodeParams, WritesTheItemsInTheOrderOfTheirLists) {
  const DomenProperties properties = PropertiesOf({{L"a", typeInt, L"0"}});
  const Classificator classificator = WithItems({{{L"1", L"Q"}, {L"2", L"P"}}, {}, {{L"3", L"Q"}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", properties),
            L"Q= 1;P= 2;Q= 3;");
}

TEST(ComposeCodeParams, TakesTheItemsFromTheSectionThatTheSourceNames) {
  const Classificator classificator = WithBothSections();
  const DomenProperties properties = PropertiesOf({{L"a", typeInt, L"0"}});
  const auto compose = [&](int codeId, int source) {
    return ComposeCodeParams(SectionsOf(classificator), codeId, source, L"", properties);
  };
  EXPECT_EQ(compose(0, sourceMapText), L"Q 1;P 2;Q 3;");
  EXPECT_EQ(compose(1, sourceMapText), L"");
  EXPECT_EQ(compose(-1, sourceMapText), L"");
  EXPECT_EQ(compose(0, sourceParam), L"Q 4;P 5;Q 6;");
  EXPECT_EQ(compose(1, sourceParam), L"");
  EXPECT_EQ(compose(-1, sourceParam), L"Q 8;P 9;");
  for (const int source : sourcesOfNothing) EXPECT_EQ(compose(0, source), L"") << source;
}

TEST(ComposeCodeParams, RaisesForAnIdThatIsNeitherMinusOneNorAPosition) {
  const Classificator classificator = WithBothSections();
  for (const int codeId : {2, INT_MAX, -2, INT_MIN}) {
    for (const int source : {sourceMapText, sourceParam}) {
      EXPECT_EQ(OutOfRangeOf(
                    [&] { ComposeCodeParams(SectionsOf(classificator), codeId, source, L"", {}); }),
                badSubscript)
          << codeId << ", " << source;
    }
    for (const int source : sourcesOfNothing) {
      EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), codeId, source, L"", {}), L"")
          << codeId;
    }
  }
}

TEST(ComposeCodeParams, FindsNoParamRecordForAnEmptyCode) {
  Classificator classificator(L"S");
  classificator.paramSection.records.push_back({L"", {{{L"1", L"P"}}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), -1, sourceParam, L"", ThreeFields()), L"");
}

TEST(ComposeCodeParams, LeavesOutItemsWithoutAProperty) {
  const Classificator classificator =
      WithItems({{{L"1", L"R"}, {L"2", L"Q"}, {L"3", L"q"}, {L"4", L""}}, {{L"5", L"Q "}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", ThreeFields()),
            L"Q= 2;");
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", {}), L"");
}

TEST(ComposeCodeParams, WritesThePropertyUnderTheIdOfTheItem) {
  DomenProperties properties;
  properties.emplace(L"", PropertyOf({{L"a", typeInt, L"7"}}));
  properties.emplace(L"Марка", PropertyOf({{L"a", typeInt, L"8"}}));
  const Classificator classificator = WithItems({{{L"", L"Марка"}, {L"", L""}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L":", properties),
            L"Марка: 8;: 7;");
}

TEST(ComposeCodeParams, WritesTheSuffixUnchanged) {
  const Classificator classificator = WithItems({{{L"1", L"Q"}}});
  for (const std::wstring& suffix : {L""s, L"="s, L" = "s, L";"s, L"Имя"s, L"\0"s}) {
    EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, suffix, ThreeFields()),
              L"Q" + suffix + L" 1;");
  }
}

TEST(ComposeCodeParams, PrintsEachTypeOfField) {
  const DomenProperties properties = PropertiesOf({{L"i", typeInt, L"-7"},
                                                   {L"r", typeReal, L"2.50"},
                                                   {L"s", typeStr, L"K30"},
                                                   {L"il", typeIList, L"1  02"},
                                                   {L"rl", typeRList, L"1.0 0.1"},
                                                   {L"sl", typeSList, L"\"x\"  y"}});
  ExpectFilled(properties, {{L"", L"P= -7 2.5 K30 1 2 1 0.1 x y;"},
                            {L"+5 1e5 \"Q\" 9 .5 \"z\"", L"P= 5 1e+05 Q 9 0.5 z;"},
                            {L"il1=3 il2=4 sl=w r=0.1", L"P= -7 0.1 w 3 4 1 0.1 w;"}});
}

TEST(ComposeCodeParams, PutsABlankBeforeEachFieldOnceThereIsText) {
  struct Spaced {
    std::vector<FieldOf> fields;
    const wchar_t* item;
  };
  const Spaced cases[] = {
      {{}, L"P= ;"},
      {{{L"a", typeStr, L""}}, L"P= ;"},
      {{{L"a", typeStr, L""}, {L"b", typeStr, L""}}, L"P= ;"},
      {{{L"a", typeStr, L""}, {L"b", typeStr, L"x"}}, L"P= x;"},
      {{{L"a", typeStr, L"x"}, {L"b", typeStr, L""}}, L"P= x ;"},
      {{{L"a", typeStr, L"x"}, {L"b", typeStr, L""}, {L"c", typeStr, L"y"}}, L"P= x  y;"},
      {{{L"a", typeStr, L"x"}, {L"b", typeSList, L""}, {L"c", typeInt, L""}}, L"P= x  1;"},
  };
  for (const Spaced& one : cases) EXPECT_EQ(Filled(L"", PropertiesOf(one.fields)), one.item);
}

TEST(ComposeCodeParams, AssignsWordsToFieldsByPosition) {
  ExpectFilled(ThreeFields(), {{L"60 A 3", L"P= 60 A 3;"},
                               {L" 60   A ", L"P= 60 A 1 2;"},
                               {L"60", L"P= 60 K 1 2;"},
                               {L"", L"P= 5 K 1 2;"},
                               {L"60 A 3 4 5", L"P= 60 A 3;"}});
}

TEST(ComposeCodeParams, KeepsTheDomainsValueWhereAFieldRefusesItsWord) {
  ExpectFilled(ThreeFields(), {{L"x A x", L"P= 5 A 1 2;"},
                               {L"2.5 A 2.5", L"P= 5 A 2.5;"},
                               {L"2147483648", L"P= 5 K 1 2;"},
                               {L"60,A", L"P= 5 K 1 2;"}});
}

TEST(ComposeCodeParams, SeparatesWordsAtBlanksAlone) {
  ExpectFilled(ThreeFields(), {{L"60\tA", L"P= 5 K 1 2;"},
                               {L"60 A\tB", L"P= 60 A\tB 1 2;"},
                               {L"\t60\t \u00A0A", L"P= 60 A 1 2;"},
                               {L"60 \t A", L"P= 60 A 1 2;"}});
}

TEST(ComposeCodeParams, RemovesSemicolonsFromTheEndsOfAWord) {
  ExpectFilled(ThreeFields(), {{L"60;", L"P= 60 K 1 2;"},
                               {L";;60;; ;A;", L"P= 60 A 1 2;"},
                               {L"6;0 A;B", L"P= 5 A;B 1 2;"},
                               {L"60 ; 3", L"P= 60 K 3;"},
                               {L"a=60;", L"P= 60 K 1 2;"},
                               {L"a=;60 b=;", L"P= 60 K 1 2;"}});
}

TEST(ComposeCodeParams, AssignsByPositionUnlessTheFirstWordContainsAnEqualsSign) {
  ExpectFilled(ThreeFields(), {{L"60 a=1", L"P= 60 a=1 1 2;"},
                               {L"x b=1", L"P= 5 b=1 1 2;"},
                               {L"a = 1", L"P= 5 = 1;"},
                               {L"b=A 60", L"P= 5 A 1 2;"},
                               {L"=60 a=7", L"P= 7 K 1 2;"}});
}

TEST(ComposeCodeParams, AssignsNamedWordsToFieldsInWhateverOrder) {
  ExpectFilled(ThreeFields(), {{L"a=60 b=A c=3", L"P= 60 A 3;"},
                               {L"c=3 b=A a=60", L"P= 60 A 3;"},
                               {L"b=A", L"P= 5 A 1 2;"},
                               {L"a=1=2", L"P= 1 K 1 2;"},
                               {L"a\t=\t60", L"P= 60 K 1 2;"}});
}

TEST(ComposeCodeParams, KeepsTheValuesOfFieldsThatNoWordNames) {
  ExpectFilled(ThreeFields(), {{L"x=60", L"P= 5 K 1 2;"},
                               {L"A=60 B=x", L"P= 5 K 1 2;"},
                               {L"a=60 zz", L"P= 60 K 1 2;"},
                               {L"a= b=", L"P= 5 K 1 2;"},
                               {L"a=x", L"P= 5 K 1 2;"}});
}

TEST(ComposeCodeParams, CollectsTheWordsWhoseNamesBeginWithTheFieldsName) {
  ExpectFilled(ThreeFields(), {{L"c1=3 c2=4", L"P= 5 K 3 4;"},
                               {L"c2=3 x=1 cc=4 c1=5", L"P= 5 K 3 4 5;"},
                               {L"c1= c2=4", L"P= 5 K 4;"},
                               {L"c1=3 c2=x", L"P= 5 K 1 2;"},
                               {L"a1=3 a2=4", L"P= 5 K 1 2;"},
                               {L"b1=x b2= b3=y", L"P= 5 x  y 1 2;"},
                               {L"c1=3; c2=4", L"P= 5 K 1 2;"},
                               {L"c1=;3 c2=4;", L"P= 5 K 3 4;"}});
}

TEST(ComposeCodeParams, TakesTheFirstWordOfTheFieldsOwnNameInsteadOfAllCollected) {
  ExpectFilled(
      ThreeFields(),
      {{L"c1=3 c=9 c2=4", L"P= 5 K 9;"}, {L"c=9 c=8", L"P= 5 K 9;"}, {L"c1=3 c=", L"P= 5 K 1 2;"}});
}

TEST(ComposeCodeParams, CountsAWordForEveryFieldWhoseNameBeginsItsOwn) {
  const DomenProperties properties =
      PropertiesOf({{L"a", typeSList, L""}, {L"ab", typeSList, L""}, {L"abc", typeSList, L""}});
  EXPECT_EQ(Filled(L"abc=1 ab=2 abcd=3", properties), L"P= 1 2 3 2 1;");
}

TEST(ComposeCodeParams, DropsAnItemInWhichANamedWordOfAFieldLacksItsEqualsSign) {
  ExpectFilled(ThreeFields(), {{L"a=60 b", L""},
                               {L"a=60 bb", L""},
                               {L"c1=3 c2", L""},
                               {L"c1=3 c2 c=4", L""},
                               {L"x=1 a;", L""}});
}

TEST(ComposeCodeParams, IgnoresWordsAfterTheOneWithTheFieldsOwnName) {
  ExpectFilled(ThreeFields(), {{L"a=60 a", L"P= 60 K 1 2;"}, {L"a=60 a2", L"P= 60 K 1 2;"}});
}

TEST(ComposeCodeParams, KeepsTheNeighboursOfADroppedItem) {
  const Classificator classificator =
      WithItems({{{L"1", L"Q"}, {L"a=1 b", L"P"}, {L"2", L"Q"}}, {{L"b=2 a", L"P"}, {L"3", L"P"}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", ThreeFields()),
            L"Q= 1;Q= 2;P= 3 K 1 2;");
}

TEST(ComposeCodeParams, LosesOnlyOneItemToAnExceptionOfAnyKind) {
  struct FieldWithoutText : Properties::PropertyIntParameter {
    FieldWithoutText() : PropertyIntParameter(L"f", L"", false) {}
    std::wstring GetValue() override { throw 0; }
  };
  DomenProperties properties = ThreeFields();
  properties.at(L"P").fields.push_back(std::make_unique<FieldWithoutText>());
  const Classificator classificator = WithItems({{{L"1", L"Q"}, {L"2", L"P"}, {L"3", L"Q"}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", properties),
            L"Q= 1;Q= 3;");
}

TEST(ComposeCodeParams, BeginsNoWordWithAnEmptyFieldName) {
  const DomenProperties properties = PropertiesOf({{L"", typeInt, L"5"}});
  ExpectFilled(properties, {{L"x=1 y", L"P= 5;"}, {L"x=1 =7", L"P= 7;"}, {L"=7", L"P= 7;"}});
}

TEST(ComposeCodeParams, FillsEachItemAfreshFromTheDomain) {
  const Classificator classificator =
      WithItems({{{L"60 A 3", L"P"}, {L"b=B", L"P"}}, {{L"", L"P"}}});
  EXPECT_EQ(ComposeCodeParams(SectionsOf(classificator), 0, sourceParam, L"=", ThreeFields()),
            L"P= 60 A 3;P= 5 B 1 2;P= 5 K 1 2;");
}

TEST(ComposeCodeParams, LeavesThePropertiesUnchanged) {
  const DomenProperties properties = ThreeFields();
  EXPECT_EQ(Filled(L"60 A 3", properties), L"P= 60 A 3;");
  EXPECT_EQ(properties.at(L"P").fields[0]->GetValue(), L"5");
  EXPECT_EQ(Filled(L"", properties), L"P= 5 K 1 2;");
}

TEST(ComposeCodeParams, RemovesQuotationMarksFromTheEndsOfAValue) {
  ExpectFilled(ThreeFields(), {{L"60 \"A\"", L"P= 60 A 1 2;"},
                               {L"60 \"\"A\"B\"", L"P= 60 A\"B 1 2;"},
                               {L"60 \"A B\"", L"P= 60 A 1 2;"},
                               {L"60 \"\"", L"P= 60  1 2;"},
                               {L"b=\"A\"", L"P= 5 A 1 2;"},
                               {L"60 \"\tA\t\"", L"P= 60 \tA\t 1 2;"}});
}

// Each copy removes a layer of blanks and quotation marks from the ends of a string. Here it is the
// copy that an item fills.
TEST(ComposeCodeParams, PassesValuesOfTheDomainThroughTheirTextOnce) {
  const DomenProperties properties = PropertiesOf({{L"a", typeStr, L"\" \" \" K \" \" \""}});
  EXPECT_EQ(properties.at(L"P").fields[0]->GetValue(), L" \" \" K \" \" ");
  EXPECT_EQ(Filled(L"", properties), L"P=  \" K \" ;");
}

TEST(ComposeCodeParams, KeepsCharactersOfAnyKind) {
  const DomenProperties properties = PropertiesOf({{L"П", typeStr, L"K"}});
  ExpectFilled(properties,
               {{L"Кирпич\0\U0001F6AA"s, L"P= Кирпич\0\U0001F6AA;"s}, {L"П=Б", L"P= Б;"}});
}

TEST(ComposeCodeParams, TakesAMillionWordsByPosition) {
  std::wstring words;
  for (int i = 0; i < 1'000'000; ++i) words += L"7 ";
  EXPECT_EQ(Filled(words, ThreeFields()), L"P= 7 7 7;");
}

TEST(ComposeCodeParams, CollectsTensOfThousandsOfNamedWords) {
  constexpr std::size_t size = 20'000;
  std::wstring words;
  for (std::size_t i = 0; i < size; ++i) words += L"c1=7 ";
  std::wstring item = L"P= 5 K";
  for (std::size_t i = 0; i < size; ++i) item += L" 7";
  EXPECT_EQ(Filled(words, ThreeFields()), item + L";");
}

TEST(ComposeCodeParams, TakesAWordOfMillionsOfCharacters) {
  const std::wstring word(3'000'000, L'w');
  ExpectFilled(ThreeFields(), {{L"60 " + word, L"P= 60 " + word + L" 1 2;"},
                               {L"b=" + word, L"P= 5 " + word + L" 1 2;"},
                               {word, L"P= 5 K 1 2;"}});
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
