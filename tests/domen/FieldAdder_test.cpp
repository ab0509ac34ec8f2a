#include "domen/FieldAdder.h"

#include <gtest/gtest.h>

#include <string>

#include "support/DescribeDomens.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

std::wstring Name(int number) {
  return L"a field with the number " + std::to_wstring(number);
}

TEST(FieldAdder, AddsAsAddValueFieldDoes) {
  FieldAdder adder;
  DomenProperty property;
  DomenProperty plain;
  for (int i = 0; i < 200; ++i) {
    // Each name occurs twice, far apart, with types from -1 to 6.
    const std::wstring name = Name(i % 100 < 70 ? i % 100 : i);
    const int valueType = i % 8 - 1;
    ASSERT_EQ(adder.Add(property, name, L"Title", valueType, i % 2 == 0, L"5"),
              plain.AddValueField(name, L"Title", valueType, i % 2 == 0, L"5"))
        << i;
  }
  EXPECT_EQ(Describe(property), Describe(plain));
  EXPECT_GT(property.fields.size(), 64u);
}

TEST(FieldAdder, KnowsFieldsThatItHasNotAddedItself) {
  FieldAdder adder;
  DomenProperty property;
  for (int i = 0; i < 120; i += 3) {
    ASSERT_EQ(property.AddValueField(Name(i), L"", 0, false, L"1"), 0);
    ASSERT_EQ(adder.Add(property, Name(i + 1), L"", 0, false, L"1"), 0);
    ASSERT_EQ(property.AddValueField(Name(i + 2), L"", 0, false, L"1"), 0);
    EXPECT_EQ(adder.Add(property, Name(i), L"", 0, false, L"1"), -1) << i;
    EXPECT_EQ(adder.Add(property, Name(i + 2), L"", 0, false, L"1"), -1) << i;
    EXPECT_EQ(property.AddValueField(Name(i + 1), L"", 0, false, L"1"), -1) << i;
  }
  EXPECT_EQ(property.fields.size(), 120u);
}

TEST(FieldAdder, KeepsPropertiesApart) {
  FieldAdder adder;
  DomenProperty properties[2];
  for (int i = 0; i < 100; ++i) {
    for (DomenProperty& property : properties) {
      EXPECT_EQ(adder.Add(property, Name(i), L"", 0, false, L"1"), 0) << i;
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
