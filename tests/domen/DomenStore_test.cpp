#include "domen/DomenStore.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/DescribeDomens.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace fs = std::filesystem;

DomenProperty NewProperty(const std::wstring& name) {
  return DomenProperty(L"P", name, {}, false, 0);
}

Domen NewDomen(const std::wstring& name, std::vector<std::wstring> keys) {
  Domen domen(L"D", name);
  for (const std::wstring& key : keys) domen.AddProperty(key, NewProperty(name + L"." + key));
  return domen;
}

template <class Change>
void EditDomen(DomenStore& store, const wchar_t* key, const Change& change) {
  store.domens.Edit([&](Domens::Map& map) { change(map.at(key)); });
}

TEST(DomenStore, StartsEmpty) {
  const DomenStore store;
  EXPECT_EQ(store.activeDomenId, L"");
  EXPECT_TRUE(store.domens.empty());
}

// Adding

TEST(AddDomen, MovesTheDomainInAndReturnsItsPosition) {
  DomenStore store;
  const auto [position, inserted] = store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  EXPECT_TRUE(inserted);
  EXPECT_EQ(position->first, L"D");
  EXPECT_EQ(&position->second, &store.domens.at(L"D"));
  EXPECT_EQ(Describe(store), L"domain D 'Name'\n  property P 'Name.P' 0 []\n");
}

TEST(AddDomen, KeepsTheFirstDomainUnderAKeyAndReturnsItsPosition) {
  DomenStore store;
  store.AddDomen(L"D", NewDomen(L"First", {L"P"}));
  const auto [position, inserted] = store.AddDomen(L"D", NewDomen(L"Second", {L"P", L"Q"}));
  EXPECT_FALSE(inserted);
  EXPECT_EQ(&position->second, &store.domens.at(L"D"));
  EXPECT_EQ(Describe(store), L"domain D 'First'\n  property P 'First.P' 0 []\n");
}

TEST(AddDomen, TakesTheKeyAndNotTheDomainsId) {
  DomenStore store;
  store.AddDomen(L"K", NewDomen(L"First", {}));
  EXPECT_TRUE(store.AddDomen(L"D", NewDomen(L"Second", {})).second);
  EXPECT_TRUE(store.AddDomen(L"k", NewDomen(L"Third", {})).second);
  EXPECT_EQ(Describe(store), L"domain D 'Second'\nK: domain D 'First'\nk: domain D 'Third'\n");
}

TEST(AddDomen, LeavesTheActiveDomainAlone) {
  DomenStore store;
  store.activeDomenId = L"A";
  store.AddDomen(L"D", NewDomen(L"Name", {}));
  EXPECT_EQ(store.activeDomenId, L"A");
}

TEST(AddDomen, PassesNoValueThroughItsTextForm) {
  DomenStore store;
  Domen domen = NewDomen(L"Name", {L"P"});
  domen.AddPropertyField(L"P", L"F", L"", 2, false, L"x\" \"");
  const auto [position, inserted] = store.AddDomen(L"D", std::move(domen));
  EXPECT_EQ(position->second.properties.at(L"P").fields[0]->GetValue(), L"x\" ");
}

TEST(DomenStore, IteratesOverItsDomainsInTheOrderOfTheKeysUnits) {
  DomenStore store;
  for (const wchar_t* key : {L"б", L"a", L"Б", L"B", L"a1", L"", L"\xFFFD", L"A"}) {
    store.AddDomen(key, Domen(key, key));
  }
  std::vector<std::wstring> keys;
  for (const auto& [key, domen] : store.domens) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::wstring>{L"", L"A", L"B", L"a", L"a1", L"Б", L"б", L"\xFFFD"}));
}

// Where a character above U+FFFF has two units, it sorts before the last characters below it.
TEST(DomenStore, IteratesOverKeysAboveFFFFInTheOrderOfTheirUnitsToo) {
  DomenStore store;
  for (const wchar_t* key : {L"\xFFFD", L"\U0001F6AA"}) store.AddDomen(key, Domen(key, key));
  EXPECT_EQ(store.domens.begin()->first, sizeof(wchar_t) == 2 ? L"\U0001F6AA" : L"\xFFFD");
}

