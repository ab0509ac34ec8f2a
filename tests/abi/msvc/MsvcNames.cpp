// Refers to every export once, so that all are undefined symbols of the object file. It is compiled
// for Microsoft's ABI with the fake standard headers of the folder `standard`, and never linked.

#include "RevitMappingEditorDll.h"
#include "RevitMappingEditorRelease.h"

using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

void UseAllExports(const wchar_t* text, const wchar_t** texts, int number, int* numbers,
                   bool* flags) {
  RevitMappingEditorDll editor(text, text);
  RevitMappingEditorDll copy(editor);
  copy = editor;

  editor.CreateClassificator(text, text, text, text);
  editor.GetClassificatorsNames(number, texts, texts);
  editor.SetActiveClassificator(text);

  editor.SetActiveColorat(text);
  editor.GetColoratsIds(number, texts);
  editor.GetColorNum(text);
  editor.GetColor(text, number, number, number, number, number);

  editor.GetActiveClassificatorParamName();
  editor.GetClaccificatorCodeId(text);
  editor.GetClaccificatorCode(number);
  editor.GetDefaultClaccificatorCode();
  editor.GetMappingStr(text, number, text);
  editor.GetClaccificatorCodeParams(number, number, text);

  editor.GetStartMark();
  editor.GetEndMark();
  editor.SetStartMark(text);
  editor.SetEndMark(text);

  editor.CreateDomen(text);
  editor.GetDomensIds(number);
  editor.GetDomensNames(number);
  editor.GetActiveDomenId();
  editor.SetActiveDomenId(text);
  editor.SetActiveDomenByName(text);
  editor.GetPropertiesSortIndex(text, number, texts, numbers);
  editor.GetDomenPropertysByObjType(text, text, number, texts, texts, numbers);
  editor.GetDomenPropertysByObjTypes(text, number, texts, number, texts, texts, numbers);
  editor.GetDomenPropertyFieldsValues(text, text, number, texts, texts, numbers, flags, texts);
  editor.GetDomenPropertiesCheckInfo(text, number, texts, flags, numbers, flags);
  editor.ExportJson(text, text);

  RevitMappingEditorRelease(text);
}
