#include "Lists.h"

#include <cstddef>
#include <memory>

#include "Results.h"
#include "Wide.h"

namespace {

constexpr const char* typeKeywords[] = {"int", "real", "str", "ilist", "rlist", "slist"};

std::string Line(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += (line.empty() ? "" : "\t") + field;
  return line + "\n";
}

std::string Swatch(int red, int green, int blue) {
  return "\033[48;2;" + std::to_string(red) + ";" + std::to_string(green) + ";" +
         std::to_string(blue) + "m      \033[0m";
}

struct Property {
  std::wstring domen;
  std::wstring id;
  std::wstring name;
  int sortIndex;
};

void AddProperties(RevitMappingEditorDll& editor, const std::wstring& domen,
                   std::vector<const wchar_t*> types, std::vector<Property>& properties) {
  int count = 0;
  const wchar_t** ids = nullptr;
  const wchar_t** names = nullptr;
  int* sortIndexes = nullptr;
  editor.GetDomenPropertysByObjTypes(domen.c_str(), static_cast<int>(types.size()), types.data(),
                                     count, ids, names, sortIndexes);
  const std::vector<std::wstring> takenIds = TakeAll(count, ids);
  const std::vector<std::wstring> takenNames = TakeAll(count, names);
  const std::unique_ptr<int[]> takenIndexes(sortIndexes);
  for (std::size_t i = 0; i < takenIds.size(); ++i) {
    properties.push_back({domen, takenIds[i], takenNames[i], takenIndexes[i]});
  }
}

std::vector<Property> PropertiesOfTypes(RevitMappingEditorDll& editor,
                                        const std::vector<std::string>& types) {
  std::vector<std::wstring> wideTypes;
  for (const std::string& type : types) wideTypes.push_back(ToWide(type));
  std::vector<const wchar_t*> pointers;
  for (const std::wstring& type : wideTypes) pointers.push_back(type.c_str());

  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  std::vector<Property> properties;
  for (const std::wstring& domen : TakeAll(count, ids)) {
    AddProperties(editor, domen, pointers, properties);
  }
  return properties;
}

struct Field {
  std::wstring name;
  std::wstring title;
  int type;
  bool flag;
  std::wstring value;
};

std::vector<Field> FieldsOf(RevitMappingEditorDll& editor, const Property& property) {
  int count = 0;
  const wchar_t** names = nullptr;
  const wchar_t** titles = nullptr;
  int* types = nullptr;
  bool* flags = nullptr;
  const wchar_t** values = nullptr;
  editor.GetDomenPropertyFieldsValues(property.domen.c_str(), property.id.c_str(), count, names,
                                      titles, types, flags, values);
  const std::vector<std::wstring> takenNames = TakeAll(count, names);
  const std::vector<std::wstring> takenTitles = TakeAll(count, titles);
  const std::unique_ptr<int[]> takenTypes(types);
  const std::unique_ptr<bool[]> takenFlags(flags);
  const std::vector<std::wstring> takenValues = TakeAll(count, values);
  std::vector<Field> fields;
  for (std::size_t i = 0; i < takenNames.size(); ++i) {
    fields.push_back({takenNames[i], takenTitles[i], takenTypes[i], takenFlags[i], takenValues[i]});
  }
  return fields;
}

}  // namespace

std::string ListColors(RevitMappingEditorDll& editor, bool withSwatches) {
  int count = 0;
  const wchar_t** keys = nullptr;
  editor.GetColoratsIds(count, keys);
  std::string table;
  for (const std::wstring& key : TakeAll(count, keys)) {
    int number = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
    int percent = 0;
    editor.GetColor(key.c_str(), number, red, green, blue, percent);
    std::vector<std::string> fields = {ToField(key),         std::to_string(number),
                                       std::to_string(red),  std::to_string(green),
                                       std::to_string(blue), std::to_string(percent)};
    if (withSwatches) fields.push_back(Swatch(red, green, blue));
    table += Line(fields);
  }
  return table;
}

std::string ListDomens(RevitMappingEditorDll& editor) {
  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  const std::vector<std::wstring> takenIds = TakeAll(count, ids);
  const wchar_t** names = editor.GetDomensNames(count);
  const std::vector<std::wstring> takenNames = TakeAll(count, names);
  const std::wstring active = Take(editor.GetActiveDomenId());
  std::string table;
  for (std::size_t i = 0; i < takenIds.size(); ++i) {
    table +=
        Line({ToField(takenIds[i]), ToField(takenNames[i]), takenIds[i] == active ? "active" : ""});
  }
  return table;
}

std::string ListProperties(RevitMappingEditorDll& editor, const std::vector<std::string>& types) {
  std::string table;
  for (const Property& property : PropertiesOfTypes(editor, types)) {
    table += Line({ToField(property.domen), ToField(property.id), ToField(property.name),
                   std::to_string(property.sortIndex),
                   std::to_string(FieldsOf(editor, property).size())});
  }
  return table;
}

std::string ListFields(RevitMappingEditorDll& editor, const std::vector<std::string>& types) {
  std::string table;
  for (const Property& property : PropertiesOfTypes(editor, types)) {
    for (const Field& field : FieldsOf(editor, property)) {
      table += Line({ToField(property.domen), ToField(property.id), ToField(field.name),
                     ToField(field.title), typeKeywords[field.type], field.flag ? "1" : "0",
                     ToField(field.value)});
    }
  }
  return table;
}
