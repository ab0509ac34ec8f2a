#include "authoring/AllAnswers.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "RevitMappingEditorDll.h"
#include "support/DomenRows.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Editor = RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

std::wstring Written(const std::wstring& text) {
  return L" '" + text + L"'";
}

std::wstring Written(int number) {
  return L" " + std::to_wstring(number);
}

template <class Element>
std::wstring WrittenAll(const std::vector<Element>& elements) {
  std::wstring all;
  for (const Element& element : elements) all += Written(element);
  return all;
}

class Asker {
 public:
  Asker(const FileList& files, const ProofQuestions& questions,
        const std::filesystem::path& exportTo)
      : editor_(files.dataFolder.c_str(), L""), questions_(questions), exportTo_(exportTo) {
    for (const std::wstring& file : files.classificators) {
      const std::wstring id = L"S" + std::to_wstring(ids_.size());
      Add(L"load", editor_.CreateClassificator(id.c_str(), id.c_str(), L"Code", file.c_str()));
      ids_.push_back(id);
    }
    for (const std::wstring& file : files.domens) {
      Add(L"load", editor_.CreateDomen(file.c_str()));
    }
  }

  Answers Ask() {
    for (const std::wstring& id : ids_) {
      editor_.SetActiveClassificator(id.c_str());
      AskCodes();
      AskColors();
    }
    AskDomens();
    return std::move(answers_);
  }

 private:
  void Add(const std::wstring& question, const std::wstring& answer) {
    answers_.push_back(question + L":" + answer);
  }

  void Add(const std::wstring& question, int answer) { Add(question, Written(answer)); }

  // Asks, or says what the call raised.
  template <class Call>
  void AddOrFailure(const std::wstring& question, const Call& call) {
    try {
      Add(question, call());
    } catch (const std::out_of_range& error) {
      const std::string what = error.what();
      Add(question, L" raises " + std::wstring(what.begin(), what.end()));
    }
  }

  void AskCodes() {
    Add(L"default code", Take(editor_.GetDefaultClaccificatorCode()));
    for (const std::wstring& text : questions_.texts) {
      const int codeId = editor_.GetClaccificatorCodeId(text.c_str());
      const wchar_t* const empty = L"";
      Add(text, Written(Take(editor_.GetClaccificatorCode(codeId))) +
                    Written(Take(editor_.GetMappingStr(text.c_str(), 1, L"="))) +
                    Written(Take(editor_.GetMappingStr(text.c_str(), 2, empty))) +
                    Written(Take(editor_.GetClaccificatorCodeParams(codeId, 1, empty))));
    }
  }

  void AskColors() {
    AskColorat(L"first Colorat");
    for (const std::wstring& id : questions_.coloratIds) {
      Add(L"Colorat " + id, editor_.SetActiveColorat(id.c_str()));
      AskColorat(id);
    }
  }

  void AskColorat(const std::wstring& name) {
    int count = -1;
    Output<const wchar_t*> output;
    editor_.GetColoratsIds(count, output.array);
    for (const std::wstring& key : output.Take(count)) {
      AddOrFailure(name + L", colour " + key, [&] {
        std::vector<int> numbers(5, -1);
        editor_.GetColor(key.c_str(), numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]);
        return WrittenAll(numbers) + Written(editor_.GetColorNum(key.c_str()));
      });
    }
  }

  Texts List(const wchar_t** (Editor::*list)(int&)) {
    int count = -1;
    const wchar_t** const array = (editor_.*list)(count);
    return TakeAll(count, array);
  }

  void AskDomens() {
    Add(L"active domain", Take(editor_.GetActiveDomenId()));
    const Texts ids = List(&Editor::GetDomensIds);
    Add(L"domains", WrittenAll(ids));
    Add(L"names of domains", WrittenAll(List(&Editor::GetDomensNames)));
    for (const std::wstring& id : ids) AskDomen(id);
  }

  void AskDomen(const std::wstring& id) {
    int count = -1;
    Output<const wchar_t*> keys;
    Output<int> indexes;
    editor_.GetPropertiesSortIndex(id.c_str(), count, keys.array, indexes.array);
    const Texts taken = keys.Take(count);
    Add(id + L", properties", WrittenAll(taken) + WrittenAll(indexes.Take(count)));
    AskCheckInfo(id);
    for (const std::wstring& key : taken) AskFields(id, key);
    for (const std::wstring& type : questions_.objectTypes) {
      AddRows(id + L" of " + type, OfType(editor_, id.c_str(), type.c_str()));
    }
    if (!exportTo_.empty()) Add(id + L", export", Export(id));
  }

  void AddRows(const std::wstring& question, const PropertyRows& rows) {
    std::wstring all;
    for (const auto& [key, name, index] : rows)
      all += Written(key) + Written(name) + Written(index);
    Add(question, all);
  }

  void AskCheckInfo(const std::wstring& id) {
    AddOrFailure(id + L", check info", [&] {
      int count = -1;
      Output<const wchar_t*> keys;
      Output<bool> uniques, lists;
      Output<int> counts;
      editor_.GetDomenPropertiesCheckInfo(id.c_str(), count, keys.array, uniques.array,
                                          counts.array, lists.array);
      std::wstring all = WrittenAll(keys.Take(count)) + WrittenAll(counts.Take(count));
      for (const bool unique : uniques.Take(count)) all += Written(unique ? 1 : 0);
      for (const bool list : lists.Take(count)) all += Written(list ? 1 : 0);
      return all;
    });
  }

  // A key with a NUL in it can't be asked for.
  void AskFields(const std::wstring& id, const std::wstring& key) {
    AddOrFailure(id + L", fields of " + key, [&] {
      std::wstring all;
      for (const auto& [name, title, type, flag, value] :
           Fields(editor_, id.c_str(), key.c_str())) {
        all +=
            Written(name) + Written(title) + Written(type) + Written(flag ? 1 : 0) + Written(value);
      }
      return all;
    });
  }

  // Its bytes, each as a unit.
  std::wstring Export(const std::wstring& id) {
    editor_.ExportJson(id.c_str(), exportTo_.wstring().c_str());
    std::ifstream file(exportTo_, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return {bytes.begin(), bytes.end()};
  }

  Editor editor_;
  const ProofQuestions& questions_;
  const std::filesystem::path& exportTo_;
  Texts ids_;
  Answers answers_;
};

}  // namespace

Answers AnswersAbout(const FileList& files, const ProofQuestions& questions,
                     const std::filesystem::path& exportTo) {
  return Asker(files, questions, exportTo).Ask();
}

std::wstring FirstDifference(const Answers& left, const Answers& right) {
  const auto [inLeft, inRight] =
      std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (inLeft == left.end() && inRight == right.end()) return {};
  return (inLeft == left.end() ? L"nothing" : *inLeft) + L" / " +
         (inRight == right.end() ? L"nothing" : *inRight);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
