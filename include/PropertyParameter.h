// The typed value fields of a property. They are public because the exported class contains them:
// add-ins see their types and rules, but construct none, and their functions aren't exported.
//
// Text is independent of the locale: white space is that of `iswspace` of Windows, and numbers are
// written as in the classic locale. Operations raise nothing but `bad_alloc`.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll::Properties {

// One value field. The rest of the library accesses it only as text.
class PropertyParameter {
 public:
  // Returns whether the text, untrimmed, could be a value of this field. Stricter than `SetValue`
  // for numbers ("12 " fails here but not there) and laxer for strings (an empty text passes here
  // but not there). This is required.
  virtual bool CheckValue(std::wstring text) = 0;

  // Sets the value to the trimmed text and returns true, or returns false and leaves the value as
  // it was. An empty text is always refused.
  virtual bool SetValue(std::wstring text) = 0;

  // Returns the value as text. `SetValue` of this text restores the value, except blanks and
  // quotation marks at the ends of a string, and empty entries of a list of strings.
  virtual std::wstring GetValue() = 0;

  // After the operations, whose slots in the virtual function table are fixed.
  virtual ~PropertyParameter();

  std::wstring name;   // unique within one property
  std::wstring title;  // what a user reads; the name if the file has none
  int valueType;       // 0 to 5, see the classes below
  bool fieldFlag;      // passed to the add-in; the library ignores it

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

// Type 2, keyword "str". Starts empty. Quotation marks at the ends of a text are removed.
class PropertyStrParameter : public PropertyParameter {
 public:
  PropertyStrParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::wstring value;
};

// Only blanks separate the entries of a list. A text with an entry that isn't a number is refused.
// A text without entries passes `CheckValue`.

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
// marks, which don't group words; the first `GetValue` removes those at the ends of each entry.
class PropertySListParameter : public PropertyParameter {
 public:
  PropertySListParameter(std::wstring fieldName, std::wstring fieldTitle, bool flag);
  bool CheckValue(std::wstring text) override;
  bool SetValue(std::wstring text) override;
  std::wstring GetValue() override;

  std::vector<std::wstring> value = {L""};
};

}  // namespace TolvenLibs::RevitMappingEditorDll::Properties
