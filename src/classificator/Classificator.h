// One classification scheme.

#pragma once

#include <memory>
#include <string>

#include "classificator/ColoratSection.h"
#include "mapping/MapTextSection.h"
#include "mapping/ParamSection.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;
struct CodeSections;
struct TextFile;

// The contents of a classificator file. A plain value: copies share only what is immutable.
struct Classificator {
  explicit Classificator(std::wstring id);

  // Fills the record from the file at `path`. Returns 0 if the file was read to its end, 2 if it
  // can't be opened, and 3 if an exception ended the reading. The exception isn't passed on, and
  // what had been filled in stays. Repeated sections are all parsed, in the order of the file.
  // `file`, unless null, receives the sections for further reading.
  int Load(const std::wstring& path, std::shared_ptr<const TextFile>* file = nullptr,
           Account* account = nullptr);

  // What the ==CLASS section declares. Nothing reads it.
  std::wstring classTitle;
  std::wstring classFirstWord;
  std::wstring classSecondWord;

  MapTextSection mapTextSection;
  ParamSection paramSection;
  Colorats colorats;
  std::wstring activeColoratId;  // after a load, that of the last Colorat of the file
  std::wstring classificatorId;
  std::wstring classificatorName;
  std::wstring paramName;
  std::wstring filePath;

  // Copied with the record, but never read: the parsers of the sections have their own marks.
  std::wstring reservedText;
  std::wstring openMark = L"{";
  std::wstring closeMark = L"}";
};

// Returns the sections that a code and its items come from, which are parts of the record.
CodeSections SectionsOf(const Classificator& classificator);

}  // namespace TolvenLibs::RevitMappingEditorDll
