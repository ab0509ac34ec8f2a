#include "Loading.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "Failure.h"
#include "Wide.h"
#include "base/Files.h"
#include "json5/Json5Parser.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;

std::string WhyNotLoaded(const std::string& file, int status) {
  if (status == 2) return "can't be opened.";
  if (status == 3) return "could not be read to its end.";
  if (file.ends_with(".txt") || file.ends_with(".json")) return "does not exist.";
  return "has a name that ends neither in \".txt\" nor in \".json\".";
}

// Throws a `Failure` with this exit status unless `load` returns 0. `subject` names the file.
template <class Load>
void LoadOrFail(int exitStatus, const std::string& subject, const std::string& file, Load load) {
  try {
    const int status = load(ToWide(file));
    if (status != 0) throw Failure{exitStatus, subject + " " + WhyNotLoaded(file, status)};
  } catch (const std::filesystem::filesystem_error& error) {
    throw Failure{exitStatus, subject + " can't be reached: " + error.code().message() + "."};
  }
}

// Returns the bytes of the file, or nothing if the library can't read it either.
std::optional<std::string> BytesOf(const std::wstring& path) {
  try {
    return ReadWholeFile(path);
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

void CheckJson5(const std::string& subject, const std::wstring& path) {
  const std::optional<std::string> bytes = BytesOf(path);
  if (!bytes) return;
  if (!IsUtf8(*bytes)) throw Failure{failedDomen, subject + " is not UTF-8."};
  Json5Tree tree;
  const std::optional<Json5Error> error = ParseJson5(*bytes, tree);
  if (!error) return;
  throw Failure{failedDomen, subject + ", line " + std::to_string(error->line) + ", column " +
                                 std::to_string(error->column) + ": " + error->message + "."};
}

void LoadDomen(RevitMappingEditorDll& editor, const Options& options, const std::string& domen) {
  const std::string subject = "Domain file \"" + domen + "\"";
  LoadOrFail(failedDomen, subject, domen, [&](const std::wstring& file) {
    const std::optional<std::wstring> path = FindFile(ToWide(options.dataFolder), file);
    if (path && domen.ends_with(".json")) CheckJson5(subject, *path);
    return editor.CreateDomen(file.c_str());
  });
}

}  // namespace

void LoadAll(RevitMappingEditorDll& editor, const Options& options) {
  constexpr const wchar_t* id = L"classificator";
  const std::wstring paramName = ToWide(options.paramName);
  if (!options.classificator.empty()) {
    LoadOrFail(failedClassificator, "Classificator file \"" + options.classificator + "\"",
               options.classificator, [&](const std::wstring& file) {
                 return editor.CreateClassificator(id, id, paramName.c_str(), file.c_str());
               });
    editor.SetActiveClassificator(id);
  }
  for (const std::string& domen : options.domens) LoadDomen(editor, options, domen);
}
