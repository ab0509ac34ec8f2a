// An editor of naive forms. Its calls have the names of the exports and return their results as
// values. File names are not searched for.

#pragma once

#include <string>
#include <vector>

#include "domen/DomenStore.h"
#include "naive/ClassificatorFile.h"
#include "naive/Records.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

// A loaded Classificator.
struct Scheme {
  std::wstring id;
  std::wstring name;
  Classificator classificator;
  Colorats colorats;
  std::wstring activeColoratId;
};

struct Editor {
  Editor() = default;
  Editor(const Editor& other);
  Editor& operator=(const Editor& other);

  int CreateClassificator(std::wstring id, std::wstring name, std::wstring paramName,
                          std::wstring file);
  int CreateDomen(std::wstring file);

  int SetActiveClassificator(std::wstring id);
  int SetActiveColorat(std::wstring id);
  int SetActiveDomenId(std::wstring id);
  int SetActiveDomenByName(std::wstring name);

  // Returns the active Classificator. REQUIRES: there is one.
  const Scheme& Active() const;

  // Returns the colours of the active Colorat, or null.
  const ColorMap* ActiveColors() const;

  std::wstring GetMappingStr(std::wstring text, int sourceKind, std::wstring nameSuffix) const;
  std::wstring GetClaccificatorCodeParams(int codeId, int sourceKind,
                                          std::wstring nameSuffix) const;

  // Returns null if the domain is unknown.
  const Domen* FindDomen(std::wstring domenId) const;

  std::vector<const DomenProperty*> PropertiesOfTypes(std::wstring domenId,
                                                      const Texts& objectTypes) const;

  int active = -1;
  std::vector<Scheme> schemes;
  DomenStore domenStore;
  std::wstring startMark;
  std::wstring endMark;
};

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
