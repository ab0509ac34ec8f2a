// Tests of reading and exporting domains as JSON5 files, through the exports.

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "domen/DomenStore.h"
#include "domen/PropertyType.h"
#include "support/Classificators.h"
#include "support/CurrentFolder.h"
#include "support/DescribeDomens.h"
#include "support/DomenRows.h"
#include "support/NamesIn.h"
#include "support/Output.h"
#include "support/PlainUser.h"
#include "support/Program.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

using Editor = RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

int Create(Editor& editor, const std::wstring& file) {
  return editor.CreateDomen(file.c_str());
}

void Export(Editor& editor, const wchar_t* domenId, const std::wstring& file) {
  editor.ExportJson(domenId, file.c_str());
}

std::wstring Active(Editor& editor) {
  return Take(editor.GetActiveDomenId());
}

Texts Ids(Editor& editor) {
  int count = -1;
  const wchar_t** ids = editor.GetDomensIds(count);
  return TakeAll(count, ids);
}

Texts Names(Editor& editor) {
  int count = -1;
  const wchar_t** names = editor.GetDomensNames(count);
  return TakeAll(count, names);
}

// Returns whether each property is unique, in key order. REQUIRES: each has a field.
std::vector<bool> UniqueFlags(Editor& editor, const wchar_t* domenId) {
  int count = -1;
  Output<const wchar_t*> ids;
  Output<bool> unique, lists;
  Output<int> fieldCounts;
  editor.GetDomenPropertiesCheckInfo(domenId, count, ids.array, unique.array, fieldCounts.array,
                                     lists.array);
  ids.Take(count);
  lists.Take(count);
  fieldCounts.Take(count);
  return unique.Take(count);
}

// An editor and a folder for its files.
class JsonDomen : public testing::Test {
 protected:
  JsonDomen() : editor(L"", L"") {}

  // Loads a file of the folder.
  int Load(const char* name, std::string_view bytes) {
    return Create(editor, folder.Write(name, bytes));
  }

  // Exports a domain into a file of the folder and returns its text.
  std::string Exported(const wchar_t* domenId) {
    Export(editor, domenId, folder.Wide() + L"/exported.json");
    return ReadBytes(folder.Path() / "exported.json");
  }

  // Returns the fields of property P of a domain whose file has this element for its field F.
  FieldRows FieldsOf(const std::string& element) {
    Editor fresh(L"", L"");
    const std::wstring file =
        folder.Write("a.json",
                     "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: ['F']}}, "
                     "ArrayValueFields: {F: " +
                         element + "}}");
    EXPECT_EQ(Create(fresh, file), 0);
    return Fields(fresh, L"a", L"P");
  }

  TempFolder folder;
  Editor editor;
};

using JsonReading = JsonDomen;
using JsonExport = JsonDomen;

constexpr const char* zones = R"({
  // The zones of a building.
  Domen: {sName: 'Zones', asFuncsNames: ['ZoneKind', 'Limits']},
  Properties: {
    ZoneKind: {
      asObjectTypes: ['Room', 'Door'],
      sId: 'ZoneKind',
      sName: 'Kind of zone',
      iUniq: 1,
      iSortId: 10,
      asFuncsNames: ['Kind'],
    },
    Limits: {
      asObjectTypes: [],
      sId: 'Limits',
      sName: 'Limits',
      iUniq: 0,
      iSortId: 20,
      asFuncsNames: ['Lower', 'Upper'],
    },
  },
  ArrayValueFields: {
    Kind: {sName: 'Kind', sType: 's', sDefault: 'A'},
    Lower: {sName: 'Lower limit', sType: 'r', rDefault: 0.5},
    Upper: {sName: 'Upper limit', sType: 'ai', iDefault: 3},
  },
}
)";

// Reading

TEST_F(JsonReading, MakesOneDomainOfAFile) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  EXPECT_EQ(Ids(editor), Texts{L"zones"});
  EXPECT_EQ(Names(editor), Texts{L"Zones"});
  EXPECT_EQ(Active(editor), L"zones");
  const PropertyRows all = {{L"Limits", L"Limits", 20}, {L"ZoneKind", L"Kind of zone", 10}};
  EXPECT_EQ(OfType(editor, L"zones", L"Room"), all);
  EXPECT_EQ(OfType(editor, L"zones", L"Door"), all);
  EXPECT_EQ(OfType(editor, L"zones", L"Stair"), (PropertyRows{{L"Limits", L"Limits", 20}}));
  EXPECT_EQ(UniqueFlags(editor, L"zones"), (std::vector<bool>{false, true}));
  EXPECT_EQ(Fields(editor, L"zones", L"ZoneKind"),
            (FieldRows{{L"Kind", L"Kind", typeStr, true, L"A"}}));
  EXPECT_EQ(Fields(editor, L"zones", L"Limits"),
            (FieldRows{{L"Lower", L"Lower limit", typeReal, true, L"0.5"},
                       {L"Upper", L"Upper limit", typeIList, true, L"3"}}));
}

TEST_F(JsonReading, TakesTheIdFromTheStemOfTheFileName) {
  struct Case {
    const char* file;
    const wchar_t* id;
  };
  const Case cases[] = {
      {"zones.json", L"zones"},
      {"Zones.json", L"Zones"},
      {"zones.old.json", L"zones.old"},
      {"zones.txt.json", L"zones.txt"},
      {".zones.json", L".zones"},
      {"..json", L"."},
      {"...json", L".."},
      {"a zone .json", L"a zone "},
  };
  for (const Case& one : cases) {
    const TempFolder own;  // because some file systems ignore case
    EXPECT_EQ(Create(editor, own.Write(one.file, "{}")), 0) << one.file;
    EXPECT_EQ(Active(editor), one.id) << one.file;
  }
}

TEST_F(JsonReading, TakesAnIdInAnyScript) {
  std::ofstream(folder.Path() / u8"зоны 標準.json") << "{}";
  EXPECT_EQ(Create(editor, folder.Wide() + L"/зоны 標準.json"), 0);
  EXPECT_EQ(Ids(editor), Texts{L"зоны 標準"});
}

