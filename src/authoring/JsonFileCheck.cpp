#include "authoring/JsonFileCheck.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "authoring/Findings.h"
#include "authoring/JsonPlaces.h"
#include "json/DomenSchema.h"
#include "json5/Json5Parser.h"
#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Kind = Json5Value::Kind;

// An index among the parts of the file.
using Part = std::size_t;
constexpr Part root = 0;

struct MessageCheck {
  std::string_view message;  // of the parser
  int number;
};

constexpr std::array messageChecks = {
    MessageCheck{"bytes that are no UTF-8", 501},
    MessageCheck{"the text ends too early", 502},
    MessageCheck{"neither a comma nor the end of an array or object", 503},
    MessageCheck{"a colon is expected behind a key", 504},
    MessageCheck{"a key is expected", 505},
    MessageCheck{"a key with an escape other than \\u", 505},
    MessageCheck{"an escape of what can't stand in a key", 505},
    MessageCheck{"a value is expected", 506},
    MessageCheck{"a string that is not closed on its line", 507},
    MessageCheck{"an escape that lacks a hexadecimal digit", 508},
    MessageCheck{"an escape of a digit", 508},
    MessageCheck{"a hexadecimal number without digits", 509},
    MessageCheck{"a digit behind a leading 0", 509},
    MessageCheck{"a point without digits", 509},
    MessageCheck{"a sign without a number", 509},
    MessageCheck{"an exponent without digits", 509},
    MessageCheck{"a stroke that begins no comment", 510},
    MessageCheck{"something behind the value", 511},
    MessageCheck{"arrays and objects too deep in each other", 512},
};

int NumberOf(std::string_view message) {
  const auto found =
      std::find_if(messageChecks.begin(), messageChecks.end(),
                   [message](const MessageCheck& check) { return check.message == message; });
  return found == messageChecks.end() ? 506 : found->number;
}

// The check that a value fails which was asked for in vain.
int NumberOfRefusal(JsonOutcome asked) {
  switch (asked) {
    case JsonOutcome::item:
      return 524;
    case JsonOutcome::text:
      return 525;
    case JsonOutcome::wholeNumber:
      return 526;
    case JsonOutcome::number:
      return 527;
    default:
      return 528;
  }
}

bool IsOneOf(std::wstring_view key, std::initializer_list<const wchar_t*> keys) {
  return std::any_of(keys.begin(), keys.end(), [key](const wchar_t* one) { return key == one; });
}

bool IsSection(std::wstring_view key) {
  return IsOneOf(key, {domenSection, propertiesSection, fieldsSection});
}

bool IsDefault(std::wstring_view key) {
  return IsOneOf(key, {fieldIntDefault.name, fieldRealDefault.name, fieldStrDefault.name});
}

// What a field shows without a default of its own.
std::wstring_view ShownWithout(std::wstring_view defaultKey) {
  return defaultKey == fieldStrDefault.name ? L"1.0" : L"1";
}

// A file may name its schema, for editors.
constexpr std::wstring_view schemaKey = L"$schema";

bool HasBlank(std::wstring_view name) {
  return name.find(L' ') != name.npos;
}

class JsonFileChecker {
 public:
  JsonFileChecker(const LoadedFile& file, std::size_t number, Definitions& definitions,
                  Report& report)
      : file_(file),
        places_(*file.json, number),
        start_{number, 1, 1, 1, 1},
        definitions_(definitions),
        report_(report) {}

  void Check() {
    const JsonEntry& domen = file_.jsonAccount.entries.back();
    id_ = domen.texts[0];
    if (file_.classificator) return AddAtStart(546, Fate::used, {id_});
    if (id_.find_first_of(L" ()") != id_.npos) AddAtStart(544, Fate::used, {id_});
    if (const auto error = ParseJson5(*file_.json, tree_, &parts_)) {
      return TellLost(NumberOf(error->message), error->position, error->position);
    }
    if (parts_[root].value.kind != Kind::object) {
      return TellLost(545, parts_[root].begin, parts_[root].end);
    }
    taken_ = domen.outcome == JsonOutcome::domen;
    if (!taken_) TellDomenAgain();
    if (taken_) definitions_.try_emplace({id_}, OpeningBrace());
    IndexParts();
    ReadAccount();
    for (Part part = root + 1; part < parts_.size(); ++part) Settle(part);
    if (taken_) TellMissingList();
  }

