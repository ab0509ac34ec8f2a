// A session with the rich files, whose answers must not depend on the surroundings.

#pragma once

#include <string>

#include "RevitMappingEditorDll.h"
#include "fuzz/Answers.h"
#include "naive/Editor.h"
#include "support/Program.h"
#include "support/RichFiles.h"
#include "support/TempFolder.h"

class RichSession {
 public:
  using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

  RichSession() {
    for (const auto& [fileName, bytes] : richFiles) folder.Write(fileName, bytes);
    LoadInto(naive, Folder());
  }

  const std::filesystem::path& Path() const { return folder.Path(); }
  std::wstring Folder() const { return folder.Wide() + L"/"; }

  // Loads all files, by names that start with `from`.
  template <class AnEditor>
  static void LoadInto(AnEditor& editor, const std::wstring& from) {
    editor.CreateClassificator(L"S", L"Scheme", L"Code", (from + L"scheme.txt").c_str());
    editor.CreateDomen((from + L"domens.txt").c_str());
    editor.CreateDomen((from + L"domen.json").c_str());
    editor.SetActiveClassificator(L"S");
  }

  // Returns all answers of an editor that has loaded the files, and the bytes of its exports into
  // the folder `to`.
  std::string AnswersAndExports(Editor& editor, const std::filesystem::path& to) const {
    const std::wstring answers = AnswersOf(editor, naive, richQuestions);
    std::string all(reinterpret_cast<const char*>(answers.data()),
                    answers.size() * sizeof(wchar_t));
    for (const wchar_t* id : {L"D", L"E", L"domen"}) {
      editor.ExportJson(id, (to / "export.json").wstring().c_str());
      all += ReadBytes(to / "export.json");
    }
    return all;
  }

  // The same for a new editor in the current surroundings.
  std::string AnswersOfNewEditor() const {
    const TempFolder to;
    Editor editor(L"", L"");
    LoadInto(editor, Folder());
    return AnswersAndExports(editor, to.Path());
  }

  // Returns whether an editor answers as the naive forms do.
  bool AgreesWithNaive(Editor& editor) const {
    return AnswersOf(editor, naive, richQuestions) == AnswersOf(naive, richQuestions);
  }

 private:
  TempFolder folder;
  TolvenLibs::RevitMappingEditorDll::Naive::Editor naive;
};
