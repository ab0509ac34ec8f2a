// Tests of the ownership of arrays and strings. With the address sanitizer, a leak or a double
// release ends them too.

#include "json/StringArrayParam.h"

#include <CfgParser.h>
#include <JSON5Section.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "json5/Json5Record.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

// An array owned by the caller.
using Array = std::unique_ptr<const wchar_t*[]>;

Texts TextsOf(const wchar_t* const* array, int count) {
  return {array, array + count};
}

// An open section with the array `as` of these elements.
struct FileWithArray {
  explicit FileWithArray(std::string_view elements)
      : path(folder.Write("a.json", "{S: {as: [" + std::string(elements) + "]}}")),
        parser(path.c_str(), L"", L"RU") {
    bool found = false;
    section.reset(parser.Section(L"S", found, true, true, L""));
  }

  TempFolder folder;
  std::wstring path;
  CfgParser parser;
  std::unique_ptr<JSON5Section> section;
};

TEST(MakeWideArray, CopiesEachTextInOrderIntoABufferOfItsOwn) {
  Texts texts = {L"b", L"", L"Стена", L"b"};
  const wchar_t** array = MakeWideArray(texts);
  EXPECT_NE(array[0], array[3]);
  texts[0] = L"x";
  EXPECT_EQ(TakeAll(4, array), (Texts{L"b", L"", L"Стена", L"b"}));
}

TEST(MakeWideArray, MakesNoArrayForNoTexts) {
  EXPECT_EQ(MakeWideArray({}), nullptr);
}

