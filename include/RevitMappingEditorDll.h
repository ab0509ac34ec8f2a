// The exported class, which is the whole interface of the library.
//
// An editor holds classification schemes (Classificators) and property domains (Domens), read from
// files. For the description of a model element it finds the code, and composes the mapping string
// to be written on the element.
//
//   using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
//   RevitMappingEditorDll editor(L"C:/ProgramData/Schemes", L"");
//   if (editor.CreateClassificator(L"UF", L"UniFormat II", L"ClassCode", L"uniformat.txt") == 0 &&
//       editor.SetActiveClassificator(L"UF") == 0) {
//     const wchar_t* text = editor.GetMappingStr(L"Basic Wall:Exterior - Brick", 1, L"=");
//     ...
//     delete[] text;
//   }
//
// Strings. Arguments are NUL-terminated and never null; the editor copies what it keeps. Results
// are new buffers, never null: the caller owns them and frees them with `delete[]`, and they
// outlive the editor. Where caller and library don't share one C++ runtime, use
// RevitMappingEditorRelease.h.
//
// Arrays. Every call that returns sets the count. If it is 0, the arrays are left as they were;
// otherwise each is a new array of that many elements. The caller frees each string in it with
// `delete[]`, then the array with `delete[]`. After an exception the arrays are as they were, and
// the count is unspecified unless the call says otherwise.
//
// Failures. Expected ones are reported by a status:
//
//    0   done
//   -1   no such file, id or name; for a load also a file extension that no reader takes
//    1   there is nothing to choose from
//    2   the file exists but can't be opened; for a ".json" domain file that is 3
//    3   an exception ended the reading of the file; what was read before stays, unless it is a
//        ".json" domain file
//
// All others raise a standard exception, and leave the editor usable. Any call can raise
// `bad_alloc`, but a load that runs out of memory returns 3, an export fails silently, and an item
// of a mapping string is left out, as is one that can't be composed for another reason.
//
// Threads. An editor may be used by one thread at a time, also as the source of a copy. Different
// editors share nothing mutable.

#pragma once

#include <deque>
#include <string>

#include "RevitMappingEditorApi.h"
#include "classificator/Classificator.h"
#include "domen/DomenStore.h"

namespace TolvenLibs::RevitMappingEditorDll {

class REVIT_MAPPING_EDITOR_API RevitMappingEditorDll {
 public:
  // Constructs an empty editor. Files that aren't found under their names are sought in
  // `dataFolder`. `configText` is passed to the readers of configuration files.
  RevitMappingEditorDll(const wchar_t* dataFolder, const wchar_t* configText);

  // Makes a deep copy, including selections. Value fields of properties are copied by their texts.
  RevitMappingEditorDll(const RevitMappingEditorDll& other);

  // The same. On failure the editor is as it was.
  RevitMappingEditorDll& operator=(const RevitMappingEditorDll& other);

  ~RevitMappingEditorDll();

  // Classificators

  // Loads a classificator file, and then the domains in it. Selects the last domain of the file, if
  // any, but no Classificator; a ".json" file always has the domain of its name. `id` may be taken,
  // but of equal ids only the first can be selected. `paramName` is the model parameter that begins
  // the mapping strings.
  //
  // Returns -1 and adds nothing if the file isn't found. Otherwise adds the Classificator with what
  // could be read, and returns 0, 2, 3, or -1 again if the extension isn't that of a domain file
  // (".txt" or ".json", in lower case).
  //
  // Raises `filesystem_error` if the system can't tell whether the file exists.
  int CreateClassificator(const wchar_t* id, const wchar_t* name, const wchar_t* paramName,
                          const wchar_t* file);

  // The ids and names of all Classificators, in the order of their loading.
  void GetClassificatorsNames(int& count, const wchar_t**& ids, const wchar_t**& names);

  // Makes the first Classificator with this id the active one. Returns 0, or leaves the selection
  // and returns 1 if none is loaded, -1 if none has the id.
  int SetActiveClassificator(const wchar_t* id);

  // Colours
  //
  // A Classificator can have several colouring schemes (Colorats), which map key texts to numbers
  // and colours. Each Classificator has its own active one, at first the last of its file. The four
  // calls use the active Classificator, and raise `out_of_range`, "invalid vector subscript",
  // without one.

  // Makes a Colorat the active one. Returns 0, or leaves the selection and returns 1 if the
  // Classificator has none, -1 if none has the id.
  int SetActiveColorat(const wchar_t* id);

  // The key texts of the active Colorat, in the order of their code units. Despite the name of the
  // call, these aren't the ids of the Colorats.
  void GetColoratsIds(int& count, const wchar_t**& ids);

  // Returns the number of a key text: the position of its line in its block of the file, from 1.
  // Raises `out_of_range`, "invalid map<K, T> key", if the active Colorat doesn't have the text.
  int GetColorNum(const wchar_t* text);

  // The number of a key text, three channels from 0 to 255, and a percentage. Raises as
  // `GetColorNum`, and then writes nothing.
  void GetColor(const wchar_t* text, int& number, int& channel1, int& channel2, int& channel3,
                int& percent);

