#include "hostile/Case.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "support/Results.h"

Subject::Subject(std::size_t caseSize) : editor(L"", L""), size(caseSize) {}

HostileCases AllHostileCases() {
  HostileCases all;
  for (HostileCases (*cases)() :
       {TextFileCases, ClassCases, ColoratCases, ParamCases, MapTextCases, LookupCases,
        CompositionCases, DomenCases, JsonCases, ExportCases, PathCases, CheckCases}) {
    const HostileCases some = cases();
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

std::string Times(std::size_t count, std::string_view piece) {
  std::string text;
  text.reserve(count * piece.size());
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

std::string Join(std::size_t count, const std::function<std::string(std::size_t)>& piece) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += piece(i);
  return text;
}

std::string Seven(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(7 - std::min<std::size_t>(7, digits.size()), '0') + digits;
}

std::size_t Shuffled(std::size_t index, std::size_t count) {
  // A prime that doesn't divide the count of any case.
  return index * 7919 % count;
}

std::string LongName(std::size_t number) {
  return "thefirstfortylettersareallalikeinallofthm" + Seven(number);
}

int CodeId(Subject& subject, const std::wstring& text) {
  return subject.editor.GetClaccificatorCodeId(text.c_str());
}

std::wstring Mapping(Subject& subject, const std::wstring& text, int sourceKind) {
  return Take(subject.editor.GetMappingStr(text.c_str(), sourceKind, L"="));
}

int KeyTextCount(Subject& subject) {
  int count = -1;
  const wchar_t** keys = nullptr;
  subject.editor.GetColoratsIds(count, keys);
  TakeAll(count, keys);
  return count;
}

int PropertyCount(Subject& subject, const wchar_t* domenId) {
  int count = -1;
  const wchar_t** ids = nullptr;
  int* indexes = nullptr;
  subject.editor.GetPropertiesSortIndex(domenId, count, ids, indexes);
  TakeAll(count, ids);
  delete[] indexes;
  return count;
}

int FieldCount(Subject& subject, const wchar_t* domenId, const wchar_t* propertyId) {
  int count = -1;
  const wchar_t** names = nullptr;
  const wchar_t** titles = nullptr;
  const wchar_t** values = nullptr;
  int* types = nullptr;
  bool* flags = nullptr;
  subject.editor.GetDomenPropertyFieldsValues(domenId, propertyId, count, names, titles, types,
                                              flags, values);
  for (const wchar_t** texts : {names, titles, values}) TakeAll(count, texts);
  delete[] types;
  delete[] flags;
  return count;
}

std::vector<std::wstring> DomenIds(Subject& subject) {
  int count = -1;
  const wchar_t** ids = subject.editor.GetDomensIds(count);
  return TakeAll(count, ids);
}

void AskNothing(Subject& /*subject*/) {}
