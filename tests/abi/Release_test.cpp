// Tests of releasing results for a caller with another C++ runtime. The sanitizers check that each
// buffer is released once and by the right form of `delete`.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "RevitMappingEditorRelease.h"
#include "support/LoadedScheme.h"

namespace {

using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

constexpr const char* scheme =
    "==DOMEN\n"
    "@@@ Doors\n"
    "@ Rating 1 10 Element rating class\n"
    "Class str 1 K30 Rating class\n"
    "Sizes ilist 0 7 Sizes of both\n"
    "@@@ Empty\n";

std::wstring Released(const wchar_t* text) {
  const std::wstring taken = text;
  RevitMappingEditorRelease(text);
  return taken;
}

std::vector<std::wstring> AllReleased(int count, const wchar_t** texts) {
  std::vector<std::wstring> taken;
  for (int i = 0; i < count; ++i) taken.push_back(Released(texts[i]));
  RevitMappingEditorRelease(texts);
  return taken;
}

template <class Element>
std::vector<Element> ArrayReleased(int count, const Element* array) {
  const std::vector<Element> taken(array, array + count);
  RevitMappingEditorRelease(array);
  return taken;
}

using Texts = std::vector<std::wstring>;

TEST(Release, TakesStrings) {
  LoadedScheme loaded(scheme);
  loaded.editor.SetStartMark(L"AB");
  EXPECT_EQ(Released(loaded.editor.GetStartMark()), L" AB");
  EXPECT_EQ(Released(loaded.editor.GetDefaultClaccificatorCode()), L"");
}

TEST(Release, TakesArraysOfEveryKind) {
  LoadedScheme loaded(scheme);
  int count = 0;
  const wchar_t** names = nullptr;
  const wchar_t** titles = nullptr;
  int* types = nullptr;
  bool* flags = nullptr;
  const wchar_t** values = nullptr;
  loaded.editor.GetDomenPropertyFieldsValues(L"Doors", L"Rating", count, names, titles, types,
                                             flags, values);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(AllReleased(count, names), Texts({L"Class", L"Sizes"}));
  EXPECT_EQ(AllReleased(count, titles), Texts({L"Rating class", L"Sizes of both"}));
  EXPECT_EQ(ArrayReleased(count, types), std::vector({2, 3}));
  EXPECT_EQ(ArrayReleased(count, flags), std::vector({true, false}));
  EXPECT_EQ(AllReleased(count, values), Texts({L"K30", L"7"}));
}

TEST(Release, TakesArraysThatAreResults) {
  LoadedScheme loaded(scheme);
  int count = 0;
  const wchar_t** ids = loaded.editor.GetDomensIds(count);
  EXPECT_EQ(AllReleased(count, ids), Texts({L"Doors", L"Empty"}));
}

TEST(Release, TakesNullAndSoWhatACountOf0Leaves) {
  RevitMappingEditorRelease(nullptr);
  LoadedScheme loaded(scheme);
  int count = -1;
  const wchar_t** ids = nullptr;
  int* sortIndexes = nullptr;
  loaded.editor.GetPropertiesSortIndex(L"Empty", count, ids, sortIndexes);
  EXPECT_EQ(AllReleased(count, ids), Texts());
  EXPECT_EQ(ArrayReleased(count, sortIndexes), std::vector<int>());
}

TEST(Release, NeedsNoEditorAndNotItsThread) {
  std::optional<RevitMappingEditorDll> editor(std::in_place, L"", L"");
  const wchar_t* mark = editor->GetEndMark();
  editor.reset();
  std::thread other([mark] { EXPECT_EQ(Released(mark), L" "); });
  other.join();
}

}  // namespace
