#include "domen/DomenProperties.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "domen/Domen.h"
#include "support/DescribeDomens.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

// Types

DomenProperty PropertyFor(const std::wstring& id, Texts objectTypes) {
  return DomenProperty(id, L"", std::move(objectTypes), false, 0);
}

Texts IdsOf(const std::vector<const DomenProperty*>& properties) {
  Texts ids;
  for (const DomenProperty* property : properties) ids.push_back(property->id);
  return ids;
}

IndexedProperties SomeProperties() {
  IndexedProperties properties;
  for (const auto& [id, types] : std::vector<std::pair<std::wstring, Texts>>{
           {L"c", {L"Door"}}, {L"a", {L"Room", L"Door"}}, {L"b", {}}, {L"d", {L"Room", L"Room"}}}) {
    properties.Edit([&](DomenProperties& map) { map.emplace(id, PropertyFor(id, types)); });
  }
  return properties;
}

TEST(IndexedProperties, AreReadAsAMapIs) {
  const IndexedProperties properties = SomeProperties();
  EXPECT_EQ(properties.size(), 4u);
  EXPECT_FALSE(properties.empty());
  EXPECT_TRUE(IndexedProperties().empty());
  EXPECT_EQ(properties.count(L"b"), 1u);
  EXPECT_EQ(properties.count(L"B"), 0u);
  EXPECT_EQ(properties.at(L"b").id, L"b");
  EXPECT_EQ(properties.find(L"d")->second.id, L"d");
  EXPECT_EQ(properties.find(L"D"), properties.end());
  EXPECT_EQ(properties.begin()->first, L"a");
}

TEST(IndexedProperties, ReturnThoseThatApplyToAllOfTheTypesInKeyOrder) {
  const IndexedProperties properties = SomeProperties();
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({})), (Texts{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door"})), (Texts{L"a", L"b", L"c"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Room"})), (Texts{L"a", L"b", L"d"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Room", L"Door"})), (Texts{L"a", L"b"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door", L"Door"})), (Texts{L"a", L"b", L"c"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door", L"Stair"})), Texts{L"b"});
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Stair", L"Door"})), Texts{L"b"});
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"door"})), Texts{L"b"});
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L""})), Texts{L"b"});
}

TEST(IndexedProperties, HaveNoWildcardType) {
  IndexedProperties properties;
  properties.Edit([](DomenProperties& map) { map.emplace(L"a", PropertyFor(L"a", {L"*"})); });
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"*"})), Texts{L"a"});
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door"})), Texts{});
}

TEST(IndexedProperties, ReturnWhatAnEditMadeOfThem) {
  IndexedProperties properties = SomeProperties();
  ASSERT_EQ(IdsOf(properties.ThatApplyTo({L"Door"})), (Texts{L"a", L"b", L"c"}));
  properties.Edit([](DomenProperties& map) { map.at(L"a").objectTypes = {L"Stair"}; });
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door"})), (Texts{L"b", L"c"}));
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Stair"})), (Texts{L"a", L"b"}));
  properties.Edit([](DomenProperties& map) { map.erase(L"c"); });
  EXPECT_EQ(IdsOf(properties.ThatApplyTo({L"Door"})), Texts{L"b"});
}

TEST(IndexedProperties, AnswerForThemselvesWhenCopiedMovedAndAssigned) {
  const auto source = std::make_unique<IndexedProperties>(SomeProperties());
  ASSERT_EQ(source->ThatApplyTo({}).size(), 4u);
  IndexedProperties copy(*source);
  EXPECT_EQ(copy.ThatApplyTo({L"Door"}).front(), &copy.at(L"a"));
  copy.Edit([](DomenProperties& map) { map.erase(L"a"); });
  EXPECT_EQ(source->ThatApplyTo({L"Door"}).front(), &source->at(L"a"));

  const IndexedProperties moved(std::move(*source));
  EXPECT_EQ(moved.ThatApplyTo({L"Door"}).front(), &moved.at(L"a"));
  EXPECT_EQ(IdsOf(source->ThatApplyTo({})), Texts{});
  *source = copy;
  EXPECT_EQ(IdsOf(source->ThatApplyTo({L"Door"})), (Texts{L"b", L"c"}));
  EXPECT_EQ(source->ThatApplyTo({}).front(), &source->at(L"b"));
}

