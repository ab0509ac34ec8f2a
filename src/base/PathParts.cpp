#include "base/PathParts.h"

#include <cstddef>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsDriveLetter(wchar_t unit) {
  return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
}

}  // namespace

std::wstring_view FileName(std::wstring_view path) {
  if (path.size() >= 2 && path[1] == L':' && IsDriveLetter(path[0])) path.remove_prefix(2);
  path.remove_prefix(path.find_last_of(L"\\/") + 1);
  return path.substr(0, path.find(L':'));
}

std::wstring_view Extension(std::wstring_view path) {
  const std::wstring_view name = FileName(path);
  const std::size_t point = name.rfind(L'.');
  if (point == name.npos || point == 0 || name == L"..") return {};
  return name.substr(point);
}

std::wstring_view Stem(std::wstring_view path) {
  const std::wstring_view name = FileName(path);
  return name.substr(0, name.size() - Extension(path).size());
}

}  // namespace TolvenLibs::RevitMappingEditorDll