 private:
  // What the reader asked of a part.
  struct Request {
    enum class Answer { notAsked, found, refused, overridden };
    Answer answer = Answer::notAsked;
    JsonOutcome asked = JsonOutcome::item;
  };
  using Answer = Request::Answer;

  // What it asked of the default of a field.
  struct DefaultRequest {
    std::wstring_view key;  // in the account
    bool found;
  };

  // Parts

  void IndexParts() {
    requests_.resize(parts_.size());
    fates_.resize(parts_.size(), Fate::used);
    sections_.resize(parts_.size());
    children_.resize(parts_.size());
    laterOf_.resize(parts_.size(), root);
    hasEarlier_.resize(parts_.size());
    for (Part part = root + 1; part < parts_.size(); ++part) {
      const Part parent = parts_[part].parent;
      children_[parent].push_back(part);
      if (!IsMember(part)) continue;
      const auto [last, added] = members_.try_emplace({parent, parts_[part].key}, part);
      if (added) continue;
      laterOf_[last->second] = part;
      hasEarlier_[part] = true;
      last->second = part;
    }
  }

  bool IsMember(Part part) const { return parts_[parts_[part].parent].value.kind == Kind::object; }
  bool IsObject(Part part) const { return parts_[part].value.kind == Kind::object; }
  std::wstring KeyOf(Part part) const { return ToWideText(parts_[part].key); }
  Place PlaceOf(Part part) const { return places_.Of(parts_[part].begin, parts_[part].end); }

  // The member of the object, the last one of its key.
  std::optional<Part> Find(Part object, std::wstring_view key) const {
    const std::string bytes = ToJson5Text(key);
    const auto member = members_.find({object, bytes});
    return member == members_.end() ? std::nullopt : std::optional(member->second);
  }

  std::optional<Part> FindObject(Part object, std::wstring_view key) const {
    const std::optional<Part> member = Find(object, key);
    return member && IsObject(*member) ? member : std::nullopt;
  }

  // As the configuration library finds it: the item named "" is the section itself, unless it has a
  // member of that name.
  std::optional<Part> FindItem(std::wstring_view section, std::wstring_view item) const {
    const std::optional<Part> whole = FindObject(root, section);
    if (!whole) return std::nullopt;
    const std::optional<Part> member = FindObject(*whole, item);
    return member || !item.empty() ? member : whole;
  }

  // The account

  void ReadAccount() {
    for (const JsonEntry& entry : file_.jsonAccount.entries) {
      switch (entry.outcome) {
        case JsonOutcome::item:
          ReadItem(entry);
          break;
        case JsonOutcome::property:
        case JsonOutcome::propertyAgain:
          ReadProperty(entry);
          break;
        case JsonOutcome::field:
        case JsonOutcome::fieldAgain:
          ReadField(entry);
          break;
        case JsonOutcome::typeUnknown:
          if (item_) unknownTypes_.try_emplace(*item_, entry.texts[0]);
          break;
        case JsonOutcome::defaultRefused:
          if (item_) refusedDefaults_.try_emplace(*item_, entry.texts[0]);
          break;
        case JsonOutcome::domen:
        case JsonOutcome::domenAgain:
          break;
        default:
          ReadKey(entry);
      }
    }
  }

  void Mark(Part part, Answer answer, JsonOutcome asked) { requests_[part] = {answer, asked}; }

  // The part that has the name of an item and isn't one, as it is no object.
  std::optional<Part> Refused(const JsonEntry& entry) const {
    const std::optional<Part> section = Find(root, entry.section);
    if (!section || !IsObject(*section)) return section;
    const std::optional<Part> member = Find(*section, entry.item);
    return member && !IsObject(*member) ? member : std::nullopt;
  }