TEST_F(JsonReading, CutsTheStemByTheSameRulesEverywhere) {
  if (fs::path::preferred_separator != '/') GTEST_SKIP() << "no files of such names can be here";
  struct Case {
    const char* file;
    const wchar_t* id;
  };
  const Case cases[] = {
      {"folder\\zones.json", L"zones"},
      {"C:drive.json", L"drive"},
      {"streamed.json:stream", L"streamed"},
  };
  const CurrentFolder current(folder.Path());
  for (const Case& one : cases) {
    folder.Write(one.file, "{}");
    EXPECT_EQ(Create(editor, fs::path(one.file).wstring()), 0) << one.file;
    EXPECT_EQ(Active(editor), one.id) << one.file;
  }
}

TEST_F(JsonReading, RefusesEveryOtherExtension) {
  for (const char* name : {"a.JSON", "a.Json", "a.json5", "a.jso", "json", ".json", "a.json."}) {
    const TempFolder own;
    EXPECT_EQ(Create(editor, own.Write(name, zones)), -1) << name;
  }
  EXPECT_EQ(Ids(editor), Texts{});
  EXPECT_EQ(Active(editor), L"");
}

TEST_F(JsonReading, FindsAFileOfTheDataFolder) {
  folder.Write("zones.json", zones);
  Editor withData(folder.Wide().c_str(), L"");
  EXPECT_EQ(Create(withData, L"zones.json"), 0);
  EXPECT_EQ(Ids(withData), Texts{L"zones"});
  EXPECT_EQ(Create(withData, L"missing.json"), -1);
  EXPECT_EQ(Active(withData), L"zones");
}

TEST_F(JsonReading, Returns3ForAFolderAndChangesNothing) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  fs::create_directory(folder.Path() / "folder.json");
  EXPECT_EQ(Create(editor, folder.Wide() + L"/folder.json"), 3);
  EXPECT_EQ(Ids(editor), Texts{L"zones"});
  EXPECT_EQ(Active(editor), L"zones");
}

TEST_F(JsonReading, Returns3ForAFileThatTheUserMayNotRead) {
  const std::wstring file = folder.Write("closed.json", zones);
  fs::permissions(folder.Path() / "closed.json", fs::perms::none);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool closed = ReadBytes(folder.Path() / "closed.json").empty();
  if (closed) {
    EXPECT_EQ(Create(editor, file), 3);
    EXPECT_EQ(Ids(editor), Texts{});
    EXPECT_EQ(Active(editor), L"");
  }
  plainUser.reset();
  fs::permissions(folder.Path() / "closed.json", fs::perms::owner_all);
  if (!closed) GTEST_SKIP() << "no file is closed to this user";
}

TEST_F(JsonReading, MakesAnEmptyDomainTheActiveOneForAFileThatHoldsNothing) {
  struct Case {
    const char* name;
    std::string_view bytes;
  };
  const Case cases[] = {
      {"empty.json", ""},
      {"object.json", "{}"},
      {"array.json", "[]"},
      {"malformed.json", "{Domen: {sName: 'A', asFuncsNames: ['P']}"},
      {"undecodable.json", "{Domen: {sName: '\xFF', asFuncsNames: ['P']}}"},
      {"text.json", "==DOMEN\n@@@ A\n@ P 0 1\n"},
      {"wrong.json", "{Domen: {sName: 5, asFuncsNames: 'P'}}"},
      {"other.json", "{Domain: {sName: 'A', asFuncsNames: ['P']}, domen: {sName: 'B'}}"},
      {"unlisted.json", "{Properties: {P: {sName: 'P'}}, ArrayValueFields: {F: {}}}"},
  };
  for (const Case& one : cases) {
    Editor fresh(L"", L"");
    EXPECT_EQ(Create(fresh, folder.Write(one.name, one.bytes)), 0) << one.name;
    const std::wstring id = fs::path(one.name).stem().wstring();
    EXPECT_EQ(Ids(fresh), Texts{id});
    EXPECT_EQ(Names(fresh), Texts{L""});
    EXPECT_EQ(Active(fresh), id);
    EXPECT_EQ(OfType(fresh, id.c_str(), L"Room"), PropertyRows{});
  }
}

TEST_F(JsonReading, ChangesNothingOnTheSecondTimeAndSelectsTheDomainAgain) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  const std::string before = Exported(L"zones");
  EXPECT_EQ(Load("other.json", "{}"), 0);
  EXPECT_EQ(Active(editor), L"other");
  EXPECT_EQ(Load("zones.json", zones), 0);
  EXPECT_EQ(Active(editor), L"zones");
  EXPECT_EQ(Ids(editor), (Texts{L"other", L"zones"}));
  EXPECT_EQ(Exported(L"zones"), before);
}

TEST_F(JsonReading, KeepsTheFirstOfTwoFilesOfOneStemAsAWhole) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  const TempFolder other;
  EXPECT_EQ(Load("a.json", "{}"), 0);
  const std::wstring second = other.Write("zones.json", R"({
    Domen: {sName: 'Second', asFuncsNames: ['New', 'Limits']},
    Properties: {Limits: {sName: 'Changed', asFuncsNames: ['More']}}})");
  EXPECT_EQ(Create(editor, second), 0);
  EXPECT_EQ(Active(editor), L"zones");
  EXPECT_EQ(Names(editor), (Texts{L"", L"Zones"}));
  EXPECT_EQ(OfType(editor, L"zones", L"Room"),
            (PropertyRows{{L"Limits", L"Limits", 20}, {L"ZoneKind", L"Kind of zone", 10}}));
  EXPECT_EQ(Fields(editor, L"zones", L"Limits").size(), 2u);
}

TEST_F(JsonReading, KeepsADomainOfATextFileAndIsExtendedByOne) {
  EXPECT_EQ(Load("text.txt", "==DOMEN\n@@@ a\n@ P 0 1\n"), 0);
  EXPECT_EQ(Load("a.json", "{Domen: {sName: 'A', asFuncsNames: ['Q']}}"), 0);
  EXPECT_EQ(Names(editor), Texts{L"a"});
  EXPECT_EQ(OfType(editor, L"a", L"Room"), (PropertyRows{{L"P", L"P", 1}}));
  EXPECT_EQ(Load("b.json", "{Domen: {sName: 'B', asFuncsNames: ['Q']}}"), 0);
  EXPECT_EQ(Load("more.txt", "==DOMEN\n@@@ b\n@ P 0 1\n@ Q 0 2\n"), 0);
  EXPECT_EQ(Names(editor), (Texts{L"a", L"B"}));
  EXPECT_EQ(OfType(editor, L"b", L"Room"), (PropertyRows{{L"P", L"P", 1}, {L"Q", L"", 0}}));
}

