// Compares the queries over a domain of 10,000 properties with one allocation and copy of each
// string that they return. The time includes releasing each result.
//
//   query_NAME/WHO/10000

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "base/Utf8.h"
#include "support/DomainCheck.h"
#include "support/Domains.h"
#include "support/Run.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
using TolvenLibs::RevitMappingEditorDll::DecodeUtf8;

constexpr const wchar_t* domainId = L"Domain";

// The results of a query, released at the end of their scope.
struct Results {
  Results() = default;
  Results(const Results&) = delete;
  Results& operator=(const Results&) = delete;

  ~Results() {
    for (const wchar_t** column : strings) {
      for (int i = 0; column != nullptr && i < count; ++i) delete[] column[i];
      delete[] column;
    }
    for (const int* column : numbers) delete[] column;
    for (const bool* column : flags) delete[] column;
  }

  int count = 0;
  const wchar_t** strings[3] = {};
  int* numbers[1] = {};
  bool* flags[2] = {};
};

const wchar_t* Copy(std::wstring_view text) {
  wchar_t* copy = new wchar_t[text.size() + 1];
  std::copy(text.begin(), text.end(), copy);
  copy[text.size()] = L'\0';
  return copy;
}

// The strings of a result, column by column.
using Columns = std::vector<std::vector<std::wstring>>;

Columns TakeStrings(const Results& results) {
  Columns columns;
  for (const wchar_t** column : results.strings) {
    if (column != nullptr) columns.emplace_back(column, column + results.count);
  }
  return columns;
}

void CopyStrings(const Columns& columns, Results& results) {
  results.count = static_cast<int>(columns.front().size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    results.strings[i] = new const wchar_t*[columns[i].size()]();
    std::transform(columns[i].begin(), columns[i].end(), results.strings[i], Copy);
  }
}

// Adds a query, and the copying of its results.
template <class Query>
void AddQuery(const std::string& name, const std::string& size, Query query) {
  Results once;
  query(once);
  Columns columns = TakeStrings(once);
  AddCase(CaseName("query_" + name, "ours", size), [query] {
    Results results;
    query(results);
    benchmark::DoNotOptimize(results);
  });
  AddCase(CaseName("query_" + name, "floor", size), [columns = std::move(columns)] {
    Results results;
    CopyStrings(columns, results);
    benchmark::DoNotOptimize(results);
  });
}

void AddQueriesOfDomains(Editor& editor, const std::string& size) {
  AddQuery("domain_ids", size, [&](Results& r) { r.strings[0] = editor.GetDomensIds(r.count); });
  AddQuery("domain_names", size,
           [&](Results& r) { r.strings[0] = editor.GetDomensNames(r.count); });
  AddQuery("active_domain", size, [&](Results& r) {
    r.count = 1;
    r.strings[0] = new const wchar_t* [1] { editor.GetActiveDomenId() };
  });
}

void AddQueriesOfProperties(Editor& editor, const std::string& size, const std::wstring& property) {
  AddQuery("sort_index", size, [&](Results& r) {
    editor.GetPropertiesSortIndex(domainId, r.count, r.strings[0], r.numbers[0]);
  });
  AddQuery("by_type", size, [&](Results& r) {
    editor.GetDomenPropertysByObjType(domainId, L"Type7", r.count, r.strings[0], r.strings[1],
                                      r.numbers[0]);
  });
  AddQuery("by_types", size, [&](Results& r) {
    const wchar_t* types[] = {L"Type7", L"Type8"};
    editor.GetDomenPropertysByObjTypes(domainId, 2, types, r.count, r.strings[0], r.strings[1],
                                       r.numbers[0]);
  });
  AddQuery("field_values", size, [&editor, property](Results& r) {
    editor.GetDomenPropertyFieldsValues(domainId, property.c_str(), r.count, r.strings[0],
                                        r.strings[1], r.numbers[0], r.flags[0], r.strings[2]);
  });
  AddQuery("check_info", size, [&](Results& r) {
    editor.GetDomenPropertiesCheckInfo(domainId, r.count, r.strings[0], r.flags[0], r.numbers[0],
                                       r.flags[1]);
  });
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const DomainData domain = MakeDomain(brief ? 1'000 : 10'000);
  const std::string size = std::to_string(domain.size());
  const TempFolder folder;
  const std::wstring file = folder.Write("Domain.txt", MakeDomainText(domain, "Domain"));
  Editor editor(L"", L"");
  Require(editor.CreateDomen(file.c_str()) == 0 && HasDomain(editor, domainId, domain),
          "the domain");

  AddQueriesOfDomains(editor, size);
  AddQueriesOfProperties(editor, size, DecodeUtf8(domain[domain.size() / 2].id));
  return RunCases(argumentCount, arguments);
}
