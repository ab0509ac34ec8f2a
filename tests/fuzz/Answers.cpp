#include "fuzz/Answers.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "fuzz/Check.h"
#include "naive/CodeLookup.h"
#include "naive/Fields.h"
#include "naive/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Editor = RevitMappingEditorDll;
using Naive::Texts;

constexpr const wchar_t* suffix = L"=";

// Bounds the number of codes, properties or keys per query: with a thousand of them a naive editor
// would take the time of a thousand runs.
constexpr std::size_t mostAsked = 5;

// Returns some of the elements, evenly spaced.
template <class Element>
std::vector<Element> SomeOf(const std::vector<Element>& elements, std::size_t most) {
  const std::size_t step = (elements.size() + most - 1) / most;
  std::vector<Element> some;
  for (std::size_t i = 0; i < elements.size(); i += step) some.push_back(elements[i]);
  return some;
}

// Answers as text

std::wstring UpToNul(const std::wstring& text) {
  return text.substr(0, text.find(L'\0'));
}

std::wstring Written(const std::wstring& text) {
  return L" '" + text + L"'";
}

std::wstring Written(int number) {
  return L" " + std::to_wstring(number);
}

// Copies a result and releases it as a caller does.
std::wstring Taken(const wchar_t* text) {
  std::wstring taken = Written(std::wstring(text));
  delete[] text;
  return taken;
}

// An array output of a call, which is written if and only if there are results.
template <class Element>
class Output {
 public:
  std::wstring Take(int count) {
    Check((array == &untouched) == (count == 0), "an array is written if there are results");
    std::wstring taken;
    for (int i = 0; i < count; ++i) {
      if constexpr (std::is_same_v<Element, const wchar_t*>) {
        taken += Taken(array[i]);
      } else {
        taken += Written(array[i]);
      }
    }
    if (count != 0) delete[] array;
    return taken + L"\n";
  }

 private:
  Element untouched{};

 public:
  Element* array = &untouched;
};

// Returns the result of a call, or the message of its exception.
template <class Call>
std::wstring FailureOr(Call call) {
  try {
    return call();
  } catch (const std::out_of_range& error) {
    const std::string what = error.what();
    return L" raises " + std::wstring(what.begin(), what.end());
  }
}

// The queries to both editors, in the same order

Texts DomenIdsOf(const Naive::Editor& naive) {
  Texts ids;
  for (const auto& [id, domen] : naive.domenStore.domens) ids.push_back(UpToNul(id));
  ids.push_back(L"no such domain");
  return ids;
}

Texts PropertyIdsOf(const Naive::Editor& naive, const std::wstring& domenId) {
  Texts ids;
  if (const Domen* domen = naive.FindDomen(domenId)) {
    for (const auto& [key, property] : domen->properties) ids.push_back(UpToNul(key));
  }
  ids = SomeOf(ids, mostAsked);
  ids.push_back(L"no such property");
  return ids;
}

Texts KeysOf(const Naive::Editor& naive, const Questions& questions) {
  Texts keys = questions.objectTypes;
  if (const Naive::ColorMap* colors = naive.ActiveColors()) {
    for (const auto& [key, entry] : *colors) keys.push_back(UpToNul(key));
  }
  return SomeOf(keys, mostAsked);
}

std::vector<int> CodeIdsOf(const Naive::Editor& naive) {
  const int count = static_cast<int>(naive.Active().classificator.mapTextSection.records.size());
  std::vector<int> ids = {-2, -1, count};
  for (int i = 0; i < count; ++i) ids.push_back(i);
  return SomeOf(ids, mostAsked);
}

// The answers of the library

std::wstring FieldsOf(Editor& editor, const std::wstring& domenId, const std::wstring& key) {
  return FailureOr([&] {
    int count = -1;
    Output<const wchar_t*> names, titles, values;
    Output<int> types;
    Output<bool> flags;
    editor.GetDomenPropertyFieldsValues(domenId.c_str(), key.c_str(), count, names.array,
                                        titles.array, types.array, flags.array, values.array);
    return names.Take(count) + titles.Take(count) + types.Take(count) + flags.Take(count) +
           values.Take(count);
  });
}