TEST_F(JsonReading, UsesTheDefaultsForAPropertyWithoutAnElement) {
  EXPECT_EQ(Load("a.json", "{Domen: {asFuncsNames: ['P', 'Q']}, Properties: {Q: 5}}"), 0);
  EXPECT_EQ(OfType(editor, L"a", L"any type"), (PropertyRows{{L"P", L"", 0}, {L"Q", L"", 0}}));
  EXPECT_EQ(Fields(editor, L"a", L"P"), FieldRows{});
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(folder.Wide() + L"/a.json", L""), 0);
  EXPECT_EQ(Describe(store),
            L"domain a ''\n"
            L"  property P '' 0 []\n"
            L"  property Q '' 0 []\n");
}

TEST_F(JsonReading, TreatsAValueOfAnotherTypeAsMissing) {
  folder.Write("a.json", R"({
    Domen: {sName: ['A'], asFuncsNames: [5, 'P', null]},
    Properties: {P: {asObjectTypes: 'Room', sName: 5, iUniq: true, iSortId: '5',
                     asFuncsNames: ['F', 1]}},
    ArrayValueFields: {F: {sName: null, sType: 5, rDefault: '2.5'}}})");
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(folder.Wide() + L"/a.json", L""), 0);
  EXPECT_EQ(Describe(store),
            L"domain a ''\n"
            L"  property P '' 0 []\n"
            L"    real F 'F' = 1\n");
}

TEST_F(JsonReading, TakesThePropertysKeyAsItsIdWhateverTheFileSays) {
  folder.Write("a.json", R"({
    Domen: {asFuncsNames: ['P', 'Q']},
    Properties: {P: {sId: 'Other', sName: 'One'}, Q: {sId: 'P'}, Other: {sName: 'Two'}}})");
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(folder.Wide() + L"/a.json", L""), 0);
  EXPECT_EQ(Describe(store),
            L"domain a ''\n"
            L"  property P 'One' 0 []\n"
            L"  property Q '' 0 []\n");
}

TEST_F(JsonReading, TakesAnythingBut0AsUniqueAndAnySortIndex) {
  EXPECT_EQ(Load("a.json", R"({
    Domen: {asFuncsNames: ['A', 'B', 'C', 'D', 'E']},
    Properties: {
      A: {iUniq: 5, iSortId: -20, asFuncsNames: ['F']},
      B: {iUniq: -1, iSortId: 2147483647, asFuncsNames: ['F']},
      C: {iUniq: 0, iSortId: -2147483648, asFuncsNames: ['F']},
      D: {iUniq: 0.5, iSortId: 2147483648, asFuncsNames: ['F']},
      E: {iUniq: 1.0, iSortId: 0x10, asFuncsNames: ['F']}}})"),
            0);
  EXPECT_EQ(UniqueFlags(editor, L"a"), (std::vector<bool>{true, true, false, false, true}));
  EXPECT_EQ(OfType(editor, L"a", L"Room"), (PropertyRows{{L"A", L"", -20},
                                                         {L"B", L"", 2147483647},
                                                         {L"C", L"", -2147483647 - 1},
                                                         {L"D", L"", 0},
                                                         {L"E", L"", 16}}));
}

TEST_F(JsonReading, OrdersPropertiesByTheirKeysAndFieldsAsTheFile) {
  EXPECT_EQ(Load("a.json", R"({
    Domen: {asFuncsNames: ['Z', 'Я', 'b', 'A', 'a']},
    Properties: {A: {asFuncsNames: ['z', 'A', 'm']}}})"),
            0);
  EXPECT_EQ(OfType(editor, L"a", L"Room"),
            (PropertyRows{
                {L"A", L"", 0}, {L"Z", L"", 0}, {L"a", L"", 0}, {L"b", L"", 0}, {L"Я", L"", 0}}));
  EXPECT_EQ(Fields(editor, L"a", L"A"), (FieldRows{{L"z", L"z", typeReal, false, L"1"},
                                                   {L"A", L"A", typeReal, false, L"1"},
                                                   {L"m", L"m", typeReal, false, L"1"}}));
}

TEST_F(JsonReading, KeepsOneOfAPropertyOrFieldThatIsNamedTwice) {
  EXPECT_EQ(Load("a.json", R"({
    Domen: {asFuncsNames: ['P', 'Q', 'P']},
    Properties: {P: {asFuncsNames: ['F', 'G', 'F']}},
    ArrayValueFields: {F: {sType: 'i', iDefault: 5}}})"),
            0);
  EXPECT_EQ(OfType(editor, L"a", L"Room"), (PropertyRows{{L"P", L"", 0}, {L"Q", L"", 0}}));
  EXPECT_EQ(Fields(editor, L"a", L"P"),
            (FieldRows{{L"F", L"F", typeInt, true, L"5"}, {L"G", L"G", typeReal, false, L"1"}}));
}

TEST_F(JsonReading, ReadsAFieldNameOfTwoPropertiesFromTheSameElement) {
  EXPECT_EQ(Load("a.json", R"({
    Domen: {asFuncsNames: ['P', 'Q']},
    Properties: {P: {asFuncsNames: ['G', 'F']}, Q: {asFuncsNames: ['F']}},
    ArrayValueFields: {F: {sName: 'Title', sType: 's', sDefault: 'A'}}})"),
            0);
  const FieldRow row = {L"F", L"Title", typeStr, true, L"A"};
  EXPECT_EQ(Fields(editor, L"a", L"P").at(1), row);
  EXPECT_EQ(Fields(editor, L"a", L"Q"), FieldRows{row});
}

TEST_F(JsonReading, KeepsEmptyNamesAndKeys) {
  EXPECT_EQ(Load("a.json", "{Domen: {asFuncsNames: ['']}, Properties: {asFuncsNames: ['']}}"), 0);
  EXPECT_EQ(OfType(editor, L"a", L"Room"), (PropertyRows{{L"", L"", 0}}));
  EXPECT_EQ(Fields(editor, L"a", L""), (FieldRows{{L"", L"", typeReal, false, L"1"}}));
}

