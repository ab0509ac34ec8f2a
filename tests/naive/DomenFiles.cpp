#include "naive/DomenFiles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "naive/Fields.h"
#include "naive/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

using Kind = Json5Value::Kind;

struct Context {
  std::wstring domenId;
  Texts objectTypes;
  std::wstring propertyId;
};

template <class Change>
void EditProperties(DomenStore& store, const std::wstring& domenId, const Change& change) {
  store.domens.Edit([&](Domens::Map& domens) { domens.at(domenId).properties.Edit(change); });
}

void AddDomen(DomenStore& store, const std::wstring& id, Domen domen) {
  if (store.domens.contains(id)) return;
  store.domens.Edit([&](Domens::Map& domens) { domens.emplace(id, std::move(domen)); });
}

void TakeDomen(DomenStore& store, Context& context, std::wstring rest) {
  rest = Trim(rest);
  context.domenId = rest.substr(0, rest.find(L' '));
  if (context.domenId.empty()) return;
  Naive::AddDomen(store, context.domenId, Domen(context.domenId, context.domenId));
  store.activeDomenId = context.domenId;
}

void TakeProperty(DomenStore& store, Context& context, std::wstring rest) {
  context.propertyId = L"";
  if (context.domenId.empty()) return;
  const Texts pieces = SplitTrimmed(rest, L" ", false, 4);
  int unique = 0;
  int sortIndex = 0;
  if (pieces.size() < 3) return;
  if (!Naive::ParseInt(pieces[1], unique) || !Naive::ParseInt(pieces[2], sortIndex)) return;
  context.propertyId = pieces[0];
  const std::wstring name = pieces.size() == 4 ? pieces[3] : pieces[0];
  EditProperties(store, context.domenId, [&](DomenProperties& properties) {
    if (properties.count(pieces[0]) != 0) return;
    properties.emplace(pieces[0],
                       DomenProperty(pieces[0], name, context.objectTypes, unique == 1, sortIndex));
  });
}

int TypeOf(std::wstring keyword) {
  const std::map<std::wstring, int> types = {{L"int", 0},   {L"real", 1},  {L"str", 2},
                                             {L"ilist", 3}, {L"rlist", 4}, {L"slist", 5}};
  return types.count(keyword) == 0 ? -1 : types.at(keyword);
}

void TakeField(DomenStore& store, const Context& context, std::wstring entry) {
  if (context.domenId.empty() || context.propertyId.empty()) return;
  const Texts pieces = SplitTrimmed(entry, L" ", false, 5);
  int flag = 0;
  if (pieces.size() < 4 || TypeOf(pieces[1]) == -1 || !Naive::ParseInt(pieces[2], flag)) return;
  const std::wstring title = pieces.size() == 5 ? pieces[4] : pieces[0];
  EditProperties(store, context.domenId, [&](DomenProperties& properties) {
    if (properties.count(context.propertyId) == 0) return;
    Naive::AddValueField(properties.at(context.propertyId), pieces[0], title, TypeOf(pieces[1]),
                         flag != 0, pieces[3]);
  });
}

void TakeEntry(DomenStore& store, Context& context, std::wstring entry) {
  entry = Trim(entry);
  if (entry.empty() || entry[0] == L'/' || entry[0] == L'!') return;
  if (StartsWith(entry, L"@@@")) {
    TakeDomen(store, context, entry.substr(3));
  } else if (StartsWith(entry, L"@@")) {
    context.objectTypes = SplitTrimmed(entry.substr(2), L" ", false);
  } else if (StartsWith(entry, L"@")) {
    TakeProperty(store, context, entry.substr(1));
  } else {
    TakeField(store, context, entry);
  }
}

// The configuration library passes NUL-terminated strings, which end at their first NUL.
std::wstring UpToNul(std::wstring text) {
  return text.substr(0, text.find(L'\0'));
}

