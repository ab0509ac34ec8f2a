// A classificator file of any bytes: its record is what the naive forms make of it, and an editor
// that loads it answers as one of naive forms, also after the locale has changed.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Answers.h"
#include "fuzz/Check.h"
#include "fuzz/Describe.h"
#include "fuzz/Locales.h"
#include "naive/ClassificatorFile.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

void CheckRecord(const std::wstring& file, const std::string& bytes) {
  Classificator loaded(L"id");
  Check(loaded.Load(file) == 0, "any file is read to its end");
  CheckSame("the record", Describe(loaded), Describe(Naive::ReadClassificator(bytes)));
}

void CheckEditor(const std::wstring& file, const std::string& bytes, std::size_t laterLocale) {
  ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor(L"", L"");
  Naive::Editor naive;
  Check(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()) ==
            naive.CreateClassificator(L"S", L"Scheme", L"Code", file),
        "the status of the load");
  Check(editor.SetActiveClassificator(L"S") == naive.SetActiveClassificator(L"S"),
        "the status of the selection");
  const Questions questions = QuestionsOf(bytes);
  CheckSame("the answers", AnswersOf(editor, naive, questions), AnswersOf(naive, questions));
  SetLocale(laterLocale);
  CheckSame("the codes in another locale", CodesOf(editor, questions), CodesOf(naive, questions));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::wstring file = folder.Write("scheme.txt", bytes);
  SetLocale(size % localeCount);
  CheckRecord(file, bytes);
  CheckEditor(file, bytes, size / localeCount % localeCount);
  return 0;
}
