// Harness for text domain files of any bytes: the store equals that of the naive forms, also after
// a second load, and a copy answers as its source except for what values lose in their text form. A
// check of the file loads the same.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Answers.h"
#include "fuzz/Authoring.h"
#include "fuzz/Check.h"
#include "fuzz/Describe.h"
#include "naive/DomenFiles.h"
#include "naive/Fields.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

void CheckStore(const std::wstring& file, const std::string& bytes) {
  DomenStore expected;
  DomenStore loaded;
  for (const char* what : {"the store", "the store, loaded twice"}) {
    Naive::LoadDomenText(expected, bytes);
    Check(loaded.LoadDomen(file, L"") == 0, "any file is read to its end");
    CheckSame(what, Describe(loaded), Describe(expected));
  }
  const DomenStore copy = loaded;
  expected = Naive::CopyOf(expected);
  CheckSame("a copy", Describe(copy), Describe(expected));
  loaded = copy;
  CheckSame("a copy of the copy", Describe(loaded), Describe(Naive::CopyOf(expected)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::wstring file = folder.Write("domens.txt", bytes);
  CheckStore(file, bytes);
  CheckAuthoring({{}, {file}});
  CheckDomenFile(file, bytes);
  return 0;
}
