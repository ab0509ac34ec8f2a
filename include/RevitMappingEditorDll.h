// The exported class of the library, its whole boundary.
//
// An editor holds classification schemes (Classificators) and property domains (Domens), read from
// files. For the description of a model element it finds the code and composes the mapping string
// that is written on the element.
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
// Strings. An argument is a NUL-terminated wide string, never null, that is only read, and copied
// where it is kept. A result is a new buffer, never null and never a pointer into the editor: the
// caller owns it and frees it with `delete[]`, and it outlives the editor. Caller and library must
// share one C++ runtime for that; where they don't, RevitMappingEditorRelease.h frees it.
//
// Arrays. The count is written by every call that returns. When it is 0 the arrays are left as they
// were; otherwise each is a new array of that many elements, whose strings are buffers of their
// own: the caller frees each string with `delete[]`, then the array with `delete[]`. Behind an
// exception the arrays are as they were, and the count means nothing unless the call says what.
//
// Failures. What is to be expected is reported by a status:
//
//    0   done
//   -1   no such file, id or name; for a load also a file extension that no reader takes
//    1   there is nothing to choose from at all
//    2   the file exists but could not be opened; of a ".json" domain file that is 3
//    3   an exception was caught while the file was read; what was read until then stays, but of a
//        ".json" domain file nothing
//
// Everything else leaves a call as a standard exception, and leaves the editor usable. Any call can
// raise `bad_alloc`; but a load that runs out of memory ends in 3, an export in silence, and an
// item of a mapping string, like one that can't be composed for any other reason, is left out.
//
// Threads. One editor is used by one thread at a time, which goes for the source of a copy too. Two
// editors share nothing that changes.

#pragma once

#include <deque>
#include <string>

#include "RevitMappingEditorApi.h"
#include "classificator/Classificator.h"
#include "domen/DomenStore.h"

namespace TolvenLibs::RevitMappingEditorDll {

class REVIT_MAPPING_EDITOR_API RevitMappingEditorDll {
 public:
  // An empty editor. A file name that isn't found as it stands is tried in `dataFolder`.
  // `configText` is kept for the readers of configuration files.
  RevitMappingEditorDll(const wchar_t* dataFolder, const wchar_t* configText);

  // A deep copy, selections included. Value fields of properties are made anew from their texts.
  RevitMappingEditorDll(const RevitMappingEditorDll& other);

  // The same for an editor that exists. If it fails, the editor is as it was.
  RevitMappingEditorDll& operator=(const RevitMappingEditorDll& other);

  ~RevitMappingEditorDll();

  // Classificators

  // Loads a classificator file, and then, by the same path, the domains that it holds. Selects no
  // Classificator, but the last domain of the file, if it holds any; one of the extension ".json"
  // always gives the domain of its name. `id` need not be new, but of equal ids only the first can
  // be selected. `paramName` is the model parameter that opens the mapping strings.
  //
  // Status -1 if the file is found neither as it stands nor in the data folder: nothing is added.
  // In all other cases the Classificator is added, with whatever could be read: status 0, 2, 3, or
  // -1 once more if the extension is not that of a domain file (".txt" or ".json", in small
  // letters).
  //
  // Raises `filesystem_error` if the system refuses to say whether the file exists.
  int CreateClassificator(const wchar_t* id, const wchar_t* name, const wchar_t* paramName,
                          const wchar_t* file);

  // Ids and names of all Classificators, in the order of their loading.
  void GetClassificatorsNames(int& count, const wchar_t**& ids, const wchar_t**& names);

  // Makes the first Classificator of this id the active one. Status 0; 1 if none is loaded at all;
  // -1 if none has the id, and the selection stays.
  int SetActiveClassificator(const wchar_t* id);

  // Colours
  //
  // A Classificator can hold several colouring schemes (Colorats), each a table that gives a number
  // and a colour to key texts. Each Classificator has an active one of its own: the last of its
  // file until another is selected. The four calls work on the active Classificator, and raise
  // `out_of_range`, "invalid vector subscript", if there is none.

  // Makes a Colorat the active one. Status 0; 1 if the Classificator has none at all; -1 if none
  // has the id, and the selection stays.
  int SetActiveColorat(const wchar_t* id);

  // The key texts of the active Colorat, in the order of their code units. The name of the call is
  // kept, but these are not the ids of the Colorats.
  void GetColoratsIds(int& count, const wchar_t**& ids);

  // The number of a key text: the position of its line in its block of the file, from 1. Raises
  // `out_of_range`, "invalid map<K, T> key", if the active Colorat doesn't have the text.
  int GetColorNum(const wchar_t* text);

  // Number, three channels from 0 to 255, and a percentage of a key text. Raises as `GetColorNum`,
  // and has then written nothing.
  void GetColor(const wchar_t* text, int& number, int& channel1, int& channel2, int& channel3,
                int& percent);

  // The calls from here to the marks need an active Classificator. They don't test for it, and
  // without one their behaviour is undefined.

  // The `paramName` of the active Classificator.
  const wchar_t* GetActiveClassificatorParamName();

