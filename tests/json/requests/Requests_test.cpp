// Tests of the requests to the configuration library. Reading and exporting a domain are sequences
// of requests, whose order and arguments are part of the format. A double of the library records
// them.

#include <CfgParser.h>
#include <JSON5Section.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "Script.h"
#include "domen/DomenStore.h"
#include "domen/PropertyType.h"
#include "json/JsonAccount.h"
#include "json/StringArrayParam.h"
#include "support/DescribeDomens.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

// The exact comments.
const std::wstring ofDomenName = L" // Имя домена свойств для интерфейса";
const std::wstring ofDomenKeys = L" // Список свойств принадлежащих домену";
const std::wstring ofTypes =
    L" // Массив типов объектов Ревит (помещение, дверь, лестница, форма и т.п.), для которых "
    L"может быть задано данное свойство";
const std::wstring ofId = L" // Имя (код) свойства";
const std::wstring ofName = L" // Название свойства";
const std::wstring ofUnique = L" // уникальность – да/нет";
const std::wstring ofSortId =
    L" // индекс сортировки – для показа в интерфейсе. В интерфейсе свойства сортируются по "
    L"индексу, объекты с одинаковым индексом показываются в алфавитном порядке";
const std::wstring ofFields = L" // массив полей значений";
const std::wstring ofFieldName = L" // название поля списка значений";
const std::wstring ofType = L" // тип значения (целое, действительное)";
const std::wstring ofDefault = L" // значение по умолчанию";

// Concatenates sequences.
Texts Join(std::initializer_list<Texts> sequences) {
  Texts joined;
  for (const Texts& one : sequences) joined.insert(joined.end(), one.begin(), one.end());
  return joined;
}

// Repeated sequences, which differ between properties only in names.

Texts OpenDomen(const std::wstring& path, const std::wstring& configText) {
  return {
      L"parser '" + path + L"' '" + configText + L"' 'RU'",
      L"section Domen '' first last",
      L"Domen: string sName ''" + ofDomenName,
      L"Domen: strings asFuncsNames []" + ofDomenKeys,
  };
}

const Texts closeDomen = {L"end of Domen ''", L"end of parser"};

Texts OpenProperty(const std::wstring& key, const std::wstring& place) {
  const std::wstring item = L"Properties " + key + L": ";
  return {
      L"section Properties '" + key + L"'" + place,
      item + L"strings asObjectTypes []" + ofTypes,
      item + L"override string sId '" + key + L"'" + ofId,
      item + L"string sName ''" + ofName,
      item + L"int iUniq 0" + ofUnique,
      item + L"int iSortId 0" + ofSortId,
      item + L"strings asFuncsNames []" + ofFields,
  };
}

Texts CloseProperty(const std::wstring& key) {
  return {L"end of Properties '" + key + L"'"};
}

// `defaultRequest` is empty or, for example, "int iDefault 1".
Texts Field(const std::wstring& name, const std::wstring& place,
            const std::wstring& defaultRequest) {
  const std::wstring item = L"ArrayValueFields " + name + L": ";
  Texts requests = {
      L"section ArrayValueFields '" + name + L"'" + place,
      item + L"string sName '" + name + L"'" + ofFieldName,
      item + L"string sType 'r'" + ofType,
  };
  if (!defaultRequest.empty()) requests.push_back(item + defaultRequest + ofDefault);
  requests.push_back(L"end of ArrayValueFields '" + name + L"'");
  return requests;
}

// The zones of a building. The file is not in key order.
void AnswerZones(Script& script) {
  script.Answer(L"Domen", L"", L"sName", L"Zones");
  script.Answer(L"Domen", L"", L"asFuncsNames", Texts{L"ZoneKind", L"Limits"});
  script.Answer(L"Properties", L"ZoneKind", L"asObjectTypes", Texts{L"Room", L"Door"});
  script.Answer(L"Properties", L"ZoneKind", L"sId", L"ZoneKind");
  script.Answer(L"Properties", L"ZoneKind", L"sName", L"Kind of zone");
  script.Answer(L"Properties", L"ZoneKind", L"iUniq", 1);
  script.Answer(L"Properties", L"ZoneKind", L"iSortId", 10);
  script.Answer(L"Properties", L"ZoneKind", L"asFuncsNames", Texts{L"Kind"});
  script.Answer(L"Properties", L"Limits", L"asObjectTypes", Texts{});
  script.Answer(L"Properties", L"Limits", L"sId", L"Other");
  script.Answer(L"Properties", L"Limits", L"sName", L"Limits");
  script.Answer(L"Properties", L"Limits", L"iUniq", 0);
  script.Answer(L"Properties", L"Limits", L"iSortId", 20);
  script.Answer(L"Properties", L"Limits", L"asFuncsNames", Texts{L"Lower", L"Upper"});
  script.Answer(L"ArrayValueFields", L"Kind", L"sName", L"Kind");
  script.Answer(L"ArrayValueFields", L"Kind", L"sType", L"s");
  script.Answer(L"ArrayValueFields", L"Kind", L"sDefault", L"A");
  script.Answer(L"ArrayValueFields", L"Lower", L"sName", L"Lower limit");
  script.Answer(L"ArrayValueFields", L"Lower", L"sType", L"r");
  script.Answer(L"ArrayValueFields", L"Lower", L"rDefault", 0.5);
  script.Answer(L"ArrayValueFields", L"Upper", L"sName", L"Upper limit");
  script.Answer(L"ArrayValueFields", L"Upper", L"sType", L"ai");
  script.Answer(L"ArrayValueFields", L"Upper", L"iDefault", 3);
}

