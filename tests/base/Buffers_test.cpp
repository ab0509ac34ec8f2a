#include "base/Buffers.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "support/Results.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

TEST(NewString, HoldsTheTextAndANul) {
  EXPECT_EQ(Take(NewString(L"Стена \U0001F600")), L"Стена \U0001F600");
}

TEST(NewString, EndsAtTheFirstNulOfTheText) {
  EXPECT_EQ(Take(NewString(L"ab\0cd"s)), L"ab");
  EXPECT_EQ(Take(NewString(L"\0cd"s)), L"");
}

TEST(NewString, EndsWhereAViewEnds) {
  EXPECT_EQ(Take(NewString(std::wstring_view(L"abcd").substr(1, 2))), L"bc");
}

TEST(NewString, IsABufferWithANulForAnEmptyText) {
  const wchar_t* text = NewString({});
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(*text, L'\0');
  delete[] text;
}

TEST(NewString, IsANewBufferEachTime) {
  const std::wstring text = L"a";
  const wchar_t* first = NewString(text);
  const wchar_t* second = NewString(text);
  EXPECT_NE(first, second);
  EXPECT_NE(first, text.data());
  delete[] first;
  delete[] second;
}

TEST(NewString, HoldsFiveMillionUnits) {
  const std::wstring text(5'000'000, L'a');
  EXPECT_TRUE(Take(NewString(text)) == text);
}

// Returns what `NewJoined` makes of these pieces.
std::wstring Joined(const std::vector<std::wstring>& pieces) {
  return Take(NewJoined([&pieces](const auto& put) {
    for (const std::wstring& piece : pieces) put(piece);
  }));
}

TEST(NewJoined, HoldsAllPiecesOneAfterTheOther) {
  EXPECT_EQ(Joined({L"ab", L"", L"c", L"\U0001F600"}), L"abc\U0001F600");
  EXPECT_EQ(Joined({L"", L""}), L"");
  EXPECT_EQ(Joined({}), L"");
}

TEST(NewJoined, EndsAtTheFirstNulOfAnyPiece) {
  EXPECT_EQ(Joined({L"ab", L"c\0d"s, L"ef"}), L"abc");
  EXPECT_EQ(Joined({L"ab", L"\0"s, L"ef", L"g\0h"s}), L"ab");
  EXPECT_EQ(Joined({L"\0ab"s, L"c"}), L"");
  EXPECT_EQ(Joined({L"a", L"b\0"s}), L"ab");
}

// A row of a query's results.
struct Result {
  std::wstring name;
  int number;
  bool flag;
};

constexpr auto nameOf = [](const Result& result) -> std::wstring_view { return result.name; };
constexpr auto numberOf = [](const Result& result) { return result.number; };
constexpr auto flagOf = [](const Result& result) { return result.flag; };

TEST(HandOut, FillsAnArrayForEachColumnInTheOrderOfTheResults) {
  int count = -1;
  const wchar_t** names = nullptr;
  int* numbers = nullptr;
  bool* flags = nullptr;
  {
    const std::vector<Result> results = {{L"b", 2, true}, {L"", -1, false}, {L"a\0x"s, 0, true}};
    HandOut(results, count, Into(names, nameOf), Into(numbers, numberOf), Into(flags, flagOf));
  }
  ASSERT_EQ(count, 3);
  EXPECT_EQ(TakeAll(count, names), (std::vector<std::wstring>{L"b", L"", L"a"}));
  EXPECT_EQ(std::vector<int>(numbers, numbers + count), (std::vector<int>{2, -1, 0}));
  EXPECT_EQ(std::vector<bool>(flags, flags + count), (std::vector<bool>{true, false, true}));
  delete[] numbers;
  delete[] flags;
}

TEST(HandOut, LeavesTheOutputsUnchangedWhenThereAreNoResults) {
  int count = -1;
  const wchar_t* untouched = L"untouched";
  const wchar_t** names = &untouched;
  int* numbers = nullptr;
  HandOut(std::vector<Result>(), count, Into(names, nameOf), Into(numbers, numberOf));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(names, &untouched);
  EXPECT_EQ(numbers, nullptr);
}

TEST(HandOut, ReturnsABufferOfItsOwnForEachString) {
  const std::vector<Result> results = {{L"a", 0, false}};
  int count = 0;
  const wchar_t** names = nullptr;
  const wchar_t** again = nullptr;
  HandOut(results, count, Into(names, nameOf), Into(again, nameOf));
  EXPECT_NE(names[0], again[0]);
  EXPECT_NE(names[0], results[0].name.data());
  EXPECT_EQ(TakeAll(count, names), TakeAll(count, again));
}

TEST(HandOut, LeavesTheOutputsUnchangedWhenAColumnFails) {
  const std::vector<Result> results = {{L"a", 1, false}, {L"b", 2, false}};
  const auto fail = [](const Result& result) -> std::wstring_view {
    if (result.number == 2) throw std::bad_alloc();
    return result.name;
  };
  int count = 0;
  const wchar_t** names = nullptr;
  const wchar_t** failed = nullptr;
  EXPECT_THROW(HandOut(results, count, Into(names, nameOf), Into(failed, fail)), std::bad_alloc);
  EXPECT_EQ(names, nullptr);
  EXPECT_EQ(failed, nullptr);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