TEST(DomenStore, SharesNothingWithItsCopy) {
  DomenStore store;
  store.activeDomenId = L"D";
  store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  DomenStore copy = store;
  EXPECT_EQ(copy.activeDomenId, L"D");
  EXPECT_EQ(Describe(copy), Describe(store));
  EditDomen(copy, L"D",
            [](Domen& domen) { domen.AddPropertyField(L"P", L"F", L"", 0, false, L"5"); });
  copy.AddDomen(L"E", NewDomen(L"E", {}));
  EXPECT_EQ(Describe(store), L"domain D 'Name'\n  property P 'Name.P' 0 []\n");
}

// State

TEST(DomenStore, StaysInItsStateThroughQueriesAndSelections) {
  DomenStore store;
  store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  const auto state = store.State();
  ASSERT_TRUE(state);
  store.ListDomenIds();
  store.ListDomenNames();
  store.SortIndexes(L"D");
  store.PropertiesOfType(L"D", L"Door");
  store.PropertiesOfTypes(L"D", {});
  store.FindProperty(L"D", L"P");
  store.FindStoredProperty(L"D", L"P");
  EXPECT_THROW(store.CheckInfos(L"D"), std::out_of_range);
  store.CollectProperties({L"D"}, {L"P"});
  const TempFolder folder;
  store.ExportDomenJson(L"D", folder.Wide() + L"/exported.json");
  EXPECT_EQ(store.SelectDomenById(L"D"), 0);
  EXPECT_EQ(store.SelectDomenById(L"E"), -1);
  EXPECT_EQ(store.SelectDomenByName(L"Name"), 0);
  EXPECT_EQ(store.SelectDomenByName(L"E"), -1);
  EXPECT_EQ(store.LoadDomen(folder.Wide() + L"/absent.dat", L""), -1);
  EXPECT_EQ(store.LoadDomen(folder.Wide() + L"/absent.txt", L""), 2);
  EXPECT_EQ(store.LoadDomen(folder.Write("none.txt", "==CLASS\n"), L""), 0);
  EXPECT_EQ(store.State(), state);
}

TEST(DomenStore, IsInAnotherStateAfterAnyChangeOfItsDomains) {
  const TempFolder folder;
  const std::wstring text = folder.Write("a.txt", "==DOMEN\n@@@ D\n@ Q 0 1\nF int 0 5\n");
  const std::wstring json = folder.Write("b.json", R"({Domen: {sName: "B"}})");
  const std::pair<const char*, std::function<void(DomenStore&)>> changes[] = {
      {"text", [&](DomenStore& store) { EXPECT_EQ(store.LoadDomen(text, L""), 0); }},
      {"JSON", [&](DomenStore& store) { EXPECT_EQ(store.LoadDomen(json, L""), 0); }},
      {"AddDomen", [](DomenStore& store) { store.AddDomen(L"E", NewDomen(L"E", {})); }},
      {"Edit",
       [](DomenStore& store) {
         EditDomen(store, L"D",
                   [](Domen& domen) { domen.AddPropertyField(L"P", L"F", L"", 0, false, L"5"); });
       }},
      {"assignment", [](DomenStore& store) { store = DomenStore(store); }},
      {"assignment of a copy",
       [](DomenStore& store) {
         const DomenStore copy(store);
         store = copy;
       }},
      {"move", [](DomenStore& store) { const DomenStore moved(std::move(store)); }},
  };
  for (const auto& [name, change] : changes) {
    SCOPED_TRACE(name);
    DomenStore store;
    store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
    const auto state = store.State();
    const DomenStore copy(store);
    EXPECT_NE(copy.State(), state);
    EXPECT_EQ(store.State(), state);
    change(store);
    EXPECT_NE(store.State(), state);
  }
}

// The next query must not find the state before the failure.
TEST(DomenStore, IsInAnotherStateAfterAChangeThatFails) {
  DomenStore store;
  store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  const auto state = store.State();
  EXPECT_THROW(EditDomen(store, L"D",
                         [](Domen& domen) {
                           domen.AddPropertyField(L"P", L"F", L"", 0, false, L"5");
                           throw std::bad_alloc();
                         }),
               std::bad_alloc);
  EXPECT_NE(store.State(), state);
}

