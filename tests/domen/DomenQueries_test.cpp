// Tests of the queries over domains, through the exports where possible.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "domen/DomenStore.h"
#include "domen/PropertyType.h"
#include "support/DomenRows.h"
#include "support/OrderOfUnits.h"
#include "support/OutOfRange.h"
#include "support/Output.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_view_literals;

using Editor = RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

// Id, uniqueness, number of fields, and whether it is a list.
using CheckRows = std::vector<std::tuple<std::wstring, bool, int, bool>>;
using SortRows = std::vector<std::pair<std::wstring, int>>;

// An editor that has loaded the domains of one file.
struct LoadedDomens {
  explicit LoadedDomens(std::string_view section) : editor(L"", L"") {
    const std::wstring file = folder.Write("domens.txt", "==DOMEN\n" + std::string(section));
    EXPECT_EQ(editor.CreateDomen(file.c_str()), 0);
  }

  TempFolder folder;
  Editor editor;
};

Texts TakeList(Editor& editor, const wchar_t** (Editor::*list)(int&)) {
  int count = -1;
  const wchar_t** texts = (editor.*list)(count);
  EXPECT_EQ(texts == nullptr, count == 0);
  return TakeAll(count, texts);
}

Texts Ids(Editor& editor) {
  return TakeList(editor, &Editor::GetDomensIds);
}

Texts Names(Editor& editor) {
  return TakeList(editor, &Editor::GetDomensNames);
}

std::wstring ActiveId(Editor& editor) {
  return Take(editor.GetActiveDomenId());
}

SortRows SortIndexes(Editor& editor, const wchar_t* domenId) {
  int count = -1;
  Output<const wchar_t*> ids;
  Output<int> indexes;
  editor.GetPropertiesSortIndex(domenId, count, ids.array, indexes.array);
  const Texts takenIds = ids.Take(count);
  const std::vector<int> takenIndexes = indexes.Take(count);
  SortRows rows;
  for (std::size_t i = 0; i < takenIds.size(); ++i) rows.emplace_back(takenIds[i], takenIndexes[i]);
  return rows;
}

PropertyRows OfTypes(Editor& editor, const wchar_t* domenId, std::vector<const wchar_t*> types) {
  int count = -1;
  Output<const wchar_t*> ids, names;
  Output<int> indexes;
  editor.GetDomenPropertysByObjTypes(domenId, static_cast<int>(types.size()), types.data(), count,
                                     ids.array, names.array, indexes.array);
  return TakeProperties(count, ids, names, indexes);
}

Texts IdsOf(const PropertyRows& rows) {
  Texts ids;
  for (const auto& row : rows) ids.push_back(std::get<0>(row));
  return ids;
}

CheckRows CheckInfos(Editor& editor, const wchar_t* domenId) {
  int count = -1;
  Output<const wchar_t*> ids;
  Output<bool> unique, lists;
  Output<int> fieldCounts;
  editor.GetDomenPropertiesCheckInfo(domenId, count, ids.array, unique.array, fieldCounts.array,
                                     lists.array);
  const Texts takenIds = ids.Take(count);
  const std::vector<bool> takenUnique = unique.Take(count);
  const std::vector<int> takenCounts = fieldCounts.Take(count);
  const std::vector<bool> takenLists = lists.Take(count);
  CheckRows rows;
  for (std::size_t i = 0; i < takenIds.size(); ++i) {
    rows.emplace_back(takenIds[i], takenUnique[i], takenCounts[i], takenLists[i]);
  }
  return rows;
}

// Lists of domains

TEST(GetDomens, ReturnNullAndACountOf0WithoutADomain) {
  Editor editor(L"", L"");
  for (const auto list : {&Editor::GetDomensIds, &Editor::GetDomensNames}) {
    int count = -1;
    EXPECT_EQ((editor.*list)(count), nullptr);
    EXPECT_EQ(count, 0);
  }
}

TEST(GetDomens, ReturnIdsAndNamesInTheOrderOfTheIdsUnits) {
  LoadedDomens loaded("@@@ a\n@@@ Стены\n@@@ B\n@@@ AB\n@@@ A\n@@@ _\n@@@ 2\n@@@ 10\n@@@ Двери\n");
  const Texts sorted = {L"10", L"2", L"A", L"AB", L"B", L"_", L"a", L"Двери", L"Стены"};
  EXPECT_EQ(Ids(loaded.editor), sorted);
  EXPECT_EQ(Names(loaded.editor), sorted);
}

