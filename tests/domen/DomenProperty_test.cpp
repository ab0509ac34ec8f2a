#include "domen/DomenProperty.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/DescribeDomens.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Properties::PropertyIntParameter;
using Properties::PropertyRealParameter;
using Properties::PropertySListParameter;
using Properties::PropertyStrParameter;

DomenProperty PropertyFor(std::vector<std::wstring> objectTypes) {
  return DomenProperty(L"P", L"Title", std::move(objectTypes), false, 0);
}

DomenProperty NewProperty() {
  return PropertyFor({});
}

// Returns the stored value of the first field.
std::wstring& StoredString(const DomenProperty& property) {
  return dynamic_cast<PropertyStrParameter&>(*property.fields.at(0)).value;
}

std::vector<std::wstring>& StoredStrings(const DomenProperty& property) {
  return dynamic_cast<PropertySListParameter&>(*property.fields.at(0)).value;
}

TEST(DomenProperty, IsBuiltFromItsPartsWithoutFields) {
  const DomenProperty property(L"Rating", L"Element rating class", {L"Room", L"Door", L"Room"},
                               true, -10);
  EXPECT_EQ(property.id, L"Rating");
  EXPECT_EQ(property.name, L"Element rating class");
  EXPECT_EQ(property.objectTypes, (std::vector<std::wstring>{L"Room", L"Door", L"Room"}));
  EXPECT_TRUE(property.unique);
  EXPECT_EQ(property.sortIndex, -10);
  EXPECT_TRUE(property.fields.empty());
  EXPECT_FALSE(DomenProperty(L"", L"", {}, false, INT_MIN).unique);
}

TEST(DomenProperty, IsBlankIfItIsBuiltFromNothing) {
  EXPECT_EQ(Describe(DomenProperty()), L"property  '' -1 []\n");
}

TEST(DomenProperty, AppliesToEveryObjectTypeIfItNamesNone) {
  const DomenProperty property = PropertyFor({});
  EXPECT_TRUE(property.AppliesToObjectType(L"Door"));
  EXPECT_TRUE(property.AppliesToObjectType(L"Комната"));
  EXPECT_TRUE(property.AppliesToObjectType(L""));
}

TEST(DomenProperty, AppliesToTheObjectTypesThatItNamesUnitByUnit) {
  const DomenProperty property = PropertyFor({L"Door", L"Комната"});
  EXPECT_TRUE(property.AppliesToObjectType(L"Door"));
  EXPECT_TRUE(property.AppliesToObjectType(L"Комната"));
  for (const wchar_t* other :
       {L"", L"door", L"DOOR", L"Doo", L"Doors", L" Door", L"Door ", L"комната", L"Room"}) {
    EXPECT_FALSE(property.AppliesToObjectType(other)) << other;
  }
}

TEST(DomenProperty, HasNoWildcardObjectType) {
  const DomenProperty property = PropertyFor({L"*", L"All"});
  EXPECT_TRUE(property.AppliesToObjectType(L"*"));
  EXPECT_TRUE(property.AppliesToObjectType(L"All"));
  EXPECT_FALSE(property.AppliesToObjectType(L"Door"));
  EXPECT_FALSE(property.AppliesToObjectType(L""));
}

TEST(DomenProperty, AppliesToTheEmptyObjectTypeIfItNamesThat) {
  EXPECT_TRUE(PropertyFor({L"Door", L""}).AppliesToObjectType(L""));
  EXPECT_FALSE(PropertyFor({L""}).AppliesToObjectType(L"Door"));
}

TEST(AddValueField, AppendsAFieldOfEachType) {
  DomenProperty property = NewProperty();
  EXPECT_EQ(property.AddValueField(L"f", L"First", 5, true, L"a b"), 0);
  EXPECT_EQ(property.AddValueField(L"e", L"Second", 4, false, L"0.9 1"), 0);
  EXPECT_EQ(property.AddValueField(L"d", L"Third", 3, false, L"1 2"), 0);
  EXPECT_EQ(property.AddValueField(L"c", L"Fourth", 2, true, L"K30"), 0);
  EXPECT_EQ(property.AddValueField(L"b", L"Fifth", 1, false, L"2.50"), 0);
  EXPECT_EQ(property.AddValueField(L"a", L"", 0, true, L" 007 "), 0);
  EXPECT_EQ(Describe(property),
            L"property P 'Title' 0 []\n"
            L"    slist f 'First' flagged = a b\n"
            L"    rlist e 'Second' = 0.9 1\n"
            L"    ilist d 'Third' = 1 2\n"
            L"    str c 'Fourth' flagged = K30\n"
            L"    real b 'Fifth' = 2.5\n"
            L"    int a '' flagged = 7\n");
}