  void ReadItem(const JsonEntry& entry) {
    item_ = entry.found ? FindItem(entry.section, entry.item) : std::nullopt;
    if (item_) {
      Mark(*Find(root, entry.section), Answer::found, JsonOutcome::item);
      Mark(*item_, Answer::found, JsonOutcome::item);
    } else if (const std::optional<Part> refused = Refused(entry)) {
      Mark(*refused, Answer::refused, JsonOutcome::item);
    }
  }

  void ReadKey(const JsonEntry& entry) {
    const bool isList = entry.outcome == JsonOutcome::listOfTexts;
    if (isList) list_.clear();
    const std::optional<Part> member = item_ ? Find(*item_, entry.key) : std::nullopt;
    if (member && entry.outcome == JsonOutcome::overridden) {
      Mark(*member, Answer::overridden, entry.outcome);
    } else if (member) {
      Mark(*member, entry.found ? Answer::found : Answer::refused, entry.outcome);
      if (isList && entry.found) ReadElements(*member);
    }
    if (item_ && entry.section == fieldsSection && IsDefault(entry.key)) {
      defaults_.insert_or_assign(*item_, DefaultRequest{entry.key, entry.found});
    }
    if (!isList || entry.key != domenFuncsNames.name) return;
    // Another configuration library may read a list in another way.
    if (list_.size() != entry.texts.size()) list_.assign(entry.texts.size(), root);
    if (entry.section == domenSection) {
      properties_.swap(list_);
      hasList_ = entry.found;
      domen_ = item_;
      listRefused_ = member && !entry.found;
    } else {
      fields_.swap(list_);
      fieldCount_ = 0;
    }
  }

  void ReadElements(Part list) {
    for (const Part element : children_[list]) {
      const bool isText = parts_[element].value.kind == Kind::string;
      Mark(element, isText ? Answer::found : Answer::refused, JsonOutcome::text);
      if (isText) list_.push_back(element);
    }
  }

  void ReadProperty(const JsonEntry& entry) {
    const Part element = properties_[propertyCount_++];
    if (!finished_.insert(entry.item).second) {
      return Add(540, element, Fate::lost, {entry.item});
    }
    const std::optional<Part> member = FindItem(propertiesSection, entry.item);
    if (!member && !Refused(entry)) Add(531, element, Fate::used, {entry.item});
    if (HasBlank(entry.item)) Add(543, element, Fate::used, {entry.item});
    Define({id_, entry.item}, member.value_or(element));
  }

  // The field's own requests came before, so that `item_` is its member. Nothing comes of the
  // fields of a property that is listed again.
  void ReadField(const JsonEntry& entry) {
    const Part element = fields_[fieldCount_++];
    if (finished_.contains(entry.texts[0])) return;
    if (entry.outcome == JsonOutcome::fieldAgain) {
      return Add(540, element, Fate::lost, {entry.item});
    }
    Define({id_, entry.texts[0], entry.item}, item_.value_or(element));
    const auto [first, added] = fieldElements_.try_emplace(entry.item, element);
    if (!added) return TellShared(entry.item, first->second, element);
    if (!item_ && !Refused(entry)) Add(532, element, Fate::used, {entry.item});
    if (HasBlank(entry.item)) Add(547, element, Fate::used, {entry.item});
  }

  void TellShared(const std::wstring& name, Part first, Part element) {
    if (!taken_) return;
    Finding& finding = AddFinding(report_, 541, PlaceOf(element), Fate::used, {name});
    finding.related.push_back({PlaceOf(first), RelatedKind::listed});
  }

  void Define(const std::vector<std::wstring>& ids, Part part) {
    if (taken_) definitions_.try_emplace(ids, PlaceOf(part));
  }

  // Members

  // Adds the member as a statement, with its fate and what there is to say of it. An element of a
  // list is no statement.
  void Settle(Part part) {
    const Part parent = parts_[part].parent;
    fates_[part] = taken_ ? FateOf(part) : Fate::lost;
    if (!IsMember(part)) return;
    sections_[part] = parent == root ? SectionOf(part) : sections_[parent];
    const Fate fate = taken_ && TakesAPlace(part) ? Fate::used : fates_[part];
    report_.statements.push_back({PlaceOf(part), sections_[part], fate});
  }