  // From here to the marks, REQUIRES: there is an active Classificator. This isn't checked: without
  // one the behaviour is undefined.

  // Returns the `paramName` of the active Classificator.
  const wchar_t* GetActiveClassificatorParamName();

  // Codes

  // Returns the code id of the first pattern that matches the text, or -1, for the default code.
  int GetClaccificatorCodeId(const wchar_t* text);

  // Returns the code of a code id, or the default code for -1. Raises `out_of_range`, "invalid
  // vector subscript", for any other number.
  const wchar_t* GetClaccificatorCode(int codeId);

  const wchar_t* GetDefaultClaccificatorCode();

  // Mapping strings

  // Returns the mapping string of an element: start mark, parameter name, blank, code, ";", items,
  // end mark. `sourceKind` is the source of the items: 1 for ==MAPTEXT, 2 for ==PARAM, which yields
  // none today, any other number for none. `nameSuffix` follows each property's id.
  //
  //   ClassCode B2010;GRADE= 60 A;LEN= 1 2;
  const wchar_t* GetMappingStr(const wchar_t* text, int sourceKind, const wchar_t* nameSuffix);

  // Returns only the items, for a code id. With `sourceKind` 1 or 2 raises `out_of_range`, "invalid
  // vector subscript", for a number that is neither -1 nor a code id.
  const wchar_t* GetClaccificatorCodeParams(int codeId, int sourceKind, const wchar_t* nameSuffix);

  // Marks

  // The texts at the start and the end of a mapping string. `GetStartMark` returns the mark after a
  // blank, `GetEndMark` before one; mapping strings contain the marks as they were set.
  const wchar_t* GetStartMark();
  const wchar_t* GetEndMark();
  void SetStartMark(const wchar_t* mark);
  void SetEndMark(const wchar_t* mark);

  // Domens

  // Loads a domain file, ".txt" or ".json", found as `CreateClassificator` finds its own. Returns
  // 0, -1, 2 or 3; the last domain of the file becomes the active one. A text file adds what is new
  // to existing domains and properties, and changes nothing that they have. A ".json" file whose
  // domain exists only selects it, and one for which 3 is returned changes nothing.
  int CreateDomen(const wchar_t* file);

  // Return the ids and the names of all domains, both in the order of the ids' code units. Null if
  // the count is 0.
  const wchar_t** GetDomensIds(int& count);
  const wchar_t** GetDomensNames(int& count);

  // Returns the id of the active domain; empty until one is loaded.
  const wchar_t* GetActiveDomenId();

  // Make a domain the active one. Return 0, or leave the selection and return -1 if none has this
  // id or name. Of domains with the same name, the one with the least id is selected.
  int SetActiveDomenId(const wchar_t* domenId);
  int SetActiveDomenByName(const wchar_t* domenName);

  // The properties of a domain, in the order of their keys' code units. The sort indexes are for a
  // user interface. An unknown domain has no properties.

  void GetPropertiesSortIndex(const wchar_t* domenId, int& count, const wchar_t**& ids,
                              int*& sortIndexes);

  // Those that may be set on objects of this type, or of all of these types. A property without
  // types applies to all; an empty list of types selects all properties.
  void GetDomenPropertysByObjType(const wchar_t* domenId, const wchar_t* objectType, int& count,
                                  const wchar_t**& ids, const wchar_t**& names, int*& sortIndexes);
  void GetDomenPropertysByObjTypes(const wchar_t* domenId, int objectTypeCount,
                                   const wchar_t** objectTypes, int& count, const wchar_t**& ids,
                                   const wchar_t**& names, int*& sortIndexes);

  // The value fields of a property, in their order: types from 0 to 5 (see PropertyParameter.h),
  // flags, and values as texts. Raises `out_of_range`, "invalid map<K, T> key", if a known domain
  // lacks the property; `count` then keeps its value.
  void GetDomenPropertyFieldsValues(const wchar_t* domenId, const wchar_t* propertyId, int& count,
                                    const wchar_t**& fieldNames, const wchar_t**& fieldTitles,
                                    int*& valueTypes, bool*& fieldFlags, const wchar_t**& values);

  // For each property, whether it is unique, its number of value fields, and whether the last of
  // them is a list. Raises `out_of_range`, "invalid vector subscript", if one has no fields;
  // `count` is then 0.
  void GetDomenPropertiesCheckInfo(const wchar_t* domenId, int& count, const wchar_t**& ids,
                                   bool*& uniqueFlags, int*& fieldCounts, bool*& listFlags);

  // Writes a domain as a commented JSON5 file, replacing the file. Creates no folders and ignores
  // the data folder. Reports nothing: an unknown domain and any failure leave the file as it was.
  // Values of fields aren't written and types are shifted by one, so that a reload yields a
  // different domain. This is required.
  void ExportJson(const wchar_t* domenId, const wchar_t* file);

 private:
  std::wstring configText;
  std::wstring dataFolder;
  int activeClassificator = -1;              // -1 or an index into `classificators`
  std::deque<Classificator> classificators;  // not a vector, which would move them as it grows
  DomenStore domenStore;
  std::wstring startMark;
  std::wstring endMark;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