TEST(AddValueField, MakesTheClassOfTheType) {
  DomenProperty property = NewProperty();
  for (int valueType = 0; valueType < 6; ++valueType) {
    ASSERT_EQ(property.AddValueField(std::to_wstring(valueType), L"", valueType, false, L"1"), 0);
  }
  const auto& fields = property.fields;
  EXPECT_TRUE(dynamic_cast<PropertyIntParameter*>(fields[0].get()));
  EXPECT_TRUE(dynamic_cast<PropertyRealParameter*>(fields[1].get()));
  EXPECT_TRUE(dynamic_cast<PropertyStrParameter*>(fields[2].get()));
  EXPECT_TRUE(dynamic_cast<Properties::PropertyIListParameter*>(fields[3].get()));
  EXPECT_TRUE(dynamic_cast<Properties::PropertyRListParameter*>(fields[4].get()));
  EXPECT_TRUE(dynamic_cast<PropertySListParameter*>(fields[5].get()));
}

TEST(AddValueField, RefusesANameThatIsTakenAndKeepsTheFirstField) {
  DomenProperty property = NewProperty();
  ASSERT_EQ(property.AddValueField(L"F", L"First", 0, false, L"5"), 0);
  EXPECT_EQ(property.AddValueField(L"F", L"Second", 2, true, L"other"), -1);
  EXPECT_EQ(property.AddValueField(L"F", L"First", 0, false, L"6"), -1);
  EXPECT_EQ(Describe(property),
            L"property P 'Title' 0 []\n"
            L"    int F 'First' = 5\n");
}

TEST(AddValueField, TakesNamesThatDifferInAnyUnit) {
  DomenProperty property = NewProperty();
  for (const wchar_t* name : {L"F", L"f", L"F ", L"", L"Ф", L"FF"}) {
    EXPECT_EQ(property.AddValueField(name, L"", 0, false, L"5"), 0) << name;
  }
  EXPECT_EQ(property.AddValueField(L"", L"", 0, false, L"5"), -1);
  EXPECT_EQ(property.fields.size(), 6u);
}

TEST(AddValueField, KnowsTheNamesOfManyFields) {
  constexpr int many = 100;
  DomenProperty property = NewProperty();
  const auto add = [&property](int number) {
    return property.AddValueField(L"F" + std::to_wstring(number), L"", 0, false, L"1");
  };
  for (int i = 0; i < many; ++i) {
    EXPECT_EQ(add(i), 0);
    EXPECT_EQ(add(i / 2), -1);
  }
  property = DomenProperty(property);
  EXPECT_EQ(add(0), -1);
  EXPECT_EQ(add(many - 1), -1);
  EXPECT_EQ(add(many), 0);
  const DomenProperty moved = std::move(property);
  EXPECT_EQ(moved.fields.size(), std::size_t{many} + 1);
}

// Returns a property with `count` fields, named by their numbers.
DomenProperty NumberedFields(int count, const std::wstring& text = L"1") {
  DomenProperty property = NewProperty();
  for (int i = 0; i < count; ++i) property.AddValueField(std::to_wstring(i), L"", 2, false, text);
  return property;
}

TEST(AddValueField, ComparesTheNamesThatTheFieldsHaveNow) {
  for (const int count : {2, 40, 100}) {
    SCOPED_TRACE(count);
    DomenProperty property = NumberedFields(count);
    ASSERT_EQ(property.AddValueField(L"1", L"", 0, false, L"1"), -1);
    property.fields[1]->name = L"a name of its own that is of some length";
    EXPECT_EQ(
        property.AddValueField(L"a name of its own that is of some length", L"", 0, false, L""),
        -1);
    EXPECT_EQ(property.AddValueField(L"1", L"", 0, false, L"1"), 0);
    EXPECT_EQ(property.AddValueField(L"1", L"", 0, false, L"1"), -1);
  }
}

TEST(AddValueField, TakesTheNameOfAFieldThatIsGone) {
  for (const int count : {2, 40, 100}) {
    SCOPED_TRACE(count);
    DomenProperty property = NumberedFields(count);
    ASSERT_EQ(property.AddValueField(L"0", L"", 0, false, L"1"), -1);
    property.fields.erase(property.fields.begin());
    EXPECT_EQ(property.AddValueField(L"0", L"", 0, false, L"1"), 0);
    EXPECT_EQ(property.AddValueField(L"0", L"", 0, false, L"1"), -1);
    property.fields.clear();
    EXPECT_EQ(property.AddValueField(L"0", L"", 0, false, L"1"), 0);
  }
}

