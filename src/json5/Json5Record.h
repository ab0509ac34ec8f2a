// What a file is written from: the values that were requested of it, in the order of the requests.
// Names, keys, comments and strings are kept as `Json5Text.h` has them, lists of strings as they
// came.

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

// Section names, keys and comments are requested over and over. They stand here once, in the order
// of their first request, and go by their place.
class RepeatedTexts {
 public:
  // The place of a NUL-terminated text.
  std::uint32_t PlaceOf(const wchar_t* text);

  std::size_t Count() const { return texts.size(); }
  const std::wstring& operator[](std::size_t place) const { return *texts[place]; }

  // The text as JSON5 has it.
  const std::string& Bytes(std::size_t place) const { return bytes[place]; }

 private:
  // Most texts come from where they came before: the pointer tells where to look first.
  struct Seen {
    const wchar_t* pointer = nullptr;
    std::uint32_t place = 0;
  };

  // Where the pointer was seen last, or where it can be noted.
  Seen& SeenAt(const wchar_t* text);

  std::uint32_t Add(const wchar_t* text);

  std::array<Seen, 128> seen;
  std::unordered_map<std::wstring, std::uint32_t> places;
  std::vector<const std::wstring*> texts;
  std::vector<std::string> bytes;
};

// An item of a section, once for each time that it was opened, and once more where its requests go
// on behind those of another.
struct Json5RecordItem {
  std::uint32_t section;   // a place
  std::string_view name;   // "" for the section itself
  std::size_t firstParam;  // those up to the first of the next item belong to this one
};

using Json5RecordTexts = std::span<const std::wstring_view>;

// A string, an integer, a real, or an array of strings.
using Json5RecordValue = std::variant<std::string_view, int, double, Json5RecordTexts>;

struct Json5RecordParam {
  std::uint32_t key;      // a place
  std::uint32_t comment;  // a place
  Json5RecordValue value;
};

// The record grows by what is requested, and nothing is looked up in it: most records are never
// written.
class Json5Record {
 public:
  Json5Record() = default;
  Json5Record(const Json5Record&) = delete;
  Json5Record& operator=(const Json5Record&) = delete;

  // Opens an item, to which the requests that follow may belong, and gives its place.
  std::size_t Open(const wchar_t* sectionName, std::wstring_view itemName);

  // Records a value of an item that was opened. Its texts must live as long as the record.
  void Set(std::size_t item, std::uint32_t key, std::uint32_t comment,
           const Json5RecordValue& value);

  // The text as JSON5 has it, which lives as long as the record.
  std::string_view Keep(std::wstring_view text);

  // The wide form of a text of JSON5, with a NUL behind it, which lives as long as the record.
  std::wstring_view KeepWide(std::string_view text);

  // Returns an array for `count` texts, which lives as long as the record.
  std::span<std::wstring_view> List(std::size_t count);

  // Takes over strings that were made with `new[]`; if memory runs out it frees them and raises
  // `bad_alloc`.
  void Adopt(const wchar_t** strings, std::size_t count);

  RepeatedTexts repeated;

  const std::pmr::deque<Json5RecordItem>& Items() const { return items; }
  const std::pmr::deque<Json5RecordParam>& Params() const { return params; }

 private:
  template <class Element>
  Element* Room(std::size_t count) {
    return std::pmr::polymorphic_allocator<Element>(&memory).allocate(count);
  }

  // What is kept stands side by side, and what grows does so without being moved, as that would
  // take as much memory again.
  std::pmr::monotonic_buffer_resource memory{65536};
  std::pmr::deque<Json5RecordItem> items{&memory};
  std::pmr::deque<Json5RecordParam> params{&memory};
  std::pmr::deque<std::unique_ptr<const wchar_t[]>> adopted{&memory};
  std::size_t current = 0;  // the place of the item that the last of `items` goes on with
  std::string bytes;        // of the text that was kept last
};

}  // namespace TolvenLibs::RevitMappingEditorDll