TEST_F(JsonReading, MakesEachFieldByItsTypeAndTheOneDefaultOfIt) {
  struct Case {
    const char* element;
    const wchar_t* title;
    int type;
    bool flag;
    const wchar_t* value;
  };
  const Case cases[] = {
      // missing values
      {"5", L"F", typeReal, false, L"1"},
      {"{}", L"F", typeReal, false, L"1"},
      {"{sName: 'Title'}", L"Title", typeReal, false, L"1"},
      {"{sName: ''}", L"", typeReal, false, L"1"},
      {"{rDefault: 2.5}", L"F", typeReal, true, L"2.5"},
      {"{iDefault: 2, sDefault: 'A'}", L"F", typeReal, false, L"1"},
      {"{sType: 'i'}", L"F", typeInt, false, L"1"},
      {"{sType: 'r'}", L"F", typeReal, false, L"1"},
      {"{sType: 's'}", L"F", typeStr, false, L"1.0"},
      {"{sType: 'ai'}", L"F", typeIList, false, L"1"},
      {"{sType: 'ar'}", L"F", typeRList, false, L"1"},
      {"{sType: 'as'}", L"F", typeSList, false, L"1.0"},
      // each type, with defaults of other types too
      {"{sType: 'i', iDefault: 42, rDefault: 7, sDefault: 'x'}", L"F", typeInt, true, L"42"},
      {"{sType: 'r', iDefault: 7, rDefault: 0.5, sDefault: 'x'}", L"F", typeReal, true, L"0.5"},
      {"{sType: 's', iDefault: 7, rDefault: 7, sDefault: 'A B'}", L"F", typeStr, true, L"A B"},
      {"{sType: 'ai', iDefault: -3, rDefault: 7, sDefault: 'x'}", L"F", typeIList, true, L"-3"},
      {"{sType: 'ar', iDefault: 7, rDefault: 1e5, sDefault: 'x'}", L"F", typeRList, true, L"1e+05"},
      {"{sType: 'as', iDefault: 7, rDefault: 7, sDefault: ' A  B '}", L"F", typeSList, true,
       L"A B"},
      // numbers
      {"{sType: 'i', iDefault: 5.0}", L"F", typeInt, true, L"5"},
      {"{sType: 'i', iDefault: 0.5}", L"F", typeInt, false, L"1"},
      {"{sType: 'i', iDefault: 2147483648}", L"F", typeInt, false, L"1"},
      {"{sType: 'i', iDefault: '5'}", L"F", typeInt, false, L"1"},
      {"{sType: 'ai', iDefault: [1, 2]}", L"F", typeIList, false, L"1"},
      {"{rDefault: 5}", L"F", typeReal, true, L"5"},
      {"{rDefault: '2.5'}", L"F", typeReal, false, L"1"},
      // a text that the field refuses
      {"{rDefault: Infinity}", L"F", typeReal, true, L"1"},
      {"{rDefault: NaN}", L"F", typeReal, true, L"1"},
      {"{sType: 'ar', rDefault: -Infinity}", L"F", typeRList, true, L"1"},
      {"{sType: 's', sDefault: ''}", L"F", typeStr, true, L""},
      {"{sType: 's', sDefault: ' '}", L"F", typeStr, true, L""},
      {"{sType: 'as', sDefault: ''}", L"F", typeSList, true, L""},
      {"{sType: 's', sDefault: '\"A\"'}", L"F", typeStr, true, L"A"},
      // unknown types, whose flag is that of "sType"
      {"{sType: 'I', iDefault: 42}", L"F", typeInt, true, L"1"},
      {"{sType: 'x', iDefault: 42, rDefault: 42, sDefault: '42'}", L"F", typeInt, true, L"1"},
      {"{sType: ''}", L"F", typeInt, true, L"1"},
      {"{sType: 'i ', iDefault: 42}", L"F", typeInt, true, L"1"},
      {"{sType: 'int', iDefault: 42}", L"F", typeInt, true, L"1"},
      {"{sType: 'aI', iDefault: 42}", L"F", typeInt, true, L"1"},
      {"{sType: 0, rDefault: 42}", L"F", typeReal, true, L"42"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(FieldsOf(one.element), (FieldRows{{L"F", one.title, one.type, one.flag, one.value}}))
        << one.element;
  }
}

TEST_F(JsonReading, FeedsTheMappingStringsOfAClassificator) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  const std::wstring scheme =
      folder.Write("scheme.txt", "==MAPTEXT\n@@ (zones)\n@W10 {Limits}\nwall\n");
  EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"Code", scheme.c_str()), 0);
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  EXPECT_EQ(Take(editor.GetMappingStr(L"wall", 1, L"=")), L"Code W10;Limits= 0.5 3;");
}

TEST_F(JsonReading, FollowsTheReadingOfAClassificatorThatTakesTheFileForText) {
  const std::wstring file = folder.Write("both.json",
                                         "{Domen: {sName: 'Both'} /*\n"
                                         "==MAPTEXT\n"
                                         "@@W10\n"
                                         "wall\n"
                                         "==END\n"
                                         "*/}\n");
  EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()), 0);
  EXPECT_EQ(ListClassificators(editor), (ClassificatorNames{{L"S", L"Scheme"}}));
  EXPECT_EQ(Ids(editor), Texts{L"both"});
  EXPECT_EQ(Names(editor), Texts{L"Both"});
  EXPECT_EQ(Active(editor), L"both");
}

TEST_F(JsonReading, FollowsAClassificatorByThePathThatWasFoundInTheDataFolder) {
  folder.Write("both.json", "{Domen: {sName: 'Both'}}");
  const TempFolder elsewhere;
  const CurrentFolder current(elsewhere.Path());
  Editor withData(folder.Wide().c_str(), L"");
  EXPECT_EQ(withData.CreateClassificator(L"S", L"", L"", L"both.json"), 0);
  EXPECT_EQ(Names(withData), Texts{L"Both"});
  EXPECT_EQ(Active(withData), L"both");
}

TEST_F(JsonReading, DoesNotFollowAClassificatorThatCouldNotBeOpened) {
  fs::create_directory(folder.Path() / "folder.json");
  const std::wstring file = folder.Wide() + L"/folder.json";
  EXPECT_EQ(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()), 2);
  EXPECT_EQ(ListClassificators(editor), (ClassificatorNames{{L"S", L"Scheme"}}));
  EXPECT_EQ(Ids(editor), Texts{});
}

