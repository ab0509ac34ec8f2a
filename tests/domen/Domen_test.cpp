#include "domen/Domen.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "domen/FieldAdder.h"
#include "support/DescribeDomens.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

DomenProperty NewProperty(const std::wstring& name) {
  return DomenProperty(L"P", name, {}, false, 0);
}

// Returns a domain of one property with one field.
Domen NewDomen() {
  Domen domen(L"D", L"Domain");
  domen.AddProperty(L"P", NewProperty(L"Title"));
  domen.AddPropertyField(L"P", L"F", L"Field", 0, false, L"5");
  return domen;
}

constexpr const wchar_t* newDomenProperties =
    L"  property P 'Title' 0 []\n"
    L"    int F 'Field' = 5\n";

TEST(Domen, IsBuiltWithoutProperties) {
  const Domen domen(L"D", L"Имя");
  EXPECT_EQ(domen.id, L"D");
  EXPECT_EQ(domen.name, L"Имя");
  EXPECT_TRUE(domen.properties.empty());
}

TEST(Domen, IsBlankWhereAMapMakesItForAKeyThatItLacks) {
  std::map<std::wstring, Domen> domens;
  const Domen& domen = domens[L"X"];
  EXPECT_EQ(domen.id, L"");
  EXPECT_EQ(domen.name, L"");
  EXPECT_TRUE(domen.properties.empty());
}

TEST(Domen, KeepsTheFirstPropertyUnderAKey) {
  Domen domen(L"D", L"D");
  domen.AddProperty(L"P", DomenProperty(L"P", L"First", {L"Door"}, true, 1));
  DomenProperty second(L"P", L"Second", {L"Room"}, false, 2);
  second.AddValueField(L"F", L"", 0, false, L"5");
  domen.AddProperty(L"P", second);
  EXPECT_EQ(Describe(domen.properties), L"  property P 'First' unique 1 [Door]\n");
}

TEST(Domen, TakesPropertiesUnderKeysThatDifferInCase) {
  Domen domen(L"D", L"D");
  domen.AddProperty(L"p", NewProperty(L"small"));
  domen.AddProperty(L"P", NewProperty(L"capital"));
  EXPECT_EQ(domen.properties.at(L"p").name, L"small");
  EXPECT_EQ(domen.properties.at(L"P").name, L"capital");
}

TEST(Domen, TakesAPropertyUnderAKeyOtherThanItsId) {
  Domen domen(L"D", L"D");
  domen.AddProperty(L"Key", NewProperty(L"Title"));
  EXPECT_EQ(Describe(domen.properties), L"  Key: property P 'Title' 0 []\n");
}

TEST(Domen, CopiesThePropertyIn) {
  Domen domen(L"D", L"D");
  DomenProperty property = NewProperty(L"Title");
  property.AddValueField(L"F", L"Field", 0, false, L"5");
  domen.AddProperty(L"P", property);
  property.name = L"other";
  property.fields[0]->SetValue(L"6");
  EXPECT_EQ(Describe(domen.properties), newDomenProperties);
}

TEST(Domen, PassesTheValuesOfAnAddedPropertyThroughTheirTextFormOnce) {
  Domen domen(L"D", L"D");
  DomenProperty property = NewProperty(L"Title");
  property.AddValueField(L"F", L"", 2, false, L"x\" \" \"");
  ASSERT_EQ(property.fields[0]->GetValue(), L"x\" \" ");
  domen.AddProperty(L"P", property);
  EXPECT_EQ(domen.properties.at(L"P").fields[0]->GetValue(), L"x\" ");
}

TEST(Domen, AddsAFieldToAPropertyThatItHolds) {
  Domen domen = NewDomen();
  domen.AddPropertyField(L"P", L"G", L"Second", 5, true, L"a b");
  EXPECT_EQ(Describe(domen.properties),
            newDomenProperties + L"    slist G 'Second' flagged = a b\n"s);
}

TEST(Domen, DoesNotPassTheValueOfANewFieldThroughItsTextFormAgain) {
  Domen domen = NewDomen();
  domen.AddPropertyField(L"P", L"G", L"", 2, false, L"x\" \"");
  EXPECT_EQ(domen.properties.at(L"P").fields[1]->GetValue(), L"x\" ");
}

TEST(Domen, DropsAFieldForAPropertyThatItDoesNotHold) {
  Domen domen = NewDomen();
  for (const wchar_t* key : {L"Q", L"p", L"", L"P ", L"Title"}) {
    domen.AddPropertyField(key, L"G", L"", 0, false, L"6");
  }
  EXPECT_EQ(Describe(domen.properties), newDomenProperties);
}

TEST(Domen, DropsAFieldThatThePropertyRefuses) {
  Domen domen = NewDomen();
  domen.AddPropertyField(L"P", L"F", L"Again", 2, true, L"x");
  domen.AddPropertyField(L"P", L"G", L"No type", 6, false, L"6");
  domen.AddPropertyField(L"P", L"H", L"No type", -1, false, L"6");
  EXPECT_EQ(Describe(domen.properties), newDomenProperties);
}

