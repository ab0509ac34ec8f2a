#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include "Json5Append.h"
#include "Json5Record.h"
#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsLineTerminator(wchar_t unit) {
  return unit == L'\n' || unit == L'\r' || unit == 0x2028 || unit == 0x2029;
}

// A comment with what stands in front of it. It ends with its line, and so has no line end of its
// own.
std::string FormatComment(std::wstring_view comment) {
  if (comment.empty()) return {};
  std::wstring line(comment);
  std::replace_if(line.begin(), line.end(), IsLineTerminator, L' ');
  std::string bytes = " // ";
  return AppendUtf8(bytes, line) ? bytes : " // ";
}

std::string FormatKey(std::wstring_view key) {
  std::string bytes;
  AppendString(bytes, key);
  return bytes;
}

struct AppendValue {
  void operator()(std::wstring_view text) const { AppendString(bytes, text); }
  void operator()(int number) const { AppendInt(bytes, number); }
  void operator()(double number) const { AppendReal(bytes, number); }
  void operator()(const Json5RecordTexts& texts) const {
    bytes += '[';
    const char* separator = "";
    for (const std::wstring_view text : record.Texts(texts)) {
      bytes += separator;
      AppendString(bytes, text);
      separator = ", ";
    }
    bytes += ']';
  }

  std::string& bytes;
  const Json5Record& record;
};

// The lines between the braces of an object, each an entry with a comma behind it but for the last,
// and then a comment.
class Lines {
 public:
  Lines(std::string& target, std::size_t linesDepth) : bytes(target), depth(linesDepth) {}

  // Opens an entry. The key is one as `FormatKey` gives it.
  void Begin(std::string_view key) {
    if (any) bytes += ',';
    bytes += pendingComment;
    bytes.append(1, '\n').append(2 * depth, ' ').append(key).append(": ");
    any = true;
    pendingComment = {};
  }

  // What stands behind the entry: a comment as `FormatComment` gives it, which outlives the lines.
  void Comment(std::string_view comment) { pendingComment = comment; }

  void End() {
    bytes += pendingComment;
    if (any) bytes.append(1, '\n').append(2 * (depth - 1), ' ');
  }

 private:
  std::string& bytes;
  std::size_t depth;
  std::string_view pendingComment;
  bool any = false;
};

// An item with all its requests, whichever time they were made.
struct Item {
  std::size_t section;  // among the sections in their order
  std::wstring_view name;
  std::size_t paramCount = 0;
};

// The items of a record, each once, section by section in the order of their first requests.
class Items {
 public:
  explicit Items(const Json5Record& record) : orderOf(record.Items().size()) {
    std::vector<std::size_t> sectionOf(record.repeated.Count(), none);
    std::vector<std::unordered_map<std::wstring_view, std::size_t>> byName;
    for (std::size_t i = 0; i < orderOf.size(); ++i) {
      const Json5RecordItem& opened = record.Items()[i];
      std::size_t& section = sectionOf[opened.section];
      if (section == none) {
        section = byName.size();
        byName.emplace_back();
        sections.push_back(opened.section);
      }
      const auto [entry, added] = byName[section].try_emplace(opened.name, items.size());
      if (added) items.push_back({section, opened.name});
      orderOf[i] = entry->second;
    }
    SortBySection();
    for (const Json5RecordParam& param : record.Params()) ++items[OrderOf(param)].paramCount;
  }

  // The sections, as places among the repeated texts.
  const std::vector<std::size_t>& Sections() const { return sections; }
  const std::vector<Item>& All() const { return items; }
  std::size_t OrderOf(const Json5RecordParam& param) const { return orderOf[param.item]; }

