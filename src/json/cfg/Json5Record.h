// What was requested of a `CfgParser`, in the order of the requests.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
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

  // The text as JSON5 has it, see `Json5Text.h`.
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

// An item of a section, once for each time that it was opened.
struct Json5RecordItem {
  std::uint32_t section;   // a place
  std::wstring_view name;  // "" for the section itself
};

// Some of the record's texts, side by side.
struct Json5RecordTexts {
  std::size_t first;
  std::size_t count;
};

// A string, an integer, a real, or an array of strings.
using Json5RecordValue = std::variant<std::wstring_view, int, double, Json5RecordTexts>;

struct Json5RecordParam {
  std::size_t item;
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

  // Makes room for so many requests.
  void Reserve(std::size_t count) { params.reserve(count); }

  // Opens an item, to which the requests that follow may belong.
  std::size_t Open(const wchar_t* sectionName, std::wstring_view itemName);

  // Records a value. Its texts must be kept.
  void Set(std::size_t item, std::uint32_t key, std::uint32_t comment,
           const Json5RecordValue& value);

  // The value of an array of kept texts.
  template <class Range>
  Json5RecordTexts List(const Range& range) {
    const std::size_t first = texts.size();
    texts.insert(texts.end(), std::begin(range), std::end(range));
    return {first, texts.size() - first};
  }

  // A copy of the text that lives as long as the record, with a NUL behind it.
  std::wstring_view Keep(std::wstring_view text);

  // The same of a text of JSON5.
  std::wstring_view KeepWide(std::string_view bytes);

  // Takes over strings that were made with `new[]`; if memory runs out it frees them and raises
  // `bad_alloc`.
  void Adopt(const wchar_t** strings, std::size_t count);

  RepeatedTexts repeated;

  const std::vector<Json5RecordItem>& Items() const { return items; }
  const std::vector<Json5RecordParam>& Params() const { return params; }

  std::span<const std::wstring_view> Texts(const Json5RecordTexts& listed) const {
    return std::span(texts).subspan(listed.first, listed.count);
  }

 private:
  wchar_t* Room(std::size_t units);
  std::vector<Json5RecordItem> items;
  std::vector<Json5RecordParam> params;
  std::vector<std::wstring_view> texts;          // of the arrays
  std::vector<std::unique_ptr<wchar_t[]>> kept;  // blocks with texts side by side
  std::size_t blockSize = 0;                     // of the last block
  std::size_t blockFilled = 0;
  std::vector<std::unique_ptr<const wchar_t[]>> adopted;
};

// The record as a file: one object with the sections, each an object with its items, in JSON that
// has comments, as UTF-8. Sections, items and keys stand in the order of the first request for
// each, a key with the value and the comment of the last. Two records of the same requests give the
// same bytes.
std::string FormatJson5(const Json5Record& record);

}  // namespace TolvenLibs::RevitMappingEditorDll