TEST(GetDomens, KeepToTheUnitsBeyondTheBasicPlane) {
  LoadedDomens loaded("@@@ \uFFFD\n@@@ \U0001F600\n@@@ \uFF21\n");
  EXPECT_EQ(Ids(loaded.editor), inOrderOfUnits);
  EXPECT_EQ(Names(loaded.editor), inOrderOfUnits);
}

TEST(GetDomens, ReturnTheDomainsOfAllFilesAndOfClassificators) {
  LoadedDomens loaded("@@@ B\n");
  const std::wstring second = loaded.folder.Write("second.txt", "==DOMEN\n@@@ A\n@@@ B\n");
  ASSERT_EQ(loaded.editor.CreateClassificator(L"", L"", L"", second.c_str()), 0);
  EXPECT_EQ(Ids(loaded.editor), (Texts{L"A", L"B"}));
}

TEST(GetDomens, ReturnATextUpToItsFirstNul) {
  LoadedDomens loaded("@@@ A\0B\n"sv);
  EXPECT_EQ(Ids(loaded.editor), Texts{L"A"});
  EXPECT_EQ(Names(loaded.editor), Texts{L"A"});
  EXPECT_EQ(ActiveId(loaded.editor), L"A");
  EXPECT_EQ(loaded.editor.SetActiveDomenId(L"A"), -1);
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L"A"), -1);
}

// Domains whose names differ from their ids, which only a ".json" file can express: a and c share a
// name, the name of b is the id of another, and d has none.
struct NamedDomens {
  NamedDomens() : editor(L"", L"") {
    Load("c.json", R"({"Domen": {"sName": "Same"}})");
    Load("b.json", R"({"Domen": {"sName": "c"}})");
    Load("a.json", R"({"Domen": {"sName": "Same"}})");
    Load("d.json", "{}");
  }

  void Load(std::string_view name, std::string_view text) {
    EXPECT_EQ(editor.CreateDomen(folder.Write(name, text).c_str()), 0);
  }

  TempFolder folder;
  Editor editor;
};

TEST(GetDomens, ReturnANameForEachIdAndASharedNameTwice) {
  NamedDomens loaded;
  EXPECT_EQ(Ids(loaded.editor), (Texts{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(Names(loaded.editor), (Texts{L"Same", L"c", L"Same", L""}));
}

TEST(ListDomenIds, ReturnsTheKeysOfTheDomains) {
  DomenStore store;
  store.AddDomen(L"key", Domen(L"id", L"name"));
  EXPECT_EQ(store.ListDomenIds(), Texts{L"key"});
}

// The active domain

TEST(GetActiveDomenId, IsEmptyUntilADomainIsLoaded) {
  Editor editor(L"", L"");
  EXPECT_EQ(ActiveId(editor), L"");
}

TEST(GetActiveDomenId, IsTheLastDomainLoadedUntilAnotherIsSelected) {
  LoadedDomens loaded("@@@ B\n@@@ C\n@@@ A\n");
  EXPECT_EQ(ActiveId(loaded.editor), L"A");
  EXPECT_EQ(loaded.editor.SetActiveDomenId(L"C"), 0);
  EXPECT_EQ(ActiveId(loaded.editor), L"C");
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L"B"), 0);
  EXPECT_EQ(ActiveId(loaded.editor), L"B");
}

TEST(SetActiveDomen, ReturnsMinusOneForAnUnknownDomainAndKeepsTheSelection) {
  LoadedDomens loaded("@@@ Door\n@@@ Wall\n");
  for (const auto select : {&Editor::SetActiveDomenId, &Editor::SetActiveDomenByName}) {
    ASSERT_EQ((loaded.editor.*select)(L"Door"), 0);
    for (const wchar_t* text : {L"", L"wall", L"WALL", L"Wal", L"Walls", L" Wall", L"Wall "}) {
      EXPECT_EQ((loaded.editor.*select)(text), -1) << text;
      EXPECT_EQ(ActiveId(loaded.editor), L"Door") << text;
    }
  }
}

TEST(SetActiveDomen, ReturnsMinusOneWithoutAnyDomainEvenForAnEmptyText) {
  Editor editor(L"", L"");
  EXPECT_EQ(editor.SetActiveDomenId(L""), -1);
  EXPECT_EQ(editor.SetActiveDomenByName(L""), -1);
  EXPECT_EQ(ActiveId(editor), L"");
}

TEST(SetActiveDomen, CopiesItsArgument) {
  LoadedDomens loaded("@@@ Door\n@@@ Wall\n");
  std::wstring id = L"Door";
  ASSERT_EQ(loaded.editor.SetActiveDomenId(id.c_str()), 0);
  id = L"Roof";
  EXPECT_EQ(ActiveId(loaded.editor), L"Door");
}

TEST(SetActiveDomenByName, SelectsTheDomainOfTheLeastIdAmongThoseOfOneName) {
  NamedDomens loaded;
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L"Same"), 0);
  EXPECT_EQ(ActiveId(loaded.editor), L"a");
}