constexpr const wchar_t* zonesDomen =
    L"domain zones 'Zones'\n"
    L"  property Limits 'Limits' 20 []\n"
    L"    real Lower 'Lower limit' flagged = 0.5\n"
    L"    ilist Upper 'Upper limit' flagged = 3\n"
    L"  property ZoneKind 'Kind of zone' unique 10 [Room|Door]\n"
    L"    str Kind 'Kind' flagged = A\n";

// Reading

TEST(Reading, RequestsEachPropertyFollowedByItsFieldsInTheOrderOfTheFile) {
  Script script;
  AnswerZones(script);
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(L"data/zones.json", L"the configuration"), 0);
  const Texts expected = {
      L"parser 'data/zones.json' 'the configuration' 'RU'",
      L"section Domen '' first last",
      L"Domen: string sName ''" + ofDomenName,
      L"Domen: strings asFuncsNames []" + ofDomenKeys,
      L"section Properties 'ZoneKind' first",
      L"Properties ZoneKind: strings asObjectTypes []" + ofTypes,
      L"Properties ZoneKind: override string sId 'ZoneKind'" + ofId,
      L"Properties ZoneKind: string sName ''" + ofName,
      L"Properties ZoneKind: int iUniq 0" + ofUnique,
      L"Properties ZoneKind: int iSortId 0" + ofSortId,
      L"Properties ZoneKind: strings asFuncsNames []" + ofFields,
      L"section ArrayValueFields 'Kind' first last",
      L"ArrayValueFields Kind: string sName 'Kind'" + ofFieldName,
      L"ArrayValueFields Kind: string sType 'r'" + ofType,
      L"ArrayValueFields Kind: string sDefault '1.0'" + ofDefault,
      L"end of ArrayValueFields 'Kind'",
      L"end of Properties 'ZoneKind'",
      L"section Properties 'Limits' last",
      L"Properties Limits: strings asObjectTypes []" + ofTypes,
      L"Properties Limits: override string sId 'Limits'" + ofId,
      L"Properties Limits: string sName ''" + ofName,
      L"Properties Limits: int iUniq 0" + ofUnique,
      L"Properties Limits: int iSortId 0" + ofSortId,
      L"Properties Limits: strings asFuncsNames []" + ofFields,
      L"section ArrayValueFields 'Lower' first",
      L"ArrayValueFields Lower: string sName 'Lower'" + ofFieldName,
      L"ArrayValueFields Lower: string sType 'r'" + ofType,
      L"ArrayValueFields Lower: double rDefault 1" + ofDefault,
      L"end of ArrayValueFields 'Lower'",
      L"section ArrayValueFields 'Upper' last",
      L"ArrayValueFields Upper: string sName 'Upper'" + ofFieldName,
      L"ArrayValueFields Upper: string sType 'r'" + ofType,
      L"ArrayValueFields Upper: int iDefault 1" + ofDefault,
      L"end of ArrayValueFields 'Upper'",
      L"end of Properties 'Limits'",
      L"end of Domen ''",
      L"end of parser",
  };
  EXPECT_EQ(script.requests, expected);
  EXPECT_EQ(Describe(store), zonesDomen);
  EXPECT_EQ(store.activeDomenId, L"zones");
}

TEST(Reading, RequestsTheSameForWhoeverHandsItAnAccount) {
  const auto requestsWith = [](JsonAccount* account) {
    Script script;
    AnswerZones(script);
    DomenStore store;
    EXPECT_EQ(store.LoadDomenJson(L"data/zones.json", L"", account), 0);
    EXPECT_EQ(Describe(store), zonesDomen);
    return script.requests;
  };
  JsonAccount account;
  EXPECT_EQ(requestsWith(&account), requestsWith(nullptr));
  EXPECT_FALSE(account.entries.empty());
}

TEST(Reading, IsTheSameThroughTheStoresChoiceOfReader) {
  Script script;
  AnswerZones(script);
  DomenStore store;
  EXPECT_EQ(store.LoadDomen(L"zones.json", L"the configuration"), 0);
  EXPECT_EQ(script.requests.front(), L"parser 'zones.json' 'the configuration' 'RU'");
  EXPECT_EQ(Describe(store), zonesDomen);
}