TEST(DomenStore, IsEmptyAfterAMoveAndLosesItsContentsByAnAssignment) {
  DomenStore source;
  source.activeDomenId = L"D";
  source.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  const std::wstring described = Describe(source);
  DomenStore moved(std::move(source));
  EXPECT_EQ(Describe(moved), described);
  EXPECT_TRUE(source.domens.empty());
  DomenStore assigned;
  assigned.AddDomen(L"Old", NewDomen(L"Old", {}));
  assigned = std::move(moved);
  EXPECT_EQ(Describe(assigned), described);
  EXPECT_TRUE(moved.domens.empty());
  DomenStore copied;
  copied = assigned;
  EXPECT_EQ(Describe(copied), described);
  EXPECT_EQ(Describe(assigned), described);
}

// Nothing is copied, so no value passes through its text form.
TEST(DomenStore, IsUnchangedWhenAssignedToItself) {
  DomenStore store;
  store.AddDomen(L"D", NewDomen(L"Name", {L"P"}));
  EditDomen(store, L"D", [](Domen& domen) {
    domen.AddPropertyField(L"P", L"F", L"", 2, false, L"x\" \" \"");
    const Domen& itself = domen;
    domen = itself;
  });
  const DomenStore& itself = store;
  store = itself;
  EXPECT_EQ(store.domens.at(L"D").properties.at(L"P").fields[0]->GetValue(), L"x\" \" ");
}

// The last step of an editor's assignment, which must not fail.
static_assert(std::is_nothrow_move_assignable_v<DomenStore>);

// The store has no members but these.
static_assert(sizeof(DomenStore) ==
              sizeof(std::wstring) + sizeof(Domens::Map) + sizeof(std::shared_ptr<const char>));

// Collecting

// Returns domains A and B, which share the property Both and have one more each.
DomenStore TwoDomens() {
  DomenStore store;
  store.AddDomen(L"A", NewDomen(L"a", {L"Both", L"OnlyA"}));
  store.AddDomen(L"B", NewDomen(L"b", {L"Both", L"OnlyB"}));
  return store;
}

using Texts = std::vector<std::wstring>;

// Returns the names of the collected properties, which identify their domains.
Texts Collected(const DomenStore& store, const Texts& domenIds, const Texts& keys) {
  Texts names;
  for (const auto& [key, property] : store.CollectProperties(domenIds, keys)) {
    names.push_back(property.name);
  }
  return names;
}

TEST(CollectProperties, FindsAKeyThatOnlyALaterDomainHolds) {
  EXPECT_EQ(Collected(TwoDomens(), {L"A", L"B"}, {L"OnlyB"}), Texts{L"b.OnlyB"});
}

TEST(CollectProperties, PrefersTheFirstOfTheDomainsNamed) {
  EXPECT_EQ(Collected(TwoDomens(), {L"A", L"B"}, {L"Both"}), Texts{L"a.Both"});
  EXPECT_EQ(Collected(TwoDomens(), {L"B", L"A"}, {L"Both"}), Texts{L"b.Both"});
  EXPECT_EQ(Collected(TwoDomens(), {L"B", L"A", L"B"}, {L"OnlyB", L"OnlyA", L"Both"}),
            (Texts{L"b.Both", L"a.OnlyA", L"b.OnlyB"}));
}

TEST(CollectProperties, PassesOverDomainsAndKeysThatDoNotExist) {
  EXPECT_EQ(Collected(TwoDomens(), {L"X", L"", L"a", L"A"}, {L"No", L"", L"both", L"Both"}),
            Texts{L"a.Both"});
  EXPECT_EQ(Collected(TwoDomens(), {L"X"}, {L"Both"}), Texts{});
  EXPECT_EQ(Collected(TwoDomens(), {L"A"}, {L"OnlyB"}), Texts{});
  EXPECT_EQ(Collected(DomenStore(), {L"A"}, {L"Both"}), Texts{});
}

TEST(CollectProperties, ReturnsNothingForNoDomainOrNoKey) {
  EXPECT_EQ(Collected(TwoDomens(), {}, {L"Both"}), Texts{});
  EXPECT_EQ(Collected(TwoDomens(), {L"A"}, {}), Texts{});
}

TEST(CollectProperties, ReturnsAKeyThatIsNamedTwiceOnce) {
  EXPECT_EQ(Collected(TwoDomens(), {L"A", L"A"}, {L"Both", L"Both"}), Texts{L"a.Both"});
}

TEST(CollectProperties, ReturnsThePropertiesInTheOrderOfTheKeysUnits) {
  DomenStore store;
  store.AddDomen(L"A", NewDomen(L"a", {L"b", L"C", L"a", L"я"}));
  EXPECT_EQ(Collected(store, {L"A"}, {L"я", L"b", L"a", L"C"}),
            (Texts{L"a.C", L"a.a", L"a.b", L"a.я"}));
}

