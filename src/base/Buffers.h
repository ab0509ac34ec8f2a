// How results leave the library: as new buffers that the caller owns and frees with the array form
// of `delete`. No buffer points into the editor.

#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

// A new buffer with the text up to its first NUL, and a NUL behind it. Never null.
const wchar_t* NewString(std::wstring_view text);

// The same of a text in pieces: `give` hands them, one after the other, to the function that it is
// called with. It is called twice, and gives the same pieces both times.
template <class Give>
const wchar_t* NewJoined(const Give& give) {
  std::size_t size = 0;
  bool atNul = false;
  give([&size, &atNul](std::wstring_view piece) {
    if (atNul) return;
    const std::size_t nul = piece.find(L'\0');
    atNul = nul != piece.npos;
    size += std::min(nul, piece.size());
  });
  auto* buffer = new wchar_t[size + 1];
  std::size_t filled = 0;
  give([buffer, size, &filled](std::wstring_view piece) {
    filled += piece.copy(buffer + filled, size - filled);
  });
  buffer[size] = L'\0';
  return buffer;
}

// A new array on its way to the caller. Until `Release` hands it over it frees itself and the
// strings in it, so that nothing leaks when memory runs out halfway.
template <class Element>
class OutputArray {
 public:
  explicit OutputArray(std::size_t newSize) : elements(new Element[newSize]()), size(newSize) {}
  OutputArray(const OutputArray&) = delete;
  OutputArray& operator=(const OutputArray&) = delete;
  OutputArray(OutputArray&&) noexcept = default;
  OutputArray& operator=(OutputArray&&) = delete;

  ~OutputArray() {
    if constexpr (std::is_same_v<Element, const wchar_t*>) {
      for (std::size_t i = 0; elements && i < size; ++i) delete[] elements[i];
    }
  }

  Element& operator[](std::size_t index) { return elements[index]; }
  Element* Release() { return elements.release(); }

 private:
  std::unique_ptr<Element[]> elements;
  std::size_t size;
};

// One array output of an export, and what of a result goes into it: a member or a function.
template <class Element, class Project>
struct Column {
  Element*& output;
  Project project;
};

template <class Element, class Project>
Column<Element, Project> Into(Element*& output, Project project) {
  return {output, std::move(project)};
}

// The new array of one column. A text becomes a new string of its own.
template <class Results, class Element, class Project>
OutputArray<Element> MakeArray(const Results& results, const Column<Element, Project>& column) {
  OutputArray<Element> array(std::size(results));
  std::size_t index = 0;
  for (const auto& result : results) {
    if constexpr (std::is_same_v<Element, const wchar_t*>) {
      array[index++] = NewString(std::invoke(column.project, result));
    } else {
      array[index++] = std::invoke(column.project, result);
    }
  }
  return array;
}

// Hands a container of results to the caller: their number, and an array for each column, position
// i of all arrays belonging to result i. With no results the outputs of the columns stay as they
// are, and so they do when memory runs out.
//
//   HandOut(colors, count, Into(names, &Color::name), Into(numbers, &Color::number));
template <class Results, class... Columns>
void HandOut(const Results& results, int& count, const Columns&... columns) {
  count = static_cast<int>(std::size(results));
  if (count == 0) return;
  std::tuple arrays(MakeArray(results, columns)...);
  std::apply([&columns...](auto&... array) { ((columns.output = array.Release()), ...); }, arrays);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