TEST_F(JsonReading, DoesNotDependOnTheConfigurationText) {
  folder.Write("zones.json", zones);
  for (const wchar_t* configText : {L"", L"{Domen: {sName: 'x'}}", L"no such file"}) {
    Editor fresh(folder.Wide().c_str(), configText);
    EXPECT_EQ(Create(fresh, L"zones.json"), 0);
    EXPECT_EQ(Names(fresh), Texts{L"Zones"});
  }
}

TEST_F(JsonReading, DoesNotTouchTheFile) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  EXPECT_EQ(ReadBytes(folder.Path() / "zones.json"), zones);
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"zones.json"});
}

TEST_F(JsonReading, ReadsTenThousandProperties) {
  std::string keys, elements;
  for (int i = 0; i < 10'000; ++i) {
    const std::string key = "P" + std::to_string(i);
    keys += "'" + key + "',";
    elements += key + ": {sName: 'Name', asFuncsNames: ['F']},";
  }
  EXPECT_EQ(
      Load("a.json", "{Domen: {asFuncsNames: [" + keys + "]}, Properties: {" + elements + "}}"), 0);
  EXPECT_EQ(OfType(editor, L"a", L"Room").size(), 10'000u);
}

// Export

constexpr const char* allTypes =
    "==DOMEN\n"
    "@@@ Зоны\n"
    "@@ Помещение \"Дверь\"\n"
    "@ Предел 0 -20 Предел огнестойкости\n"
    "Нижний real 1 0.5 Нижний предел\n"
    "Имя str 1 К30\n"
    "Число int 1 7\n"
    "Числа ilist 1 3\n"
    "@@\n"
    "@ Вид 1 10\n"
    "Доли rlist 1 0.9\n"
    "Слова slist 1 главный Слова \\ \"слова\"\n"
    "@ Без 2 0\n";

TEST_F(JsonExport, WritesADomainToTheByte) {
  EXPECT_EQ(Load("domens.txt", allTypes), 0);
  const std::string expected =
      "{\n"
      "  \"Domen\": {\n"
      "    \"sName\": \"Зоны\", // Имя домена свойств для интерфейса\n"
      "    \"asFuncsNames\": [\"Без\", \"Вид\", \"Предел\"] // Список свойств принадлежащих "
      "домену\n"
      "  },\n"
      "  \"Properties\": {\n"
      "    \"Без\": {\n"
      "      \"asObjectTypes\": [], // Массив типов объектов Ревит (помещение, дверь, лестница, "
      "форма и т.п.), для которых может быть задано данное свойство\n"
      "      \"sId\": \"Без\", // Имя (код) свойства\n"
      "      \"sName\": \"Без\", // Название свойства\n"
      "      \"iUniq\": 0, // уникальность – да/нет\n"
      "      \"iSortId\": 0, // индекс сортировки – для показа в интерфейсе. В интерфейсе свойства "
      "сортируются по индексу, объекты с одинаковым индексом показываются в алфавитном порядке\n"
      "      \"asFuncsNames\": [] // массив полей значений\n"
      "    },\n"
      "    \"Вид\": {\n"
      "      \"asObjectTypes\": [], // Массив типов объектов Ревит (помещение, дверь, лестница, "
      "форма и т.п.), для которых может быть задано данное свойство\n"
      "      \"sId\": \"Вид\", // Имя (код) свойства\n"
      "      \"sName\": \"Вид\", // Название свойства\n"
      "      \"iUniq\": 1, // уникальность – да/нет\n"
      "      \"iSortId\": 10, // индекс сортировки – для показа в интерфейсе. В интерфейсе "
      "свойства "
      "сортируются по индексу, объекты с одинаковым индексом показываются в алфавитном порядке\n"
      "      \"asFuncsNames\": [\"Доли\", \"Слова\"] // массив полей значений\n"
      "    },\n"
      "    \"Предел\": {\n"
      "      \"asObjectTypes\": [\"Помещение\", \"\\\"Дверь\\\"\"], // Массив типов объектов Ревит "
      "(помещение, дверь, лестница, форма и т.п.), для которых может быть задано данное свойство\n"
      "      \"sId\": \"Предел\", // Имя (код) свойства\n"
      "      \"sName\": \"Предел огнестойкости\", // Название свойства\n"
      "      \"iUniq\": 0, // уникальность – да/нет\n"
      "      \"iSortId\": -20, // индекс сортировки – для показа в интерфейсе. В интерфейсе "
      "свойства сортируются по индексу, объекты с одинаковым индексом показываются в алфавитном "
      "порядке\n"
      "      \"asFuncsNames\": [\"Нижний\", \"Имя\", \"Число\", \"Числа\"] // массив полей "
      "значений\n"
      "    }\n"
      "  },\n"
      "  \"ArrayValueFields\": {\n"
      "    \"Доли\": {\n"
      "      \"sName\": \"Доли\", // название поля списка значений\n"
      "      \"sType\": \"ai\", // тип значения (целое, действительное)\n"
      "      \"iDefault\": 1 // значение по умолчанию\n"
      "    },\n"
      "    \"Слова\": {\n"
      "      \"sName\": \"Слова \\\\ \\\"слова\\\"\", // название поля списка значений\n"
      "      \"sType\": \"ar\", // тип значения (целое, действительное)\n"
      "      \"rDefault\": 1.0 // значение по умолчанию\n"
      "    },\n"
      "    \"Нижний\": {\n"
      "      \"sName\": \"Нижний предел\", // название поля списка значений\n"
      "      \"sType\": \"i\", // тип значения (целое, действительное)\n"
      "      \"iDefault\": 1 // значение по умолчанию\n"
      "    },\n"
      "    \"Имя\": {\n"
      "      \"sName\": \"Имя\", // название поля списка значений\n"
      "      \"sType\": \"r\", // тип значения (целое, действительное)\n"
      "      \"rDefault\": 1.0 // значение по умолчанию\n"
      "    },\n"
      "    \"Число\": {\n"
      "      \"sName\": \"Число\" // название поля списка значений\n"
      "    },\n"
      "    \"Числа\": {\n"
      "      \"sName\": \"Числа\", // название поля списка значений\n"
      "      \"sType\": \"s\", // тип значения (целое, действительное)\n"
      "      \"sDefault\": \"\" // значение по умолчанию\n"
      "    }\n"
      "  }\n"
      "}\n";
  EXPECT_EQ(Exported(L"Зоны"), expected);
}

TEST_F(JsonExport, WritesTheSameBytesEachTime) {
  EXPECT_EQ(Load("domens.txt", allTypes), 0);
  const std::string once = Exported(L"Зоны");
  EXPECT_NE(once, "");
  EXPECT_EQ(Exported(L"Зоны"), once);
  Editor copy(editor);
  Export(copy, L"Зоны", folder.Wide() + L"/copy.json");
  EXPECT_EQ(ReadBytes(folder.Path() / "copy.json"), once);
}

TEST_F(JsonExport, TurnsEachTypeIntoAnotherInARoundTrip) {
  struct Case {
    const char* field;  // as a text file has it
    int type;
    FieldRow reloaded;
  };
  const Case cases[] = {
      {"F int 1 7 Title", typeInt, {L"F", L"Title", typeReal, false, L"1"}},
      {"F real 0 0.5 Title", typeReal, {L"F", L"Title", typeInt, true, L"1"}},
      {"F str 0 A Title", typeStr, {L"F", L"Title", typeReal, true, L"1"}},
      {"F ilist 1 3 Title", typeIList, {L"F", L"Title", typeStr, true, L""}},
      {"F rlist 0 0.5 Title", typeRList, {L"F", L"Title", typeIList, true, L"1"}},
      {"F slist 0 A Title", typeSList, {L"F", L"Title", typeRList, true, L"1"}},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.field);
    Editor source(L"", L"");
    const std::string text = "==DOMEN\n@@@ A\n@ P 0 1\n" + std::string(one.field) + "\n";
    EXPECT_EQ(Create(source, folder.Write("a.txt", text)), 0);
    EXPECT_EQ(std::get<2>(Fields(source, L"A", L"P").at(0)), one.type);
    Export(source, L"A", folder.Wide() + L"/back.json");
    Editor reloaded(L"", L"");
    EXPECT_EQ(Create(reloaded, folder.Wide() + L"/back.json"), 0);
    EXPECT_EQ(Fields(reloaded, L"back", L"P"), FieldRows{one.reloaded});
  }
}

