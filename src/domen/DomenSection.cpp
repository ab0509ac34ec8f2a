#include "domen/DomenSection.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "base/Text.h"
#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// The first `limit` pieces of an entry at blanks. The last piece is the whole rest of the entry,
// with each run of blanks reduced to one.
template <std::size_t limit>
class EntryPieces {
 public:
  explicit EntryPieces(std::wstring_view entry) {
    WordReader reader(entry);
    while (count_ < limit && reader.Next(pieces_[count_])) ++count_;
    if (count_ < limit) return;
    for (std::wstring_view further; reader.Next(further);) Append(pieces_[limit - 1], further);
  }
  EntryPieces(const EntryPieces&) = delete;
  EntryPieces& operator=(const EntryPieces&) = delete;

  std::size_t Count() const { return count_; }
  std::wstring_view operator[](std::size_t index) const { return pieces_[index]; }

 private:
  // Extends the view as long as the entry has single blanks, and copies otherwise.
  void Append(std::wstring_view& last, std::wstring_view further) {
    if (rest_.empty() && further.data() == last.data() + last.size() + 1) {
      last = {last.data(), last.size() + 1 + further.size()};
      return;
    }
    if (rest_.empty()) rest_ = last;
    last = rest_.append(L" ").append(further);
  }

  std::array<std::wstring_view, limit> pieces_;
  std::size_t count_ = 0;
  std::wstring rest_;  // the last piece, where it had to be copied
};

// The state between the entries of one section.
class DomenSectionParser {
 public:
  DomenSectionParser(DomenStore& store, FieldAdder& fields) : store_(store), fields_(fields) {}

  void ParseEntry(std::wstring_view entry) {
    switch (entry.front()) {
      case L'/':
      case L'!':
        return;
      case L'@':
        return ParseAtSign(entry);
      default:
        return AddField(entry);
    }
  }

 private:
  void ParseAtSign(std::wstring_view entry) {
    if (StartsWith(entry, L"@@@")) return OpenDomen(Trimmed(entry.substr(3)));
    if (StartsWith(entry, L"@@")) return SetObjectTypes(entry.substr(2));
    AddProperty(entry.substr(1));
  }

  // The id ends at the first blank; the rest is ignored. The current property stays: a field that
  // follows goes to the new domain's property of the same id, if it has one.
  void OpenDomen(std::wstring_view text) {
    domenId_ = text.substr(0, text.find(L' '));
    if (domenId_.empty()) return;
    store_.AddDomen(domenId_, Domen(domenId_, domenId_));
    store_.activeDomenId = domenId_;
  }

  // Changes the current domain, if there is one.
  template <class Change>
  void EditDomen(const Change& change) {
    if (domenId_.empty()) return;
    store_.domens.Edit([&](Domens::Map& map) {
      const auto found = map.find(domenId_);
      if (found != map.end()) change(found->second);
    });
  }

  void SetObjectTypes(std::wstring_view text) {
    std::size_t count = 0;
    WordReader reader(text);
    for (std::wstring_view type; reader.Next(type); ++count) {
      if (count == objectTypes_.size()) objectTypes_.emplace_back();
      objectTypes_[count] = type;
    }
    objectTypes_.resize(count);
  }

  // Clears the current property first, so that the fields after a bad line go to none.
  void AddProperty(std::wstring_view text) {
    propertyId_.clear();
    if (domenId_.empty()) return;
    const EntryPieces<4> pieces(text);
    int unique = 0;
    int sortIndex = 0;
    if (pieces.Count() < 3 || !ParseInt(pieces[1], unique) || !ParseInt(pieces[2], sortIndex)) {
      return;
    }
    propertyId_ = pieces[0];
    const std::wstring_view name = pieces[pieces.Count() > 3 ? 3 : 0];
    const DomenProperty property(propertyId_, std::wstring(name), objectTypes_, unique == 1,
                                 sortIndex);
    EditDomen([&](Domen& domen) { domen.AddProperty(propertyId_, property); });
  }

  void AddField(std::wstring_view text) {
    if (domenId_.empty() || propertyId_.empty()) return;
    const EntryPieces<5> pieces(text);
    if (pieces.Count() < 4) return;
    const int valueType = ParsePropertyType(pieces[1]);
    int flag = 0;
    if (valueType == -1 || !ParseInt(pieces[2], flag)) return;
    const std::wstring_view title = pieces[pieces.Count() > 4 ? 4 : 0];
    EditDomen([&](Domen& domen) {
      domen.AddPropertyField(propertyId_, std::wstring(pieces[0]), std::wstring(title), valueType,
                             flag != 0, std::wstring(pieces[3]), fields_);
    });
  }

  DomenStore& store_;
  FieldAdder& fields_;
  std::wstring domenId_;     // empty if there is no current domain
  std::wstring propertyId_;  // empty if there is no current property
  std::vector<std::wstring> objectTypes_;
};

}  // namespace

void ParseDomenSection(DomenStore& store, FieldAdder& fields, std::wstring_view body) {
  DomenSectionParser parser(store, fields);
  PieceReader entries = CutEntries(body, false);
  for (std::wstring_view entry; entries.Next(entry);) parser.ParseEntry(entry);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
