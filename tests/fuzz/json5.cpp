// Harness for JSON5 files of any bytes: the reader accepts what the naive recursive descent parser
// accepts and returns the same tree; as a domain file it fills the store as its tree says, and an
// editor that loads it answers as a naive one.

#include "naive/Json5.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/Utf8.h"
#include "fuzz/Answers.h"
#include "fuzz/Check.h"
#include "fuzz/Describe.h"
#include "naive/DomenFiles.h"
#include "naive/Fields.h"
#include "naive/TextFile.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

void CheckPlace(const Json5Error& error, const std::wstring& text) {
  const auto lineEnds = std::count_if(text.begin(), text.end(), [](wchar_t unit) {
    return unit == L'\n' || unit == L'\r' || unit == 0x2028 || unit == 0x2029;
  });
  Check(error.line >= 1 && error.line <= static_cast<std::size_t>(lineEnds) + 1,
        "an error is on a line of the text");
  Check(error.column >= 1 && error.column <= text.size() + 1, "an error is in a column of it");
  Check(error.message && *error.message, "an error has a message");
}

// `text` is decoded from the bytes, up to the first that can't be decoded.
void CheckTree(const std::string& bytes, const std::wstring& text) {
  Json5Tree tree;
  const std::optional<Json5Error> error = ParseJson5(bytes, tree);
  std::optional<Naive::Json5> expected;
  if (EncodeUtf8(text) == bytes) expected = Naive::ParseJson5(text);
  Check(error.has_value() != expected.has_value(),
        "malformed for one reader, and not for the other");
  if (error) return CheckPlace(*error, text);
  CheckSame("the tree", Naive::Describe(tree, tree.root), Naive::Describe(*expected));
}

void CheckStore(const std::wstring& file, const std::string& bytes) {
  DomenStore loaded;
  DomenStore expected;
  Check(loaded.LoadDomen(file, L"") == 0, "any file is read");
  Naive::LoadDomenJson(expected, L"domen", bytes);
  CheckSame("the store", Describe(loaded), Describe(expected));
  const DomenStore copy = loaded;
  CheckSame("a copy of the store", Describe(copy), Describe(Naive::CopyOf(expected)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::wstring text = DecodeUtf8(bytes);
  CheckSame("the text", text, Naive::DecodeUtf8(bytes));
  CheckTree(bytes, text);
  const std::wstring file = folder.Write("domen.json", bytes);
  CheckStore(file, bytes);
  CheckDomenFile(file, bytes);
  return 0;
}
