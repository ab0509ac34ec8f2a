#include "mapping/RememberedItems.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "domen/DomenStore.h"
#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

// Remembered items and their domains.
class Remembering {
 public:
  std::wstring Find(int codeId) const {
    const CodeItems* items = remembered.Find(codeId, store, domenIds);
    return items ? items->text.substr(0, 3) : L"none";
  }

  std::wstring Keep(int codeId, std::size_t units, wchar_t unit = L'x') {
    CodeItems items;
    items.text = std::wstring(units, unit);
    const CodeItems* kept = remembered.Keep(codeId, store, domenIds, items);
    return kept ? kept->text.substr(0, 3) : L"none";
  }

  RememberedItems remembered;
  DomenStore store;
  Texts domenIds = {L"D"};
};

TEST(RememberedItems, AreFoundByTheirCodes) {
  Remembering one;
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Keep(3, 3), L"xxx");
  EXPECT_EQ(one.Keep(0, 1), L"x");
  EXPECT_EQ(one.Find(3), L"xxx");
  EXPECT_EQ(one.Find(0), L"x");
  EXPECT_EQ(one.Find(1), L"none");
  EXPECT_EQ(one.Find(4), L"none");
  EXPECT_EQ(one.Find(-1), L"none");
}

TEST(RememberedItems, AreNoneOnceTheDomainsHaveChanged) {
  Remembering one;
  one.Keep(0, 1);
  one.store.AddDomen(L"D", Domen(L"D", L"D"));
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Keep(1, 2), L"xx");
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Find(1), L"xx");
}

TEST(RememberedItems, AreNoneForOtherDomains) {
  Remembering one;
  one.Keep(0, 1);
  const DomenStore own = one.store;
  one.store = DomenStore();
  EXPECT_EQ(one.Find(0), L"none");
  one.Keep(0, 2);
  one.store = own;
  EXPECT_EQ(one.Find(0), L"none");
}

TEST(RememberedItems, AreNoneForAnotherListOfDomains) {
  Remembering one;
  one.Keep(0, 1);
  one.domenIds = {L"E"};
  EXPECT_EQ(one.Find(0), L"none");
  one.domenIds = {L"D", L"E"};
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Keep(0, 2), L"xx");
  EXPECT_EQ(one.Find(0), L"xx");
}

TEST(RememberedItems, AreNotSharedWithACopyOrByAnAssignment) {
  Remembering one;
  one.Keep(0, 1);
  const RememberedItems copy = one.remembered;
  EXPECT_EQ(copy.Find(0, one.store, one.domenIds), nullptr);
  EXPECT_EQ(one.Find(0), L"x");
  one.remembered = copy;
  EXPECT_EQ(one.Find(0), L"none");
}

TEST(RememberedItems, AreNoneOnceTheyAreForgotten) {
  Remembering one;
  one.Keep(0, 1);
  one.remembered.Forget();
  EXPECT_EQ(one.Find(0), L"none");
}

TEST(RememberedItems, BeginAnewWhereTheyWouldFillTheMemory) {
  constexpr std::size_t many = 12'500'000;  // half of the bound
  Remembering one;
  one.Keep(0, many);
  one.Keep(1, many);
  EXPECT_NE(one.Find(0), L"none");
  one.Keep(2, 1);
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Find(1), L"none");
  EXPECT_EQ(one.Find(2), L"x");
  one.Keep(3, many);
  EXPECT_NE(one.Find(2), L"none");
  one.remembered.Forget();
  one.Keep(4, many);
  one.Keep(5, many);
  EXPECT_NE(one.Find(4), L"none");
}

// The caller gets them, however long they are.
TEST(RememberedItems, KeepOneThatIsLongerThanTheirBound) {
  constexpr std::size_t beyond = 30'000'000;
  Remembering one;
  one.Keep(0, 1);
  EXPECT_EQ(one.Keep(1, beyond), L"xxx");
  EXPECT_EQ(one.Find(0), L"none");
  EXPECT_EQ(one.Keep(2, 1), L"x");
  EXPECT_EQ(one.Find(1), L"none");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