TEST(MakeWideArray, CopiesAHundredThousandTexts) {
  const Texts texts(100'000, L"Room");
  EXPECT_TRUE(TakeAll(100'000, MakeWideArray(texts)) == texts);
}

TEST(ReadStringArrayParam, ReturnsTheStringsOfTheFileInPlaceOfTheDefaults) {
  struct Case {
    const char* elements;
    Texts defaults;
    Texts result;
  };
  const Case cases[] = {
      {"'b', 'a'", {}, {L"b", L"a"}},
      {"'b', 'a'", {L"x"}, {L"b", L"a"}},
      {"'b'", {L"x", L"y", L"z"}, {L"b"}},
      {"'', 1, 'b'", {L"x"}, {L"", L"b"}},
      {"", {}, {}},
      {"", {L"x"}, {}},
      {"1, null", {L"x", L"y"}, {}},
  };
  for (const Case& one : cases) {
    FileWithArray file(one.elements);
    Texts values = one.defaults;
    EXPECT_TRUE(ReadStringArrayParam(*file.section, L"as", values, L"c")) << one.elements;
    EXPECT_EQ(values, one.result) << one.elements;
  }
}

TEST(ReadStringArrayParam, KeepsTheDefaultsIfTheFileHasNoArray) {
  for (const Texts& defaults : {Texts{}, Texts{L"x"}, Texts{L"x", L"", L"Дверь"}}) {
    FileWithArray file("'a'");
    Texts values = defaults;
    EXPECT_FALSE(ReadStringArrayParam(*file.section, L"missing", values, L"c"));
    EXPECT_EQ(values, defaults);
  }
}

TEST(ReadStringArrayParam, KeepsTheDefaultsOnOverrideWhateverTheFileHolds) {
  for (const Texts& defaults : {Texts{}, Texts{L"x"}, Texts{L"x", L"y"}}) {
    FileWithArray file("'a', 'b', 'c'");
    Texts values = defaults;
    ReadStringArrayParam(*file.section, L"as", values, L"c", true);
    EXPECT_EQ(values, defaults);
    ReadStringArrayParam(*file.section, L"missing", values, L"c", true);
    EXPECT_EQ(values, defaults);
  }
}

TEST(ReadStringArrayParam, OverridesOnlyIfToldTo) {
  FileWithArray file("'a'");
  Texts values = {L"x"};
  EXPECT_TRUE(ReadStringArrayParam(*file.section, L"as", values, L"c"));
  EXPECT_EQ(values, Texts{L"a"});
}

TEST(ReadStringArrayParam, ReturnsCopiesThatOutliveTheSection) {
  FileWithArray file("'a\\n', 'b'");
  Texts fromFile, fromDefaults = {L"x", L"y"};
  ReadStringArrayParam(*file.section, L"as", fromFile, L"c");
  ReadStringArrayParam(*file.section, L"missing", fromDefaults, L"c");
  file.section.reset();
  EXPECT_EQ(fromFile, (Texts{L"a\n", L"b"}));
  EXPECT_EQ(fromDefaults, (Texts{L"x", L"y"}));
}

TEST(ReadStringArrayParam, ReadsOneKeyOverAndOver) {
  FileWithArray file("'a', 'b'");
  for (int i = 0; i < 100; ++i) {
    Texts values = {L"x"};
    ReadStringArrayParam(*file.section, L"as", values, L"c", i % 2 == 0);
    EXPECT_EQ(values, i % 2 == 0 ? Texts{L"x"} : (Texts{L"a", L"b"}));
  }
}

TEST(ReadStringArrayParam, ReadsAHundredThousandStrings) {
  std::string elements;
  for (int i = 0; i < 100'000; ++i) elements += "'a',";
  FileWithArray file(elements);
  Texts values;
  EXPECT_TRUE(ReadStringArrayParam(*file.section, L"as", values, L"c"));
  EXPECT_TRUE(values == Texts(100'000, L"a"));
}

// The request itself. The tests release arrays as `ReadStringArrayParam` does.

TEST(ParamStringArray, ReturnsANewArrayBesidesTheDefaultsIfTheKeyIsFound) {
  FileWithArray file("'a', 'b'");
  const Array defaults(MakeWideArray({L"x"}));
  int count = 0;
  bool found = false;
  const Array result(
      file.section->ParamStringArray(L"as", count, defaults.get(), 1, found, L"c", false));
  EXPECT_TRUE(found);
  EXPECT_NE(result, defaults);
  EXPECT_EQ(TextsOf(result.get(), count), (Texts{L"a", L"b"}));
}

TEST(ParamStringArray, ReturnsNothingToReleaseForAnArrayWithoutStrings) {
  FileWithArray file("1");
  const Array defaults(MakeWideArray({L"x"}));
  int count = -1;
  bool found = false;
  const wchar_t** const result =
      file.section->ParamStringArray(L"as", count, defaults.get(), 1, found, L"c", false);
  EXPECT_TRUE(found);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(result, nullptr);
}

TEST(ParamStringArray, ReturnsTheDefaultsThemselvesIfTheKeyIsNotFound) {
  FileWithArray file("'a'");
  const Array defaults(MakeWideArray({L"x", L"y"}));
  int count = 0;
  bool found = true;
  const wchar_t** result =
      file.section->ParamStringArray(L"missing", count, defaults.get(), 2, found, L"c", false);
  EXPECT_FALSE(found);
  EXPECT_EQ(result, defaults.get());
  EXPECT_EQ(TextsOf(result, count), (Texts{L"x", L"y"}));
}

TEST(ParamStringArray, ReturnsTheDefaultsOnOverride) {
  FileWithArray file("'a'");
  const Array defaults(MakeWideArray({L"x", L"y"}));
  int count = 0;
  bool found = false;
  const wchar_t** result =
      file.section->ParamStringArray(L"as", count, defaults.get(), 2, found, L"c", true);
  EXPECT_EQ(result, defaults.get()) << "anything else would stay with the library";
  EXPECT_EQ(TextsOf(result, count), (Texts{L"x", L"y"}));
}

TEST(ParamStringArray, DoesNotLookAtDefaultsOfWhichThereAreNone) {
  FileWithArray file("");
  // An address that can't be read.
  const auto nowhere = reinterpret_cast<const wchar_t**>(std::uintptr_t{64});
  for (const wchar_t* key : {L"as", L"missing"}) {
    for (const bool overriding : {true, false}) {
      for (const wchar_t** defaults : {nowhere, static_cast<const wchar_t**>(nullptr)}) {
        int count = -1;
        bool found = false;
        file.section->ParamStringArray(key, count, defaults, 0, found, L"c", overriding);
        EXPECT_EQ(count, 0);
      }
    }
  }
}

TEST(ParamStringArray, KeepsItsStringsOverFurtherRequestsAndSections) {
  FileWithArray file("'a\\n', 'b'");
  const Array defaults(MakeWideArray({L"x", L"y"}));
  int count = 0, ignored = 0;
  bool found = false;
  const Array result(file.section->ParamStringArray(L"as", count, nullptr, 0, found, L"c", false));
  file.section->ParamStringArray(L"missing", ignored, defaults.get(), 2, found, L"c", false);
  for (int i = 0; i < 100; ++i) {
    for (const wchar_t* key : {L"as", L"missing"}) {
      const Array others(MakeWideArray({L"z"}));
      file.section->ParamStringArray(key, ignored, others.get(), 1, found, L"c", true);
    }
    delete file.parser.Section(L"S", found, true, true, L"");
  }
  EXPECT_EQ(TextsOf(result.get(), count), (Texts{L"a\n", L"b"}));
  EXPECT_EQ(TextsOf(defaults.get(), 2), (Texts{L"x", L"y"}));
}

TEST(Json5Record, TakesOverTheStringsOfAnArrayAndNotTheArray) {
  Json5Record record;
  const wchar_t* first = nullptr;
  {
    const Array array(MakeWideArray({L"a", L"b"}));
    first = array[0];
    record.Adopt(array.get(), 2);
  }
  for (int i = 0; i < 1000; ++i) {
    const Array array(MakeWideArray({L"c"}));
    record.Adopt(array.get(), 1);
  }
  record.Adopt(nullptr, 0);
  EXPECT_STREQ(first, L"a");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
