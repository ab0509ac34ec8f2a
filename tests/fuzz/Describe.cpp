#include "fuzz/Describe.h"

#include <vector>

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

// The length prefix makes the encoding unambiguous.
std::wstring Of(const std::wstring& text) {
  return std::to_wstring(text.size()) + L"'" + text + L"' ";
}

std::wstring Of(const std::vector<std::wstring>& texts) {
  std::wstring all = L"[";
  for (const std::wstring& text : texts) all += Of(text);
  return all + L"]";
}

std::wstring Of(const std::vector<ParamItemList>& lists) {
  std::wstring all;
  for (const ParamItemList& items : lists) {
    all += L"{";
    for (const ParamItem& item : items) all += Of(item.propertyId) + Of(item.valueText);
    all += L"}";
  }
  return all;
}

std::wstring Of(const Naive::MapTextSection& section) {
  std::wstring all = Of(section.defaultCode) + Of(section.domenIds) + L"\n";
  for (const Naive::MapTextRecord& record : section.records) {
    all += Of(record.code) + Of(record.itemLists) + Of(record.text) + Of(record.tokens) + L"\n";
  }
  return all;
}

std::wstring Of(const Naive::ParamSection& section) {
  std::wstring all = Of(section.domenIds) + L"\n";
  for (const Naive::ParamRecord& record : section.records) {
    all += Of(record.code) + Of(record.itemLists) + L"\n";
  }
  return all;
}

std::wstring Of(const ColorEntry& color) {
  std::wstring all;
  for (const int number :
       {color.number, color.channel1, color.channel2, color.channel3, color.percent}) {
    all += std::to_wstring(number) + L" ";
  }
  return all;
}

std::wstring Of(const Naive::Colorats& colorats) {
  std::wstring all;
  for (const auto& [id, colors] : colorats) {
    all += Of(id) + L"\n";
    for (const auto& [key, color] : colors) all += Of(key) + Of(color) + L"\n";
  }
  return all;
}

Naive::Colorats CopyOf(const Colorats& colorats) {
  Naive::Colorats copy;
  for (const auto& [id, colors] : colorats) {
    copy[id].insert(colors.begin(), colors.end());
  }
  return copy;
}

std::wstring Of(const DomenProperty& property) {
  std::wstring all = Of(property.id) + Of(property.name) + Of(property.objectTypes) +
                     (property.unique ? L"unique " : L"") + std::to_wstring(property.sortIndex) +
                     L"\n";
  for (const auto& field : property.fields) {
    all += L"  " + Of(field->name) + Of(field->title) + std::to_wstring(field->valueType) +
           (field->fieldFlag ? L" flag " : L" ") + Of(field->GetValue()) + L"\n";
  }
  return all;
}

}  // namespace

std::wstring Describe(const Naive::ClassificatorFile& file) {
  return Of(file.classTitle) + Of(file.classFirstWord) + Of(file.classSecondWord) + L"\n" +
         Of(file.mapTextSection) + Of(file.paramSection) + Of(file.colorats) +
         Of(file.activeColoratId);
}

std::wstring Describe(const Classificator& classificator) {
  return Describe(Naive::ClassificatorFile{
      classificator.classTitle, classificator.classFirstWord, classificator.classSecondWord,
      Naive::CopyOf(classificator.mapTextSection), Naive::CopyOf(classificator.paramSection),
      CopyOf(classificator.colorats), classificator.activeColoratId});
}

std::wstring Describe(const DomenStore& store) {
  std::wstring all = Of(store.activeDomenId) + L"\n";
  for (const auto& [id, domen] : store.domens) {
    all += Of(id) + Of(domen.id) + Of(domen.name) + L"\n";
    for (const auto& [key, property] : domen.properties) all += Of(key) + Of(property);
  }
  return all;
}
