// Files as the library loads them, with the account of their readers.

#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "classificator/Classificator.h"
#include "domen/DomenStore.h"
#include "json/JsonAccount.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Which files are to be loaded, classificators first, each in its order. A file that isn't found is
// sought in the data folder.
struct FileList {
  std::vector<std::wstring> classificators;
  std::vector<std::wstring> domens;
  std::wstring dataFolder = L".";
};

struct LoadedFile {
  std::wstring name;                             // as it was given
  std::shared_ptr<const TextFile> text;          // null for a file that is no text file
  Account account;                               // of the text
  std::optional<std::string> json;               // the bytes of a file that is read as JSON5
  JsonAccount jsonAccount;                       // of these
  const Classificator* classificator = nullptr;  // that it was loaded as, if any
  bool readForDomens = false;  // false if its name has an extension no reader takes
};

struct LoadedFiles {
  std::deque<LoadedFile> files;
  std::deque<Classificator> classificators;
  DomenStore domens;
};

// Loads the files into `loaded`. Returns the name of the first file that isn't there or can't be
// read, and loads none after it.
std::optional<std::wstring> LoadFiles(const FileList& list, LoadedFiles& loaded);

}  // namespace TolvenLibs::RevitMappingEditorDll
