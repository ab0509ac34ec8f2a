// What the reader of a `.json` domain file tells to whoever hands it an account.

#include "json/JsonAccount.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "domen/DomenStore.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

std::wstring NameOf(JsonOutcome outcome) {
  constexpr const wchar_t* names[] = {
      L"item",        L"text",           L"wholeNumber",   L"number",    L"listOfTexts",
      L"overridden",  L"property",       L"propertyAgain", L"field",     L"fieldAgain",
      L"typeUnknown", L"defaultRefused", L"domen",         L"domenAgain"};
  return names[static_cast<std::size_t>(outcome)];
}

// Each entry as `section/item/key outcome`, with a plus if the file's value was found, and its
// texts.
Texts AccountOf(DomenStore& store, const std::string& json) {
  const TempFolder folder;
  JsonAccount account;
  EXPECT_EQ(store.LoadDomenJson(folder.Write("zones.json", json), L"", &account), 0);
  Texts shown;
  for (const JsonEntry& entry : account.entries) {
    std::wstring line = entry.section + L"/" + entry.item + L"/" + entry.key + L" " +
                        NameOf(entry.outcome) + (entry.found ? L"+" : L"");
    for (const std::wstring& text : entry.texts) line += L" '" + text + L"'";
    shown.push_back(line);
  }
  return shown;
}

Texts AccountOf(const std::string& json) {
  DomenStore store;
  return AccountOf(store, json);
}

// The entries of the field F of this text, without the requests for item, title and type.
Texts FieldAccountOf(const std::string& field) {
  const Texts all = AccountOf(
      "{Domen: {asFuncsNames: ['P']}, Properties: {P: {asFuncsNames: ['F']}},"
      " ArrayValueFields: {F: {" +
      field + "}}}");
  const std::size_t first = 13;
  return {all.begin() + first, all.end() - 2};
}

TEST(JsonAccount, HasEachRequestInItsOrderAndWhetherItWasFound) {
  EXPECT_EQ(AccountOf("{Domen: {sName: 'Z', asFuncsNames: ['P', 5]},"
                      " Properties: {P: {sId: 'x', iUniq: '1', iSortId: 2, asFuncsNames: ['F']}},"
                      " ArrayValueFields: {F: {sName: 'T', sType: 'i', iDefault: 5}}}"),
            Texts({
                L"Domen// item+",
                L"Domen//sName text+",
                L"Domen//asFuncsNames listOfTexts+ 'P'",
                L"Properties/P/ item+",
                L"Properties/P/asObjectTypes listOfTexts",
                L"Properties/P/sId overridden",
                L"Properties/P/sName text",
                L"Properties/P/iUniq wholeNumber",
                L"Properties/P/iSortId wholeNumber+",
                L"Properties/P/asFuncsNames listOfTexts+ 'F'",
                L"ArrayValueFields/F/ item+",
                L"ArrayValueFields/F/sName text+",
                L"ArrayValueFields/F/sType text+",
                L"ArrayValueFields/F/iDefault wholeNumber+",
                L"ArrayValueFields/F/ field 'P'",
                L"Properties/P/ property",
                L"Domen// domen 'zones'",
            }));
}

TEST(JsonAccount, TellsThatNothingIsInAFileThatIsMalformed) {
  EXPECT_EQ(AccountOf("{"), Texts({L"Domen// item", L"Domen//sName text",
                                   L"Domen//asFuncsNames listOfTexts", L"Domen// domen 'zones'"}));
}

TEST(JsonAccount, TellsOfPropertiesAndFieldsThatAreListedTwice) {
  const Texts account =
      AccountOf("{Domen: {asFuncsNames: ['P', 'P']}, Properties: {P: {asFuncsNames: ['F', 'F']}}}");
  Texts outcomes;
  for (const std::wstring& line : account) {
    if (line.find(L"Again") != line.npos) outcomes.push_back(line);
  }
  EXPECT_EQ(outcomes,
            Texts({L"ArrayValueFields/F/ fieldAgain 'P'", L"ArrayValueFields/F/ fieldAgain 'P'",
                   L"Properties/P/ propertyAgain"}));
}

TEST(JsonAccount, TellsOfADomainThatIsThere) {
  DomenStore store;
  EXPECT_EQ(AccountOf(store, "{}").back(), L"Domen// domen 'zones'");
  EXPECT_EQ(AccountOf(store, "{}").back(), L"Domen// domenAgain 'zones'");
}

TEST(JsonAccount, TellsWhatBecameOfTheDefaultOfAField) {
  EXPECT_EQ(FieldAccountOf("rDefault: 2"),
            Texts({L"ArrayValueFields/F/rDefault number+", L"ArrayValueFields/F/ field 'P'"}));
  EXPECT_EQ(FieldAccountOf("rDefault: Infinity"),
            Texts({L"ArrayValueFields/F/rDefault number+", L"ArrayValueFields/F/ field 'P'",
                   L"ArrayValueFields/F/ defaultRefused 'inf'"}));
  EXPECT_EQ(FieldAccountOf("sType: 's', sDefault: ''"),
            Texts({L"ArrayValueFields/F/sDefault text+", L"ArrayValueFields/F/ field 'P'",
                   L"ArrayValueFields/F/ defaultRefused ''"}));
  EXPECT_EQ(FieldAccountOf("sType: 'x', rDefault: 2"),
            Texts({L"ArrayValueFields/F/ typeUnknown 'x'", L"ArrayValueFields/F/ field 'P'"}));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