// Names of another property's fields don't count, even if the fields are at the same addresses.
TEST(AddValueField, ForgetsTheNamesOfFieldsThatWereAssignedOver) {
  DomenProperty property = NewProperty();
  for (int i = 0; i < 100; ++i) property.AddValueField(std::to_wstring(i), L"", 0, false, L"1");
  property = NewProperty();
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(property.AddValueField(std::to_wstring(i), L"", 0, false, L"1"), 0);
  }
}

TEST(AddValueField, RefusesANumberThatIsNoType) {
  DomenProperty property = NewProperty();
  for (const int valueType : {6, -1, 7, 100, INT_MAX, INT_MIN}) {
    EXPECT_EQ(property.AddValueField(L"F", L"", valueType, false, L"5"), -2) << valueType;
  }
  EXPECT_TRUE(property.fields.empty());
}

TEST(AddValueField, LooksAtTheNameBeforeTheType) {
  DomenProperty property = NewProperty();
  ASSERT_EQ(property.AddValueField(L"F", L"", 0, false, L"5"), 0);
  EXPECT_EQ(property.AddValueField(L"F", L"", 6, false, L"5"), -1);
}

TEST(AddValueField, LeavesTheInitialValueIfTheDefaultIsRefused) {
  DomenProperty property = NewProperty();
  EXPECT_EQ(property.AddValueField(L"a", L"", 0, false, L"word"), 0);
  EXPECT_EQ(property.AddValueField(L"b", L"", 1, false, L"1,5"), 0);
  EXPECT_EQ(property.AddValueField(L"c", L"", 2, false, L"  "), 0);
  EXPECT_EQ(property.AddValueField(L"d", L"", 3, false, L"1 2 x"), 0);
  EXPECT_EQ(property.AddValueField(L"e", L"", 4, false, L""), 0);
  EXPECT_EQ(property.AddValueField(L"f", L"", 5, false, L""), 0);
  EXPECT_EQ(Describe(property),
            L"property P 'Title' 0 []\n"
            L"    int a '' = 1\n"
            L"    real b '' = 1\n"
            L"    str c '' = \n"
            L"    ilist d '' = 1\n"
            L"    rlist e '' = 1\n"
            L"    slist f '' = \n");
}

// Returns a property that differs from a new one in every member.
DomenProperty FullProperty() {
  DomenProperty property(L"Rating", L"Класс", {L"Room", L"Door"}, true, -10);
  property.AddValueField(L"Minutes", L"Time", 0, true, L"-30");
  property.AddValueField(L"Width", L"", 1, false, L"0.1");
  property.AddValueField(L"Class", L"Класс", 2, true, L"two words");
  property.AddValueField(L"Counts", L"c", 3, false, L"3 -4");
  property.AddValueField(L"Sizes", L"s", 4, true, L"1e-5 1e5");
  property.AddValueField(L"Names", L"n", 5, false, L"main \"side\"");
  return property;
}

TEST(DomenProperty, IsCopiedWithAllItsMembersAndFields) {
  const DomenProperty source = FullProperty();
  const std::wstring described = Describe(source);
  const DomenProperty copy = source;
  EXPECT_EQ(Describe(copy), described);
  EXPECT_EQ(Describe(source), described);
}

TEST(DomenProperty, IsCopiedWithoutAFieldWhoseNameAnEarlierOneHas) {
  for (const int count : {3, 40, 100}) {
    SCOPED_TRACE(count);
    DomenProperty source = NumberedFields(count);
    source.fields[1]->name = L"0";
    source.fields[1]->title = L"Second";
    const DomenProperty copy = source;
    ASSERT_EQ(copy.fields.size(), static_cast<std::size_t>(count) - 1);
    EXPECT_EQ(copy.fields[0]->title, L"");
    EXPECT_EQ(copy.fields[1]->name, L"2");
    EXPECT_EQ(source.fields.size(), static_cast<std::size_t>(count));
  }
}

TEST(DomenProperty, IsCopiedWithoutAFieldWhoseNumberIsNoType) {
  DomenProperty source = NumberedFields(3);
  source.fields[1]->valueType = 6;
  const DomenProperty copy = source;
  ASSERT_EQ(copy.fields.size(), 2u);
  EXPECT_EQ(copy.fields[1]->name, L"2");
}

TEST(DomenProperty, SharesNoFieldWithItsCopy) {
  DomenProperty source = FullProperty();
  const std::wstring described = Describe(source);
  DomenProperty copy = source;
  for (const auto& field : copy.fields) field->SetValue(L"42");
  copy.AddValueField(L"New", L"", 0, false, L"5");
  copy.objectTypes.clear();
  EXPECT_EQ(Describe(source), described);
  const std::wstring describedCopy = Describe(copy);
  source.fields.clear();
  EXPECT_EQ(Describe(copy), describedCopy);
}

