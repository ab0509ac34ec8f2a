// Plays the role of the add-in: loads a classificator and domains, and prints the mapping string of
// each element. Loads, queries and exports use the exported class alone. Internals of the library
// are used for
//   - UTF-8 conversion (Wide.cpp);
//   - finding and reading files (Loading.cpp, Export.cpp), so that the program checks the same file
//     that the library loads or writes;
//   - parsing JSON5 (Loading.cpp), because the library doesn't report where a file is malformed.

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <locale>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "CheckCommand.h"
#include "Elements.h"
#include "Export.h"
#include "Failure.h"
#include "Lists.h"
#include "Loading.h"
#include "Options.h"
#include "Printing.h"
#include "ProgressBar.h"
#include "Results.h"
#include "Summary.h"
#include "Terminal.h"
#include "Wide.h"

namespace {

// The library folds case by the global locale, and the default one folds only ASCII letters. Sets
// the character types only. Does nothing if the system lacks the locale.
void FoldAllLetters() {
  try {
    std::locale::global(std::locale(std::locale::classic(), "C.UTF-8", std::locale::ctype));
  } catch (const std::runtime_error&) {
    return;
  }
}

// Appends the lines of all elements to `output`.
Summary Classify(RevitMappingEditorDll& editor, const Options& options,
                 const std::vector<std::wstring>& elements, std::string& output) {
  const std::wstring nameSuffix = ToWide(options.nameSuffix);
  Summary summary;
  ProgressBar bar(elements.size());
  const auto start = std::chrono::steady_clock::now();
  for (const std::wstring& element : elements) {
    const int codeId = editor.GetClaccificatorCodeId(element.c_str());
    const std::wstring code = Take(editor.GetClaccificatorCode(codeId));
    const std::wstring mapping =
        Take(editor.GetMappingStr(element.c_str(), options.sourceKind, nameSuffix.c_str()));
    output += ToField(element) + '\t' + std::to_string(codeId) + '\t' + ToField(code) + '\t' +
              ToField(mapping) + '\n';
    ++summary.elements;
    if (codeId != -1) ++summary.matched;
    ++summary.elementsByCode[code];
    bar.Show(summary.elements);
  }
  summary.time = std::chrono::steady_clock::now() - start;
  return summary;
}

std::string ListAll(RevitMappingEditorDll& editor, const Options& options) {
  std::string tables;
  if (options.colours) tables += ListColors(editor, TerminalTakesColours());
  if (options.list == "domens") tables += ListDomens(editor);
  if (options.list == "properties") tables += ListProperties(editor, options.types);
  if (options.list == "fields") tables += ListFields(editor, options.types);
  return tables;
}

void Run(const Options& options) {
  RevitMappingEditorDll editor(ToWide(options.dataFolder).c_str(), L"");
  editor.SetStartMark(ToWide(options.startMark).c_str());
  editor.SetEndMark(ToWide(options.endMark).c_str());
  LoadAll(editor, options);
  if (!options.exportDomen.empty()) {
    return ExportDomen(editor, options.exportDomen, options.exportTarget);
  }
  if (options.colours || !options.list.empty()) return Print(ListAll(editor, options));
  const std::vector<std::wstring> elements = ReadElements(options.elements, options.column);
  std::string output;
  const Summary summary = Classify(editor, options, elements, output);
  Print(output);
  std::fputs(FormatSummary(summary).c_str(), stderr);
}

int Fail(const Failure& failure) {
  std::fprintf(stderr, "classify: %s\n", failure.sentence.c_str());
  return failure.status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    UseUtf8Streams();
    FoldAllLetters();
    std::vector<std::string> arguments = Utf8Arguments(argc, argv);
    if (!arguments.empty() && arguments.front() == "check") {
      arguments.erase(arguments.begin());
      return RunCheckCommand(std::move(arguments));
    }
    const std::optional<Options> options = ParseOptions(std::move(arguments));
    if (options) Run(*options);
    return 0;
  } catch (const Failure& failure) {
    return Fail(failure);
  } catch (const std::exception& exception) {
    return Fail({failedOtherwise, exception.what()});
  }
}