// A section or an element of one, with its requests. An absent one has nothing.
class Element {
 public:
  Element(const Json5& root, std::wstring section, std::wstring item) {
    const Json5* outer = Object(root, section);
    const Json5* inner = outer ? Object(*outer, item) : nullptr;
    element = !inner && item.empty() ? outer : inner;
  }

  std::wstring String(std::wstring key, std::wstring defaultValue) {
    const Json5* value = Find(key);
    found = value && value->kind == Kind::string;
    return found ? UpToNul(value->text) : defaultValue;
  }

  double Real(std::wstring key) {
    const Json5* value = Find(key);
    found = value && value->kind == Kind::number;
    return found ? value->number : 1;
  }

  int Int(std::wstring key, int defaultValue) {
    const double number = Real(key);
    found =
        found && number >= -2147483648.0 && number <= 2147483647.0 && number == std::floor(number);
    return found ? static_cast<int>(number) : defaultValue;
  }

  Texts Strings(std::wstring key) {
    Texts texts;
    const Json5* value = Find(key);
    if (!value) return texts;
    for (const Json5& one : value->elements) {
      if (one.kind == Kind::string) texts.push_back(UpToNul(one.text));
    }
    return texts;
  }

  bool found = false;  // whether the file had the value of the last request

 private:
  static const Json5* Object(const Json5& parent, std::wstring key) {
    const auto member = parent.members.find(key);
    if (member == parent.members.end() || member->second.kind != Kind::object) return nullptr;
    return &member->second;
  }

  const Json5* Find(std::wstring key) const {
    if (!element || element->members.count(key) == 0) return nullptr;
    return &element->members.at(key);
  }

  const Json5* element;
};

void ReadField(const Json5& root, DomenProperty& property, std::wstring name) {
  Element element(root, L"ArrayValueFields", name);
  const std::wstring title = element.String(L"sName", name);
  const std::wstring type = element.String(L"sType", L"r");
  const std::map<std::wstring, int> types = {{L"i", 0},  {L"r", 1},  {L"s", 2},
                                             {L"ai", 3}, {L"ar", 4}, {L"as", 5}};
  if (types.count(type) == 0) {
    Naive::AddValueField(property, name, title, 0, element.found, L"1.0");
    return;
  }
  std::wstring value;
  if (type.back() == L'i') value = std::to_wstring(element.Int(L"iDefault", 1));
  if (type.back() == L'r') value = Naive::FormatReal(element.Real(L"rDefault"));
  if (type.back() == L's') value = element.String(L"sDefault", L"1.0");
  Naive::AddValueField(property, name, title, types.at(type), element.found, value);
}

DomenProperty ReadProperty(const Json5& root, std::wstring key) {
  Element element(root, L"Properties", key);
  DomenProperty property(key, element.String(L"sName", L""), element.Strings(L"asObjectTypes"),
                         element.Int(L"iUniq", 0) != 0, element.Int(L"iSortId", 0));
  for (const std::wstring& name : element.Strings(L"asFuncsNames")) ReadField(root, property, name);
  return property;
}

// Writing

Json5 StringOf(std::wstring text) {
  Json5 value;
  value.kind = Kind::string;
  value.text = UpToNul(text);
  return value;
}

Json5 NumberOf(double number) {
  Json5 value;
  value.kind = Kind::number;
  value.number = number;
  return value;
}

Json5 ArrayOf(const Texts& texts) {
  Json5 value;
  value.kind = Kind::array;
  for (const std::wstring& text : texts) value.elements.push_back(StringOf(text));
  return value;
}

Json5 EmptyObject() {
  Json5 value;
  value.kind = Kind::object;
  return value;
}

// Returns the member of an object; adds it if it is missing.
Json5& ObjectAt(Json5& parent, std::wstring key) {
  return parent.members.try_emplace(UpToNul(key), EmptyObject()).first->second;
}