std::wstring CheckInfosOf(Editor& editor, const std::wstring& domenId) {
  return FailureOr([&] {
    int count = -1;
    Output<const wchar_t*> ids;
    Output<bool> uniques, lists;
    Output<int> counts;
    editor.GetDomenPropertiesCheckInfo(domenId.c_str(), count, ids.array, uniques.array,
                                       counts.array, lists.array);
    return ids.Take(count) + uniques.Take(count) + counts.Take(count) + lists.Take(count);
  });
}

std::wstring PropertiesOf(Editor& editor, const std::wstring& domenId, const Texts& types) {
  std::vector<const wchar_t*> array;
  for (const std::wstring& type : types) array.push_back(type.c_str());
  int count = -1;
  Output<const wchar_t*> ids, names;
  Output<int> indexes;
  if (types.size() == 1) {
    editor.GetDomenPropertysByObjType(domenId.c_str(), array[0], count, ids.array, names.array,
                                      indexes.array);
  } else {
    editor.GetDomenPropertysByObjTypes(domenId.c_str(), static_cast<int>(array.size()),
                                       array.data(), count, ids.array, names.array, indexes.array);
  }
  return ids.Take(count) + names.Take(count) + indexes.Take(count);
}

std::wstring SortIndexesOf(Editor& editor, const std::wstring& domenId) {
  int count = -1;
  Output<const wchar_t*> ids;
  Output<int> indexes;
  editor.GetPropertiesSortIndex(domenId.c_str(), count, ids.array, indexes.array);
  return ids.Take(count) + indexes.Take(count);
}

std::wstring TakeStrings(const wchar_t** (Editor::*list)(int&), Editor& editor) {
  int count = -1;
  const wchar_t** array = (editor.*list)(count);
  Check((array == nullptr) == (count == 0), "no results are no array");
  std::wstring taken;
  for (int i = 0; i < count; ++i) taken += Taken(array[i]);
  delete[] array;
  return taken + L"\n";
}

std::wstring ClassificatorsOf(Editor& editor) {
  int count = -1;
  Output<const wchar_t*> ids, names;
  editor.GetClassificatorsNames(count, ids.array, names.array);
  return ids.Take(count) + names.Take(count);
}

std::wstring KeyTextsOf(Editor& editor) {
  return FailureOr([&] {
    int count = -1;
    Output<const wchar_t*> keys;
    editor.GetColoratsIds(count, keys.array);
    return keys.Take(count);
  });
}

std::wstring ColorOf(Editor& editor, const std::wstring& key) {
  return FailureOr([&] {
    int numbers[5] = {-1, -1, -1, -1, -1};
    editor.GetColor(key.c_str(), numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]);
    Check(editor.GetColorNum(key.c_str()) == numbers[0], "both calls give one number");
    std::wstring text;
    for (const int number : numbers) text += Written(number);
    return text;
  });
}

// The answers of the naive forms

std::wstring WrittenAll(const Texts& texts) {
  std::wstring written;
  for (const std::wstring& text : texts) written += Written(UpToNul(text));
  return written + L"\n";
}

std::wstring WrittenAll(const std::vector<int>& numbers) {
  std::wstring written;
  for (const int number : numbers) written += Written(number);
  return written + L"\n";
}

std::wstring FieldsOf(const Naive::Editor& naive, const std::wstring& domenId,
                      const std::wstring& key) {
  const Domen* domen = naive.FindDomen(domenId);
  if (domen && domen->properties.count(key) == 0) return L" raises invalid map<K, T> key";
  Texts names, titles, values;
  std::vector<int> types, flags;
  const DomenProperty property = domen ? Naive::CopyOf(domen->properties.at(key)) : DomenProperty();
  for (const auto& field : property.fields) {
    names.push_back(field->name);
    titles.push_back(field->title);
    types.push_back(field->valueType);
    flags.push_back(field->fieldFlag);
    values.push_back(Naive::GetValue(*field));
  }
  return WrittenAll(names) + WrittenAll(titles) + WrittenAll(types) + WrittenAll(flags) +
         WrittenAll(values);
}