TEST(Reading, BuildsTheParserWithNewAndEndsItWithDelete) {
  Script script;
  DomenStore().LoadDomenJson(L"a.json", L"");
  EXPECT_EQ(script.parsersByNew, 1);
  EXPECT_EQ(script.parsersByDelete, 1);
}

TEST(Reading, RequestsTheDomainAloneIfItHasNoProperties) {
  Script script;
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(L"C:\\data\\empty.json", L""), 0);
  EXPECT_EQ(script.requests, Join({
                                 OpenDomen(L"C:\\data\\empty.json", L""),
                                 closeDomen,
                             }));
  EXPECT_EQ(Describe(store), L"domain empty ''\n");
  EXPECT_EQ(store.activeDomenId, L"empty");
}

TEST(Reading, MakesOneRunOfAllPropertiesAndOneOfTheFieldsOfEach) {
  Script script;
  script.Answer(L"Domen", L"", L"asFuncsNames", Texts{L"Z", L"M", L"A"});
  script.Answer(L"Properties", L"M", L"asFuncsNames", Texts{L"G", L"F", L"H"});
  script.Answer(L"Properties", L"A", L"asFuncsNames", Texts{L"F"});
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(L"a.json", L"c"), 0);
  EXPECT_EQ(script.requests, Join({
                                 OpenDomen(L"a.json", L"c"),
                                 OpenProperty(L"Z", L" first"),
                                 CloseProperty(L"Z"),
                                 OpenProperty(L"M", L""),
                                 Field(L"G", L" first", L"double rDefault 1"),
                                 Field(L"F", L"", L"double rDefault 1"),
                                 Field(L"H", L" last", L"double rDefault 1"),
                                 CloseProperty(L"M"),
                                 OpenProperty(L"A", L" last"),
                                 Field(L"F", L" first last", L"double rDefault 1"),
                                 CloseProperty(L"A"),
                                 closeDomen,
                             }));
}

TEST(Reading, RequestsTheOneDefaultThatTheTypeSelects) {
  struct Case {
    const wchar_t* type;
    const wchar_t* request;
    ScriptAnswer answer;
    const wchar_t* field;
  };
  const Case cases[] = {
      {L"i", L"int iDefault 1", 42, L"int F 'F' flagged = 42\n"},
      {L"r", L"double rDefault 1", 100000.0, L"real F 'F' flagged = 1e+05\n"},
      {L"s", L"string sDefault '1.0'", L"a b", L"str F 'F' flagged = a b\n"},
      {L"ai", L"int iDefault 1", -7, L"ilist F 'F' flagged = -7\n"},
      {L"ar", L"double rDefault 1", 0.25, L"rlist F 'F' flagged = 0.25\n"},
      {L"as", L"string sDefault '1.0'", L" a  b ", L"slist F 'F' flagged = a b\n"},
      {L"I", L"", 42, L"int F 'F' flagged = 1\n"},
      {L"x", L"", 42, L"int F 'F' flagged = 1\n"},
      {L"", L"", 42, L"int F 'F' flagged = 1\n"},
      {L"i ", L"", 42, L"int F 'F' flagged = 1\n"},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.type);
    Script script;
    script.Answer(L"Domen", L"", L"asFuncsNames", Texts{L"A"});
    script.Answer(L"Properties", L"A", L"asFuncsNames", Texts{L"F"});
    script.Answer(L"ArrayValueFields", L"F", L"sType", one.type);
    for (const wchar_t* key : {L"iDefault", L"rDefault", L"sDefault"}) {
      script.Answer(L"ArrayValueFields", L"F", key, one.answer);
    }
    DomenStore store;
    EXPECT_EQ(store.LoadDomenJson(L"a.json", L""), 0);
    EXPECT_EQ(script.requests, Join({
                                   OpenDomen(L"a.json", L""),
                                   OpenProperty(L"A", L" first last"),
                                   Field(L"F", L" first last", one.request),
                                   CloseProperty(L"A"),
                                   closeDomen,
                               }));
    EXPECT_EQ(Describe(*store.domens.at(L"a").properties.at(L"A").fields.at(0)), one.field);
  }
}

TEST(Reading, FlagsAFieldByTheLastRequestOfItsElement) {
  struct Case {
    std::vector<std::pair<const wchar_t*, ScriptAnswer>> element;
    const wchar_t* field;
  };
  const Case cases[] = {
      {{}, L"real F 'F' = 1\n"},
      {{{L"sName", L"T"}}, L"real F 'T' = 1\n"},
      {{{L"rDefault", 2.5}}, L"real F 'F' flagged = 2.5\n"},
      {{{L"iDefault", 2}}, L"real F 'F' = 1\n"},
      {{{L"sType", L"i"}}, L"int F 'F' = 1\n"},
      {{{L"sType", L"i"}, {L"iDefault", 1}}, L"int F 'F' flagged = 1\n"},
      {{{L"sType", L"s"}}, L"str F 'F' = 1.0\n"},
      {{{L"sType", L"as"}}, L"slist F 'F' = 1.0\n"},
      {{{L"sType", L"x"}}, L"int F 'F' flagged = 1\n"},
  };
  for (const Case& one : cases) {
    Script script;
    script.Answer(L"Domen", L"", L"asFuncsNames", Texts{L"A"});
    script.Answer(L"Properties", L"A", L"asFuncsNames", Texts{L"F"});
    for (const auto& [key, answer] : one.element) {
      script.Answer(L"ArrayValueFields", L"F", key, answer);
    }
    DomenStore store;
    EXPECT_EQ(store.LoadDomenJson(L"a.json", L""), 0);
    EXPECT_EQ(Describe(*store.domens.at(L"a").properties.at(L"A").fields.at(0)), one.field);
  }
}

