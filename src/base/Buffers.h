// Results of the library: new buffers that the caller owns and frees with `delete[]`. No buffer
// points into the editor.

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

// Returns a new NUL-terminated copy of the text up to its first NUL. Never null.
const wchar_t* NewString(std::wstring_view text);

// The same of a text in pieces, which `write` passes in order to the function that it is called
// with. It is called twice. REQUIRES: both calls pass the same pieces.
template <class Write>
const wchar_t* NewJoined(const Write& write) {
  std::size_t size = 0;
  bool atNul = false;
  write([&size, &atNul](std::wstring_view piece) {
    if (atNul) return;
    const std::size_t nul = piece.find(L'\0');
    atNul = nul != piece.npos;
    size += std::min(nul, piece.size());
  });
  auto* buffer = new wchar_t[size + 1];
  std::size_t filled = 0;
  write([buffer, size, &filled](std::wstring_view piece) {
    filled += piece.copy(buffer + filled, size - filled);
  });
  buffer[size] = L'\0';
  return buffer;
}

// A new array for the caller. Until `Release` it owns itself and the strings in it, so that nothing
// leaks when memory runs out halfway.
template <class Element>
class OutputArray {
 public:
  explicit OutputArray(std::size_t size) : elements_(new Element[size]()), size_(size) {}
  OutputArray(const OutputArray&) = delete;
  OutputArray& operator=(const OutputArray&) = delete;
  OutputArray(OutputArray&&) noexcept = default;
  OutputArray& operator=(OutputArray&&) = delete;

  ~OutputArray() {
    if constexpr (std::is_same_v<Element, const wchar_t*>) {
      for (std::size_t i = 0; elements_ && i < size_; ++i) delete[] elements_[i];
    }
  }

  Element& operator[](std::size_t index) { return elements_[index]; }
  Element* Release() { return elements_.release(); }

 private:
  std::unique_ptr<Element[]> elements_;
  std::size_t size_;
};

// An output array of an export, and the member or function of a result that fills it.
template <class Element, class Project>
struct Column {
  Element*& output;
  Project project;
};

template <class Element, class Project>
Column<Element, Project> Into(Element*& output, Project project) {
  return {output, std::move(project)};
}

// Returns the array of one column. Each text becomes a new string.
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

// Sets `count` to the number of results, and each column's output to a new array with an element
// for each result. The outputs stay as they are if there are no results or memory runs out.
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