  // Whether the part, though nothing comes of it, keeps an earlier member of its key from being
  // read.
  bool TakesAPlace(Part part) const {
    const bool isAsked = requests_[part].answer == Answer::refused || IsLostContainer(part);
    return hasEarlier_[part] && isAsked && laterOf_[part] == root &&
           fates_[parts_[part].parent] == Fate::used;
  }

  // The number of the section that a member of the outermost object is.
  std::size_t SectionOf(Part part) {
    if (!IsObject(part) || !IsSection(KeyOf(part))) return 0;
    report_.sections.push_back(Utf8Of(KeyOf(part)));
    return report_.sections.size() - 1;
  }

  // What is in a part that comes to nothing has the fate of it, and there is nothing more to say of
  // it.
  Fate FateOf(Part part) {
    const Part parent = parts_[part].parent;
    if (fates_[parent] != Fate::used && !IsLostContainer(parent)) return fates_[parent];
    if (laterOf_[part] != root) return TellReplaced(part);
    switch (requests_[part].answer) {
      case Answer::found:
        return TellUsed(part);
      case Answer::refused:
        return TellRefused(part);
      case Answer::overridden:
        return TellOverridden(part);
      default:
        return parent == root ? TellUnreadSection(part) : TellUnread(part);
    }
  }

  // Whether the part is a section whose members are properties or fields.
  bool IsContainer(Part part) const {
    return part != root && parts_[part].parent == root && IsObject(part) &&
           IsOneOf(KeyOf(part), {propertiesSection, fieldsSection});
  }

  // Whether it is one of whose members none is read.
  bool IsLostContainer(Part part) const {
    return fates_[part] == Fate::lost && laterOf_[part] == root && IsContainer(part);
  }

  Fate TellReplaced(Part part) {
    Finding& finding = AddFinding(report_, 530, PlaceOf(part), Fate::shadowed, {KeyOf(part)});
    finding.related.push_back({PlaceOf(laterOf_[part]), RelatedKind::later});
    return Fate::shadowed;
  }

  Fate TellUsed(Part part) {
    const Part parent = parts_[part].parent;
    const std::wstring key = KeyOf(part);
    const auto type = unknownTypes_.find(parent);
    if (type != unknownTypes_.end() && key == fieldType.name) {
      Add(535, part, Fate::used, {type->second});
    }
    const auto refused = refusedDefaults_.find(parent);
    if (refused != refusedDefaults_.end() && IsDefault(key) && !refused->second.empty()) {
      Add(539, part, Fate::used, {refused->second});
    }
    const auto asked = defaults_.find(part);
    if (asked != defaults_.end() && !asked->second.found && !HasDefault(part)) {
      Add(537, part, Fate::used, {key, asked->second.key, ShownWithout(asked->second.key)});
    }
    return Fate::used;
  }

  bool HasDefault(Part field) const {
    return std::any_of(children_[field].begin(), children_[field].end(),
                       [this](Part member) { return IsDefault(KeyOf(member)); });
  }

  Fate TellRefused(Part part) {
    const Fate fate = TakesAPlace(part) ? Fate::used : Fate::lost;
    if (IsMember(part)) {
      Add(NumberOfRefusal(requests_[part].asked), part, fate, {KeyOf(part)});
    } else {
      Add(529, part, fate, {});
    }
    return Fate::lost;
  }

  // The key of the member is the id.
  Fate TellOverridden(Part part) {
    const Part property = parts_[part].parent;
    const Json5Value& value = parts_[part].value;
    const bool isEqual = value.kind == Kind::string && value.text == parts_[property].key;
    if (!isEqual) Add(542, part, Fate::ignored, {KeyOf(property)});
    return Fate::ignored;
  }

  Fate TellUnreadSection(Part part) {
    const std::wstring key = KeyOf(part);
    if (IsSection(key)) return Fate::lost;
    if (key != schemaKey) Add(522, part, Fate::ignored, {key});
    return Fate::ignored;
  }