TEST(Reading, RequestsAPropertyOrFieldThatIsNamedTwiceTwice) {
  Script script;
  script.Answer(L"Domen", L"", L"asFuncsNames", Texts{L"A", L"A"});
  script.Answer(L"Properties", L"A", L"asFuncsNames", Texts{L"F", L"F"});
  DomenStore store;
  EXPECT_EQ(store.LoadDomenJson(L"a.json", L""), 0);
  const Texts fields = Join(
      {Field(L"F", L" first", L"double rDefault 1"), Field(L"F", L" last", L"double rDefault 1")});
  EXPECT_EQ(script.requests, Join({
                                 OpenDomen(L"a.json", L""),
                                 OpenProperty(L"A", L" first"),
                                 fields,
                                 CloseProperty(L"A"),
                                 OpenProperty(L"A", L" last"),
                                 fields,
                                 CloseProperty(L"A"),
                                 closeDomen,
                             }));
  EXPECT_EQ(Describe(store),
            L"domain a ''\n"
            L"  property A '' 0 []\n"
            L"    real F 'F' = 1\n");
}

TEST(Reading, MakesAllRequestsForADomainThatIsAlreadyThere) {
  Script script;
  AnswerZones(script);
  DomenStore store;
  store.LoadDomenJson(L"zones.json", L"");
  const Texts once = script.requests;
  script.requests.clear();
  store.activeDomenId = L"";
  EXPECT_EQ(store.LoadDomenJson(L"zones.json", L""), 0);
  EXPECT_EQ(script.requests, once);
  EXPECT_EQ(Describe(store), zonesDomen);
  EXPECT_EQ(store.activeDomenId, L"zones");
}

// An exception that a library may throw.
void RaiseError() {
  throw std::runtime_error("the library failed");
}
void RaiseBadAlloc() {
  throw std::bad_alloc();
}
void RaiseNumber() {
  throw 5;
}

// Expects that all that is open at the failing request is ended after it.
void ExpectEverythingEnded(const Script& script, const std::wstring& afterwards) {
  EXPECT_EQ(script.openSections, 0) << afterwards;
  const bool parserMade = script.made > 1;
  int ended = 0;
  for (const std::wstring& request : script.requests) ended += request == L"end of parser";
  EXPECT_EQ(ended, parserMade ? 1 : 0) << afterwards;
  EXPECT_TRUE(!parserMade || script.requests.back() == L"end of parser") << afterwards;
}

TEST(Reading, Returns3AndChangesNothingWhicheverRequestFails) {
  int requests = 0;
  {
    Script whole;
    AnswerZones(whole);
    DomenStore().LoadDomenJson(L"zones.json", L"");
    requests = whole.made;
  }
  for (const auto raise : {RaiseError, RaiseBadAlloc, RaiseNumber}) {
    for (int failing = 1; failing <= requests; ++failing) {
      DomenStore store;
      store.AddDomen(L"old", Domen(L"old", L"Old"));
      store.activeDomenId = L"old";
      Script script;
      AnswerZones(script);
      script.fail = raise;
      script.failing = failing;
      EXPECT_EQ(store.LoadDomenJson(L"zones.json", L""), 3);
      EXPECT_EQ(script.made, failing) << "no request follows the one that failed";
      EXPECT_EQ(Describe(store), L"domain old 'Old'\n");
      EXPECT_EQ(store.activeDomenId, L"old");
      ExpectEverythingEnded(script, std::to_wstring(failing));
    }
  }
}

// Writing

struct ExportedField {
  const wchar_t* name;
  const wchar_t* title;
  int type;
};

// Adds a property whose fields have values other than the defaults.
void AddProperty(Domen& domen, const wchar_t* key, std::initializer_list<ExportedField> fields) {
  DomenProperty property(key, std::wstring(L"Name of ") + key, {}, false, 0);
  for (const ExportedField& field : fields) {
    property.AddValueField(field.name, field.title, field.type, true, L"7");
  }
  domen.AddProperty(key, property);
}

Texts RequestsOfExport(Domen domen) {
  DomenStore store;
  std::wstring id = domen.id;
  store.AddDomen(id, std::move(domen));
  Script script;
  store.ExportDomenJson(id, L"out.json");
  return script.requests;
}

