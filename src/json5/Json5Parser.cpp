#include "json5/Json5Parser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <vector>

#include "base/Utf8.h"
#include "json5/Json5Cursor.h"
#include "json5/Json5Number.h"
#include "json5/Json5Space.h"
#include "json5/Json5String.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Kind = Json5Value::Kind;

// An array or object that is being read.
struct OpenValue {
  Kind kind;
  std::string_view key;     // of the member that is being read
  std::size_t firstMember;  // among the pending ones
  std::size_t part = 0;     // these two only where parts are asked for
  std::size_t keyBegin = 0;
};

class Json5Parser {
 public:
  Json5Parser(std::string_view text, Json5Tree& tree, Json5Parts* parts)
      : cursor_(text), tree_(tree), parts_(parts) {}

  void ParseDocument() {
    // Few files have shorter members, and capacity that isn't used costs nothing.
    constexpr std::size_t bytesOfMember = 16;
    tree_.members.reserve(cursor_.Rest().size() / bytesOfMember);
    do {
      ReadValue();
    } while (ReadSeparator());
    if (!cursor_.AtEnd()) cursor_.Fail("something behind the value");
  }

 private:
  // Reads a scalar or an empty array or object, after the openings of all arrays and objects that
  // begin before it.
  void ReadValue() {
    while (true) {
      SkipSpace(cursor_);
      if (parts_) BeginPart();
      if (cursor_.SkipIf('[')) {
        Open(Kind::array);
      } else if (cursor_.SkipIf('{')) {
        Open(Kind::object);
      } else {
        const Json5Value scalar = ReadScalar();
        if (parts_) EndPart(parts_->size() - 1, scalar);
        return Add(scalar);
      }
      if (SkipClosing()) return Close();
      if (open_.back().kind == Kind::object) ReadKey();
    }
  }

  // Reads what follows a value: the ends of arrays and objects, and a comma before another value.
  // Returns false after the outermost value.
  bool ReadSeparator() {
    while (!open_.empty()) {
      SkipSpace(cursor_);
      const bool comma = cursor_.SkipIf(',');
      if (SkipClosing()) {
        Close();
        continue;
      }
      if (!comma) cursor_.Fail("neither a comma nor the end of an array or object");
      if (open_.back().kind == Kind::object) ReadKey();
      return true;
    }
    SkipSpace(cursor_);
    return false;
  }

  void Open(Kind kind) {
    if (open_.size() == maxJson5Depth) {
      throw Json5Malformed{cursor_.Position() - 1, "arrays and objects too deep in each other"};
    }
    open_.push_back({kind, {}, pending_.size()});
    if (parts_) open_.back().part = parts_->size() - 1;
  }

  // Adds the part of the value that is about to be read.
  void BeginPart() {
    const std::size_t position = cursor_.Position();
    Json5Part part{0, {}, position, position, position, {}};
    if (!open_.empty()) {
      part.parent = open_.back().part;
      part.key = open_.back().key;
      if (open_.back().kind == Kind::object) part.begin = open_.back().keyBegin;
    }
    parts_->push_back(part);
  }

  void EndPart(std::size_t index, const Json5Value& value) {
    (*parts_)[index].value = value;
    (*parts_)[index].end = cursor_.Position();
  }

  bool SkipClosing() {
    SkipSpace(cursor_);
    return cursor_.SkipIf(open_.back().kind == Kind::array ? ']' : '}');
  }

  void Close() {
    const OpenValue closed = open_.back();
    open_.pop_back();
    if (closed.kind == Kind::object) SortByKey(closed.firstMember);
    const auto first = pending_.begin() + static_cast<std::ptrdiff_t>(closed.firstMember);
    Json5Value value;
    value.kind = closed.kind;
    std::construct_at(&value.members,
                      Json5Members{tree_.members.size(), pending_.size() - closed.firstMember});
    tree_.members.insert(tree_.members.end(), first, pending_.end());
    pending_.resize(closed.firstMember);
    if (parts_) EndPart(closed.part, value);
    Add(value);
  }

