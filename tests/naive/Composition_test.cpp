// Tests that the composition of items equals its naive form, with records and stores made by hand,
// which may contain what no file can express.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "classificator/Classificator.h"
#include "domen/DomenStore.h"
#include "mapping/CodeParams.h"
#include "naive/MappingString.h"
#include "naive/Records.h"
#include "support/DescribeDomens.h"
#include "support/MapTextByHand.h"
#include "support/OutOfRange.h"
#include "support/Random.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

const Texts domenIds = {L"D", L"E", L"F", L""};
const Texts propertyIds = {L"P", L"Q", L"PQ", L""};
const Texts fieldNames = {L"a", L"ab", L"b", L"abc", L"", L"=", L"a b"};

const Texts words = {L"1",
                     L"-7",
                     L"2.5",
                     L"1e3",
                     L"99999999999",
                     L"x",
                     L"x y",
                     L"\"x\"",
                     L"\"\"x",
                     L"\"",
                     L"\"\"",
                     L"\"\u00A0x\u00A0\"",
                     LR"(" "x" ")",
                     LR"(" " " x " " ")",
                     LR"(" " " " x " " " ")",
                     L"\"\t\"",
                     L"\" x\" \"y \"",
                     L"1 2",
                     L"1 x",
                     L"",
                     L" "};

const Texts pieces = {L"a", L"ab", L"abc", L"b", L"=", L"=",  L"=",      L" ", L" ",
                      L" ", L";",  L"1",   L"2", L"x", L"\"", L"\u00A0", L"\t"};

struct Round {
  explicit Round(unsigned seed) : random(seed) {}

  std::wstring ValueText() {
    std::wstring text;
    for (std::size_t count = random.Below(12); count > 0; --count) text += random.OneOf(pieces);
    return text;
  }

  std::vector<ParamItemList> Lists() {
    std::vector<ParamItemList> lists(random.Below(3));
    for (ParamItemList& list : lists) {
      list.resize(random.Below(4));
      for (ParamItem& item : list) {
        item.propertyId = random.OneOf(propertyIds);
        item.valueText = ValueText();
      }
    }
    return lists;
  }

  // Returns item blocks of a header: items of one token, or of a name and its words.
  std::wstring Blocks() {
    std::wstring blocks;
    for (std::size_t count = random.Below(3); count > 0; --count) {
      blocks += L'{';
      for (std::size_t items = random.Below(4); items > 0; --items) {
        const wchar_t* const signs[] = {L"=", L":", L" "};
        blocks += random.OneOf(propertyIds) + random.OneOf(signs) + ValueText() + L"; ";
      }
      blocks += L'}';
    }
    return blocks;
  }

  Texts Some(const Texts& texts) {
    Texts some;
    for (std::size_t count = random.Below(5); count > 0; --count) {
      some.push_back(random.OneOf(texts));
    }
    return some;
  }

  Classificator MadeClassificator() {
    Classificator classificator(L"S");
    std::vector<MapTextRecord> records;
    for (std::size_t count = random.Below(4); count > 0; --count) {
      MapTextRecord record;
      record.code = random.OneOf(propertyIds);
      record.header = HeaderOf(Blocks());
      records.push_back(record);
      ParamRecord param;
      param.code = random.OneOf(propertyIds);
      param.itemLists = Lists();
      classificator.paramSection.records.push_back(param);
    }
    classificator.mapTextSection.records.Swap(records);
    classificator.mapTextSection.defaultCode = random.OneOf(propertyIds);
    classificator.mapTextSection.domenIds = Some(domenIds);
    classificator.paramSection.domenIds = Some(domenIds);
    return classificator;
  }

  DomenProperty MadeProperty() {
    DomenProperty property(random.OneOf(propertyIds), L"name", {}, random.OneIn(2), 5);
    for (std::size_t count = random.Below(5); count > 0; --count) {
      const std::wstring& name = random.OneOf(fieldNames);
      property.AddValueField(name, L"title", random.Between(0, 5), true, random.OneOf(words));
    }
    return property;
  }

  DomenStore MadeStore() {
    DomenStore store;
    for (const std::wstring& domenId : domenIds) {
      if (random.OneIn(3)) continue;
      Domen domen(domenId, L"name");
      for (const std::wstring& key : Some(propertyIds)) domen.AddProperty(key, MadeProperty());
      store.AddDomen(domenId, std::move(domen));
    }
    return store;
  }

  Random random;
};

using Outcome = std::pair<std::string, std::wstring>;

// Returns the text of a call, or the message of its exception.
template <class Call>
Outcome OutcomeOf(const Call& call) {
  std::wstring text;
  const std::string raised = OutOfRangeOf([&] { text = call(); });
  return {raised, text};
}

TEST(CollectProperties, AgreesWithItsNaiveForm) {
  for (unsigned seed = 0; seed < (SLOW_BUILD ? 200 : 2000) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Round round(seed);
    const DomenStore store = round.MadeStore();
    for (int call = 0; call < 3; ++call) {
      const Texts domens = round.Some(domenIds);
      const Texts properties = round.Some(propertyIds);
      EXPECT_EQ(Describe(store.CollectProperties(domens, properties)),
                Describe(Naive::CollectProperties(store, domens, properties)));
    }
  }
}

TEST(GetCodePropertyIds, AgreesWithItsNaiveForm) {
  for (unsigned seed = 0; seed < (SLOW_BUILD ? 200 : 2000) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Classificator classificator = Round(seed).MadeClassificator();
    const Naive::Classificator naive = Naive::CopyOf(classificator);
    for (const int sourceKind : {1, 2, 0, 3, -1}) {
      EXPECT_EQ(GetCodeDomenIds(SectionsOf(classificator), sourceKind),
                Naive::GetCodeDomenIds(naive, sourceKind));
      for (int codeId = -3; codeId < 5; ++codeId) {
        Texts ids;
        Texts naiveIds;
        EXPECT_EQ(
            OutOfRangeOf(
                [&] { ids = GetCodePropertyIds(SectionsOf(classificator), codeId, sourceKind); }),
            OutOfRangeOf([&] { naiveIds = Naive::GetCodePropertyIds(naive, codeId, sourceKind); }))
            << codeId << ", " << sourceKind;
        EXPECT_EQ(ids, naiveIds) << codeId << ", " << sourceKind;
      }
    }
  }
}

TEST(ComposeCodeParams, AgreesWithItsNaiveForm) {
  for (unsigned seed = 0; seed < (SLOW_BUILD ? 300 : 3000) && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Round round(seed);
    const Classificator classificator = round.MadeClassificator();
    const Naive::Classificator naive = Naive::CopyOf(classificator);
    const DomenProperties properties =
        Naive::CollectProperties(round.MadeStore(), domenIds, propertyIds);
    for (const int sourceKind : {1, 2, 0}) {
      for (int codeId = -2; codeId < 4; ++codeId) {
        EXPECT_EQ(OutcomeOf([&] {
                    return ComposeCodeParams(SectionsOf(classificator), codeId, sourceKind, L"=",
                                             properties);
                  }),
                  OutcomeOf([&] {
                    return Naive::ComposeCodeParams(naive, codeId, sourceKind, L"=", properties);
                  }))
            << codeId << ", " << sourceKind;
      }
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