Texts WriteDomen(const std::wstring& name, const std::wstring& keys) {
  return {
      L"parser 'out.json' '' 'RU'",
      L"section Domen '' first last",
      L"Domen: override string sName '" + name + L"'" + ofDomenName,
      L"Domen: override strings asFuncsNames " + keys + ofDomenKeys,
      L"end of Domen ''",
  };
}

const Texts save = {L"save 'out.json' 2", L"end of parser"};

Texts WriteProperty(const std::wstring& key, const std::wstring& place,
                    const std::wstring& fields) {
  const std::wstring item = L"Properties " + key + L": override ";
  return {
      L"section Properties '" + key + L"'" + place,
      item + L"strings asObjectTypes []" + ofTypes,
      item + L"string sId '" + key + L"'" + ofId,
      item + L"string sName 'Name of " + key + L"'" + ofName,
      item + L"int iUniq 0" + ofUnique,
      item + L"int iSortId 0" + ofSortId,
      item + L"strings asFuncsNames " + fields + ofFields,
      L"end of Properties '" + key + L"'",
  };
}

// The requests of a field of type 0, which has no default.
Texts WriteIntField(const std::wstring& name, const std::wstring& place,
                    const std::wstring& title) {
  return {
      L"section ArrayValueFields '" + name + L"'" + place,
      L"ArrayValueFields " + name + L": override string sName '" + title + L"'" + ofFieldName,
      L"end of ArrayValueFields '" + name + L"'",
  };
}

TEST(Writing, RequestsTheDomainThenAllPropertiesThenAllFieldsWithOverride) {
  Domen domen(L"zones", L"Зоны");
  DomenProperty kind(L"another id", L"Kind of zone", {L"Room", L"Door"}, true, 10);
  kind.AddValueField(L"Kind", L"Вид", typeStr, true, L"A");
  kind.AddValueField(L"Count", L"Count", typeInt, true, L"5");
  domen.AddProperty(L"ZoneKind", kind);
  DomenProperty limits(L"Limits", L"", {}, false, -20);
  limits.AddValueField(L"Lower", L"", typeReal, false, L"0.5");
  domen.AddProperty(L"Limits", limits);
  const Texts expected = {
      L"parser 'out.json' '' 'RU'",
      L"section Domen '' first last",
      L"Domen: override string sName 'Зоны'" + ofDomenName,
      L"Domen: override strings asFuncsNames ['Limits', 'ZoneKind']" + ofDomenKeys,
      L"end of Domen ''",
      L"section Properties 'Limits' first",
      L"Properties Limits: override strings asObjectTypes []" + ofTypes,
      L"Properties Limits: override string sId 'Limits'" + ofId,
      L"Properties Limits: override string sName ''" + ofName,
      L"Properties Limits: override int iUniq 0" + ofUnique,
      L"Properties Limits: override int iSortId -20" + ofSortId,
      L"Properties Limits: override strings asFuncsNames ['Lower']" + ofFields,
      L"end of Properties 'Limits'",
      L"section Properties 'ZoneKind' last",
      L"Properties ZoneKind: override strings asObjectTypes ['Room', 'Door']" + ofTypes,
      L"Properties ZoneKind: override string sId 'ZoneKind'" + ofId,
      L"Properties ZoneKind: override string sName 'Kind of zone'" + ofName,
      L"Properties ZoneKind: override int iUniq 1" + ofUnique,
      L"Properties ZoneKind: override int iSortId 10" + ofSortId,
      L"Properties ZoneKind: override strings asFuncsNames ['Kind', 'Count']" + ofFields,
      L"end of Properties 'ZoneKind'",
      L"section ArrayValueFields 'Lower' first",
      L"ArrayValueFields Lower: override string sName ''" + ofFieldName,
      L"ArrayValueFields Lower: override string sType 'i'" + ofType,
      L"ArrayValueFields Lower: override int iDefault 1" + ofDefault,
      L"end of ArrayValueFields 'Lower'",
      L"section ArrayValueFields 'Kind'",
      L"ArrayValueFields Kind: override string sName 'Вид'" + ofFieldName,
      L"ArrayValueFields Kind: override string sType 'r'" + ofType,
      L"ArrayValueFields Kind: override double rDefault 1" + ofDefault,
      L"end of ArrayValueFields 'Kind'",
      L"section ArrayValueFields 'Count' last",
      L"ArrayValueFields Count: override string sName 'Count'" + ofFieldName,
      L"end of ArrayValueFields 'Count'",
      L"save 'out.json' 2",
      L"end of parser",
  };
  EXPECT_EQ(RequestsOfExport(std::move(domen)), expected);
}

TEST(Writing, BuildsTheParserWithNewAndEndsItWithDelete) {
  Script script;
  DomenStore store;
  store.AddDomen(L"a", Domen(L"a", L""));
  store.ExportDomenJson(L"a", L"out.json");
  EXPECT_EQ(script.parsersByNew, 1);
  EXPECT_EQ(script.parsersByDelete, 1);
}

