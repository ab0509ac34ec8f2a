// Harness for sequences of calls: the input is a small program and its files, run on several
// editors at once. Each editor is paired with a naive one, which gets the same calls and must have
// equal answers. Results are kept until all editors are destroyed, and must not have changed then.
//
// The program ends at the first byte 0xFF, which is never part of UTF-8. The files follow,
// separated by such bytes. Arguments of calls are chosen among the words of the files.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "fuzz/Answers.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/Locales.h"
#include "naive/CodeLookup.h"
#include "naive/DomenFiles.h"
#include "naive/Editor.h"
#include "naive/TextFile.h"
#include "support/OutOfRange.h"
#include "support/Program.h"
#include "support/TempFolder.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

namespace fs = std::filesystem;
using Editor = ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
using Naive::Texts;

// The names of the files. Each file has the contents of the block with its number; the folder and
// missing files have none. The export of a domain may create or replace any of them.
constexpr const char* names[] = {"a.txt", "b.json", "c.txt",      "d.json",
                                 "e.TXT", "f.json", "folder.txt", "folder.json"};
constexpr std::size_t fileCount = 6;

std::vector<std::string> BlocksOf(std::string_view bytes) {
  std::vector<std::string> blocks;
  while (blocks.size() < fileCount) {
    const std::size_t end = std::min(bytes.find('\xFF'), bytes.size());
    blocks.emplace_back(bytes.substr(0, end));
    if (end == bytes.size()) break;
    bytes.remove_prefix(end + 1);
  }
  return blocks;
}

// Returns the words and lines of the files, as arguments of calls.
Texts ArgumentsOf(const std::vector<std::string>& blocks) {
  Texts arguments = {L"", L"S", L"a", L"b", L"d", L"f", L"no such thing"};
  for (const std::string& block : blocks) {
    std::wstring text = Naive::DecodeUtf8(block);
    for (const wchar_t separator : {L'\n', L' '}) {
      for (const std::wstring& piece :
           Naive::SplitTrimmed(text, std::wstring(1, separator), false)) {
        if (arguments.size() < 250) arguments.push_back(piece.substr(0, piece.find(L'\0')));
      }
      for (wchar_t& unit : text) {
        if (std::wstring_view(L"\n@$(){};:=,\"'[]").find(unit) != std::wstring_view::npos)
          unit = L' ';
      }
    }
  }
  return arguments;
}

// Writes all files and folders anew.
void WriteFiles(const TempFolder& folder, const std::vector<std::string>& blocks) {
  for (std::size_t i = 0; i < std::size(names); ++i) {
    const fs::path path = folder.Path() / names[i];
    if (i >= fileCount) {
      fs::create_directory(path);
    } else if (i < blocks.size()) {
      folder.Write(names[i], blocks[i]);
    } else {
      fs::remove(path);
    }
  }
}

// Returns the queries about all files.
Questions QuestionsOfAll(const std::vector<std::string>& blocks) {
  std::string all;
  for (const std::string& block : blocks) all += block + "\n";
  return QuestionsOf(all);
}

// An editor of the library, and the naive one that defines its answers.
struct Pair {
  std::unique_ptr<Editor> editor;
  Naive::Editor naive;
};

// A file name as an argument, and the path that it refers to.
struct FileName {
  std::wstring asked;
  std::wstring path;
};

// A result that is kept until all editors are destroyed.
struct KeptText {
  const wchar_t* text;
  std::wstring expected;
};
struct KeptTexts {
  int count;
  const wchar_t** texts;
  std::wstring expected;
};

std::wstring OnLines(const Texts& texts) {
  std::wstring lines;
  for (const std::wstring& text : texts) lines += text.substr(0, text.find(L'\0')) + L"\n";
  return lines;
}

std::wstring OnLines(const KeptTexts& kept) {
  return OnLines(Texts(kept.texts, kept.texts + kept.count));
}

class Machine {
 public:
  Machine(Input& programInput, const std::vector<std::string>& blocks, const TempFolder& work)
      : program(programInput),
        arguments(ArgumentsOf(blocks)),
        folder(work),
        questions(QuestionsOfAll(blocks)) {
    for (Pair& pair : pairs) Renew(pair);
  }