// The fields are made anew when the property is copied in.
TEST(Domen, KnowsTheNamesOfManyFieldsThatAPropertyBroughtWithIt) {
  DomenProperty property = NewProperty(L"Title");
  for (int i = 0; i < 40; ++i) {
    property.AddValueField(L"F" + std::to_wstring(i), L"", 2, false, L"\"\" x \"\"");
  }
  Domen domen(L"D", L"D");
  domen.AddProperty(L"P", std::move(property));
  FieldAdder adder;
  for (int i = 0; i < 40; ++i) {
    domen.AddPropertyField(L"P", L"F" + std::to_wstring(i), L"", 0, false, L"6");
    domen.AddPropertyField(L"P", L"F" + std::to_wstring(i), L"", 0, false, L"6", adder);
  }
  EXPECT_EQ(domen.properties.at(L"P").fields.size(), 40u);
}

TEST(Domen, IteratesOverItsPropertiesInTheOrderOfTheKeysUnits) {
  const std::vector<std::wstring> ascending = {
      L"",  L"\0"s, L"-", L"1",    L"10",    L"2",  L"A",      L"A B",    L"AA",
      L"C", L"Z",   L"a", L"a\0"s, L"a\0a"s, L"aB", L"aa",     L"b",      L"z",
      L"Ё", L"А",   L"Я", L"а",    L"я",     L"ё",  L"\x4E00", L"\xA000", L"\xFFFD"};
  Domen domen(L"D", L"D");
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    // In another order: 11 is coprime to the number of keys.
    domen.AddProperty(ascending[11 * i % ascending.size()], NewProperty(L""));
  }
  std::vector<std::wstring> walked;
  for (const auto& [key, property] : domen.properties) walked.push_back(key);
  EXPECT_EQ(walked, ascending);
}

TEST(Domen, SortsCapitalLettersBeforeSmallOnes) {
  Domen domen(L"D", L"D");
  for (const wchar_t* key : {L"b", L"C", L"а", L"a"}) domen.AddProperty(key, NewProperty(key));
  EXPECT_EQ(Describe(domen.properties),
            L"  C: property P 'C' 0 []\n"
            L"  a: property P 'a' 0 []\n"
            L"  b: property P 'b' 0 []\n"
            L"  а: property P 'а' 0 []\n");  // the last one is Cyrillic
}

TEST(Domen, NeverSortsBySortIndex) {
  Domen domen(L"D", L"D");
  domen.AddProperty(L"B", DomenProperty(L"B", L"", {}, false, -1));
  domen.AddProperty(L"A", DomenProperty(L"A", L"", {}, false, 2));
  EXPECT_EQ(domen.properties.begin()->first, L"A");
}

TEST(Domen, SharesNothingWithItsCopy) {
  Domen source = NewDomen();
  Domen copy = source;
  EXPECT_EQ(copy.id, L"D");
  EXPECT_EQ(copy.name, L"Domain");
  EXPECT_EQ(Describe(copy.properties), newDomenProperties);
  copy.properties.at(L"P").fields[0]->SetValue(L"6");
  copy.AddProperty(L"Q", NewProperty(L"New"));
  EXPECT_EQ(Describe(source.properties), newDomenProperties);
  Domen assigned(L"E", L"E");
  assigned.AddProperty(L"Old", NewProperty(L"Old"));
  assigned = source;
  source.properties.Edit([](DomenProperties& map) { map.clear(); });
  EXPECT_EQ(assigned.id, L"D");
  EXPECT_EQ(Describe(assigned.properties), newDomenProperties);
}

TEST(Domen, PassesItsValuesThroughTheirTextFormOnceForEachCopy) {
  Domen domen = NewDomen();
  domen.AddPropertyField(L"P", L"G", L"", 2, false, L"x\" \" \"");
  const Domen copy = domen;
  EXPECT_EQ(copy.properties.at(L"P").fields[1]->GetValue(), L"x\" ");
  EXPECT_EQ(Domen(copy).properties.at(L"P").fields[1]->GetValue(), L"x");
}

TEST(Domen, IsEmptyOnceItHasBeenMovedFrom) {
  // Names that fit into a string's internal buffer, and names that don't.
  for (const wchar_t* name : {L"D", L"a domain with a name of some length"}) {
    Domen source = NewDomen();
    source.id = source.name = name;
    Domen moved = std::move(source);
    EXPECT_EQ(source.id, L"");
    EXPECT_EQ(source.name, L"");
    EXPECT_TRUE(source.properties.empty());
    EXPECT_EQ(moved.name, name);
    EXPECT_EQ(Describe(moved.properties), newDomenProperties);

    Domen assigned(L"another domain with a name of some length", L"E");
    assigned.AddProperty(L"Old", NewProperty(L"Old"));
    assigned = std::move(moved);
    EXPECT_EQ(moved.id, L"");
    EXPECT_EQ(moved.name, L"");
    EXPECT_TRUE(moved.properties.empty());
    EXPECT_EQ(assigned.name, name);
    EXPECT_EQ(Describe(assigned.properties), newDomenProperties);
  }
}

TEST(Domen, CanBeFilledAgainOnceItHasBeenMovedFrom) {
  Domen source = NewDomen();
  const Domen moved = std::move(source);
  source.AddProperty(L"Q", NewProperty(L"New"));
  EXPECT_EQ(Describe(source.properties), L"  Q: property P 'New' 0 []\n");
}

// Moving it can allocate if and only if moving its map can. Move assignment never does.
static_assert(std::is_nothrow_move_constructible_v<Domen> ==
              std::is_nothrow_move_constructible_v<DomenProperties>);
static_assert(std::is_nothrow_move_assignable_v<Domen>);

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
