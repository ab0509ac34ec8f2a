// The schema of a domain file in JSON5: names of sections and keys, and the comment of each key in
// a written file.

#pragma once

namespace TolvenLibs::RevitMappingEditorDll {

constexpr const wchar_t* cfgLanguage = L"RU";

constexpr const wchar_t* domenSection = L"Domen";
constexpr const wchar_t* propertiesSection = L"Properties";
constexpr const wchar_t* fieldsSection = L"ArrayValueFields";

struct SchemaKey {
  const wchar_t* name;
  const wchar_t* comment;
};

// Of the domain. The functions are its properties.
constexpr SchemaKey domenName = {L"sName", L"Имя домена свойств для интерфейса"};
constexpr SchemaKey domenFuncsNames = {L"asFuncsNames", L"Список свойств принадлежащих домену"};

// Of a property. The functions are its value fields.
constexpr SchemaKey propertyObjectTypes = {
    L"asObjectTypes",
    L"Массив типов объектов Ревит (помещение, дверь, лестница, форма и т.п.), для которых может "
    L"быть задано данное свойство"};
constexpr SchemaKey propertyId = {L"sId", L"Имя (код) свойства"};
constexpr SchemaKey propertyName = {L"sName", L"Название свойства"};
constexpr SchemaKey propertyUnique = {L"iUniq", L"уникальность – да/нет"};
constexpr SchemaKey propertySortIndex = {
    L"iSortId",
    L"индекс сортировки – для показа в интерфейсе. В интерфейсе свойства сортируются по индексу, "
    L"объекты с одинаковым индексом показываются в алфавитном порядке"};
constexpr SchemaKey propertyFuncsNames = {L"asFuncsNames", L"массив полей значений"};

// Of a value field. An element has only the default key of its type.
constexpr SchemaKey fieldName = {L"sName", L"название поля списка значений"};
constexpr SchemaKey fieldType = {L"sType", L"тип значения (целое, действительное)"};
constexpr SchemaKey fieldIntDefault = {L"iDefault", L"значение по умолчанию"};
constexpr SchemaKey fieldRealDefault = {L"rDefault", L"значение по умолчанию"};
constexpr SchemaKey fieldStrDefault = {L"sDefault", L"значение по умолчанию"};

}  // namespace TolvenLibs::RevitMappingEditorDll
