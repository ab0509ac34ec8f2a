#include "domen/DomenSection.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "base/Text.h"
#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"
#include "textfile/Account.h"
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
  DomenSectionParser(DomenStore& store, FieldAdder& fields, Account* account)
      : store_(store), fields_(fields), account_(account) {}

  void ParseEntry(std::wstring_view entry) {
    entry_ = entry;
    switch (entry.front()) {
      case L'/':
      case L'!':
        return Tell(Outcome::comment);
      case L'@':
        return ParseAtSign(entry);
      default:
        return AddField(entry);
    }
  }

 private:
  // Says what became of the entry.
  void Tell(Outcome outcome, std::initializer_list<std::wstring_view> names = {}) const {
    Note(account_, outcome, entry_, names);
  }

  void ParseAtSign(std::wstring_view entry) {
    if (StartsWith(entry, L"@@@")) return OpenDomen(Trimmed(entry.substr(3)));
    if (StartsWith(entry, L"@@")) return SetObjectTypes(entry.substr(2));
    AddProperty(entry.substr(1));
  }

  // The id ends at the first blank; the rest is ignored. The current property stays: a field that
  // follows goes to the new domain's property of the same id, if it has one.
  void OpenDomen(std::wstring_view text) {
    domenId_ = text.substr(0, text.find(L' '));
    if (domenId_.empty()) return Tell(Outcome::domenWithoutId);
    const bool added = store_.AddDomen(domenId_, Domen(domenId_, domenId_)).second;
    store_.activeDomenId = domenId_;
    Tell(added ? Outcome::domen : Outcome::domenAgain, {domenId_});
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
    Tell(Outcome::objectTypes, {count == 0 ? std::wstring_view() : objectTypes_.front()});
  }

  // Clears the current property first, so that the fields after a bad line go to none.
  void AddProperty(std::wstring_view text) {
    const bool endsOne = !propertyId_.empty();
    propertyId_.clear();
    if (domenId_.empty()) {
      return Tell(endsOne ? Outcome::propertyEndedOutsideDomen : Outcome::propertyOutsideDomen);
    }
    const EntryPieces<4> pieces(text);
    int unique = 0;
    int sortIndex = 0;
    if (pieces.Count() < 3) return Tell(Outcome::propertyIncomplete);
    if (!ParseInt(pieces[1], unique)) return Tell(Outcome::propertyNumberRefused, {pieces[1]});
    if (!ParseInt(pieces[2], sortIndex)) return Tell(Outcome::propertyNumberRefused, {pieces[2]});
    propertyId_ = pieces[0];
    const std::wstring_view name = pieces[pieces.Count() > 3 ? 3 : 0];
    const DomenProperty property(propertyId_, std::wstring(name), objectTypes_, unique == 1,
                                 sortIndex);
    if (account_) TellProperty();
    EditDomen([&](Domen& domen) { domen.AddProperty(propertyId_, property); });
  }

  void AddField(std::wstring_view text) {
    if (domenId_.empty() || propertyId_.empty()) return Tell(Outcome::fieldOutsideProperty);
    const EntryPieces<5> pieces(text);
    if (pieces.Count() < 4) return Tell(Outcome::fieldIncomplete);
    const int valueType = ParsePropertyType(pieces[1]);
    int flag = 0;
    if (valueType == -1) return Tell(Outcome::fieldTypeUnknown, {pieces[1]});
    if (!ParseInt(pieces[2], flag)) return Tell(Outcome::fieldFlagRefused, {pieces[2]});
    const DomenProperty* const before = account_ ? CurrentProperty() : nullptr;
    const std::size_t fieldCount = before ? before->fields.size() : 0;
    const std::wstring_view title = pieces[pieces.Count() > 4 ? 4 : 0];
    EditDomen([&](Domen& domen) {
      domen.AddPropertyField(propertyId_, std::wstring(pieces[0]), std::wstring(title), valueType,
                             flag != 0, std::wstring(pieces[3]), fields_);
    });
    if (account_) TellField(fieldCount, pieces[0], pieces[3]);
  }

  // Null if the current domain has no property of the current id.
  const DomenProperty* CurrentProperty() const {
    const auto domen = store_.domens.find(domenId_);
    if (domen == store_.domens.end()) return nullptr;
    const DomenProperties& properties = domen->second.properties;
    const auto property = properties.find(propertyId_);
    return property == properties.end() ? nullptr : &property->second;
  }

  // Before the property is added.
  void TellProperty() const {
    Tell(CurrentProperty() ? Outcome::propertyAgain : Outcome::property, {domenId_, propertyId_});
  }

  // After the field was to be added to a property that had so many before. A domain that was opened
  // after the property may lack it. What a field took it takes again, and what it refused it
  // refuses.
  void TellField(std::size_t fieldCount, std::wstring_view name, std::wstring_view text) const {
    const DomenProperty* const property = CurrentProperty();
    if (!property) return Tell(Outcome::fieldOutsideProperty);
    if (property->fields.size() == fieldCount) {
      return Tell(Outcome::fieldAgain, {domenId_, propertyId_, name});
    }
    Tell(Outcome::field, {domenId_, propertyId_, name});
    if (property->fields.back()->SetValue(std::wstring(text))) return;
    Tell(Outcome::defaultRefused, {domenId_, propertyId_, name, text});
  }

  DomenStore& store_;
  FieldAdder& fields_;
  Account* account_;
  std::wstring_view entry_;  // that is being parsed
  std::wstring domenId_;     // empty if there is no current domain
  std::wstring propertyId_;  // empty if there is no current property
  std::vector<std::wstring> objectTypes_;
};

}  // namespace

void ParseDomenSection(DomenStore& store, FieldAdder& fields, std::wstring_view body,
                       Account* account) {
  DomenSectionParser parser(store, fields, account);
  PieceReader entries = CutEntries(body, false, account);
  for (std::wstring_view entry; entries.Next(entry);) parser.ParseEntry(entry);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