TEST(CollectProperties, LooksForTheKeyAndNotForTheId) {
  DomenStore store;
  store.AddDomen(L"Key", NewDomen(L"d", {L"K"}));  // the domain's id is D, the property's is P
  EXPECT_EQ(Collected(store, {L"D", L"Key"}, {L"P"}), Texts{});
  EXPECT_EQ(store.CollectProperties({L"Key"}, {L"K"}).at(L"K").id, L"P");
}

TEST(CollectProperties, ReturnsCopies) {
  DomenStore store = TwoDomens();
  EditDomen(store, L"A",
            [](Domen& domen) { domen.AddPropertyField(L"Both", L"F", L"", 0, false, L"5"); });
  DomenProperties collected = store.CollectProperties({L"A"}, {L"Both"});
  collected.at(L"Both").fields[0]->SetValue(L"6");
  EXPECT_EQ(store.domens.at(L"A").properties.at(L"Both").fields[0]->GetValue(), L"5");
}

TEST(CollectProperties, PassesTheValuesThroughTheirTextFormOnce) {
  DomenStore store = TwoDomens();
  EditDomen(store, L"A", [](Domen& domen) {
    domen.AddPropertyField(L"Both", L"F", L"", 2, false, L"x\" \" \"");
  });
  EXPECT_EQ(store.CollectProperties({L"A"}, {L"Both"}).at(L"Both").fields[0]->GetValue(), L"x\" ");
}

TEST(CollectProperties, CopesWithManyDomainsAndKeys) {
  DomenStore store;
  Texts ids;
  for (int i = 0; i < 300; ++i) {
    ids.push_back(std::to_wstring(i));
    store.AddDomen(ids.back(), NewDomen(ids.back(), {ids.back(), L"Both"}));
  }
  ids.push_back(L"Both");
  const Texts names = Collected(store, ids, ids);
  EXPECT_EQ(names.size(), 301u);
  EXPECT_EQ(names.back(), L"0.Both");
}

// Loading by extension

constexpr std::string_view domenText = "==DOMEN\n@@@ D\n@ P 0 1\n";

TEST(LoadDomen, ReadsAFileOfTheExtensionTxt) {
  const TempFolder folder;
  for (const char* name : {"domens.txt", "a.b.txt", "a.json.txt", "a b.txt", "..txt", "a..txt"}) {
    DomenStore store;
    EXPECT_EQ(store.LoadDomen(folder.Write(name, domenText), L""), 0) << name;
    EXPECT_EQ(Describe(store), L"domain D 'D'\n  property P 'P' 1 []\n") << name;
    EXPECT_EQ(store.activeDomenId, L"D") << name;
  }
}

TEST(LoadDomen, RefusesAnExistingFileOfAnyOtherExtension) {
  const TempFolder folder;
  DomenStore store;
  for (const char* name : {"domen", ".txt", "a.txt.bak", "a.text", "a.tx", "a.txtx", "a.cfg", "txt",
                           "atxt", "a.txt_", "a.json5"}) {
    EXPECT_EQ(store.LoadDomen(folder.Write(name, domenText), L""), -1) << name;
  }
  EXPECT_TRUE(store.domens.empty());
  EXPECT_EQ(store.activeDomenId, L"");
}

TEST(LoadDomen, RefusesCapitalLettersInTheExtension) {
  DomenStore store;
  for (const char* name : {"DOMEN.TXT", "domen.Txt", "domen.txT", "domen.JSON", "domen.Json"}) {
    const TempFolder folder;  // of its own, as some systems take these for one name
    EXPECT_EQ(store.LoadDomen(folder.Write(name, domenText), L""), -1) << name;
  }
  EXPECT_TRUE(store.domens.empty());
}

TEST(LoadDomen, LooksForTheExtensionInTheLastPartOfThePath) {
  DomenStore store;
  for (const wchar_t* path : {L"", L".", L"..", L"no", L"no.txt.", L"no.txt/", L"no.txt\\",
                              L"no.txt/no", L"no.txt\\no", L"no/.txt", L"no\\.txt", L"C:.txt",
                              L"no:stream.txt", L".txt:stream", L"no/..", L"no.cfg"}) {
    EXPECT_EQ(store.LoadDomen(path, L""), -1) << path;
  }
  // The reader of text files gets these paths, and there are no such files.
  for (const wchar_t* path : {L"no.txt", L"no.cfg/no.txt", L"no.cfg\\no.txt", L"no.txt:stream",
                              L"no/a.b.txt", L"no/..txt", L"no/домен.txt"}) {
    EXPECT_EQ(store.LoadDomen(path, L""), 2) << path;
  }
}

