#include "mapping/RememberedItems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

CodeItems ItemsOf(std::size_t units) {
  CodeItems items;
  items.text = std::wstring(units, L'x');
  return items;
}

TEST(RememberedItems, FindTheItemsOfTheCodesThatTheyKept) {
  RememberedItems remembered;
  EXPECT_EQ(remembered.Find(0), nullptr);
  EXPECT_EQ(remembered.Keep(3, ItemsOf(3)).text, L"xxx");
  EXPECT_EQ(remembered.Keep(0, ItemsOf(1)).text, L"x");
  EXPECT_EQ(remembered.Find(3)->text, L"xxx");
  EXPECT_EQ(remembered.Find(0)->text, L"x");
  EXPECT_EQ(remembered.Find(1), nullptr);
  EXPECT_EQ(remembered.Find(4), nullptr);
  EXPECT_EQ(remembered.Find(-1), nullptr);
}

TEST(RememberedItems, AreNoneOnceTheyAreForgotten) {
  RememberedItems remembered;
  remembered.Keep(0, ItemsOf(1));
  remembered.Forget();
  EXPECT_EQ(remembered.Find(0), nullptr);
}

TEST(RememberedItems, BeginAnewWhereTheyWouldFillTheMemory) {
  constexpr std::size_t many = 12'500'000;  // half of what they may hold
  RememberedItems remembered;
  remembered.Keep(0, ItemsOf(many));
  remembered.Keep(1, ItemsOf(many));
  EXPECT_NE(remembered.Find(0), nullptr);
  remembered.Keep(2, ItemsOf(1));
  EXPECT_EQ(remembered.Find(0), nullptr);
  EXPECT_EQ(remembered.Find(1), nullptr);
  EXPECT_EQ(remembered.Find(2)->text, L"x");
  remembered.Keep(3, ItemsOf(many));
  EXPECT_NE(remembered.Find(2), nullptr);
  remembered.Forget();
  remembered.Keep(4, ItemsOf(many));
  remembered.Keep(5, ItemsOf(many));
  EXPECT_NE(remembered.Find(4), nullptr);
}

// However long they are, the caller gets them.
TEST(RememberedItems, KeepOneThatIsLongerThanTheirBound) {
  constexpr std::size_t beyond = 30'000'000;
  RememberedItems remembered;
  remembered.Keep(0, ItemsOf(1));
  EXPECT_EQ(remembered.Keep(1, ItemsOf(beyond)).text.size(), beyond);
  EXPECT_EQ(remembered.Find(0), nullptr);
  EXPECT_EQ(remembered.Keep(2, ItemsOf(1)).text, L"x");
  EXPECT_EQ(remembered.Find(1), nullptr);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
