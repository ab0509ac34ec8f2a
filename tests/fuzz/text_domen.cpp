// A text domain file of any bytes: the store is what the naive forms make of it, also when it is
// loaded once more, and a copy answers as its source but for what a value loses on its way through
// its text.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Answers.h"
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
  CheckDomenFile(file, bytes);
  return 0;
}
