// The record of requests that a file is written from, in their order. Names, keys, comments and
// strings are kept in the form of Json5Text.h, lists of strings in wide form.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// Interned texts: section names, keys and comments, which are requested over and over. Each is kept
// once and identified by its place, in the order of first requests.
class RepeatedTexts {
 public:
  // Returns the place of a NUL-terminated text, and adds it if it is new.
  std::uint32_t PlaceOf(const wchar_t* text);

  std::size_t Count() const { return texts_.size(); }
  const std::wstring& operator[](std::size_t place) const { return *texts_[place]; }

  // The text in the form of Json5Text.h.
  const std::string& Bytes(std::size_t place) const { return bytes_[place]; }

 private:
  // An entry of a small cache by pointer: most texts come from the same addresses again.
  struct Seen {
    const wchar_t* pointer = nullptr;
    std::uint32_t place = 0;
  };

  // Returns the pointer's cache entry, or the one to use for it.
  Seen& SeenAt(const wchar_t* text);

  std::uint32_t Add(const wchar_t* text);

  std::array<Seen, 128> seen_;
  std::unordered_map<std::wstring, std::uint32_t> places_;
  std::vector<const std::wstring*> texts_;
  std::vector<std::string> bytes_;
};

// An item of a section. There is one for each time that it was opened, and one more whenever its
// requests continue after those of another.
struct Json5RecordItem {
  std::uint32_t section;   // a place
  std::string_view name;   // "" for the section itself
  std::size_t firstParam;  // its parameters end at the first of the next item
};

using Json5RecordTexts = std::span<const std::wstring_view>;

// A string, an integer, a real, or an array of strings.
using Json5RecordValue = std::variant<std::string_view, int, double, Json5RecordTexts>;

struct Json5RecordParam {
  std::uint32_t key;      // a place
  std::uint32_t comment;  // a place
  Json5RecordValue value;
};

// Append-only, without lookups: most records are never written.
class Json5Record {
 public:
  Json5Record() = default;
  Json5Record(const Json5Record&) = delete;
  Json5Record& operator=(const Json5Record&) = delete;

  // Adds an item, to which later requests may belong, and returns its place.
  std::size_t Open(const wchar_t* sectionName, std::wstring_view itemName);

  // Records a value of an item. REQUIRES: the texts of the value outlive the record.
  void Set(std::size_t item, std::uint32_t key, std::uint32_t comment,
           const Json5RecordValue& value);

  // The following three return memory that lives as long as the record.

  // Returns the text in the form of Json5Text.h.
  std::string_view Keep(std::wstring_view text);

  // Returns the wide form of a text, NUL-terminated.
  std::wstring_view KeepWide(std::string_view text);

  // Returns an array for `count` texts.
  std::span<std::wstring_view> List(std::size_t count);

  // Takes ownership of strings made with `new[]`, even if it raises `bad_alloc`.
  void Adopt(const wchar_t** strings, std::size_t count);

  RepeatedTexts repeated;

  const std::pmr::deque<Json5RecordItem>& Items() const { return items_; }
  const std::pmr::deque<Json5RecordParam>& Params() const { return params_; }

 private:
  template <class Element>
  Element* Allocate(std::size_t count) {
    return std::pmr::polymorphic_allocator<Element>(&memory_).allocate(count);
  }

  // An arena. Deques in it grow without moving their elements, which would take twice the memory.
  std::pmr::monotonic_buffer_resource memory_{65536};
  std::pmr::deque<Json5RecordItem> items_{&memory_};
  std::pmr::deque<Json5RecordParam> params_{&memory_};
  std::pmr::deque<std::unique_ptr<const wchar_t[]>> adopted_{&memory_};
  std::size_t current_ = 0;  // the place of the item that the last of `items_` continues
  std::string bytes_;        // a buffer for `Keep`
};

}  // namespace TolvenLibs::RevitMappingEditorDll