TEST(SetActiveDomenByName, LooksAtNamesAndNotAtIds) {
  NamedDomens loaded;
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L"c"), 0);
  EXPECT_EQ(ActiveId(loaded.editor), L"b");
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L"a"), -1);
  EXPECT_EQ(ActiveId(loaded.editor), L"b");
  EXPECT_EQ(loaded.editor.SetActiveDomenByName(L""), 0);
  EXPECT_EQ(ActiveId(loaded.editor), L"d");
}

TEST(SetActiveDomenId, LooksAtIdsAndNotAtNames) {
  NamedDomens loaded;
  EXPECT_EQ(loaded.editor.SetActiveDomenId(L"c"), 0);
  EXPECT_EQ(loaded.editor.SetActiveDomenId(L"Same"), -1);
  EXPECT_EQ(ActiveId(loaded.editor), L"c");
}

TEST(SelectDomen, TakesTheKeyAndNotTheIdInTheRecord) {
  DomenStore store;
  store.AddDomen(L"key", Domen(L"id", L"name"));
  EXPECT_EQ(store.SelectDomenById(L"id"), -1);
  EXPECT_EQ(store.activeDomenId, L"");
  EXPECT_EQ(store.SelectDomenById(L"key"), 0);
  EXPECT_EQ(store.activeDomenId, L"key");
  store.activeDomenId.clear();
  EXPECT_EQ(store.SelectDomenByName(L"name"), 0);
  EXPECT_EQ(store.activeDomenId, L"key");
}

// Properties

TEST(DomenQueries, NameTheirDomainAndIgnoreTheActiveOne) {
  LoadedDomens loaded("@@@ A\n@ P 1 7 Title\nF int 1 5\n@@@ B\n@ Q 0 8\nG ilist 0 6\n");
  for (const wchar_t* active : {L"A", L"B"}) {
    ASSERT_EQ(loaded.editor.SetActiveDomenId(active), 0);
    EXPECT_EQ(SortIndexes(loaded.editor, L"A"), (SortRows{{L"P", 7}}));
    EXPECT_EQ(OfType(loaded.editor, L"A", L"Door"), (PropertyRows{{L"P", L"Title", 7}}));
    EXPECT_EQ(OfTypes(loaded.editor, L"B", {L"Door"}), (PropertyRows{{L"Q", L"Q", 8}}));
    EXPECT_EQ(Fields(loaded.editor, L"A", L"P"), (FieldRows{{L"F", L"F", typeInt, true, L"5"}}));
    EXPECT_EQ(CheckInfos(loaded.editor, L"B"), (CheckRows{{L"Q", false, 1, true}}));
    EXPECT_EQ(ActiveId(loaded.editor), active);
  }
}

TEST(DomenQueries, ReturnNothingForAnUnknownDomain) {
  LoadedDomens loaded("@@@ A\n@ P 1 7 Title\nF int 1 5\n");
  for (const wchar_t* id : {L"", L"a", L"AA", L"A ", L"P"}) {
    EXPECT_EQ(SortIndexes(loaded.editor, id), SortRows{}) << id;
    EXPECT_EQ(OfType(loaded.editor, id, L"Door"), PropertyRows{}) << id;
    EXPECT_EQ(OfTypes(loaded.editor, id, {}), PropertyRows{}) << id;
    EXPECT_EQ(Fields(loaded.editor, id, L"P"), FieldRows{}) << id;
    EXPECT_EQ(CheckInfos(loaded.editor, id), CheckRows{}) << id;
  }
  EXPECT_EQ(Ids(loaded.editor), Texts{L"A"});  // and make none
}

