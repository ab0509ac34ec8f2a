#include "classificator/Classificator.h"

#include <memory>
#include <string>
#include <utility>

#include "base/Status.h"
#include "base/Text.h"
#include "classificator/ClassSection.h"
#include "mapping/CodeParams.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// A keyword is a prefix of its heading: what follows it doesn't matter. Sections of other headings,
// such as ==DOMEN, are ignored.
void ParseSection(Classificator& classificator, const TextSection& section,
                  const std::shared_ptr<const TextFile>& file, Account* account) {
  if (StartsWith(section.heading, L"==CLASS")) {
    Note(account, Outcome::classHeading, section.heading);
    ParseClassSection(classificator.classTitle, classificator.classFirstWord,
                      classificator.classSecondWord, section.body, account);
  } else if (StartsWith(section.heading, L"==MAPTEXT")) {
    Note(account, Outcome::mapTextHeading, section.heading);
    ParseMapTextSection(classificator.mapTextSection, section.body, file, account);
  } else if (StartsWith(section.heading, L"==COLORAT")) {
    Note(account, Outcome::coloratHeading, section.heading);
    ParseColoratSection({classificator.colorats, classificator.activeColoratId}, section.body,
                        account);
  } else if (StartsWith(section.heading, L"==PARAM")) {
    Note(account, Outcome::paramHeading, section.heading);
    ParseParamSection(classificator.paramSection, section.body, account);
  }
}

}  // namespace

Classificator::Classificator(std::wstring id) : classificatorId(std::move(id)) {}

int Classificator::Load(const std::wstring& path, std::shared_ptr<const TextFile>* file,
                        Account* account) {
  try {
    filePath = path;
    const std::shared_ptr<const TextFile> read = ReadTextFile(path, account);
    if (!read) return statusNotOpened;
    if (file) *file = read;
    for (const TextSection& section : read->sections) ParseSection(*this, section, read, account);
    return statusDone;
  } catch (...) {
    return statusException;
  }
}

CodeSections SectionsOf(const Classificator& classificator) {
  return {classificator.mapTextSection, classificator.paramSection};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