TEST(DomenProperty, IsAssignedWithAllItsMembersAndFields) {
  const DomenProperty source = FullProperty();
  DomenProperty target = NewProperty();
  target.AddValueField(L"Old", L"", 0, false, L"5");
  target = source;
  EXPECT_EQ(Describe(target), Describe(source));
  target.fields[0]->SetValue(L"42");
  EXPECT_EQ(source.fields[0]->GetValue(), L"-30");
}

TEST(DomenProperty, IsUnchangedWhenAssignedToItself) {
  DomenProperty property = FullProperty();
  const std::wstring described = Describe(property);
  const DomenProperty& itself = property;
  property = itself;
  EXPECT_EQ(Describe(property), described);
}

TEST(DomenProperty, MovesWithTheFieldsThatItHas) {
  DomenProperty source = FullProperty();
  const std::wstring described = Describe(source);
  const auto* field = source.fields[0].get();
  DomenProperty moved = std::move(source);
  EXPECT_EQ(moved.fields[0].get(), field);
  EXPECT_EQ(Describe(moved), described);
  DomenProperty assigned = NewProperty();
  assigned = std::move(moved);
  EXPECT_EQ(assigned.fields[0].get(), field);
  EXPECT_EQ(Describe(assigned), described);
}

static_assert(std::is_nothrow_move_constructible_v<DomenProperty>);
static_assert(std::is_nothrow_move_assignable_v<DomenProperty>);

TEST(DomenProperty, LosesTheBlankInsideAClosingQuotationMarkWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 2, false, L"\"word \"");
  EXPECT_EQ(StoredString(property), L"word ");
  EXPECT_EQ(StoredString(DomenProperty(property)), L"word");
}

TEST(DomenProperty, PassesAStringThroughItsTextFormOnceForEachCopy) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 2, false, L"x\" \" \" \"");
  EXPECT_EQ(StoredString(property), L"x\" \" \" ");
  const DomenProperty copy = property;
  EXPECT_EQ(StoredString(copy), L"x\" \" ");
  const DomenProperty copyOfTheCopy = copy;
  EXPECT_EQ(StoredString(copyOfTheCopy), L"x\" ");
  DomenProperty assigned = NewProperty();
  assigned = copyOfTheCopy;
  EXPECT_EQ(StoredString(assigned), L"x");
  EXPECT_EQ(StoredString(property), L"x\" \" \" ");
}

TEST(DomenProperty, LosesAStringOfBlanksWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 2, false, L"\"  \"");
  EXPECT_EQ(StoredString(property), L"  ");
  EXPECT_EQ(StoredString(DomenProperty(property)), L"");
}

TEST(DomenProperty, KeepsTheEmptyStringWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 2, false, L"\"\"");
  EXPECT_EQ(StoredString(DomenProperty(property)), L"");
}

TEST(DomenProperty, KeepsAListOfOneEmptyEntryWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 5, false, L"");
  const DomenProperty copy = property;
  EXPECT_EQ(StoredStrings(copy), std::vector<std::wstring>{L""});
  EXPECT_EQ(StoredStrings(DomenProperty(copy)), std::vector<std::wstring>{L""});
}

TEST(DomenProperty, LosesTheOtherEmptyEntriesOfAListWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 5, false, L"a \"\" b \"\"");
  EXPECT_EQ(StoredStrings(property).size(), 4u);
  EXPECT_EQ(StoredStrings(DomenProperty(property)), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST(DomenProperty, RemovesQuotationMarksFromAListOfStringsWhenItIsCopiedAndFromTheSourceToo) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 5, false, L"\"one two\"");
  EXPECT_EQ(StoredStrings(property), (std::vector<std::wstring>{L"\"one", L"two\""}));
  const DomenProperty copy = property;
  EXPECT_EQ(StoredStrings(copy), (std::vector<std::wstring>{L"one", L"two"}));
  EXPECT_EQ(StoredStrings(property), (std::vector<std::wstring>{L"one", L"two"}));
}

TEST(DomenProperty, KeepsEveryDigitOfARealWhenItIsCopied) {
  DomenProperty property = NewProperty();
  property.AddValueField(L"F", L"", 1, false, L"0.30000000000000004");
  const DomenProperty copy = property;
  EXPECT_EQ(dynamic_cast<PropertyRealParameter&>(*copy.fields.at(0)).value, 0.1 + 0.2);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
