#include "domen/PropertyType.h"

#include <gtest/gtest.h>

#include <string>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

TEST(ParsePropertyType, NumbersTheSixKeywordsFrom0) {
  EXPECT_EQ(ParsePropertyType(L"int"), 0);
  EXPECT_EQ(ParsePropertyType(L"real"), 1);
  EXPECT_EQ(ParsePropertyType(L"str"), 2);
  EXPECT_EQ(ParsePropertyType(L"ilist"), 3);
  EXPECT_EQ(ParsePropertyType(L"rlist"), 4);
  EXPECT_EQ(ParsePropertyType(L"slist"), 5);
}

TEST(ParsePropertyType, ReturnsMinus1ForAnyOtherText) {
  for (const wchar_t* text : {L"",       L" ",       L"Int",  L"INT",    L"Real", L"STR",
                              L"iList",  L"integer", L"list", L"string", L"in",   L"i",
                              L"r",      L"s",       L"il",   L"rl",     L"sl",   L" int",
                              L"int ",   L"int,",    L"int1", L"0",      L"2",    L"ints",
                              L"slists", L"intreal", L"іnt" /* its first letter is Cyrillic */}) {
    EXPECT_EQ(ParsePropertyType(text), -1) << text;
  }
  EXPECT_EQ(ParsePropertyType(L"int\0"s), -1);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
