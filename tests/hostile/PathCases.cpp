// Cases for names of files that can't exist, and for texts that an editor stores.

#include "hostile/Case.h"
#include "support/Results.h"

namespace {

HostileCase Path(const char* input, wchar_t unit) {
  return {"path", input, 10'000'000, "", nullptr, [unit](Subject& subject) {
            const std::wstring path(subject.size, unit);
            Require(subject.editor.CreateDomen(path.c_str()) == -1, "no such file");
            Require(subject.editor.CreateClassificator(L"", L"", L"", path.c_str()) == -1,
                    "no such file");
          }};
}

}  // namespace

HostileCases PathCases() {
  return {
      Path("strokes", L'/'),
      Path("points", L'.'),
      Path("letters", L'x'),
      {"path", "letters of the data folder", 10'000'000, "", nullptr,
       [](Subject& subject) {
         const std::wstring folder(subject.size, L'x');
         TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor(folder.c_str(), L"");
         Require(editor.CreateDomen(L"none.txt") == -1, "no such file");
       }},
      {"marks", "letters of a mark", 10'000'000, "", nullptr,
       [](Subject& subject) {
         const std::wstring mark(subject.size, L'x');
         subject.editor.SetStartMark(mark.c_str());
         Require(Take(subject.editor.GetStartMark()) == L" " + mark, "the mark");
       }},
  };
}
