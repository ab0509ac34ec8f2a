// The typed value fields of a property. They are here because the exported class holds them: an
// add-in meets their types and their rules, but makes none itself, and their functions are no
// exports.
//
// All text is in wide strings, cut and trimmed by the library's own rules: white space is what
// `iswspace` of Windows takes for it, a number is written as in the classic locale, whatever the
// locale of the process. No operation raises an exception but `bad_alloc`.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll::Properties {

// One value field. The rest of the library speaks to it only through text.
class PropertyParameter {
 public:
  // Whether the text, as it stands, could be a value of this field. Stricter than `SetValue` for
  // numbers ("12 " fails here and is taken there) and laxer for strings (an empty text passes here
  // and is refused there); this is meant to stay.
  virtual bool CheckValue(std::wstring text) = 0;

  // Takes the text as the new value and gives true, or gives false and leaves the value as it was.
  // The text is trimmed first, and an empty one is always refused.
  virtual bool SetValue(std::wstring text) = 0;

  // The value as text. `SetValue` of this text gives the same value again, but for blanks and
  // quotation marks at the ends of a string, and for the empty entries of a list of strings.
  virtual std::wstring GetValue() = 0;

  // Stands behind the operations, whose places in the table of virtual functions are fixed.
  virtual ~PropertyParameter();

  std::wstring name;   // unique within one property
  std::wstring title;  // what a user reads; equal to the name where a file gives none
  int valueType;       // 0 to 5, see the classes below
  bool fieldFlag;      // handed to the add-in as it is; the library does not act on it

 protected:
  PropertyParameter(std::wstring fieldName, std::wstring fieldTitle, int type, bool flag);
  PropertyParameter(const PropertyParameter&) = default;
  PropertyParameter& operator=(const PropertyParameter&) = default;
};

// Type 0, keyword "int". Starts at 1.
class PropertyIntParameter : public PropertyParameter {
 public:
  PropertyIntParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  int value = 1;
};

// Type 1, keyword "real". Starts at 1.
class PropertyRealParameter : public PropertyParameter {
 public:
  PropertyRealParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  double value = 1.0;
};

// Type 2, keyword "str". Starts empty. Quotation marks at the two ends of a text are not kept.
class PropertyStrParameter : public PropertyParameter {
 public:
  PropertyStrParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::wstring value;
};

// The entries of a list are separated by blanks and by nothing else. One entry that is no number
// refuses a whole text. A text without any entry passes `CheckValue`.

// Type 3, keyword "ilist". Starts with one entry, 1.
class PropertyIListParameter : public PropertyParameter {
 public:
  PropertyIListParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::vector<int> value = {1};
};

// Type 4, keyword "rlist". Starts with one entry, 1.
class PropertyRListParameter : public PropertyParameter {
 public:
  PropertyRListParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::vector<double> value = {1.0};
};

// Type 5, keyword "slist". Starts with one entry, the empty string. `SetValue` keeps quotation
// marks; the first `GetValue` removes those at the ends of each stored entry. They group nothing.
class PropertySListParameter : public PropertyParameter {
 public:
  PropertySListParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::vector<std::wstring> value = {L""};
};

}  // namespace TolvenLibs::RevitMappingEditorDll::Properties
