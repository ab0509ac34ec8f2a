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
};

class Json5Parser {
 public:
  Json5Parser(std::string_view text, Json5Tree& target) : cursor(text), tree(target) {}

  void ParseDocument() {
    // Few files have shorter members, and what isn't filled costs nothing.
    constexpr std::size_t bytesOfMember = 16;
    tree.members.reserve(cursor.Rest().size() / bytesOfMember);
    do {
      ReadValue();
    } while (ReadSeparator());
    if (!cursor.AtEnd()) cursor.Fail("something behind the value");
  }

 private:
  // Reads a whole scalar, or what opens an array or object, down to the first scalar or the first
  // empty array or object in it.
  void ReadValue() {
    while (true) {
      SkipSpace(cursor);
      if (cursor.SkipIf('[')) {
        Open(Kind::array);
      } else if (cursor.SkipIf('{')) {
        Open(Kind::object);
      } else {
        return Add(ReadScalar());
      }
      if (SkipClosing()) return Close();
      if (open.back().kind == Kind::object) ReadKey();
    }
  }

  // Reads what stands behind a value: the ends of arrays and objects, and then a comma that another
  // value follows. Gives false at the end of the outermost value.
  bool ReadSeparator() {
    while (!open.empty()) {
      SkipSpace(cursor);
      const bool comma = cursor.SkipIf(',');
      if (SkipClosing()) {
        Close();
        continue;
      }
      if (!comma) cursor.Fail("neither a comma nor the end of an array or object");
      if (open.back().kind == Kind::object) ReadKey();
      return true;
    }
    SkipSpace(cursor);
    return false;
  }

  void Open(Kind kind) {
    if (open.size() == maxJson5Depth) {
      throw Json5Malformed{cursor.Position() - 1, "arrays and objects too deep in each other"};
    }
    open.push_back({kind, {}, pending.size()});
  }

  bool SkipClosing() {
    SkipSpace(cursor);
    return cursor.SkipIf(open.back().kind == Kind::array ? ']' : '}');
  }

  void Close() {
    const OpenValue closed = open.back();
    open.pop_back();
    if (closed.kind == Kind::object) SortByKey(closed.firstMember);
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(closed.firstMember);
    Json5Value value;
    value.kind = closed.kind;
    std::construct_at(&value.members,
                      Json5Members{tree.members.size(), pending.size() - closed.firstMember});
    tree.members.insert(tree.members.end(), first, pending.end());
    pending.resize(closed.firstMember);
    Add(value);
  }

  // Puts the pending members from this one on into the order of their keys, the last of each key
  // staying alone.
  void SortByKey(std::size_t firstMember) {
    const auto first = pending.begin() + static_cast<std::ptrdiff_t>(firstMember);
    const auto byKey = [](const Json5Member& left, const Json5Member& right) {
      return IsKeyBefore(left.key, right.key);
    };
    const auto outOfOrder = [&byKey](const Json5Member& left, const Json5Member& right) {
      return !byKey(left, right);
    };
    if (std::adjacent_find(first, pending.end(), outOfOrder) == pending.end()) return;
    StableSort(first, pending.end(), byKey);
    const auto sameKey = [](const Json5Member& left, const Json5Member& right) {
      return left.key == right.key;
    };
    // From behind, the last of equals is the first, which `unique` keeps.
    const auto kept = std::unique(pending.rbegin(), std::make_reverse_iterator(first), sameKey);
    pending.erase(first, kept.base());
  }

  // Few members, and those that are nearly in order, are sooner sorted in their place.
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
    if (open.empty()) {
      tree.root = value;
    } else {
      pending.push_back({open.back().key, value});
    }
  }

  void ReadKey() {
    SkipSpace(cursor);
    open.back().key = IsQuotationMark(cursor.Peek()) ? ReadString(cursor, tree.decoded)
                                                     : ReadIdentifier(cursor, tree.decoded);
    SkipSpace(cursor);
    if (!cursor.SkipIf(':')) cursor.Fail("a colon is expected behind a key");
  }

  Json5Value ReadScalar() {
    Json5Value value;
    const char byte = cursor.Peek();
    if (IsQuotationMark(byte)) {
      value.kind = Kind::string;
      std::construct_at(&value.text, ReadString(cursor, tree.decoded));
    } else if (IsDigit(byte) || std::string_view("+-.IN").find(byte) != std::string_view::npos) {
      value.kind = Kind::number;
      value.number = ReadNumber(cursor);
    } else if (cursor.SkipIf("true")) {
      value.kind = Kind::boolean;
      value.boolean = true;
    } else if (cursor.SkipIf("false")) {
      value.kind = Kind::boolean;
    } else if (!cursor.SkipIf("null")) {
      cursor.Fail("a value is expected");
    }
    return value;
  }

  Json5Cursor cursor;
  Json5Tree& tree;
  std::vector<OpenValue> open;
  std::vector<Json5Member> pending;  // of the open arrays and objects, those of the innermost last
};

// A line ends at each line terminator, and once at a carriage return and line feed. What stands in
// front of the error can be decoded.
Json5Error ErrorAt(std::string_view text, const Json5Malformed& malformed) {
  Json5Error error{1, 1, malformed.message};
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

std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree) {
  try {
    Json5Parser(text, tree).ParseDocument();
    return std::nullopt;
  } catch (const Json5Malformed& malformed) {
    return ErrorAt(text, malformed);
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