TEST(LoadDomen, IgnoresTheConfigurationForATextFile) {
  const TempFolder folder;
  const std::wstring path = folder.Write("domens.txt", domenText);
  DomenStore store;
  EXPECT_EQ(store.LoadDomen(path, L"{ no configuration"), 0);
  EXPECT_EQ(store.domens.size(), 1u);
}

// Loading a text file

// Loads a file of these bytes into an empty store and expects the status 0.
DomenStore Load(std::string_view bytes) {
  const TempFolder folder;
  DomenStore store;
  EXPECT_EQ(store.LoadDomenText(folder.Write("domens.txt", bytes)), 0);
  return store;
}

std::wstring Loaded(std::string_view bytes) {
  return Describe(Load(bytes));
}

TEST(LoadDomenText, ReadsAFileWithoutADomainSectionAndLeavesTheStoreUnchanged) {
  const TempFolder folder;
  DomenStore store;
  store.AddDomen(L"Old", Domen(L"Old", L"Old"));
  store.activeDomenId = L"Old";
  for (const std::string_view bytes :
       {""sv, "\n"sv, " \r\n\t\n"sv, "no heading\n@@@ A\n@ P 0 1"sv, "=\n@@@ A"sv,
        "==CLASS\n@@@ A (B)\n"sv, "==domen\n@@@ A\n"sv, "==Domen\n@@@ A"sv, "== DOMEN\n@@@ A"sv,
        "==DOME\n@@@ A"sv, "= =DOMEN\n@@@ A"sv, "/ ==DOMEN\n@@@ A"sv, "!==DOMEN\n@@@ A"sv,
        "===DOMEN\n@@@ A"sv, "==DOMEN"sv, "==DOMEN\n==DOMEN\n"sv, "==DOMEN @@@ A\n"sv}) {
    EXPECT_EQ(store.LoadDomenText(folder.Write("domens.txt", bytes)), 0) << bytes;
    EXPECT_EQ(Describe(store), L"domain Old 'Old'\n") << bytes;
    EXPECT_EQ(store.activeDomenId, L"Old") << bytes;
  }
}

TEST(LoadDomenText, Returns2ForWhatCannotBeOpenedAndLeavesTheStoreUnchanged) {
  const TempFolder folder;
  fs::create_directory(folder.Path() / "folder.txt");
  DomenStore store;
  store.activeDomenId = L"Old";
  EXPECT_EQ(store.LoadDomenText(folder.Wide() + L"/missing.txt"), 2);
  EXPECT_EQ(store.LoadDomenText(folder.Wide() + L"/missing/domens.txt"), 2);
  EXPECT_EQ(store.LoadDomenText(folder.Wide() + L"/folder.txt"), 2);
  EXPECT_EQ(store.LoadDomenText(L""), 2);
  EXPECT_EQ(store.LoadDomenText(std::wstring(1, static_cast<wchar_t>(0xD800)) + L".txt"), 2);
  EXPECT_EQ(store.LoadDomenText(std::wstring(100'000, L'x') + L".txt"), 2);
  EXPECT_TRUE(store.domens.empty());
  EXPECT_EQ(store.activeDomenId, L"Old");
}

TEST(LoadDomenText, ReadsAFileThatIsOpenElsewhere) {
  const TempFolder folder;
  const std::wstring path = folder.Write("domens.txt", domenText);
  const std::ifstream reader(folder.Path() / "domens.txt");
  ASSERT_TRUE(reader.is_open());
  DomenStore store;
  EXPECT_EQ(store.LoadDomenText(path), 0);
  EXPECT_EQ(store.domens.size(), 1u);
}

TEST(LoadDomenText, TakesEveryHeadingThatBeginsWithTheKeyword) {
  for (const std::string_view heading :
       {"==DOMEN"sv, "==DOMENS"sv, "==DOMEN building fabric"sv, "==DOMEN;"sv, "==DOMEN=="sv,
        "  \t==DOMEN"sv, "==DOMEN \t"sv, "==DOMEN\xD0\xAB"sv, "==DOMEN\0x"sv}) {
    EXPECT_EQ(Loaded(std::string(heading) + "\n@@@ A\n"), L"domain A 'A'\n") << heading;
  }
}

TEST(LoadDomenText, ReadsEachDomainSectionAndNoOther) {
  EXPECT_EQ(Loaded("@@@ Ahead\n"
                   "==CLASS\n"
                   "@@@ Title (A B)\n"
                   "==DOMEN\n"
                   "@@@ B\n"
                   "==PARAM\n"
                   "@@@ NeverRead\n"
                   "==DOMEN\n"
                   "==domen\n"
                   "@@@ NeverRead\n"
                   "==DOMENS\n"
                   "@@@ A\n"),
            L"domain A 'A'\n"
            L"domain B 'B'\n");
}

TEST(LoadDomenText, EndsASectionAtEveryLineThatBeginsWithTwoEqualsSigns) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@ P 0 1\n== int 0 5\nF int 0 5\n==DOMEN\n@@@ A\n@ Q 0 1\n"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"  property Q 'Q' 1 []\n");
}

TEST(LoadDomenText, TakesALineThatBeginsWithOneEqualsSignAsAValueLine) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@ P 0 1\n=F int 0 5\n= int 0 6\n"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"    int =F '=F' = 5\n"
            L"    int = '=' = 6\n");
}