TEST_F(JsonExport, RoundTripsAllButTheFields) {
  EXPECT_EQ(Load("domens.txt",
                 "==DOMEN\n"
                 "@@@ Zones\n"
                 "@@ Room Door\n"
                 "@ b 1 10 Kind of zone\n"
                 "F int 1 7\n"
                 "@@\n"
                 "@ a 0 -20\n"
                 "G int 1 7\n"),
            0);
  Exported(L"Zones");
  Editor reloaded(L"", L"");
  EXPECT_EQ(Create(reloaded, folder.Wide() + L"/exported.json"), 0);
  EXPECT_EQ(Ids(reloaded), Texts{L"exported"}) << "the id is the stem of the target's name";
  EXPECT_EQ(Names(reloaded), Texts{L"Zones"});
  for (const wchar_t* type : {L"Room", L"Door", L"Stair"}) {
    EXPECT_EQ(OfType(reloaded, L"exported", type), OfType(editor, L"Zones", type)) << type;
  }
  EXPECT_EQ(UniqueFlags(reloaded, L"exported"), (std::vector<bool>{false, true}));
}

TEST_F(JsonExport, RoundTripsTextsOfAllKinds) {
  const std::string text =
      R"({Domen: {sName: 'a\n"\\/\b\f\r\t\v\u2028\ud800', asFuncsNames: ['\t"\\', '\u2029//']},)"
      R"( Properties: {'\t"\\': {sName: '/* */ // \u0001\x7F \ud83d\ude00',)"
      R"( asObjectTypes: ['', 'a\nb', ', '], asFuncsNames: ['"']}}, ArrayValueFields: {)"
      R"('"': {sName: '\''}}})";
  EXPECT_EQ(Load("a.json", text), 0);
  Exported(L"a");
  Editor reloaded(L"", L"");
  EXPECT_EQ(Create(reloaded, folder.Wide() + L"/exported.json"), 0);
  EXPECT_EQ(Names(reloaded), Names(editor));
  for (const wchar_t* type : {L"", L"a\nb", L", ", L"Room"}) {
    EXPECT_EQ(OfType(reloaded, L"exported", type), OfType(editor, L"a", type));
  }
  EXPECT_EQ(OfType(reloaded, L"exported", L"").size(), 2u);
  EXPECT_EQ(std::get<1>(Fields(reloaded, L"exported", L"\t\"\\").at(0)), L"'");
}

TEST_F(JsonExport, RoundTripsPropertiesAndFieldsOfEveryName) {
  EXPECT_EQ(Load("a.json", R"({
    Domen: {asFuncsNames: ['', 'sName', 'asFuncsNames', 'Domen', '__proto__']},
    Properties: {sName: {sName: 'One', iSortId: 1, asFuncsNames: ['', 'sName', 'sType']},
                 asFuncsNames: {sName: 'Two'}, Domen: {sName: 'Three'}, __proto__: {iSortId: 4}}})"),
            0);
  Exported(L"a");
  Editor reloaded(L"", L"");
  EXPECT_EQ(Create(reloaded, folder.Wide() + L"/exported.json"), 0);
  EXPECT_EQ(OfType(reloaded, L"exported", L"Room"), (PropertyRows{{L"", L"", 0},
                                                                  {L"Domen", L"Three", 0},
                                                                  {L"__proto__", L"", 4},
                                                                  {L"asFuncsNames", L"Two", 0},
                                                                  {L"sName", L"One", 1}}));
  EXPECT_EQ(Fields(reloaded, L"exported", L"sName"),
            (FieldRows{{L"", L"", typeInt, true, L"1"},
                       {L"sName", L"sName", typeInt, true, L"1"},
                       {L"sType", L"sType", typeInt, true, L"1"}}));
}

TEST_F(JsonExport, WritesTheDomainAloneIfItHasNoProperties) {
  EXPECT_EQ(Load("empty.txt", "==DOMEN\n@@@ A\n"), 0);
  EXPECT_EQ(Exported(L"A"),
            "{\n"
            "  \"Domen\": {\n"
            "    \"sName\": \"A\", // Имя домена свойств для интерфейса\n"
            "    \"asFuncsNames\": [] // Список свойств принадлежащих домену\n"
            "  }\n"
            "}\n");
}

TEST_F(JsonExport, WritesNoFieldsOfAPropertyThatHasNone) {
  EXPECT_EQ(Load("a.txt", "==DOMEN\n@@@ A\n@ P 0 1\n"), 0);
  const std::string text = Exported(L"A");
  EXPECT_NE(text.find("      \"asFuncsNames\": [] // массив полей значений\n"), text.npos);
  EXPECT_EQ(text.find("ArrayValueFields"), text.npos);
}

