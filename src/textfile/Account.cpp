#include "textfile/Account.h"

namespace TolvenLibs::RevitMappingEditorDll {

void Note(Account* account, Outcome outcome, std::wstring_view piece,
          std::initializer_list<std::wstring_view> names) {
  if (!account) return;
  account->entries.push_back({outcome, piece, {names.begin(), names.end()}});
}

}  // namespace TolvenLibs::RevitMappingEditorDll