TEST(Writing, ShiftsTheTypesByOneAndWritesNoValueOfAField) {
  struct Case {
    int type;
    Texts requests;
  };
  const std::wstring item = L"ArrayValueFields F: override ";
  const Case cases[] = {
      {typeInt, {}},
      {typeReal, {item + L"string sType 'i'" + ofType, item + L"int iDefault 1" + ofDefault}},
      {typeStr, {item + L"string sType 'r'" + ofType, item + L"double rDefault 1" + ofDefault}},
      {typeIList, {item + L"string sType 's'" + ofType, item + L"string sDefault ''" + ofDefault}},
      {typeRList, {item + L"string sType 'ai'" + ofType, item + L"int iDefault 1" + ofDefault}},
      {typeSList, {item + L"string sType 'ar'" + ofType, item + L"double rDefault 1" + ofDefault}},
  };
  for (const Case& one : cases) {
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {{L"F", L"T", one.type}});
    EXPECT_EQ(RequestsOfExport(std::move(domen)),
              Join({
                  WriteDomen(L"A", L"['P']"),
                  WriteProperty(L"P", L" first last", L"['F']"),
                  Texts{L"section ArrayValueFields 'F' first last",
                        item + L"string sName 'T'" + ofFieldName},
                  one.requests,
                  Texts{L"end of ArrayValueFields 'F'"},
                  save,
              }))
        << one.type;
  }
}

TEST(Writing, RequestsTheDomainAloneIfItHasNoProperties) {
  EXPECT_EQ(RequestsOfExport(Domen(L"a", L"A")), Join({
                                                     WriteDomen(L"A", L"[]"),
                                                     save,
                                                 }));
}

TEST(Writing, MakesOneRunOfAllFieldsThatMayLackItsFirstOrItsLast) {
  const std::initializer_list<ExportedField> two = {{L"F", L"F", typeInt}, {L"G", L"G", typeInt}};
  {
    SCOPED_TRACE("all have fields");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", two);
    AddProperty(domen, L"Q", {{L"H", L"H", typeInt}});
    AddProperty(domen, L"R", {{L"I", L"I", typeInt}});
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P', 'Q', 'R']"),
                                                      WriteProperty(L"P", L" first", L"['F', 'G']"),
                                                      WriteProperty(L"Q", L"", L"['H']"),
                                                      WriteProperty(L"R", L" last", L"['I']"),
                                                      WriteIntField(L"F", L" first", L"F"),
                                                      WriteIntField(L"G", L"", L"G"),
                                                      WriteIntField(L"H", L"", L"H"),
                                                      WriteIntField(L"I", L" last", L"I"),
                                                      save,
                                                  }));
  }
  {
    SCOPED_TRACE("not the first");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {});
    AddProperty(domen, L"Q", two);
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P', 'Q']"),
                                                      WriteProperty(L"P", L" first", L"[]"),
                                                      WriteProperty(L"Q", L" last", L"['F', 'G']"),
                                                      WriteIntField(L"F", L"", L"F"),
                                                      WriteIntField(L"G", L" last", L"G"),
                                                      save,
                                                  }));
  }
  {
    SCOPED_TRACE("not the last");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", two);
    AddProperty(domen, L"Q", {});
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P', 'Q']"),
                                                      WriteProperty(L"P", L" first", L"['F', 'G']"),
                                                      WriteProperty(L"Q", L" last", L"[]"),
                                                      WriteIntField(L"F", L" first", L"F"),
                                                      WriteIntField(L"G", L"", L"G"),
                                                      save,
                                                  }));
  }
  {
    SCOPED_TRACE("neither the first nor the last");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {});
    AddProperty(domen, L"Q", two);
    AddProperty(domen, L"R", {});
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P', 'Q', 'R']"),
                                                      WriteProperty(L"P", L" first", L"[]"),
                                                      WriteProperty(L"Q", L"", L"['F', 'G']"),
                                                      WriteProperty(L"R", L" last", L"[]"),
                                                      WriteIntField(L"F", L"", L"F"),
                                                      WriteIntField(L"G", L"", L"G"),
                                                      save,
                                                  }));
  }
  {
    SCOPED_TRACE("not the one in the middle");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {{L"F", L"F", typeInt}});
    AddProperty(domen, L"Q", {});
    AddProperty(domen, L"R", {{L"G", L"G", typeInt}});
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P', 'Q', 'R']"),
                                                      WriteProperty(L"P", L" first", L"['F']"),
                                                      WriteProperty(L"Q", L"", L"[]"),
                                                      WriteProperty(L"R", L" last", L"['G']"),
                                                      WriteIntField(L"F", L" first", L"F"),
                                                      WriteIntField(L"G", L" last", L"G"),
                                                      save,
                                                  }));
  }
  {
    SCOPED_TRACE("none");
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {});
    EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                      WriteDomen(L"A", L"['P']"),
                                                      WriteProperty(L"P", L" first last", L"[]"),
                                                      save,
                                                  }));
  }
}