  // Codes

  // The code id of the first pattern that fits the text, or -1: then the default code applies.
  int GetClaccificatorCodeId(const wchar_t* text);

  // The code of a code id, the default code for -1. Raises `out_of_range`, "invalid vector
  // subscript", for any other number that is no code id.
  const wchar_t* GetClaccificatorCode(int codeId);

  const wchar_t* GetDefaultClaccificatorCode();

  // Mapping strings

  // The mapping string of an element: start mark, parameter name, blank, code, ";", the items, end
  // mark. `sourceKind` says where the items come from: 1 from the patterns' codes (==MAPTEXT), 2
  // from ==PARAM, which yields none today, any other number from nowhere. `nameSuffix` goes behind
  // each property's id.
  //
  //   ClassCode B2010;GRADE= 60 A;LEN= 1 2;
  const wchar_t* GetMappingStr(const wchar_t* text, int sourceKind, const wchar_t* nameSuffix);

  // The items alone, for a code id. With `sourceKind` 1 or 2 raises `out_of_range`, "invalid vector
  // subscript", for a number that is neither -1 nor a code id.
  const wchar_t* GetClaccificatorCodeParams(int codeId, int sourceKind, const wchar_t* nameSuffix);

  // Marks

  // The texts that open and close a mapping string. The getters add a blank, `GetStartMark` in
  // front and `GetEndMark` behind; mapping strings have the marks as they were set.
  const wchar_t* GetStartMark();
  const wchar_t* GetEndMark();
  void SetStartMark(const wchar_t* mark);
  void SetEndMark(const wchar_t* mark);

  // Domens

  // Loads a domain file, ".txt" or ".json", sought as `CreateClassificator` seeks its own. Status
  // 0, -1, 2 or 3; the last domain of the file becomes the active one. Domains and properties that
  // exist keep what they have, and gain what is new from a text file; a ".json" file whose domain
  // exists gives nothing but the selection, and one that ends in 3 gives nothing at all.
  int CreateDomen(const wchar_t* file);

  // Ids, and in the same order names, of all domains, in the order of the ids' code units. Null
  // with a count of 0.
  const wchar_t** GetDomensIds(int& count);
  const wchar_t** GetDomensNames(int& count);

  // The id of the active domain; empty until one is loaded.
  const wchar_t* GetActiveDomenId();

  // Make a domain the active one. Status 0, or -1 if there is none of this id or name, and the
  // selection stays. Of domains of one name, that of the least id is selected.
  int SetActiveDomenId(const wchar_t* domenId);
  int SetActiveDomenByName(const wchar_t* domenName);

  // The properties of a domain, in the order of their keys' code units and not of their sort
  // indexes, which tell an interface where to show them. An unknown domain has none.

  void GetPropertiesSortIndex(const wchar_t* domenId, int& count, const wchar_t**& ids,
                              int*& sortIndexes);

  // Those that may be set on objects of this type, or of every one of these types. A property that
  // names no types fits all, and no types at all ask for nothing.
  void GetDomenPropertysByObjType(const wchar_t* domenId, const wchar_t* objectType, int& count,
                                  const wchar_t**& ids, const wchar_t**& names, int*& sortIndexes);
  void GetDomenPropertysByObjTypes(const wchar_t* domenId, int objectTypeCount,
                                   const wchar_t** objectTypes, int& count, const wchar_t**& ids,
                                   const wchar_t**& names, int*& sortIndexes);

  // The value fields of a property, in their own order: their types from 0 to 5 (see
  // PropertyParameter.h), their flags, and their values as texts. Raises `out_of_range`, "invalid
  // map<K, T> key", if a known domain lacks the property; `count` then keeps its value.
  void GetDomenPropertyFieldsValues(const wchar_t* domenId, const wchar_t* propertyId, int& count,
                                    const wchar_t**& fieldNames, const wchar_t**& fieldTitles,
                                    int*& valueTypes, bool*& fieldFlags, const wchar_t**& values);

  // For each property whether it is unique, how many value fields it has, and whether the last of
  // them is a list. Raises `out_of_range`, "invalid vector subscript", if one has no fields at all;
  // `count` is then 0.
  void GetDomenPropertiesCheckInfo(const wchar_t* domenId, int& count, const wchar_t**& ids,
                                   bool*& uniqueFlags, int*& fieldCounts, bool*& listFlags);

  // Writes a domain as a commented JSON5 file, in place of what the file held. It creates no
  // folders and doesn't look into the data folder. Nothing is reported: an unknown domain and any
  // failure leave the file as it was. The values of fields are not written, and types are shifted
  // by one, so that a file that is loaded again differs from the domain; this is meant.
  void ExportJson(const wchar_t* domenId, const wchar_t* file);

 private:
  std::wstring configText;
  std::wstring dataFolder;
  int activeClassificator = -1;              // -1 or an index into `classificators`
  std::deque<Classificator> classificators;  // in a vector each would be moved as it grows
  DomenStore domenStore;
  std::wstring startMark;
  std::wstring endMark;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