  Fate TellUnread(Part part) {
    const Part parent = parts_[part].parent;
    const std::wstring key = KeyOf(part);
    if (IsContainer(parent)) {
      const int number = KeyOf(parent) == propertiesSection ? 533 : 534;
      if (hasList_) Add(number, part, Fate::lost, {key});
      return Fate::lost;
    }
    if (KeyOf(parts_[parent].parent) == fieldsSection && IsDefault(key)) {
      TellOtherDefault(part);
    } else {
      Add(IsSection(key) ? 523 : 522, part, Fate::ignored, {key});
    }
    return Fate::ignored;
  }

  // A default key that doesn't go with the type of the field. Where the type is unknown, that has
  // been said.
  void TellOtherDefault(Part part) {
    const Part field = parts_[part].parent;
    const auto asked = defaults_.find(field);
    if (asked == defaults_.end()) return;
    const std::wstring_view key = asked->second.key;
    if (Find(field, key)) return Add(538, part, Fate::ignored, {KeyOf(part), key});
    Add(536, part, Fate::ignored, {KeyOf(part), key, ShownWithout(key)});
  }

  // The file

  // All of the file comes to nothing.
  void TellLost(int number, std::size_t begin, std::size_t end) {
    const Place whole = places_.Of(0, file_.json->size());
    report_.statements.push_back({whole, 0, Fate::lost});
    AddFinding(report_, number, places_.Of(begin, end), Fate::lost);
  }

  void TellDomenAgain() {
    Finding& finding = AddFinding(report_, 520, OpeningBrace(), Fate::lost, {id_});
    const auto earlier = definitions_.find({id_});
    if (earlier == definitions_.end()) return;
    finding.related.push_back({earlier->second, RelatedKind::earlier});
  }

  void TellMissingList() {
    if (hasList_ || listRefused_) return;
    const std::optional<Part> section = Find(root, domenSection);
    if (section && !IsObject(*section)) return;
    if (domen_) return Add(521, *domen_, Fate::used, {});
    AddFinding(report_, 521, OpeningBrace(), Fate::used);
  }

  Place OpeningBrace() const { return places_.Of(parts_[root].begin, parts_[root].begin + 1); }

  void AddAtStart(int number, Fate fate, std::initializer_list<std::wstring_view> arguments) {
    AddFinding(report_, number, start_, fate, arguments);
  }

  // Where nothing of the file is taken, there is nothing to say of its parts.
  void Add(int number, Part part, Fate fate, std::initializer_list<std::wstring_view> arguments) {
    if (taken_) AddFinding(report_, number, PlaceOf(part), fate, arguments);
  }

  const LoadedFile& file_;
  JsonPlaces places_;
  Place start_;
  Definitions& definitions_;
  Report& report_;
  std::wstring id_;     // of the domain
  bool taken_ = false;  // whether the domain is that of the file

  Json5Tree tree_;
  Json5Parts parts_;
  std::map<std::pair<Part, std::string_view>, Part> members_;  // the last of each key
  std::vector<std::vector<Part>> children_;
  std::vector<Part> laterOf_;  // the member that takes the place of one, or `root`
  std::vector<bool> hasEarlier_;
  std::vector<Request> requests_;
  std::vector<Fate> fates_;
  std::vector<std::size_t> sections_;  // among those of the report

  std::optional<Part> item_;  // of the last request
  std::optional<Part> domen_;
  bool hasList_ = false;      // of properties
  bool listRefused_ = false;  // as it is no list
  std::vector<Part> list_;    // the texts of the last list
  std::vector<Part> properties_;
  std::size_t propertyCount_ = 0;
  std::vector<Part> fields_;  // of the last property
  std::size_t fieldCount_ = 0;
  std::set<std::wstring> finished_;             // properties
  std::map<std::wstring, Part> fieldElements_;  // the first element that names each field
  std::map<Part, DefaultRequest> defaults_;     // by the members of the fields, as the next two
  std::map<Part, std::wstring> unknownTypes_;
  std::map<Part, std::wstring> refusedDefaults_;
};

}  // namespace

void CheckJsonFile(const LoadedFile& file, std::size_t number, Definitions& definitions,
                   Report& report) {
  JsonFileChecker(file, number, definitions, report).Check();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