TEST(DomenQueries, ReturnNothingForADomainWithoutProperties) {
  LoadedDomens loaded("@@@ A\n");
  EXPECT_EQ(SortIndexes(loaded.editor, L"A"), SortRows{});
  EXPECT_EQ(OfType(loaded.editor, L"A", L""), PropertyRows{});
  EXPECT_EQ(OfTypes(loaded.editor, L"A", {}), PropertyRows{});
  EXPECT_EQ(CheckInfos(loaded.editor, L"A"), CheckRows{});
}

TEST(DomenQueries, ReturnPropertiesInTheOrderOfTheKeysUnitsWhateverTheSortIndexes) {
  LoadedDomens loaded(
      "@@@ A\n"
      "@ b 0 1 Beta\nF int 0 1\n@ a 0 2 Alpha\nF int 0 1\n@ Я 0 -5\nF int 0 1\n"
      "@ C 0 2147483647\nF int 0 1\n@ CB 0 -2147483648\nF int 0 1\n");
  EXPECT_EQ(
      SortIndexes(loaded.editor, L"A"),
      (SortRows{{L"C", 2147483647}, {L"CB", -2147483647 - 1}, {L"a", 2}, {L"b", 1}, {L"Я", -5}}));
  const PropertyRows rows = {{L"C", L"C", 2147483647},
                             {L"CB", L"CB", -2147483647 - 1},
                             {L"a", L"Alpha", 2},
                             {L"b", L"Beta", 1},
                             {L"Я", L"Я", -5}};
  EXPECT_EQ(OfType(loaded.editor, L"A", L"Door"), rows);
  EXPECT_EQ(OfTypes(loaded.editor, L"A", {}), rows);
  EXPECT_EQ(CheckInfos(loaded.editor, L"A"), (CheckRows{{L"C", false, 1, false},
                                                        {L"CB", false, 1, false},
                                                        {L"a", false, 1, false},
                                                        {L"b", false, 1, false},
                                                        {L"Я", false, 1, false}}));
}

constexpr const char* typedProperties =
    "@@@ D\n"
    "@ All 0 1\n"
    "@@ Door\n@ Doors 0 2\n"
    "@@ Door Room\n@ Both 0 3\n"
    "@@ Room\n@ Rooms 0 4\n"
    "@@ Stair Door Room\n@ Three 0 5\n";

