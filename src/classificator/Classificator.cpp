#include "classificator/Classificator.h"

#include <memory>
#include <string>
#include <utility>

#include "base/Status.h"
#include "base/Text.h"
#include "classificator/ClassSection.h"
#include "mapping/CodeParams.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// A keyword is a prefix of its heading: what follows it doesn't matter. Sections of other headings,
// such as ==DOMEN, are ignored.
void ParseSection(Classificator& classificator, const TextSection& section,
                  const std::shared_ptr<const TextFile>& file) {
  if (StartsWith(section.heading, L"==CLASS")) {
    ParseClassSection(classificator.classTitle, classificator.classFirstWord,
                      classificator.classSecondWord, section.body);
  } else if (StartsWith(section.heading, L"==MAPTEXT")) {
    ParseMapTextSection(classificator.mapTextSection, section.body, file);
  } else if (StartsWith(section.heading, L"==COLORAT")) {
    ParseColoratSection({classificator.colorats, classificator.activeColoratId}, section.body);
  } else if (StartsWith(section.heading, L"==PARAM")) {
    ParseParamSection(classificator.paramSection, section.body);
  }
}

}  // namespace

Classificator::Classificator(std::wstring id) : classificatorId(std::move(id)) {}

int Classificator::Load(const std::wstring& path, std::shared_ptr<const TextFile>* file) {
  try {
    filePath = path;
    const std::shared_ptr<const TextFile> read = ReadTextFile(path);
    if (!read) return statusNotOpened;
    if (file) *file = read;
    for (const TextSection& section : read->sections) ParseSection(*this, section, read);
    return statusDone;
  } catch (...) {
    return statusException;
  }
}

CodeSections SectionsOf(const Classificator& classificator) {
  return {classificator.mapTextSection, classificator.paramSection};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