TEST_F(JsonExport, WritesOnlyTheTitlesOfFieldsOfTypeInt) {
  EXPECT_EQ(Load("a.txt", "==DOMEN\n@@@ A\n@ P 0 1\nF int 1 7\nG int 0 8 Title\n"), 0);
  const std::string text = Exported(L"A");
  EXPECT_EQ(text.substr(text.find("  \"ArrayValueFields\"")),
            "  \"ArrayValueFields\": {\n"
            "    \"F\": {\n"
            "      \"sName\": \"F\" // название поля списка значений\n"
            "    },\n"
            "    \"G\": {\n"
            "      \"sName\": \"Title\" // название поля списка значений\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST_F(JsonExport, WritesOneElementForAFieldNameOfTwoProperties) {
  EXPECT_EQ(Load("a.txt",
                 "==DOMEN\n@@@ A\n"
                 "@ P 0 1\nF real 1 7 First\nG int 1 7\n"
                 "@ Q 0 1\nF str 1 7 Second\n"),
            0);
  const std::string text = Exported(L"A");
  EXPECT_EQ(text.substr(text.find("  \"ArrayValueFields\"")),
            "  \"ArrayValueFields\": {\n"
            "    \"F\": {\n"
            "      \"sName\": \"Second\", // название поля списка значений\n"
            "      \"sType\": \"r\", // тип значения (целое, действительное)\n"
            "      \"iDefault\": 1, // значение по умолчанию\n"
            "      \"rDefault\": 1.0 // значение по умолчанию\n"
            "    },\n"
            "    \"G\": {\n"
            "      \"sName\": \"G\" // название поля списка значений\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST_F(JsonExport, WritesTheKeyOfAPropertyForItsId) {
  DomenStore store;
  Domen domen(L"a", L"A");
  domen.AddProperty(L"key", DomenProperty(L"id", L"Name", {}, false, 0));
  store.AddDomen(L"a", std::move(domen));
  store.ExportDomenJson(L"a", folder.Wide() + L"/exported.json");
  const std::string text = ReadBytes(folder.Path() / "exported.json");
  EXPECT_NE(text.find("    \"key\": {\n"), text.npos);
  EXPECT_NE(text.find("      \"sId\": \"key\", // Имя (код) свойства\n"), text.npos);
}

// A list of strings loses its quotation marks when its value is read, and the export reads only
// that.
TEST_F(JsonExport, ReadsTheValueOfEachField) {
  DomenStore store;
  Domen domen(L"a", L"A");
  domen.AddProperty(L"P", DomenProperty(L"P", L"P", {}, false, 0));
  domen.AddPropertyField(L"P", L"F", L"F", typeSList, false, L"\"a b\"");
  store.AddDomen(L"a", std::move(domen));
  const auto& field = dynamic_cast<Properties::PropertySListParameter&>(
      *store.domens.at(L"a").properties.at(L"P").fields.at(0));
  ASSERT_EQ(field.value, (std::vector<std::wstring>{L"\"a", L"b\""}));
  store.ExportDomenJson(L"a", folder.Wide() + L"/exported.json");
  EXPECT_EQ(field.value, (std::vector<std::wstring>{L"a", L"b"}));
}

// A type number that no file can have.
TEST_F(JsonExport, KnowsASeventhTypeAndNoOther) {
  const std::pair<int, std::string> cases[] = {
      {-1, ""},
      {6,
       ", // название поля списка значений\n"
       "      \"sType\": \"as\", // тип значения (целое, действительное)\n"
       "      \"sDefault\": \"\" // значение по умолчанию\n"},
      {7, ""},
  };
  for (const auto& [valueType, behindTheTitle] : cases) {
    DomenStore store;
    Domen domen(L"a", L"A");
    domen.AddProperty(L"P", DomenProperty(L"P", L"P", {}, false, 0));
    domen.AddPropertyField(L"P", L"F", L"F", typeInt, false, L"1");
    store.AddDomen(L"a", std::move(domen));
    store.domens.at(L"a").properties.at(L"P").fields.at(0)->valueType = valueType;
    store.ExportDomenJson(L"a", folder.Wide() + L"/exported.json");
    const std::string text = ReadBytes(folder.Path() / "exported.json");
    const std::string onlyTitle = " // название поля списка значений\n";
    EXPECT_EQ(text.substr(text.find("  \"ArrayValueFields\"")),
              "  \"ArrayValueFields\": {\n"
              "    \"F\": {\n"
              "      \"sName\": \"F\"" +
                  (behindTheTitle.empty() ? onlyTitle : behindTheTitle) +
                  "    }\n"
                  "  }\n"
                  "}\n")
        << valueType;
  }
}

TEST_F(JsonExport, ListsThePropertiesInTheOrderOfTheirKeys) {
  EXPECT_EQ(Load("a.json", "{Domen: {asFuncsNames: ['b', 'Я', 'a', 'Z']}}"), 0);
  const std::string text = Exported(L"a");
  EXPECT_NE(text.find("    \"asFuncsNames\": [\"Z\", \"a\", \"b\", \"Я\"] // "), text.npos);
  EXPECT_LT(text.find("\n    \"Z\": {"), text.find("\n    \"a\": {"));
  EXPECT_LT(text.find("\n    \"a\": {"), text.find("\n    \"b\": {"));
}

TEST_F(JsonExport, KeepsTheFieldsAndTheSelectionOfTheEditor) {
  EXPECT_EQ(Load("domens.txt", allTypes), 0);
  EXPECT_EQ(Load("other.json", "{}"), 0);
  const FieldRows before = Fields(editor, L"Зоны", L"Предел");
  Exported(L"Зоны");
  EXPECT_EQ(Fields(editor, L"Зоны", L"Предел"), before);
  EXPECT_EQ(Ids(editor), (Texts{L"other", L"Зоны"}));
  EXPECT_EQ(Active(editor), L"other");
}

TEST_F(JsonExport, MakesNoFileForAnUnknownDomain) {
  EXPECT_EQ(Load("a.json", "{}"), 0);
  const std::wstring existing = folder.Write("existing.json", "old");
  for (const wchar_t* id : {L"", L"A", L"a ", L"missing"}) {
    Export(editor, id, folder.Wide() + L"/new.json");
    Export(editor, id, existing);
  }
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"a.json", "existing.json"}));
  EXPECT_EQ(ReadBytes(folder.Path() / "existing.json"), "old");
}