TEST(LoadDomenText, BeginsEachSectionWithoutADomainWithoutObjectTypesAndWithoutAProperty) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@@ Door\n@ P 0 1\n"
                   "==DOMEN\n@ Q 0 2\nF int 0 5\n"
                   "==DOMEN\n@@@ A\nG int 0 6\n@ R 0 3\n"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 [Door]\n"
            L"  property R 'R' 3 []\n");
}

TEST(LoadDomenText, TrimsLinesAndPassesOverBlankOnes) {
  EXPECT_EQ(Loaded("\n \t ==DOMEN\t\r\n\r\n\n  @@@ A \v\f\r\n\xC2\xA0\n\t@ P 0 1 \xE3\x80\x80\n"
                   "\xE2\x80\x83"
                   "F int 0 5\r"),
            L"domain A 'A'\n"
            L"  property P 'P' 1 []\n"
            L"    int F 'F' = 5\n");
}

TEST(LoadDomenText, TakesACarriageReturnAsALineEndOnlyBeforeALineFeed) {
  EXPECT_EQ(Loaded("==DOMEN\r\n@@@ A\r\n@ P 0 1\r\n"), L"domain A 'A'\n  property P 'P' 1 []\n");
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\r@ P 0 1\n"), L"domain A\r@ 'A\r@'\n");
}

TEST(LoadDomenText, ReadsALastLineWithoutALineFeed) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@ P 0 1"), L"domain A 'A'\n  property P 'P' 1 []\n");
}

TEST(LoadDomenText, TakesAByteOrderMarkAsPartOfTheFirstLine) {
  EXPECT_EQ(Loaded("\xEF\xBB\xBF==DOMEN\n@@@ A\n==DOMEN\n@@@ B\n"), L"domain B 'B'\n");
  EXPECT_EQ(Loaded("\xEF\xBB\xBF\n==DOMEN\n@@@ A\n"), L"domain A 'A'\n");
}

TEST(LoadDomenText, DecodesUtf8) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ Двери\n@@ Дверь\n@ Класс 1 -5 Класс двери €\n"
                   "Предел str 0 \xF0\x9F\x9A\xAA Огнестойкость\n"),
            L"domain Двери 'Двери'\n"
            L"  property Класс 'Класс двери €' unique -5 [Дверь]\n"
            L"    str Предел 'Огнестойкость' = \U0001F6AA\n");
}

TEST(LoadDomenText, EndsAtBytesThatCannotBeDecodedAndReadsWhatIsBeforeThem) {
  for (const std::string_view bad : {"\xFF"sv, "\x80"sv, "\xC0\x80"sv, "\xE2\x82\n"sv,
                                     "\xED\xA0\x80"sv, "\xF4\x90\x80\x80"sv, "\xD0 "sv}) {
    const std::string tail = std::string(bad) + "tle\nF int 0 5\n==DOMEN\n@@@ NeverRead\n";
    EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@ P 0 1 Ti" + tail),
              L"domain A 'A'\n  property P 'Ti' 1 []\n");
  }
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\n@@@ B\xE2\x82"), L"domain A 'A'\ndomain B 'B'\n");
  EXPECT_EQ(Loaded("\xFF==DOMEN\n@@@ A\n"), L"");
  EXPECT_EQ(Loaded("==DOMEN\xFF\n@@@ A\n"), L"");
}

