// What was requested of a `CfgParser`, in the order of the first request for each thing.

#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// A string, an integer, a real, or an array of strings.
using Json5RecordValue =
    std::variant<std::wstring_view, int, double, std::vector<std::wstring_view>>;

// Keys and comments are requested over and over, and stand here by their place in `Repeated`.
struct Json5RecordParam {
  std::size_t key;
  Json5RecordValue value;
  std::size_t comment;
};

struct Json5RecordItem {
  std::wstring_view name;  // "" for the section itself
  std::vector<Json5RecordParam> params;
};

struct Json5RecordSection {
  std::wstring_view name;
  std::deque<Json5RecordItem> items;
  std::unordered_map<std::wstring_view, Json5RecordItem*> itemsByName;
};

// All texts in the record are views of strings that it keeps until it ends, each with a NUL behind
// it.
class Json5Record {
 public:
  Json5Record() = default;
  Json5Record(const Json5Record&) = delete;
  Json5Record& operator=(const Json5Record&) = delete;

  // The item, a new one on its first request. It stays where it is.
  Json5RecordItem& Item(std::wstring_view sectionName, std::wstring_view itemName);

  // Records a value, over the one that the key may have already. The value's texts must be kept.
  void Set(Json5RecordItem& item, std::wstring_view key, Json5RecordValue value,
           std::wstring_view comment);

  // A copy of the text that lives as long as the record.
  std::wstring_view Keep(std::wstring_view text);

  // Takes over strings that were made with `new[]`; if memory runs out it frees them and raises
  // `bad_alloc`.
  void Adopt(const wchar_t** texts, std::size_t count);

  const std::deque<Json5RecordSection>& Sections() const { return sections; }

  // The keys and comments, each once.
  const std::vector<std::wstring_view>& Repeated() const { return repeated; }

 private:
  // By a few units: the texts are few, and long.
  struct RepeatedHash {
    std::size_t operator()(std::wstring_view text) const;
  };

  std::size_t PlaceOf(std::wstring_view repeatedText);

  std::deque<Json5RecordSection> sections;
  std::vector<std::unique_ptr<wchar_t[]>> kept;  // blocks with texts side by side
  std::size_t blockSize = 0;                     // of the last block
  std::size_t blockFilled = 0;
  std::vector<std::wstring_view> repeated;
  std::unordered_map<std::wstring_view, std::size_t, RepeatedHash> placesInRepeated;
  std::vector<std::unique_ptr<const wchar_t[]>> adopted;
};

// The record as a file: one object with the sections, each an object with its items, in JSON that
// has comments, as UTF-8. Two records of the same requests give the same bytes.
std::string FormatJson5(const Json5Record& record);

}  // namespace TolvenLibs::RevitMappingEditorDll