TEST(Writing, RequestsAFieldNameOfTwoPropertiesTwice) {
  Domen domen(L"a", L"A");
  AddProperty(domen, L"P", {{L"F", L"One", typeInt}});
  AddProperty(domen, L"Q", {{L"F", L"Two", typeInt}});
  EXPECT_EQ(RequestsOfExport(std::move(domen)), Join({
                                                    WriteDomen(L"A", L"['P', 'Q']"),
                                                    WriteProperty(L"P", L" first", L"['F']"),
                                                    WriteProperty(L"Q", L" last", L"['F']"),
                                                    WriteIntField(L"F", L" first", L"One"),
                                                    WriteIntField(L"F", L" last", L"Two"),
                                                    save,
                                                }));
}

TEST(Writing, RequestsNothingForAnUnknownDomain) {
  Script script;
  DomenStore store;
  store.AddDomen(L"a", Domen(L"a", L""));
  store.ExportDomenJson(L"A", L"out.json");
  store.ExportDomenJson(L"", L"out.json");
  EXPECT_EQ(script.requests, Texts{});
}

TEST(Writing, LeavesTheStoreUnchanged) {
  Script script;
  AnswerZones(script);
  DomenStore store;
  store.LoadDomenJson(L"zones.json", L"");
  store.activeDomenId = L"other";
  store.ExportDomenJson(L"zones", L"out.json");
  EXPECT_EQ(Describe(store), zonesDomen);
  EXPECT_EQ(store.activeDomenId, L"other");
}

TEST(Writing, GoesOnWithItsKeysWhetherTheLibraryReturnsThemOrCopiesOfThem) {
  for (const ArrayResult arrays : {ArrayResult::defaults, ArrayResult::other}) {
    Domen domen(L"a", L"A");
    AddProperty(domen, L"P", {{L"F", L"F", typeInt}});
    DomenStore store;
    store.AddDomen(L"a", std::move(domen));
    Script script;
    script.arrays = arrays;
    store.ExportDomenJson(L"a", L"out.json");
    EXPECT_EQ(script.requests, Join({
                                   WriteDomen(L"A", L"['P']"),
                                   WriteProperty(L"P", L" first last", L"['F']"),
                                   WriteIntField(L"F", L" first last", L"F"),
                                   save,
                               }));
  }
}

