#include "support/Domains.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Utf8.h"
#include "json/DomenSchema.h"
#include "support/Random.h"
#include "support/Vocabulary.h"

using nlohmann::json;
using TolvenLibs::RevitMappingEditorDll::EncodeUtf8;
namespace schema = TolvenLibs::RevitMappingEditorDll;

namespace {

constexpr std::size_t fieldsOfProperty = 4;
constexpr int typeCount = 6;

// By type: the keyword in a text file, the code in a JSON5 file, and the key of the default there.
constexpr const char* keywords[typeCount] = {"int", "real", "str", "ilist", "rlist", "slist"};
constexpr const char* codes[typeCount] = {"i", "r", "s", "ai", "ar", "as"};
constexpr const char* defaultKeys[typeCount] = {"iDefault", "rDefault", "sDefault",
                                                "iDefault", "rDefault", "sDefault"};

std::string ToUtf8(std::wstring_view text) {
  return EncodeUtf8(text).value();
}

std::string MakeTitle(const Vocabulary& vocabulary, Random& random) {
  std::string title = ToUtf8(vocabulary.Frequent(random));
  for (int words = random.Between(1, 3); words > 0; --words) {
    title += " " + ToUtf8(vocabulary.Frequent(random));
  }
  return title;
}

std::string MakeValue(int valueType, const Vocabulary& vocabulary, Random& random) {
  const std::string number = std::to_string(random.Below(5'000));
  switch (valueType % 3) {
    case 0:
      return number;
    case 1:
      return number + ".5";
    default:
      return ToUtf8(vocabulary.Frequent(random));
  }
}

PropertyData MakeProperty(std::size_t index, const Vocabulary& vocabulary, Random& random) {
  PropertyData property;
  property.id = ToUtf8(vocabulary.Any(random)) + std::to_string(index);
  property.title = MakeTitle(vocabulary, random);
  const std::size_t firstType = random.Below(20);
  const auto types = random.Between<std::size_t>(1, 3);
  for (std::size_t i = 0; i < types; ++i) {
    property.objectTypes.push_back("Type" + std::to_string((firstType + i) % 20));
  }
  property.unique = random.Below(2) == 0;
  property.sortIndex = static_cast<int>(random.Below(1'000));
  for (std::size_t i = 0; i < fieldsOfProperty; ++i) {
    const int valueType = static_cast<int>((index + i) % typeCount);
    property.fields.push_back(
        {property.id + ToUtf8(vocabulary.Frequent(random)) + std::to_string(i),
         MakeTitle(vocabulary, random), valueType, MakeValue(valueType, vocabulary, random)});
  }
  return property;
}

json ToJson(const FieldData& field) {
  switch (field.valueType % 3) {
    case 0:
      return std::stoi(field.value);
    case 1:
      return std::stod(field.value);
    default:
      return field.value;
  }
}

std::vector<std::string> Ids(const DomainData& domain) {
  std::vector<std::string> ids;
  for (const PropertyData& property : domain) ids.push_back(property.id);
  return ids;
}

std::vector<std::string> FieldNames(const PropertyData& property) {
  std::vector<std::string> names;
  for (const FieldData& field : property.fields) names.push_back(field.name);
  return names;
}

// Returns the domain and the properties, which a file and an export have in common.
json MakeCommonTree(const DomainData& domain, const std::string& name) {
  json tree;
  tree["Domen"] = {{"sName", name}, {"asFuncsNames", Ids(domain)}};
  for (const PropertyData& property : domain) {
    tree["Properties"][property.id] = {{"asObjectTypes", property.objectTypes},
                                       {"sId", property.id},
                                       {"sName", property.title},
                                       {"iUniq", property.unique ? 1 : 0},
                                       {"iSortId", property.sortIndex},
                                       {"asFuncsNames", FieldNames(property)}};
  }
  return tree;
}

// Writes the lines of a JSON5 file, with a comma after each but the last of an object.
class Lines {
 public:
  void Open(const std::string& key) {
    Begin();
    text += json(key).dump() + ": {";
    depth += 2;
    first = true;
  }

  void Add(const schema::SchemaKey& key, const json& value) {
    Begin();
    text += json(ToUtf8(key.name)).dump() + ": " + value.dump();
    comment = " // " + ToUtf8(key.comment);
    first = false;
  }

  void Close() {
    text += std::exchange(comment, "") + "\n";
    depth -= 2;
    text.append(depth, ' ').append("}");
    first = false;
  }

  std::string Finish() {
    Close();
    return text + "\n";
  }

 private:
  void Begin() {
    if (!first) text += ",";
    text += std::exchange(comment, "") + "\n";
    text.append(depth, ' ');
  }

  std::string text = "{";
  std::string comment;
  std::size_t depth = 2;
  bool first = true;
};

void AddProperty(Lines& lines, const PropertyData& property) {
  lines.Open(property.id);
  lines.Add(schema::propertyObjectTypes, property.objectTypes);
  lines.Add(schema::propertyId, property.id);
  lines.Add(schema::propertyName, property.title);
  lines.Add(schema::propertyUnique, property.unique ? 1 : 0);
  lines.Add(schema::propertySortIndex, property.sortIndex);
  lines.Add(schema::propertyFuncsNames, FieldNames(property));
  lines.Close();
}

void AddField(Lines& lines, const FieldData& field) {
  constexpr const schema::SchemaKey* keys[] = {&schema::fieldIntDefault, &schema::fieldRealDefault,
                                               &schema::fieldStrDefault};
  lines.Open(field.name);
  lines.Add(schema::fieldName, field.title);
  lines.Add(schema::fieldType, codes[field.valueType]);
  lines.Add(*keys[field.valueType % 3], ToJson(field));
  lines.Close();
}

}  // namespace

DomainData MakeDomain(std::size_t propertyCount) {
  Random random(propertyCount);
  const Vocabulary vocabulary;
  DomainData domain;
  for (std::size_t i = 0; i < propertyCount; ++i) {
    domain.push_back(MakeProperty(i, vocabulary, random));
  }
  std::sort(domain.begin(), domain.end(),
            [](const PropertyData& left, const PropertyData& right) { return left.id < right.id; });
  return domain;
}

std::string MakeDomainText(const DomainData& domain, const std::string& id) {
  std::string text = "==DOMEN\n@@@ " + id + "\n";
  for (const PropertyData& property : domain) {
    text += "@@";
    for (const std::string& type : property.objectTypes) text += " " + type;
    text += "\n@ " + property.id + (property.unique ? " 1 " : " 0 ") +
            std::to_string(property.sortIndex) + " " + property.title + "\n";
    for (const FieldData& field : property.fields) {
      text += field.name + " " + keywords[field.valueType] + " 1 " + field.value + " " +
              field.title + "\n";
    }
  }
  return text;
}

std::string MakeDomainJson(const DomainData& domain, const std::string& name) {
  Lines lines;
  lines.Open("Domen");
  lines.Add(schema::domenName, name);
  lines.Add(schema::domenFuncsNames, Ids(domain));
  lines.Close();
  lines.Open("Properties");
  for (const PropertyData& property : domain) AddProperty(lines, property);
  lines.Close();
  lines.Open("ArrayValueFields");
  for (const PropertyData& property : domain) {
    for (const FieldData& field : property.fields) AddField(lines, field);
  }
  lines.Close();
  return lines.Finish();
}

json MakeFileTree(const DomainData& domain, const std::string& name) {
  json tree = MakeCommonTree(domain, name);
  for (const PropertyData& property : domain) {
    for (const FieldData& field : property.fields) {
      tree["ArrayValueFields"][field.name] = {{"sName", field.title},
                                              {"sType", codes[field.valueType]},
                                              {defaultKeys[field.valueType], ToJson(field)}};
    }
  }
  return tree;
}

json MakeExportTree(const DomainData& domain, const std::string& name) {
  // An export writes a field with the previous type and a constant default.
  const json defaults[] = {1, 1.0, ""};
  json tree = MakeCommonTree(domain, name);
  for (const PropertyData& property : domain) {
    for (const FieldData& field : property.fields) {
      json& element = tree["ArrayValueFields"][field.name] = {{"sName", field.title}};
      if (field.valueType == 0) continue;
      const int written = field.valueType - 1;
      element["sType"] = codes[written];
      element[defaultKeys[written]] = defaults[written % 3];
    }
  }
  return tree;
}