TEST_F(JsonExport, ReplacesWhatTheFileHolds) {
  EXPECT_EQ(Load("a.json", zones), 0);
  const std::string expected = Exported(L"a");
  ASSERT_NE(expected, "");
  const std::string contents[] = {
      "",
      "garbage \xFF",
      zones,
      "{Domen: {sName: 'Old', asFuncsNames: ['Old'], more: 1}, Properties: {Old: {}}, More: {}}",
      std::string(100'000, '['),
      std::string(1'000'000, ' '),
  };
  for (const std::string& content : contents) {
    const std::wstring target = folder.Write("target.json", content);
    Export(editor, L"a", target);
    EXPECT_EQ(ReadBytes(folder.Path() / "target.json"), expected) << content.substr(0, 20);
  }
  EXPECT_EQ(NamesIn(folder.Path()),
            (std::set<std::string>{"a.json", "exported.json", "target.json"}));
}

TEST_F(JsonExport, ReplacesTheFileThatTheDomainCameFrom) {
  EXPECT_EQ(Load("zones.json", zones), 0);
  const std::string expected = Exported(L"zones");
  Export(editor, L"zones", folder.Wide() + L"/zones.json");
  EXPECT_EQ(ReadBytes(folder.Path() / "zones.json"), expected);
}

TEST_F(JsonExport, WritesToAFileOfAnyName) {
  EXPECT_EQ(Load("a.json", zones), 0);
  const std::string expected = Exported(L"a");
  fs::create_directory(folder.Path() / "out");
  const std::pair<const wchar_t*, const char8_t*> names[] = {
      {L"a.txt", u8"a.txt"},
      {L"no extension", u8"no extension"},
      {L".hidden", u8".hidden"},
      {L"зоны.JSON", u8"зоны.JSON"},
  };
  for (const auto& [name, native] : names) {
    Export(editor, L"a", folder.Wide() + L"/out/" + name);
    EXPECT_EQ(ReadBytes(folder.Path() / "out" / native), expected) << name;
  }
  EXPECT_EQ(NamesIn(folder.Path() / "out").size(), 4u);
}

TEST_F(JsonExport, LeavesAFolderUnderTheNameOfTheFileAlone) {
  EXPECT_EQ(Load("a.json", zones), 0);
  fs::create_directories(folder.Path() / "folder.json" / "inner");
  for (const wchar_t* name : {L"/folder.json", L"/folder.json/", L"/", L""}) {
    EXPECT_NO_THROW(Export(editor, L"a", folder.Wide() + name)) << name;
  }
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"a.json", "folder.json"}));
  EXPECT_EQ(NamesIn(folder.Path() / "folder.json"), std::set<std::string>{"inner"});
}

TEST_F(JsonExport, MakesNothingWhereNoFileCanBe) {
  EXPECT_EQ(Load("a.json", zones), 0);
  const std::wstring names[] = {
      L"/missing/b.json",
      L"/missing/",
      L"/a.json/b.json",
      L"/" + std::wstring(300, L'b') + L".json",
  };
  for (const std::wstring& name : names) {
    EXPECT_NO_THROW(Export(editor, L"a", folder.Wide() + name)) << name;
  }
  EXPECT_NO_THROW(Export(editor, L"a", L""));
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a.json"});
  EXPECT_EQ(ReadBytes(folder.Path() / "a.json"), zones);
}

TEST_F(JsonExport, LeavesAFileAloneThatMayNotBeWritten) {
  EXPECT_EQ(Load("a.json", zones), 0);
  const std::wstring target = folder.Write("target.json", "old");
  const fs::path path = folder.Path() / "target.json";
  fs::permissions(path, fs::perms::owner_read);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool closed = !std::ofstream(path, std::ios::app);
  if (closed) Export(editor, L"a", target);
  plainUser.reset();
  fs::permissions(path, fs::perms::owner_all);
  if (!closed) GTEST_SKIP() << "no file is closed to this user";
  EXPECT_EQ(ReadBytes(path), "old");
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"a.json", "target.json"}));
}

TEST_F(JsonExport, MakesNothingInAFolderThatMayNotBeWritten) {
  EXPECT_EQ(Load("a.json", zones), 0);
  const fs::path closedFolder = folder.Path() / "closed";
  fs::create_directory(closedFolder);
  folder.Write("closed/old.json", "old");
  fs::permissions(closedFolder, fs::perms::owner_read | fs::perms::owner_exec);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool closed = !std::ofstream(closedFolder / "probe");
  if (closed) {
    Export(editor, L"a", folder.Wide() + L"/closed/new.json");
    Export(editor, L"a", folder.Wide() + L"/closed/old.json");
  }
  plainUser.reset();
  fs::permissions(closedFolder, fs::perms::owner_all);
  if (!closed) GTEST_SKIP() << "no folder is closed to this user";
  EXPECT_EQ(NamesIn(closedFolder), std::set<std::string>{"old.json"});
  EXPECT_EQ(ReadBytes(closedFolder / "old.json"), "old");
}

TEST_F(JsonExport, TakesARelativeNameFromTheCurrentFolderAndNotFromTheDataFolder) {
  const TempFolder data;
  data.Write("target.json", "old");
  Editor withData(data.Wide().c_str(), L"");
  EXPECT_EQ(Create(withData, folder.Write("a.json", zones)), 0);
  fs::create_directory(folder.Path() / "inner");
  fs::create_directory(data.Path() / "only-here");
  const CurrentFolder current(folder.Path());
  Export(withData, L"a", L"target.json");
  Export(withData, L"a", L"inner/target.json");
  Export(withData, L"a", L"only-here/target.json");
  EXPECT_EQ(NamesIn(folder.Path()), (std::set<std::string>{"a.json", "inner", "target.json"}));
  EXPECT_EQ(NamesIn(folder.Path() / "inner"), std::set<std::string>{"target.json"});
  EXPECT_EQ(NamesIn(data.Path()), (std::set<std::string>{"only-here", "target.json"}));
  EXPECT_TRUE(fs::is_empty(data.Path() / "only-here"));
  EXPECT_EQ(ReadBytes(data.Path() / "target.json"), "old");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
