#include "json5/Json5Writer.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "json5/Json5Cursor.h"
#include "json5/Json5Format.h"
#include "json5/Json5Order.h"
#include "json5/Json5Record.h"
#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool EndsLine(wchar_t unit) {
  return IsLineTerminator(static_cast<std::uint32_t>(unit));
}

// What stands behind an entry with this comment that another entry follows. A comment ends with its
// line, and so has no line end of its own.
std::string FormatComment(std::wstring_view comment) {
  if (comment.empty()) return ",";
  std::wstring line(comment);
  std::replace_if(line.begin(), line.end(), EndsLine, L' ');
  std::string bytes = ", // ";
  return AppendUtf8(bytes, line) ? bytes : ", // ";
}

// What is being written. It leaves in pieces, so that no file ever stands in memory as a whole.
class Output {
 public:
  explicit Output(const TakeBytes& taker) : take(taker), piece(65536) {}

  void Put(std::string_view bytes) {
    if (piece.size() - filled < bytes.size()) Pass();
    if (piece.size() < bytes.size()) return take(bytes);
    filled += bytes.copy(piece.data() + filled, bytes.size());
  }

  void PutString(std::string_view text) {
    Put("\"");
    for (;;) {
      const std::size_t plain = PlainSize(text);
      Put(text.substr(0, plain));
      text.remove_prefix(plain);
      if (text.empty()) break;
      Put(TakeEscaped(text));
    }
    Put("\"");
  }

  void PutNumber(int number) { FillTo(WriteInt(number, Room(roomOfNumber))); }
  void PutNumber(double number) { FillTo(WriteReal(number, Room(roomOfNumber))); }

  // Gives away what has been put.
  void Pass() {
    take({piece.data(), filled});
    filled = 0;
  }

 private:
  char* Room(std::size_t size) {
    if (piece.size() - filled < size) Pass();
    return piece.data() + filled;
  }

  void FillTo(const char* end) { filled = static_cast<std::size_t>(end - piece.data()); }

  const TakeBytes& take;
  std::vector<char> piece;
  std::size_t filled = 0;
};

// A key with what stands between it and its value.
std::string FormatKey(std::string_view key) {
  std::string bytes;
  const TakeBytes add = [&bytes](std::string_view more) { bytes += more; };
  Output output(add);
  output.PutString(key);
  output.Put(": ");
  output.Pass();
  return bytes;
}

struct PutValue {
  void operator()(std::string_view text) const { output.PutString(text); }
  void operator()(int number) const { output.PutNumber(number); }
  void operator()(double number) const { output.PutNumber(number); }
  void operator()(Json5RecordTexts texts) const {
    std::string_view before = "[";
    for (const std::wstring_view text : texts) {
      output.Put(before);
      output.PutString(ToJson5Text(text));
      before = ", ";
    }
    output.Put(texts.empty() ? "[]" : "]");
  }

  Output& output;
};

// The lines between the braces of an object, each an entry with a comma behind it but for the last,
// and then a comment.
class Lines {
 public:
  Lines(Output& target, std::size_t depth)
      : output(target), start('\n' + std::string(2 * depth, ' ')) {}

  // Opens an entry, whose key and value come next.
  void Begin() {
    output.Put(behind);
    output.Put(start);
    behind = ",";
  }

  // What stands behind the entry: a comment as `FormatComment` gives it, which outlives the lines.
  void Comment(std::string_view comment) { behind = comment; }

  void End() {
    if (behind.empty()) return;
    output.Put(behind.substr(1));
    output.Put(std::string_view(start).substr(0, start.size() - 2));
  }

 private:
  Output& output;
  std::string start;  // of a line
  std::string_view behind;
};

// Keys and comments are put into bytes once, however often they stand in the file.
class RecordWriter {
 public:
  RecordWriter(const Json5Record& requests, const TakeBytes& take)
      : record(requests), items(requests), next(items.InOrder().begin()), output(take) {
    lastOfKey.resize(record.repeated.Count());
    for (std::size_t place = 0; place < lastOfKey.size(); ++place) {
      keys.push_back(FormatKey(record.repeated.Bytes(place)));
      comments.push_back(FormatComment(record.repeated[place]));
    }
  }

  void Write() {
    output.Put("{");
    Lines lines(output, 1);
    while (next != items.InOrder().end()) {
      lines.Begin();
      output.Put(keys[record.Items()[*next].section]);
      WriteSection();
    }
    lines.End();
    output.Put("}\n");
    output.Pass();
  }

 private:
  using Place = std::vector<std::size_t>::const_iterator;
  using Params = std::pmr::deque<Json5RecordParam>;

  // The section of the next item, with all its items.
  void WriteSection() {
    output.Put("{");
    Lines lines(output, 2);
    const std::size_t first = *next;
    bool alone = true;
    while (next != items.InOrder().end() && items.AreOfOneSection(first, *next)) {
      const auto end = EndOfItem();
      alone = alone && (end == items.InOrder().end() || !items.AreOfOneSection(first, *end));
      const std::string_view name = record.Items()[*next].name;
      if (name.empty() && alone) {
        WriteParams(lines, end);
        break;
      }
      lines.Begin();
      output.PutString(name);
      output.Put(": ");
      WriteItem(end);
    }
    lines.End();
    output.Put("}");
  }

  Place EndOfItem() const {
    return std::find_if_not(next, items.InOrder().end(),
                            [this](std::size_t item) { return items.AreOne(*next, item); });
  }

  void WriteItem(Place end) {
    output.Put("{");
    Lines lines(output, 3);
    WriteParams(lines, end);
    lines.End();
    output.Put("}");
  }

  // The requests for one key after the first of them only replace its value.
  void WriteParams(Lines& lines, Place end) {
    for (auto item = next; item != end; ++item) {
      for (auto param = Begin(*item), behind = Begin(*item + 1); param != behind; ++param) {
        lastOfKey[param->key] = &*param;
      }
    }
    for (; next != end; ++next) {
      for (auto param = Begin(*next), behind = Begin(*next + 1); param != behind; ++param) {
        WriteParam(lines, lastOfKey[param->key]);
      }
    }
  }

  void WriteParam(Lines& lines, const Json5RecordParam*& param) {
    if (param == nullptr) return;
    lines.Begin();
    output.Put(keys[param->key]);
    std::visit(PutValue{output}, param->value);
    lines.Comment(comments[param->comment]);
    param = nullptr;
  }

  // The first request for an item.
  Params::const_iterator Begin(std::size_t item) const {
    if (item == record.Items().size()) return record.Params().end();
    return record.Params().begin() + static_cast<std::ptrdiff_t>(record.Items()[item].firstParam);
  }

  const Json5Record& record;
  Json5Order items;
  Place next;  // of the item that is to be written
  Output output;
  std::vector<std::string> keys;
  std::vector<std::string> comments;
  std::vector<const Json5RecordParam*> lastOfKey;  // of the item that is being written
};

}  // namespace

void WriteJson5(const Json5Record& record, const TakeBytes& take) {
  RecordWriter(record, take).Write();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