std::wstring CheckInfosOf(const Naive::Editor& naive, const std::wstring& domenId) {
  Texts ids;
  std::vector<int> uniques, lists, counts;
  for (const DomenProperty* property : naive.PropertiesOfTypes(domenId, {})) {
    if (property->fields.empty()) return L" raises invalid vector subscript";
    ids.push_back(property->id);
    uniques.push_back(property->unique);
    counts.push_back(static_cast<int>(property->fields.size()));
    lists.push_back(property->fields.back()->valueType >= 3);
  }
  return WrittenAll(ids) + WrittenAll(uniques) + WrittenAll(counts) + WrittenAll(lists);
}

std::wstring PropertiesOf(const Naive::Editor& naive, const std::wstring& domenId,
                          const Texts& types) {
  Texts ids, names;
  std::vector<int> indexes;
  for (const DomenProperty* property : naive.PropertiesOfTypes(domenId, types)) {
    ids.push_back(property->id);
    names.push_back(property->name);
    indexes.push_back(property->sortIndex);
  }
  return WrittenAll(ids) + WrittenAll(names) + WrittenAll(indexes);
}

std::wstring SortIndexesOf(const Naive::Editor& naive, const std::wstring& domenId) {
  Texts keys;
  std::vector<int> indexes;
  for (const DomenProperty* property : naive.PropertiesOfTypes(domenId, {})) {
    keys.push_back(property->id);
    indexes.push_back(property->sortIndex);
  }
  return WrittenAll(keys) + WrittenAll(indexes);
}

std::wstring ColorOf(const Naive::Editor& naive, const std::wstring& key) {
  const Naive::ColorMap* colors = naive.ActiveColors();
  if (!colors || colors->count(key) == 0) return L" raises invalid map<K, T> key";
  const ColorEntry& color = colors->at(key);
  return Written(color.number) + Written(color.channel1) + Written(color.channel2) +
         Written(color.channel3) + Written(color.percent);
}

std::wstring KeyTextsOf(const Naive::Editor& naive) {
  Texts keys;
  const bool named = !naive.Active().activeColoratId.empty();
  if (const Naive::ColorMap* colors = named ? naive.ActiveColors() : nullptr) {
    for (const auto& [key, entry] : *colors) keys.push_back(key);
  }
  return WrittenAll(keys);
}

std::wstring CodeOf(const Naive::Editor& naive, int codeId) {
  const Naive::MapTextSection& section = naive.Active().classificator.mapTextSection;
  if (codeId == -1) return Written(UpToNul(section.defaultCode));
  if (codeId < 0 || codeId >= static_cast<int>(section.records.size())) {
    return L" raises invalid vector subscript";
  }
  return Written(UpToNul(section.records[static_cast<std::size_t>(codeId)].code));
}

// The answers about a Classificator and the domains

std::wstring OfClassificator(Editor& editor, const Naive::Editor& naive,
                             const Questions& questions) {
  std::wstring all = Taken(editor.GetActiveClassificatorParamName()) +
                     Taken(editor.GetDefaultClaccificatorCode()) + KeyTextsOf(editor);
  for (const std::wstring& key : KeysOf(naive, questions)) all += ColorOf(editor, key) + L"\n";
  for (const int id : CodeIdsOf(naive)) {
    all += FailureOr([&] { return Taken(editor.GetClaccificatorCode(id)); });
    for (const int kind : {1, 2}) {
      all += FailureOr(
          [&] { return Taken(editor.GetClaccificatorCodeParams(id, kind, suffix)) + L"\n"; });
    }
  }
  return all + CodesOf(editor, questions);
}

std::wstring OfClassificator(const Naive::Editor& naive, const Questions& questions) {
  std::wstring all = Written(UpToNul(naive.Active().classificator.paramName)) +
                     Written(UpToNul(naive.Active().classificator.mapTextSection.defaultCode)) +
                     KeyTextsOf(naive);
  for (const std::wstring& key : KeysOf(naive, questions)) all += ColorOf(naive, key) + L"\n";
  for (const int id : CodeIdsOf(naive)) {
    all += CodeOf(naive, id);
    for (const int kind : {1, 2}) {
      all += FailureOr([&] {
        return Written(UpToNul(naive.GetClaccificatorCodeParams(id, kind, suffix))) + L"\n";
      });
    }
  }
  return all + CodesOf(naive, questions);
}

