// All that the exports answer about files, without code ids: an id is a position, and what it means
// is its code and its items.

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "authoring/LoadedFiles.h"

namespace TolvenLibs::RevitMappingEditorDll {

// What is asked besides all that the answers themselves list.
struct ProofQuestions {
  std::vector<std::wstring> texts;  // descriptions of elements
  std::vector<std::wstring> coloratIds;
  std::vector<std::wstring> objectTypes;
};

using Answers = std::vector<std::wstring>;

// The answers of a new editor that loads the files as `LoadFiles` does. The bytes of exports are
// among them if `exportTo` is the path of a file for them.
Answers AnswersAbout(const FileList& files, const ProofQuestions& questions,
                     const std::filesystem::path& exportTo = {});

// Two files differ by chance in no answer alone: the first one that differs, for a message.
std::wstring FirstDifference(const Answers& left, const Answers& right);

}  // namespace TolvenLibs::RevitMappingEditorDll