TEST(LoadDomenText, TakesANulLikeAnyOtherUnit) {
  EXPECT_EQ(Loaded("==DOMEN\n@@@ A\0B C\n@ P\0 0 1\nF int 0 5\n@ Q 0\0 1\n"sv),
            L"domain A\0B 'A\0B'\n  property P\0 'P\0' 1 []\n    int F 'F' = 5\n"s);
}

TEST(LoadDomenText, ExtendsTheDomainsOfEarlierFiles) {
  const TempFolder folder;
  DomenStore store;
  ASSERT_EQ(store.LoadDomenText(folder.Write("1.txt",
                                             "==DOMEN\n"
                                             "@@@ A first\n"
                                             "@@ Door\n"
                                             "@ P 1 10 First\n"
                                             "F int 0 5\n"
                                             "@ Q 0 1\n"
                                             "@@@ B\n")),
            0);
  EXPECT_EQ(store.activeDomenId, L"B");
  ASSERT_EQ(store.LoadDomenText(folder.Write("2.txt",
                                             "==DOMEN\n"
                                             "@@@ A second\n"
                                             "@@ Room\n"
                                             "@ P 0 20 Second\n"
                                             "F str 1 other Second\n"
                                             "G int 0 6\n"
                                             "@ R 0 2\n")),
            0);
  EXPECT_EQ(store.activeDomenId, L"A");
  EXPECT_EQ(Describe(store),
            L"domain A 'A'\n"
            L"  property P 'First' unique 10 [Door]\n"
            L"    int F 'F' = 5\n"
            L"    int G 'G' = 6\n"
            L"  property Q 'Q' 1 [Door]\n"
            L"  property R 'R' 2 [Room]\n"
            L"domain B 'B'\n");
}

TEST(LoadDomenText, KeepsTheNameOfADomainThatExists) {
  const TempFolder folder;
  DomenStore store;
  store.AddDomen(L"A", Domen(L"A", L"Name for the interface"));
  ASSERT_EQ(store.LoadDomenText(folder.Write("1.txt", "==DOMEN\n@@@ A\n@ P 0 1\n")), 0);
  EXPECT_EQ(Describe(store), L"domain A 'Name for the interface'\n  property P 'P' 1 []\n");
}

TEST(LoadDomenText, ReadsTheSameFileTwiceToTheSameEffect) {
  const TempFolder folder;
  const std::wstring path =
      folder.Write("1.txt", "==DOMEN\n@@@ A\n@ P 0 1\nF int 0 5\n@@@ B\n@ P 0 1\nF int 0 6\n");
  DomenStore store;
  ASSERT_EQ(store.LoadDomenText(path), 0);
  const std::wstring once = Describe(store);
  ASSERT_EQ(store.LoadDomenText(path), 0);
  EXPECT_EQ(Describe(store), once);
}

TEST(LoadDomenText, ReadsALineOfMegabytes) {
  const std::string word(5'000'000, 'x');
  const DomenStore store = Load("==DOMEN\n@@@ A\n@ P 0 1 " + word + "\n");
  EXPECT_TRUE(store.domens.at(L"A").properties.at(L"P").name == std::wstring(word.size(), L'x'));
}

TEST(LoadDomenText, ReadsAMillionLines) {
  std::string bytes = "==DOMEN\n@@@ A\n@ P 0 1\n";
  for (int i = 0; i < 1'000'000; ++i) bytes += "/\n";
  EXPECT_EQ(Loaded(bytes + "F int 0 5\n"),
            L"domain A 'A'\n  property P 'P' 1 []\n    int F 'F' = 5\n");
}

TEST(LoadDomenText, ReadsManySections) {
  std::string bytes;
  for (int i = 0; i < 20'000; ++i) bytes += "==DOMEN\n@@@ " + std::to_string(i) + "\n";
  const DomenStore store = Load(bytes);
  EXPECT_EQ(store.domens.size(), 20'000u);
  EXPECT_EQ(store.activeDomenId, L"19999");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