// `Asked` is one of the two kinds of editors.
template <class Asked>
std::wstring OfDomens(Asked& asked, const Naive::Editor& naive, const Questions& questions) {
  std::wstring all;
  for (const std::wstring& id : DomenIdsOf(naive)) {
    all += L"domain " + id + L"\n" + SortIndexesOf(asked, id) + CheckInfosOf(asked, id) +
           PropertiesOf(asked, id, questions.objectTypes);
    for (const std::wstring& type : questions.objectTypes) all += PropertiesOf(asked, id, {type});
    for (const std::wstring& key : PropertyIdsOf(naive, id)) {
      all += key + FieldsOf(asked, id, key);
    }
  }
  return all;
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll

using namespace TolvenLibs::RevitMappingEditorDll;

Questions QuestionsOf(const std::string& bytes) {
  const Texts lines = Naive::ReadLines(bytes);
  Questions questions;
  for (const std::wstring& line : SomeOf(lines, 3)) {
    const std::wstring text = UpToNul(line);
    questions.texts.push_back(text + L"s and more");
    questions.texts.push_back(text.substr(0, text.size() - text.size() / 4));
  }
  Texts words;
  for (const std::wstring& line : lines) {
    for (const std::wstring& word : Naive::SplitTrimmed(line, L" ", false)) words.push_back(word);
  }
  for (const std::wstring& word : SomeOf(words, 3)) {
    questions.objectTypes.push_back(UpToNul(word));
  }
  return questions;
}

std::wstring CodesOf(::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                     const Questions& questions) {
  std::wstring all;
  for (const std::wstring& text : questions.texts) {
    all += Written(editor.GetClaccificatorCodeId(text.c_str())) +
           Taken(editor.GetMappingStr(text.c_str(), 1, suffix)) + L"\n";
  }
  return all;
}

std::wstring CodesOf(const Naive::Editor& naive, const Questions& questions) {
  std::wstring all;
  for (const std::wstring& text : questions.texts) {
    all += Written(Naive::FindCodeId(naive.Active().classificator.mapTextSection, text)) +
           Written(UpToNul(naive.GetMappingStr(text, 1, suffix))) + L"\n";
  }
  return all;
}

std::wstring AnswersOf(::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                       const Naive::Editor& naive, const Questions& questions) {
  std::wstring all = ClassificatorsOf(editor);
  all += naive.active >= 0 ? OfClassificator(editor, naive, questions) : KeyTextsOf(editor);
  all += TakeStrings(&Editor::GetDomensIds, editor) + TakeStrings(&Editor::GetDomensNames, editor) +
         Taken(editor.GetActiveDomenId()) + Taken(editor.GetStartMark()) +
         Taken(editor.GetEndMark()) + L"\n";
  return all + OfDomens(editor, naive, questions);
}

std::wstring AnswersOf(const Naive::Editor& naive, const Questions& questions) {
  Texts classificators, names, domens, domenNames;
  for (const Naive::Scheme& scheme : naive.schemes) {
    classificators.push_back(scheme.id);
    names.push_back(scheme.name);
  }
  for (const auto& [id, domen] : naive.domenStore.domens) {
    domens.push_back(id);
    domenNames.push_back(domen.name);
  }
  std::wstring all = WrittenAll(classificators) + WrittenAll(names);
  all +=
      naive.active >= 0 ? OfClassificator(naive, questions) : L" raises invalid vector subscript";
  all += WrittenAll(domens) + WrittenAll(domenNames) +
         Written(UpToNul(naive.domenStore.activeDomenId)) +
         Written(UpToNul(L" " + naive.startMark)) + Written(UpToNul(naive.endMark + L" ")) + L"\n";
  return all + OfDomens(naive, naive, questions);
}

void CheckDomenFile(const std::wstring& file, const std::string& bytes) {
  ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor(L"", L"");
  Naive::Editor naive;
  Check(editor.CreateDomen(file.c_str()) == naive.CreateDomen(file), "the status of the load");
  const Questions questions = QuestionsOf(bytes);
  CheckSame("the answers", AnswersOf(editor, naive, questions), AnswersOf(naive, questions));
  ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll copy(editor);
  const Naive::Editor naiveCopy(naive);
  CheckSame("the answers of a copy", AnswersOf(copy, naiveCopy, questions),
            AnswersOf(naiveCopy, questions));
}