  void Run() {
    for (int steps = 0; steps < 48 && !program.AtEnd(); ++steps) {
      const Operation operation = operations[program.Byte() % std::size(operations)];
      (this->*operation)(pairs[program.Byte() % pairs.size()]);
    }
    for (Pair& pair : pairs) CheckAll(pair);
    for (Pair& pair : pairs) pair.editor.reset();
    for (const KeptText& kept : keptTexts) {
      CheckSame("a result after the end of its editor", kept.text, kept.expected);
      delete[] kept.text;
    }
    for (const KeptTexts& kept : keptLists) {
      CheckSame("an array after the end of its editor", OnLines(kept), kept.expected);
      for (int i = 0; i < kept.count; ++i) delete[] kept.texts[i];
      delete[] kept.texts;
    }
  }

 private:
  using Operation = void (Machine::*)(Pair&);

  const std::wstring& Argument() { return arguments[program.Byte() % arguments.size()]; }

  // Half of the names are relative to the data folder, which is that of the files.
  FileName File() {
    const std::size_t byte = program.Byte();
    const std::size_t index = byte % (std::size(names) + 1);
    const std::string name = index < std::size(names) ? names[index] : "missing/x.txt";
    const std::wstring wide(name.begin(), name.end());
    const std::wstring path = folder.Wide() + L"/" + wide;
    return {byte < 128 ? path : wide, path};
  }

  void Keep(const wchar_t* text, std::wstring expected) {
    expected = expected.substr(0, expected.find(L'\0'));
    CheckSame("a result", text, expected);
    keptTexts.push_back({text, std::move(expected)});
  }

  void KeepAll(int count, const wchar_t** texts, const Texts& expected) {
    keptLists.push_back({count, texts, OnLines(expected)});
    CheckSame("an array", OnLines(keptLists.back()), keptLists.back().expected);
  }

  void CheckAll(Pair& pair) {
    CheckSame("all answers", AnswersOf(*pair.editor, pair.naive, questions),
              AnswersOf(pair.naive, questions));
  }

  // The operations

  void LoadClassificator(Pair& pair) {
    const std::wstring &id = Argument(), &name = Argument(), &paramName = Argument();
    const FileName file = File();
    Check(pair.editor->CreateClassificator(id.c_str(), name.c_str(), paramName.c_str(),
                                           file.asked.c_str()) ==
              pair.naive.CreateClassificator(id, name, paramName, file.path),
          "the status of CreateClassificator");
    // Most loads are followed by a selection.
    if (program.Byte() % 4 != 0) SelectClassificatorOf(pair, id);
  }

  void LoadDomen(Pair& pair) {
    const FileName file = File();
    Check(pair.editor->CreateDomen(file.asked.c_str()) == pair.naive.CreateDomen(file.path),
          "the status of CreateDomen");
  }

  void SelectClassificatorOf(Pair& pair, const std::wstring& id) {
    Check(pair.editor->SetActiveClassificator(id.c_str()) == pair.naive.SetActiveClassificator(id),
          "the status of SetActiveClassificator");
  }

  void SelectClassificator(Pair& pair) { SelectClassificatorOf(pair, Argument()); }

  void SelectColorat(Pair& pair) {
    const std::wstring& id = Argument();
    if (pair.naive.active < 0) {
      Check(OutOfRangeOf([&] { pair.editor->SetActiveColorat(id.c_str()); }) == badSubscript &&
                OutOfRangeOf([&] { pair.editor->GetColorNum(id.c_str()); }) == badSubscript,
            "no Colorat without an active Classificator");
      return;
    }
    Check(pair.editor->SetActiveColorat(id.c_str()) == pair.naive.SetActiveColorat(id),
          "the status of SetActiveColorat");
  }

  void SelectDomen(Pair& pair) {
    const std::wstring &id = Argument(), &name = Argument();
    Check(pair.editor->SetActiveDomenId(id.c_str()) == pair.naive.SetActiveDomenId(id),
          "the status of SetActiveDomenId");
    Check(pair.editor->SetActiveDomenByName(name.c_str()) == pair.naive.SetActiveDomenByName(name),
          "the status of SetActiveDomenByName");
    Keep(pair.editor->GetActiveDomenId(), pair.naive.domenStore.activeDomenId);
    Texts ids;
    for (const auto& [domenId, domen] : pair.naive.domenStore.domens) ids.push_back(domenId);
    int count = 0;
    const wchar_t** texts = pair.editor->GetDomensIds(count);
    KeepAll(count, texts, ids);
  }

  void SetMarks(Pair& pair) {
    pair.naive.startMark = Argument();
    pair.naive.endMark = Argument();
    pair.editor->SetStartMark(pair.naive.startMark.c_str());
    pair.editor->SetEndMark(pair.naive.endMark.c_str());
  }