TEST(Writing, EndsSilentlyAndSavesNothingWhicheverRequestFails) {
  Domen domen(L"a", L"A");
  AddProperty(domen, L"P", {{L"F", L"F", typeInt}, {L"G", L"G", typeRList}});
  AddProperty(domen, L"Q", {{L"H", L"H", typeStr}});
  DomenStore store;
  store.AddDomen(L"a", std::move(domen));
  const TempFolder folder;
  const std::wstring target = folder.Wide() + L"/out.json";
  int requests = 0;
  {
    Script whole;
    store.ExportDomenJson(L"a", target);
    requests = whole.made;
  }
  for (const auto raise : {RaiseError, RaiseBadAlloc, RaiseNumber}) {
    for (int failing = 1; failing <= requests; ++failing) {
      Script script;
      script.fail = raise;
      script.failing = failing;
      EXPECT_NO_THROW(store.ExportDomenJson(L"a", target)) << failing;
      EXPECT_EQ(script.made, failing) << "no request follows the one that failed";
      ExpectEverythingEnded(script, std::to_wstring(failing));
    }
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "only the library writes files";
}

// Arrays of strings. The sanitizers report double releases and leaks.

// Returns what a request finds and what it makes of the defaults.
std::pair<bool, Texts> RequestArray(ArrayResult arrays, bool inFile, bool overriding,
                                    Texts values) {
  Script script;
  script.arrays = arrays;
  if (inFile) script.Answer(L"S", L"", L"as", Texts{L"a", L"b", L"c"});
  CfgParser parser(L"a.json", L"", L"RU");
  bool sectionFound = false;
  const std::unique_ptr<JSON5Section> section(parser.Section(L"S", sectionFound, true, true, L""));
  const bool found = ReadStringArrayParam(*section, L"as", values, L"c", overriding);
  return {found, values};
}

const Texts noTexts;
const Texts twoTexts = {L"x", L"y"};
const Texts textsOfFile = {L"a", L"b", L"c"};

TEST(ReadStringArrayParam, ReleasesBothArraysIfTheLibraryFoundItsOwn) {
  for (const Texts& defaults : {noTexts, twoTexts}) {
    EXPECT_EQ(RequestArray(ArrayResult::defaults, true, false, defaults),
              std::pair(true, textsOfFile));
  }
}

TEST(ReadStringArrayParam, ReleasesTheDefaultsOnceIfTheyAreTheResult) {
  for (const Texts& defaults : {noTexts, twoTexts}) {
    for (const bool inFile : {true, false}) {
      EXPECT_EQ(RequestArray(ArrayResult::defaults, inFile, true, defaults),
                std::pair(false, defaults));
    }
    EXPECT_EQ(RequestArray(ArrayResult::defaults, false, false, defaults),
              std::pair(false, defaults));
  }
}

TEST(ReadStringArrayParam, LeavesTheDefaultsToALibraryThatReturnsANewArrayOnOverride) {
  for (const Texts& defaults : {noTexts, twoTexts}) {
    EXPECT_EQ(RequestArray(ArrayResult::other, true, true, defaults), std::pair(false, defaults));
  }
}

TEST(ReadStringArrayParam, ReleasesNoMoreOnOverrideIfTheLibrarySaysThatItFoundTheKey) {
  for (const ArrayResult arrays : {ArrayResult::defaults, ArrayResult::other}) {
    Script script;
    script.arrays = arrays;
    script.foundOnOverride = true;
    CfgParser parser(L"a.json", L"", L"RU");
    bool found = false;
    const std::unique_ptr<JSON5Section> section(parser.Section(L"S", found, true, true, L""));
    Texts values = twoTexts;
    EXPECT_TRUE(ReadStringArrayParam(*section, L"as", values, L"c", true));
    EXPECT_EQ(values, twoTexts);
  }
}

TEST(ReadStringArrayParam, LeavesTheDefaultsToALibraryThatReturnsNoArray) {
  for (const Texts& defaults : {noTexts, twoTexts}) {
    EXPECT_EQ(RequestArray(ArrayResult::null, false, false, defaults), std::pair(false, noTexts));
  }
}

TEST(ReadStringArrayParam, TakesACountBelow1ForEmptyAndLeavesTheArrayToTheLibrary) {
  for (const ArrayResult arrays : {ArrayResult::empty, ArrayResult::negative}) {
    for (const Texts& defaults : {noTexts, twoTexts}) {
      EXPECT_EQ(RequestArray(arrays, true, false, defaults), std::pair(true, noTexts));
      EXPECT_EQ(RequestArray(arrays, false, false, defaults), std::pair(false, noTexts));
      EXPECT_EQ(RequestArray(arrays, false, true, defaults), std::pair(false, noTexts));
    }
  }
}

TEST(ReadStringArrayParam, CountsFromZeroWithNothingFound) {
  Script script;
  CfgParser parser(L"a.json", L"", L"RU");
  bool found = false;
  const std::unique_ptr<JSON5Section> section(parser.Section(L"S", found, true, true, L""));
  Texts values = {L"x", L"", L"y"};
  ReadStringArrayParam(*section, L"as", values, L"comment", false);
  EXPECT_EQ(script.requests.back(), L"S: strings as ['x', '', 'y'] // comment");
  ReadStringArrayParam(*section, L"as", values, L"comment", true);
  EXPECT_EQ(script.requests.back(), L"S: override strings as ['x', '', 'y'] // comment");
}

TEST(ReadStringArrayParam, KeepsTheValuesIfTheLibraryRaisesAnException) {
  Script script;
  CfgParser parser(L"a.json", L"", L"RU");
  bool found = false;
  const std::unique_ptr<JSON5Section> section(parser.Section(L"S", found, true, true, L""));
  script.fail = RaiseError;
  script.failing = script.made + 1;
  Texts values = {L"x", L"y"};
  EXPECT_THROW(ReadStringArrayParam(*section, L"as", values, L"c"), std::runtime_error);
  EXPECT_EQ(values, (Texts{L"x", L"y"}));
}

// The editor's configuration text.

TEST(ConfigText, IsPassedOnUnchangedByAnEditorAndByItsCopies) {
  const TempFolder folder;
  const std::wstring file = folder.Write("zones.json", "");
  for (const std::wstring text : {L"the text", L" \tthe text\n;{ ", L""}) {
    RevitMappingEditorDll editor(L"data", text.c_str());
    RevitMappingEditorDll copy(editor);
    RevitMappingEditorDll assigned(L"other data", L"another text");
    assigned = editor;
    for (RevitMappingEditorDll* one : {&editor, &copy, &assigned}) {
      Script script;
      EXPECT_EQ(one->CreateDomen(file.c_str()), 0);
      ASSERT_FALSE(script.requests.empty());
      EXPECT_EQ(script.requests.front(), L"parser '" + file + L"' '" + text + L"' 'RU'");
    }
  }
}

TEST(ConfigText, IsPassedOnForAClassificatorFileToo) {
  Script script;
  const TempFolder folder;
  const std::wstring file = folder.Write("zones.json", "");
  RevitMappingEditorDll editor(L"data", L"the text");
  EXPECT_EQ(editor.CreateClassificator(L"id", L"name", L"Code", file.c_str()), 0);
  ASSERT_FALSE(script.requests.empty());
  EXPECT_EQ(script.requests.front(), L"parser '" + file + L"' 'the text' 'RU'");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