 private:
  void SortBySection() {
    std::vector<std::size_t> sorted(items.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    const auto bySection = [this](std::size_t left, std::size_t right) {
      return items[left].section < items[right].section;
    };
    if (std::is_sorted(sorted.begin(), sorted.end(), bySection)) return;
    std::stable_sort(sorted.begin(), sorted.end(), bySection);
    std::vector<Item> inOrder;
    std::vector<std::size_t> newOrder(items.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      inOrder.push_back(items[sorted[i]]);
      newOrder[sorted[i]] = i;
    }
    items = std::move(inOrder);
    for (std::size_t& order : orderOf) order = newOrder[order];
  }

  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  std::vector<std::size_t> sections;
  std::vector<Item> items;
  std::vector<std::size_t> orderOf;  // of each item that was opened, its place in `items`
};

// The requests of a record, item by item.
std::vector<const Json5RecordParam*> SortByItem(const Json5Record& record, const Items& items) {
  std::vector<const Json5RecordParam*> params;
  params.reserve(record.Params().size());
  for (const Json5RecordParam& param : record.Params()) params.push_back(&param);
  const auto byItem = [&items](const Json5RecordParam* left, const Json5RecordParam* right) {
    return items.OrderOf(*left) < items.OrderOf(*right);
  };
  if (!std::is_sorted(params.begin(), params.end(), byItem)) {
    std::stable_sort(params.begin(), params.end(), byItem);
  }
  return params;
}

// Keys and comments are put into bytes once, however often they stand in the file.
class RecordWriter {
 public:
  explicit RecordWriter(const Json5Record& requests)
      : record(requests), items(requests), params(SortByItem(requests, items)) {
    for (std::size_t place = 0; place < record.repeated.Count(); ++place) {
      keys.push_back(FormatKey(record.repeated[place]));
      comments.push_back(FormatComment(record.repeated[place]));
    }
    lastOfKey.resize(keys.size());
  }

  std::string Write() {
    bytes.reserve(Size());
    bytes = "{";
    Lines lines(bytes, 1);
    for (const std::size_t section : items.Sections()) {
      lines.Begin(keys[section]);
      WriteSection();
    }
    lines.End();
    bytes += "}\n";
    return std::move(bytes);
  }

 private:
  // About how long the file gets.
  std::size_t Size() const {
    constexpr std::size_t around = 16;  // blanks, a colon, a comma
    constexpr std::size_t value = 24;
    std::size_t size = 0;
    for (const Json5RecordParam* param : params) {
      size += keys[param->key].size() + value + comments[param->comment].size() + around;
    }
    for (const Item& item : items.All()) size += 2 * (item.name.size() + around);
    return size;
  }

  // The section of the next item, with all its items.
  void WriteSection() {
    bytes += '{';
    Lines lines(bytes, 2);
    const std::vector<Item>& all = items.All();
    const std::size_t section = all[nextItem].section;
    const auto isWithin = [&all, section](std::size_t item) {
      return item < all.size() && all[item].section == section;
    };
    const bool alone = !isWithin(nextItem + 1);
    for (; isWithin(nextItem); ++nextItem) {
      const Item& item = all[nextItem];
      if (item.name.empty() && alone) {
        WriteParams(lines, item);
        continue;
      }
      name.clear();
      AppendString(name, item.name);
      lines.Begin(name);
      WriteItem(item);
    }
    lines.End();
    bytes += '}';
  }

  void WriteItem(const Item& item) {
    bytes += '{';
    Lines lines(bytes, 3);
    WriteParams(lines, item);
    lines.End();
    bytes += '}';
  }

  // The requests for one key after the first of them only replace its value.
  void WriteParams(Lines& lines, const Item& item) {
    const auto first = params.begin() + static_cast<std::ptrdiff_t>(nextParam);
    const auto end = first + static_cast<std::ptrdiff_t>(item.paramCount);
    for (auto param = first; param != end; ++param) lastOfKey[(*param)->key] = *param;
    for (auto param = first; param != end; ++param) {
      const Json5RecordParam*& last = lastOfKey[(*param)->key];
      if (last == nullptr) continue;
      lines.Begin(keys[last->key]);
      std::visit(AppendValue{bytes, record}, last->value);
      lines.Comment(comments[last->comment]);
      last = nullptr;
    }
    nextParam += item.paramCount;
  }

  const Json5Record& record;
  Items items;
  std::vector<const Json5RecordParam*> params;
  std::vector<std::string> keys;
  std::vector<std::string> comments;
  std::vector<const Json5RecordParam*> lastOfKey;  // of the item that is being written
  std::size_t nextItem = 0;
  std::size_t nextParam = 0;
  std::string name;
  std::string bytes;
};

}  // namespace

std::string FormatJson5(const Json5Record& record) {
  return RecordWriter(record).Write();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