  // Sorts the pending members from this one on by key, and keeps only the last of each key.
  void SortByKey(std::size_t firstMember) {
    const auto first = pending_.begin() + static_cast<std::ptrdiff_t>(firstMember);
    const auto byKey = [](const Json5Member& left, const Json5Member& right) {
      return IsKeyBefore(left.key, right.key);
    };
    const auto outOfOrder = [&byKey](const Json5Member& left, const Json5Member& right) {
      return !byKey(left, right);
    };
    if (std::adjacent_find(first, pending_.end(), outOfOrder) == pending_.end()) return;
    StableSort(first, pending_.end(), byKey);
    const auto sameKey = [](const Json5Member& left, const Json5Member& right) {
      return left.key == right.key;
    };
    // In reverse, the last of equals comes first, and `unique` keeps it.
    const auto kept = std::unique(pending_.rbegin(), std::make_reverse_iterator(first), sameKey);
    pending_.erase(first, kept.base());
  }

  // Insertion sort, which is faster for few or nearly sorted members; `std::stable_sort` if a
  // member has to move far.
  template <class Iterator, class Less>
  static void StableSort(Iterator first, Iterator end, Less less) {
    constexpr std::ptrdiff_t farthest = 16;
    for (Iterator next = first; next != end; ++next) {
      Iterator place = next;
      while (place != first && less(*next, *(place - 1))) {
        --place;
        if (next - place > farthest) return std::stable_sort(first, end, less);
      }
      std::rotate(place, next, next + 1);
    }
  }

  void Add(const Json5Value& value) {
    if (open_.empty()) {
      tree_.root = value;
    } else {
      pending_.push_back({open_.back().key, value});
    }
  }

  void ReadKey() {
    SkipSpace(cursor_);
    if (parts_) open_.back().keyBegin = cursor_.Position();
    open_.back().key = IsQuotationMark(cursor_.Peek()) ? ReadString(cursor_, tree_.decoded)
                                                       : ReadIdentifier(cursor_, tree_.decoded);
    SkipSpace(cursor_);
    if (!cursor_.SkipIf(':')) cursor_.Fail("a colon is expected behind a key");
  }

  Json5Value ReadScalar() {
    Json5Value value;
    const char byte = cursor_.Peek();
    if (IsQuotationMark(byte)) {
      value.kind = Kind::string;
      std::construct_at(&value.text, ReadString(cursor_, tree_.decoded));
    } else if (IsDigit(byte) || std::string_view("+-.IN").find(byte) != std::string_view::npos) {
      value.kind = Kind::number;
      value.number = ReadNumber(cursor_);
    } else if (cursor_.SkipIf("true")) {
      value.kind = Kind::boolean;
      value.boolean = true;
    } else if (cursor_.SkipIf("false")) {
      value.kind = Kind::boolean;
    } else if (!cursor_.SkipIf("null")) {
      cursor_.Fail("a value is expected");
    }
    return value;
  }

  Json5Cursor cursor_;
  Json5Tree& tree_;
  Json5Parts* parts_;
  std::vector<OpenValue> open_;
  std::vector<Json5Member> pending_;  // of the open arrays and objects, the innermost last
};

// A carriage return and a line feed are one line end. The text before the error can be decoded.
Json5Error ErrorAt(std::string_view text, const Json5Malformed& malformed) {
  Json5Error error{1, 1, malformed.message, malformed.position};
  Json5Cursor cursor(text);
  while (cursor.Position() < malformed.position) {
    const std::uint32_t code = cursor.TakeCode();
    const bool ended = IsLineTerminator(code) && !(code == '\r' && cursor.Peek() == '\n');
    error.line += ended ? 1 : 0;
    wchar_t units[2];
    const auto width = static_cast<std::size_t>(PutUnits(code, units) - units);
    error.column = ended ? 1 : error.column + width;
  }
  return error;
}

}  // namespace

std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree, Json5Parts* parts) {
  try {
    Json5Parser(text, tree, parts).ParseDocument();
    return std::nullopt;
  } catch (const Json5Malformed& malformed) {
    return ErrorAt(text, malformed);
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
