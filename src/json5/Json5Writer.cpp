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

// Returns what follows an entry with this comment before another entry. Line ends in the comment
// become blanks, since a comment ends with its line.
std::string FormatComment(std::wstring_view comment) {
  if (comment.empty()) return ",";
  std::wstring line(comment);
  std::replace_if(line.begin(), line.end(), EndsLine, L' ');
  std::string bytes = ", // ";
  return AppendUtf8(bytes, line) ? bytes : ", // ";
}

// A buffered output, so that no file is ever in memory as a whole.
class Output {
 public:
  explicit Output(const TakeBytes& take) : take_(take), piece_(65536) {}

  void Append(std::string_view bytes) {
    if (piece_.size() - filled_ < bytes.size()) Flush();
    if (piece_.size() < bytes.size()) return take_(bytes);
    filled_ += bytes.copy(piece_.data() + filled_, bytes.size());
  }

  void AppendString(std::string_view text) {
    Append("\"");
    for (;;) {
      const std::size_t plain = PlainSize(text);
      Append(text.substr(0, plain));
      text.remove_prefix(plain);
      if (text.empty()) break;
      Append(TakeEscaped(text));
    }
    Append("\"");
  }

  void AppendNumber(int number) { SetEnd(WriteInt(number, Reserve(maxNumberSize))); }
  void AppendNumber(double number) { SetEnd(WriteReal(number, Reserve(maxNumberSize))); }

  void Flush() {
    take_({piece_.data(), filled_});
    filled_ = 0;
  }

 private:
  char* Reserve(std::size_t size) {
    if (piece_.size() - filled_ < size) Flush();
    return piece_.data() + filled_;
  }

  void SetEnd(const char* end) { filled_ = static_cast<std::size_t>(end - piece_.data()); }

  const TakeBytes& take_;
  std::vector<char> piece_;
  std::size_t filled_ = 0;
};

// Returns the key with what separates it from its value.
std::string FormatKey(std::string_view key) {
  std::string bytes;
  const TakeBytes append = [&bytes](std::string_view more) { bytes += more; };
  Output output(append);
  output.AppendString(key);
  output.Append(": ");
  output.Flush();
  return bytes;
}

struct AppendValue {
  void operator()(std::string_view text) const { output.AppendString(text); }
  void operator()(int number) const { output.AppendNumber(number); }
  void operator()(double number) const { output.AppendNumber(number); }
  void operator()(Json5RecordTexts texts) const {
    std::string_view before = "[";
    for (const std::wstring_view text : texts) {
      output.Append(before);
      output.AppendString(ToJson5Text(text));
      before = ", ";
    }
    output.Append(texts.empty() ? "[]" : "]");
  }

  Output& output;
};

// The lines between the braces of an object: entries with commas, except after the last, and with
// comments.
class Lines {
 public:
  Lines(Output& output, std::size_t depth)
      : output_(output), start_('\n' + std::string(2 * depth, ' ')) {}

  // Begins an entry, whose key and value are written next.
  void Begin() {
    output_.Append(suffix_);
    output_.Append(start_);
    suffix_ = ",";
  }

  // Sets what follows the entry, from `FormatComment`. REQUIRES: it outlives the lines.
  void Comment(std::string_view comment) { suffix_ = comment; }

  void End() {
    if (suffix_.empty()) return;
    output_.Append(suffix_.substr(1));
    output_.Append(std::string_view(start_).substr(0, start_.size() - 2));
  }

 private:
  Output& output_;
  std::string start_;        // of a line
  std::string_view suffix_;  // of the entry
};

// Keys and comments are formatted once, however often they occur in the file.
class RecordWriter {
 public:
  RecordWriter(const Json5Record& record, const TakeBytes& take)
      : record_(record), items_(record), next_(items_.InOrder().begin()), output_(take) {
    lastOfKey_.resize(record_.repeated.Count());
    for (std::size_t place = 0; place < lastOfKey_.size(); ++place) {
      keys_.push_back(FormatKey(record_.repeated.Bytes(place)));
      comments_.push_back(FormatComment(record_.repeated[place]));
    }
  }

  void Write() {
    output_.Append("{");
    Lines lines(output_, 1);
    while (next_ != items_.InOrder().end()) {
      lines.Begin();
      output_.Append(keys_[record_.Items()[*next_].section]);
      WriteSection();
    }
    lines.End();
    output_.Append("}\n");
    output_.Flush();
  }

 private:
  using Place = std::vector<std::size_t>::const_iterator;
  using Params = std::pmr::deque<Json5RecordParam>;

  // Writes the section of the next item, with all its items.
  void WriteSection() {
    output_.Append("{");
    Lines lines(output_, 2);
    const std::size_t first = *next_;
    bool alone = true;
    while (next_ != items_.InOrder().end() && items_.HaveSameSection(first, *next_)) {
      const auto end = EndOfItem();
      alone = alone && (end == items_.InOrder().end() || !items_.HaveSameSection(first, *end));
      const std::string_view name = record_.Items()[*next_].name;
      if (name.empty() && alone) {
        WriteParams(lines, end);
        break;
      }
      lines.Begin();
      output_.AppendString(name);
      output_.Append(": ");
      WriteItem(end);
    }
    lines.End();
    output_.Append("}");
  }

  Place EndOfItem() const {
    return std::find_if_not(next_, items_.InOrder().end(),
                            [this](std::size_t item) { return items_.AreSameItem(*next_, item); });
  }

  void WriteItem(Place end) {
    output_.Append("{");
    Lines lines(output_, 3);
    WriteParams(lines, end);
    lines.End();
    output_.Append("}");
  }

  // Each key is written once, at its first request and with its last value.
  void WriteParams(Lines& lines, Place end) {
    for (auto item = next_; item != end; ++item) {
      for (auto param = Begin(*item), paramEnd = Begin(*item + 1); param != paramEnd; ++param) {
        lastOfKey_[param->key] = &*param;
      }
    }
    for (; next_ != end; ++next_) {
      for (auto param = Begin(*next_), paramEnd = Begin(*next_ + 1); param != paramEnd; ++param) {
        WriteParam(lines, lastOfKey_[param->key]);
      }
    }
  }

  void WriteParam(Lines& lines, const Json5RecordParam*& param) {
    if (param == nullptr) return;
    lines.Begin();
    output_.Append(keys_[param->key]);
    std::visit(AppendValue{output_}, param->value);
    lines.Comment(comments_[param->comment]);
    param = nullptr;
  }

  // Returns the first parameter of an item.
  Params::const_iterator Begin(std::size_t item) const {
    if (item == record_.Items().size()) return record_.Params().end();
    return record_.Params().begin() + static_cast<std::ptrdiff_t>(record_.Items()[item].firstParam);
  }

  const Json5Record& record_;
  Json5Order items_;
  Place next_;  // the item to be written next
  Output output_;
  std::vector<std::string> keys_;
  std::vector<std::string> comments_;
  std::vector<const Json5RecordParam*> lastOfKey_;  // in the current item; null if written
};

}  // namespace

void WriteJson5(const Json5Record& record, const TakeBytes& take) {
  RecordWriter(record, take).Write();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
