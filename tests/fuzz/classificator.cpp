// Harness for classificator files of any bytes: the record equals that of the naive forms, and an
// editor that loads the file answers as a naive one, also after the locale has changed. A check of
// the file loads the same.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Answers.h"
#include "fuzz/Authoring.h"
#include "fuzz/Check.h"
#include "fuzz/Describe.h"
#include "fuzz/Locales.h"
#include "naive/ClassificatorFile.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

using Editor = ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

void CheckRecord(const std::wstring& file, const std::string& bytes) {
  Classificator loaded(L"id");
  Check(loaded.Load(file) == 0, "any file is read to its end");
  const std::wstring expected = Describe(Naive::ReadClassificator(bytes));
  CheckSame("the record", Describe(loaded), expected);
  const Classificator copy = loaded;
  CheckSame("a copy of the record", Describe(copy), expected);
}

// Copies are made of an editor with filled caches and queried under another locale.
void CheckEditor(const std::wstring& file, const std::string& bytes, std::size_t laterLocale) {
  Editor editor(L"", L"");
  Naive::Editor naive;
  Check(editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()) ==
            naive.CreateClassificator(L"S", L"Scheme", L"Code", file),
        "the status of the load");
  Check(editor.SetActiveClassificator(L"S") == naive.SetActiveClassificator(L"S"),
        "the status of the selection");
  const Questions questions = QuestionsOf(bytes);
  CheckSame("the answers", AnswersOf(editor, naive, questions), AnswersOf(naive, questions));
  Editor copy(editor);
  SetLocale(laterLocale);
  CheckSame("the codes in another locale", CodesOf(editor, questions), CodesOf(naive, questions));
  const Naive::Editor naiveCopy(naive);
  CheckSame("the answers of a copy", AnswersOf(copy, naiveCopy, questions),
            AnswersOf(naiveCopy, questions));
  editor = copy;
  CheckSame("the answers of an editor that takes over", AnswersOf(editor, naiveCopy, questions),
            AnswersOf(Naive::Editor(naiveCopy), questions));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::wstring file = folder.Write("scheme.txt", bytes);
  SetLocale(size % localeCount);
  CheckRecord(file, bytes);
  CheckAuthoring({{file}, {}});
  CheckEditor(file, bytes, size / localeCount % localeCount);
  return 0;
}
