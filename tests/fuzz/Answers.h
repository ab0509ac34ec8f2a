// Everything that an editor answers, as one text: what the library and the naive forms are compared
// by.

#pragma once

#include <string>

#include "RevitMappingEditorDll.h"
#include "naive/Editor.h"

// What is asked of an editor, beside all that it lists of itself.
struct Questions {
  TolvenLibs::RevitMappingEditorDll::Naive::Texts texts;        // descriptions of elements
  TolvenLibs::RevitMappingEditorDll::Naive::Texts objectTypes;  // and key texts of colours
};

// Questions that the bytes of files suggest: of their lines and words, a few from all over.
Questions QuestionsOf(const std::string& bytes);

// The code ids and mapping strings of the texts. A Classificator must be active.
std::wstring CodesOf(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                     const Questions& questions);
std::wstring CodesOf(const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                     const Questions& questions);

// All answers of the library's editor, and of one of naive forms. Which domains and properties are
// asked about, and whether a Classificator is active, the latter says for both.
std::wstring AnswersOf(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                       const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                       const Questions& questions);
std::wstring AnswersOf(const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                       const Questions& questions);

// Loads a domain file of these bytes into an editor of either kind, and checks that they and their
// copies answer alike.
void CheckDomenFile(const std::wstring& file, const std::string& bytes);
