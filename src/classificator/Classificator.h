#pragma once

#include <memory>
#include <string>

#include "classificator/ColoratSection.h"
#include "mapping/MapTextSection.h"
#include "mapping/ParamSection.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct CodeSections;
struct TextFile;

// One classification scheme, as a classificator file gives it. A plain value: a copy shares with
// its source only what never changes.
struct Classificator {
  explicit Classificator(std::wstring id);

  // Fills the record from the file at `path`. Gives 0 when the file was read to its end, 2 when it
  // can't be opened, and 3 when an exception ended the reading; the exception goes no further, and
  // what had been filled in until then stays. Sections that occur twice are parsed twice, in the
  // order of the file. `file` receives the file's sections, for whoever reads them on.
  int Load(const std::wstring& path, std::shared_ptr<const TextFile>* file = nullptr);

  // What the ==CLASS section declares. Nothing reads it.
  std::wstring classTitle;
  std::wstring classFirstWord;
  std::wstring classSecondWord;

  MapTextSection mapTextSection;
  ParamSection paramSection;
  Colorats colorats;
  std::wstring activeColoratId;  // after a load that of the last Colorat of the file
  std::wstring classificatorId;
  std::wstring classificatorName;
  std::wstring paramName;
  std::wstring filePath;

  // Kept and copied with the record, read by nothing: the parsers of the sections have marks of
  // their own.
  std::wstring reservedText;
  std::wstring openMark = L"{";
  std::wstring closeMark = L"}";
};

// The sections that a code and its items come from. They are part of the record.
CodeSections SectionsOf(const Classificator& classificator);

}  // namespace TolvenLibs::RevitMappingEditorDll