TEST(IndexedProperties, ReturnWhatALinearScanReturns) {
  std::mt19937 engine(1);
  const auto someTypes = [&engine](std::size_t most) {
    Texts types(engine() % (most + 1));
    for (std::wstring& type : types)
      type = std::wstring(1, static_cast<wchar_t>(L'A' + engine() % 6));
    return types;
  };
  IndexedProperties properties;
  for (int i = 0; i < 300; ++i) {
    const std::wstring id = std::to_wstring(i);
    properties.Edit([&](DomenProperties& map) { map.emplace(id, PropertyFor(id, someTypes(5))); });
  }
  for (int i = 0; i < 300; ++i) {
    const Texts types = someTypes(4);
    Texts expected;
    for (const auto& [key, property] : properties) {
      bool applies = true;
      for (const std::wstring& type : types)
        applies = applies && property.AppliesToObjectType(type);
      if (applies) expected.push_back(key);
    }
    EXPECT_EQ(IdsOf(properties.ThatApplyTo(types)), expected);
  }
}

// Values

// Returns a property with a field of each type set to this text, and fields that no text can make.
DomenProperty PropertyWith(const std::wstring& text) {
  using namespace Properties;
  DomenProperty property = PropertyFor(L"P", {L"Door"});
  for (int valueType = 0; valueType < 6; ++valueType) {
    property.AddValueField(std::to_wstring(valueType), L"Title", valueType, true, text);
  }
  for (const wchar_t* name : {L"6", L"7"}) property.AddValueField(name, L"", 5, false, L"a b");
  dynamic_cast<PropertySListParameter&>(*property.fields[6]).value = {};
  dynamic_cast<PropertySListParameter&>(*property.fields[7]).value = {L"", text, L""};
  property.AddValueField(L"8", L"", 3, false, L"5");
  dynamic_cast<PropertyIListParameter&>(*property.fields[8]).value.clear();
  property.AddValueField(L"9", L"", 1, false, L"5");
  dynamic_cast<PropertyRealParameter&>(*property.fields[9]).value =
      std::numeric_limits<double>::infinity();
  property.AddValueField(L"10", L"", 4, false, L"5");
  dynamic_cast<PropertyRListParameter&>(*property.fields[10]).value = {
      1, std::numeric_limits<double>::infinity()};
  property.AddValueField(L"11", L"", 2, false, L"5");
  dynamic_cast<PropertyStrParameter&>(*property.fields[11]).value = text;
  return property;
}

const Texts valueTexts = {L"",       L" ",          L"5",       L"-0",          L"0.1",
                          L"5e-324", L"1e300",      L"1 2 3",   L"0.5 -2",      L"a",
                          L"a b",    L"\"a\"",      L"\"\"",    L"\"",          L"\"a b\" \"c\"",
                          L"a\" \"", L" \" \" a\"", L"a \" \"", L"\"\" a \"\"", L"\"\"\"a\"\"\" b",
                          L"a\"b",   L"\ta",        L"a\u00A0", L"\u3000",      L"\"\u3000\""};

TEST(CopiedValue, IsTheTextOfTheValueInACopy) {
  for (const std::wstring& text : valueTexts) {
    SCOPED_TRACE(text);
    const DomenProperty property = PropertyWith(text);
    for (std::size_t i = 0; i < property.fields.size(); ++i) {
      const DomenProperty ofProperty(property);
      EXPECT_EQ(CopiedValue(*property.fields[i]), ofProperty.fields[i]->GetValue()) << i;
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
