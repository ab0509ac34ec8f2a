// All answers of an editor as one text, to compare the library with the naive forms.

#pragma once

#include <string>

#include "RevitMappingEditorDll.h"
#include "naive/Editor.h"

// The arguments of queries, in addition to what an editor lists itself.
struct Questions {
  TolvenLibs::RevitMappingEditorDll::Naive::Texts texts;        // descriptions of elements
  TolvenLibs::RevitMappingEditorDll::Naive::Texts objectTypes;  // also used as key texts of colours
};

// Returns queries about some of the lines and words of files with these bytes.
Questions QuestionsOf(const std::string& bytes);

// Returns the code ids and mapping strings of the texts. REQUIRES: a Classificator is active.
std::wstring CodesOf(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                     const Questions& questions);
std::wstring CodesOf(const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                     const Questions& questions);

// Return all answers of the library's editor, and of a naive one. The naive editor determines for
// both which domains and properties are queried, and whether a Classificator is active.
std::wstring AnswersOf(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                       const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                       const Questions& questions);
std::wstring AnswersOf(const TolvenLibs::RevitMappingEditorDll::Naive::Editor& naive,
                       const Questions& questions);

// Loads a domain file of these bytes into an editor of each kind, and checks that they and their
// copies have equal answers.
void CheckDomenFile(const std::wstring& file, const std::string& bytes);