TEST(GetDomenPropertysByObjType, ReturnsThePropertiesThatNameTheTypeAndThoseThatNameNone) {
  LoadedDomens loaded(typedProperties);
  struct Case {
    const wchar_t* type;
    Texts ids;
  };
  const Case cases[] = {
      {L"Door", {L"All", L"Both", L"Doors", L"Three"}},
      {L"Room", {L"All", L"Both", L"Rooms", L"Three"}},
      {L"Stair", {L"All", L"Three"}},
      {L"Roof", {L"All"}},  // no property lists it
      // Types are compared unit by unit.
      {L"", {L"All"}},
      {L"door", {L"All"}},
      {L"DOOR", {L"All"}},
      {L"Doo", {L"All"}},
      {L"Doors", {L"All"}},
      {L" Door", {L"All"}},
      {L"Door ", {L"All"}},
      {L"*", {L"All"}},
      {L"Door Room", {L"All"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(IdsOf(OfType(loaded.editor, L"D", one.type)), one.ids) << one.type;
    EXPECT_EQ(IdsOf(OfTypes(loaded.editor, L"D", {one.type})), one.ids) << one.type;
  }
}

TEST(GetDomenPropertysByObjTypes, ReturnsThePropertiesThatApplyToEveryType) {
  LoadedDomens loaded(typedProperties);
  struct Case {
    std::vector<const wchar_t*> types;
    Texts ids;
  };
  const Case cases[] = {
      {{}, {L"All", L"Both", L"Doors", L"Rooms", L"Three"}},
      {{L"Door", L"Room"}, {L"All", L"Both", L"Three"}},
      {{L"Room", L"Door"}, {L"All", L"Both", L"Three"}},
      {{L"Door", L"Door"}, {L"All", L"Both", L"Doors", L"Three"}},
      {{L"Door", L"Room", L"Stair"}, {L"All", L"Three"}},
      {{L"Door", L"Roof"}, {L"All"}},
      {{L"Door", L""}, {L"All"}},
      {{L"Door", L"room"}, {L"All"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(IdsOf(OfTypes(loaded.editor, L"D", one.types)), one.ids)
        << testing::PrintToString(one.types);
  }
}

TEST(GetDomenPropertysByObjTypes, ReadsOnlyAsManyTypesAsTheCountSays) {
  LoadedDomens loaded(typedProperties);
  const wchar_t* types[] = {L"Stair", L"Roof"};
  int count = -1;
  Output<const wchar_t*> ids, names;
  Output<int> indexes;
  loaded.editor.GetDomenPropertysByObjTypes(L"D", 1, types, count, ids.array, names.array,
                                            indexes.array);
  EXPECT_EQ(IdsOf(TakeProperties(count, ids, names, indexes)), (Texts{L"All", L"Three"}));
}

TEST(GetDomenPropertysByObjTypes, SelectsAllWithACountOf0AndNoArray) {
  LoadedDomens loaded(typedProperties);
  int count = -1;
  Output<const wchar_t*> ids, names;
  Output<int> indexes;
  loaded.editor.GetDomenPropertysByObjTypes(L"D", 0, nullptr, count, ids.array, names.array,
                                            indexes.array);
  EXPECT_EQ(TakeProperties(count, ids, names, indexes).size(), 5u);
}

TEST(GetDomenPropertysByObjType, ReturnsNothingIfNoPropertyApplies) {
  LoadedDomens loaded("@@@ D\n@@ Door\n@ P 0 1\n@ Q 0 2\n");
  EXPECT_EQ(OfType(loaded.editor, L"D", L"Room"), PropertyRows{});
  EXPECT_EQ(OfTypes(loaded.editor, L"D", {L"Door", L"Room"}), PropertyRows{});
}

// Fields

TEST(GetDomenPropertyFieldsValues, ReturnsTheFieldsInTheirOwnOrder) {
  LoadedDomens loaded(
      "@@@ D\n@ P 0 1\n"
      "z int 0 -7 An integer\ny real 1 0.5 A real\nx str 0 \"K30\" A string\n"
      "w ilist 1 12\nv rlist 0 1e3\nu slist 2 \"main\" Strings  of a list\n");
  EXPECT_EQ(Fields(loaded.editor, L"D", L"P"),
            (FieldRows{{L"z", L"An integer", 0, false, L"-7"},
                       {L"y", L"A real", 1, true, L"0.5"},
                       {L"x", L"A string", 2, false, L"K30"},
                       {L"w", L"w", 3, true, L"12"},
                       {L"v", L"v", 4, false, L"1000"},
                       {L"u", L"Strings of a list", 5, true, L"main"}}));
}

TEST(GetDomenPropertyFieldsValues, ReturnsTheInitialValueOfAFieldThatRefusedItsDefault) {
  LoadedDomens loaded(
      "@@@ D\n@ P 0 1\n"
      "a int 0 x\nb real 0 x\nc str 0 \"\"\nd ilist 0 x\ne rlist 0 x\nf slist 0 \"\"\n");
  Texts values;
  for (const auto& row : Fields(loaded.editor, L"D", L"P")) values.push_back(std::get<4>(row));
  EXPECT_EQ(values, (Texts{L"1", L"1", L"", L"1", L"1", L""}));
}

TEST(GetDomenPropertyFieldsValues, ReturnsNothingForAPropertyWithoutFields) {
  LoadedDomens loaded("@@@ D\n@ P 0 1\n");
  EXPECT_EQ(Fields(loaded.editor, L"D", L"P"), FieldRows{});
}

TEST(GetDomenPropertyFieldsValues, RaisesForAnUnknownPropertyAndWritesNothing) {
  LoadedDomens loaded("@@@ D\n@ P 0 1\nF int 0 5\n@@@ Empty\n@@@ E\n@ Q 0 1\n");
  const std::pair<const wchar_t*, const wchar_t*> unknown[] = {
      {L"D", L""},  {L"D", L"p"},     {L"D", L"P "}, {L"D", L"PP"},
      {L"D", L"Q"}, {L"Empty", L"P"}, {L"D", L"F"}};
  for (const auto& [domenId, propertyId] : unknown) {
    int count = 77;
    Output<const wchar_t*> names, titles, values;
    Output<int> types;
    Output<bool> flags;
    EXPECT_EQ(OutOfRangeOf([&, domain = domenId, property = propertyId] {
                loaded.editor.GetDomenPropertyFieldsValues(domain, property, count, names.array,
                                                           titles.array, types.array, flags.array,
                                                           values.array);
              }),
              badKey)
        << domenId << ", " << propertyId;
    EXPECT_EQ(count, 77);
    EXPECT_FALSE(names.Written() || titles.Written() || types.Written() || flags.Written() ||
                 values.Written());
  }
  EXPECT_EQ(Fields(loaded.editor, L"D", L"P"), (FieldRows{{L"F", L"F", 0, false, L"5"}}));
}

// Each pass through the text form removes a layer of quotation marks and one of blanks: when the
// value is read, when the property is added to its domain, and when it is returned.
TEST(GetDomenPropertyFieldsValues, PassesTheValuesThroughTheirTextFormOnceMore) {
  const TempFolder folder;
  Editor editor(L"", L"");
  const std::wstring file = folder.Write("D.json", R"({
    "Domen": {"asFuncsNames": ["P"]},
    "Properties": {"P": {"asFuncsNames": ["text", "texts"]}},
    "ArrayValueFields": {
      "text": {"sType": "s", "sDefault": "\" \" \" a  b \" \" \""},
      "texts": {"sType": "as", "sDefault": " \"a b\"  \"c\" "}}})");
  ASSERT_EQ(editor.CreateDomen(file.c_str()), 0);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Fields(editor, L"D", L"P"),
              (FieldRows{{L"text", L"text", typeStr, true, L" a  b "},
                         {L"texts", L"texts", typeSList, true, L"a b c"}}));
  }
}

TEST(FindProperty, ReturnsTheBlankPropertyForAnUnknownDomain) {
  const DomenProperty blank = DomenStore().FindProperty(L"D", L"P");
  EXPECT_EQ(blank.id, L"");
  EXPECT_EQ(blank.name, L"");
  EXPECT_TRUE(blank.objectTypes.empty());
  EXPECT_FALSE(blank.unique);
  EXPECT_EQ(blank.sortIndex, -1);
  EXPECT_TRUE(blank.fields.empty());
}

// Check infos

TEST(GetDomenPropertiesCheckInfo, LetsTheLastFieldAloneDecideWhetherThePropertyIsAList) {
  LoadedDomens loaded(
      "@@@ D\n"
      "@ a 0 1\nF int 0 1\nG ilist 0 1\n"
      "@ b 0 1\nF ilist 0 1\nG int 0 1\n"
      "@ c 0 1\nF int 0 1\n@ d 0 1\nF real 0 1\n@ e 0 1\nF str 0 x\n"
      "@ f 0 1\nF ilist 0 1\n@ g 0 1\nF rlist 0 1\n@ h 0 1\nF slist 0 x\n"
      "@ i 0 1\nF slist 0 x\nG rlist 0 1\nH str 0 x\n");
  EXPECT_EQ(CheckInfos(loaded.editor, L"D"), (CheckRows{{L"a", false, 2, true},
                                                        {L"b", false, 2, false},
                                                        {L"c", false, 1, false},
                                                        {L"d", false, 1, false},
                                                        {L"e", false, 1, false},
                                                        {L"f", false, 1, true},
                                                        {L"g", false, 1, true},
                                                        {L"h", false, 1, true},
                                                        {L"i", false, 3, false}}));
}

TEST(GetDomenPropertiesCheckInfo, ReturnsWhichPropertiesAreUnique) {
  LoadedDomens loaded(
      "@@@ D\n@ a 1 1\nF int 0 1\n@ b 0 1\nF int 1 1\n@ c 2 1\nF int 1 1\n@ d 1 1\nF ilist 0 1\n");
  EXPECT_EQ(CheckInfos(loaded.editor, L"D"), (CheckRows{{L"a", true, 1, false},
                                                        {L"b", false, 1, false},
                                                        {L"c", false, 1, false},
                                                        {L"d", true, 1, true}}));
}

TEST(GetDomenPropertiesCheckInfo, RaisesForOnePropertyWithoutFieldsAndReturnsNoPartialAnswer) {
  for (const char* section :
       {"@@@ D\n@ a 0 1\n@ b 0 1\nF int 0 1\n", "@@@ D\n@ a 0 1\nF int 0 1\n@ b 0 1\n",
        "@@@ D\n@ a 0 1\nF int 0 1\n@ b 0 1\n@ c 0 1\nF int 0 1\n", "@@@ D\n@ a 0 1\n"}) {
    LoadedDomens loaded(section);
    int count = 77;
    Output<const wchar_t*> ids;
    Output<bool> unique, lists;
    Output<int> fieldCounts;
    EXPECT_EQ(OutOfRangeOf([&] {
                loaded.editor.GetDomenPropertiesCheckInfo(L"D", count, ids.array, unique.array,
                                                          fieldCounts.array, lists.array);
              }),
              badSubscript)
        << section;
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(ids.Written() || unique.Written() || fieldCounts.Written() || lists.Written());
    EXPECT_NE(SortIndexes(loaded.editor, L"D"), SortRows{});  // the other queries still work
  }
}

TEST(GetDomenPropertiesCheckInfo, IsNotHurtByAPropertyWithoutFieldsInAnotherDomain) {
  LoadedDomens loaded("@@@ A\n@ a 0 1\n@@@ B\n@ b 0 1\nF int 0 1\n");
  EXPECT_EQ(CheckInfos(loaded.editor, L"B"), (CheckRows{{L"b", false, 1, false}}));
}

// Keys and ids

// Returns a property under a key that is not its id, which no file can express.
DomenStore StoreWithKeyAndId() {
  DomenStore store;
  Domen domen(L"D", L"D");
  domen.AddProperty(L"key", DomenProperty(L"id", L"Title", {}, true, 3));
  domen.AddPropertyField(L"key", L"F", L"F", typeRList, false, L"1");
  store.AddDomen(L"D", std::move(domen));
  return store;
}

TEST(SortIndexes, ReturnsTheKeyAndNotTheId) {
  const DomenStore store = StoreWithKeyAndId();
  EXPECT_EQ(store.SortIndexes(L"D"), (std::vector<std::pair<std::wstring_view, int>>{{L"key", 3}}));
}

TEST(CheckInfos, ReturnsTheKeyAndNotTheId) {
  const DomenStore store = StoreWithKeyAndId();
  const std::vector<PropertyCheckInfo> infos = store.CheckInfos(L"D");
  ASSERT_EQ(infos.size(), 1u);
  EXPECT_EQ(infos[0].id, L"key");
  EXPECT_TRUE(infos[0].isList);
  EXPECT_TRUE(infos[0].unique);
  EXPECT_EQ(infos[0].fieldCount, 1);
}

// A field's type can be any number, though not in a file.
TEST(CheckInfos, TakesTheNumbersFrom3To5ForLists) {
  DomenStore store = StoreWithKeyAndId();
  const auto& fields = store.domens.at(L"D").properties.at(L"key").fields;
  for (const int valueType : {-1, 0, 1, 2, 3, 4, 5, 6, 7}) {
    fields.back()->valueType = valueType;
    EXPECT_EQ(store.CheckInfos(L"D").at(0).isList, valueType >= 3 && valueType <= 5) << valueType;
  }
}

TEST(FindProperty, LooksForTheKeyAndNotForTheId) {
  const DomenStore store = StoreWithKeyAndId();
  EXPECT_EQ(store.FindProperty(L"D", L"key").id, L"id");
  EXPECT_EQ(OutOfRangeOf([&] { store.FindProperty(L"D", L"id"); }), badKey);
}

// Sizes

TEST(DomenQueries, CopeWithManyPropertiesAndATextOfMegabytes) {
  std::string section = "@@@ D\n@@ Door\n";
  for (int i = 0; i < 5'000; ++i) {
    section += "@ P" + std::to_string(i) + " 0 " + std::to_string(i) + "\nF int 0 1\n";
  }
  section += "@ Z 0 0 " + std::string(1'000'000, 't') + "\nF str 0 " + std::string(1'000'000, 'v');
  LoadedDomens loaded(section);
  EXPECT_EQ(SortIndexes(loaded.editor, L"D").size(), 5'001u);
  EXPECT_EQ(CheckInfos(loaded.editor, L"D").size(), 5'001u);
  const PropertyRows rows = OfType(loaded.editor, L"D", L"Door");
  ASSERT_EQ(rows.size(), 5'001u);
  EXPECT_TRUE(std::get<1>(rows.back()) == std::wstring(1'000'000, L't'));
  const FieldRows fields = Fields(loaded.editor, L"D", L"Z");
  ASSERT_EQ(fields.size(), 1u);
  EXPECT_TRUE(std::get<4>(fields[0]) == std::wstring(1'000'000, L'v'));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