void WriteProperty(Json5& root, std::wstring key, const DomenProperty& property) {
  Texts fieldNames;
  for (const auto& field : property.fields) fieldNames.push_back(field->name);
  Json5& element = ObjectAt(ObjectAt(root, L"Properties"), key);
  element.members[L"asObjectTypes"] = ArrayOf(property.objectTypes);
  element.members[L"sId"] = StringOf(key);
  element.members[L"sName"] = StringOf(property.name);
  element.members[L"iUniq"] = NumberOf(property.unique ? 1 : 0);
  element.members[L"iSortId"] = NumberOf(property.sortIndex);
  element.members[L"asFuncsNames"] = ArrayOf(fieldNames);
}

// Writes each type as the code of the previous type.
void WriteField(Json5& root, const Properties::PropertyParameter& field) {
  Json5& element = ObjectAt(ObjectAt(root, L"ArrayValueFields"), field.name);
  element.members[L"sName"] = StringOf(field.title);
  const wchar_t* codes[] = {nullptr, L"i", L"r", L"s", L"ai", L"ar"};
  const wchar_t* code = codes[field.valueType];
  if (!code) return;
  const std::wstring type = code;
  element.members[L"sType"] = StringOf(type);
  if (type.back() == L'i') element.members[L"iDefault"] = NumberOf(1);
  if (type.back() == L'r') element.members[L"rDefault"] = NumberOf(1);
  if (type.back() == L's') element.members[L"sDefault"] = StringOf(L"");
}

// If the only element of a section has no name, it is the section itself.
void FoldNameless(Json5& root, std::wstring section) {
  const auto found = root.members.find(section);
  if (found == root.members.end()) return;
  Json5& elements = found->second;
  if (elements.members.size() != 1 || elements.members.count(L"") == 0) return;
  const Json5 only = elements.members.at(L"");
  elements = only;
}

}  // namespace

void ParseDomenSection(DomenStore& store, std::wstring body) {
  const Texts lines = SplitTrimmed(body, L"\n", false);
  const Texts semicolons = SplitTrimmed(body, L";", false);
  Context context;
  for (const std::wstring& entry : lines.size() > semicolons.size() ? lines : semicolons) {
    TakeEntry(store, context, entry);
  }
}

void LoadDomenText(DomenStore& store, std::string bytes) {
  for (const Section& section : ReadSections(bytes)) {
    if (StartsWith(section.heading, L"==DOMEN")) Naive::ParseDomenSection(store, section.body);
  }
}

void LoadDomenJson(DomenStore& store, std::wstring id, std::string bytes) {
  const std::wstring text = DecodeUtf8(bytes);
  // Bytes that can't be decoded cut the text, and the file counts as empty.
  const bool whole = DecodeUtf8(bytes + " ") == text + L" ";
  const Json5 root = Naive::ParseJson5(whole ? text : L"").value_or(Json5());
  Element element(root, L"Domen", L"");
  Domen domen(id, element.String(L"sName", L""));
  for (const std::wstring& key : element.Strings(L"asFuncsNames")) {
    const DomenProperty property = ReadProperty(root, key);
    if (domen.properties.count(key) != 0) continue;
    domen.properties.Edit(
        [&](DomenProperties& properties) { properties.emplace(key, Naive::CopyOf(property)); });
  }
  Naive::AddDomen(store, id, std::move(domen));
  store.activeDomenId = id;
}

Json5 ExportedTree(const Domen& domen) {
  Json5 root = EmptyObject();
  Texts keys;
  for (const auto& [key, property] : domen.properties) keys.push_back(key);
  Json5& head = ObjectAt(root, L"Domen");
  head.members[L"sName"] = StringOf(domen.name);
  head.members[L"asFuncsNames"] = ArrayOf(keys);
  for (const auto& [key, property] : domen.properties) WriteProperty(root, key, property);
  for (const auto& [key, property] : domen.properties) {
    for (const auto& field : property.fields) WriteField(root, *field);
  }
  FoldNameless(root, L"Properties");
  FoldNameless(root, L"ArrayValueFields");
  return root;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