  void AskMarks(Pair& pair) {
    Keep(pair.editor->GetStartMark(), L" " + pair.naive.startMark);
    Keep(pair.editor->GetEndMark(), pair.naive.endMark + L" ");
  }

  void AskMapping(Pair& pair) {
    if (pair.naive.active < 0) return;
    const std::wstring &text = Argument(), &suffix = Argument();
    const int kind = program.Byte() % 4;
    Keep(pair.editor->GetMappingStr(text.c_str(), kind, suffix.c_str()),
         pair.naive.GetMappingStr(text, kind, suffix));
    const int codeId = Naive::FindCodeId(pair.naive.Active().classificator.mapTextSection, text);
    Check(pair.editor->GetClaccificatorCodeId(text.c_str()) == codeId, "the code id");
    Keep(pair.editor->GetClaccificatorCodeParams(codeId, kind, suffix.c_str()),
         pair.naive.GetClaccificatorCodeParams(codeId, kind, suffix));
  }

  void AskAll(Pair& pair) { CheckAll(pair); }

  void Copy(Pair& pair) {
    const Pair& source = pairs[program.Byte() % pairs.size()];
    auto copy = std::make_unique<Editor>(*source.editor);
    Naive::Editor naiveCopy = source.naive;
    pair.editor = std::move(copy);
    pair.naive = naiveCopy;
  }

  void Assign(Pair& pair) {
    const Pair& source = pairs[program.Byte() % pairs.size()];
    Check(&(*pair.editor = *source.editor) == pair.editor.get(), "the result of an assignment");
    pair.naive = source.naive;
  }

  void Renew(Pair& pair) {
    pair.editor = std::make_unique<Editor>(folder.Wide().c_str(), L"");
    pair.naive = Naive::Editor();
  }

  void Export(Pair& pair) {
    const std::wstring& id = Argument();
    const std::wstring file = File().path;
    const fs::path target(std::string(file.begin(), file.end()));
    const bool wasFile = fs::is_regular_file(target);
    const std::string before = wasFile ? ReadBytes(target) : "";
    pair.editor->ExportJson(id.c_str(), file.c_str());
    const Domen* domen = pair.naive.FindDomen(id);
    if (domen && !fs::is_directory(target) && fs::exists(target.parent_path())) {
      const auto tree = Naive::ParseJson5(Naive::DecodeUtf8(ReadBytes(target)));
      Check(tree.has_value(), "an export can be read");
      CheckSame("the exported tree", Naive::Describe(*tree),
                Naive::Describe(Naive::ExportedTree(*domen)));
    } else {
      Check(fs::is_regular_file(target) == wasFile, "a target that isn't written stays what it is");
      Check(!wasFile || ReadBytes(target) == before, "a target that isn't written stays whole");
    }
    Check(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()) <=
              static_cast<std::ptrdiff_t>(std::size(names)),
          "an export leaves nothing beside its target");
  }

  void ChangeLocale(Pair& /*pair*/) { SetLocale(program.Byte()); }

  static constexpr Operation operations[] = {&Machine::LoadClassificator,
                                             &Machine::LoadDomen,
                                             &Machine::SelectClassificator,
                                             &Machine::SelectColorat,
                                             &Machine::SelectDomen,
                                             &Machine::SetMarks,
                                             &Machine::AskMarks,
                                             &Machine::AskMapping,
                                             &Machine::AskAll,
                                             &Machine::Copy,
                                             &Machine::Assign,
                                             &Machine::Renew,
                                             &Machine::Export,
                                             &Machine::ChangeLocale};

  Input& program;
  Texts arguments;
  const TempFolder& folder;
  Questions questions;
  std::array<Pair, 3> pairs;
  std::vector<KeptText> keptTexts;
  std::vector<KeptTexts> keptLists;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  const std::uint8_t* const end = std::find(data, data + size, std::uint8_t{0xFF});
  std::string_view rest(reinterpret_cast<const char*>(end),
                        static_cast<std::size_t>(data + size - end));
  if (!rest.empty()) rest.remove_prefix(1);
  const std::vector<std::string> blocks = BlocksOf(rest);
  WriteFiles(folder, blocks);
  SetLocale(1);
  Input program(data, static_cast<std::size_t>(end - data));
  Machine(program, blocks, folder).Run();
  return 0;
}
