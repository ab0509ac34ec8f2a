// Tests of the layout of the virtual table, which callers that were built against the header rely
// on.

#include "PropertyParameter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <set>
#include <string>

namespace TolvenLibs::RevitMappingEditorDll::Properties {
namespace {

using Places = std::set<std::size_t>;

// The destructor's slots are after the three operations: in the Itanium ABI a complete object
// destructor and a deleting one, in Microsoft's ABI one for both.
#ifdef _MSC_VER
const Places ofDestructor = {3};
#else
const Places ofDestructor = {3, 4};
#endif

int destroyed = 0;

// Overrides only the destructor.
class Derived : public PropertyIntParameter {
 public:
  Derived() : PropertyIntParameter(L"", L"", false) {}
  Derived(const Derived&) = delete;
  Derived& operator=(const Derived&) = delete;
  ~Derived() override { ++destroyed; }
};

class WithOwnCheckValue : public Derived {
 public:
  bool CheckValue(std::wstring text) override { return text == L"checked"; }
};

class WithOwnSetValue : public Derived {
 public:
  bool SetValue(std::wstring text) override { return text == L"set"; }
};

class WithOwnGetValue : public Derived {
 public:
  std::wstring GetValue() override { return L"got"; }
};

// In both ABIs an object starts with a pointer to its virtual table.
const void* const* TableOf(const PropertyParameter& parameter) {
  const void* const* table = nullptr;
  std::memcpy(&table, &parameter, sizeof table);
  return table;
}

// Returns the slots in which the tables of two objects differ.
Places Differences(const PropertyParameter& one, const PropertyParameter& other) {
  Places places;
  for (std::size_t place = 0; place <= *ofDestructor.rbegin(); ++place) {
    if (TableOf(one)[place] != TableOf(other)[place]) places.insert(place);
  }
  return places;
}

Places WithDestructor(std::size_t place) {
  Places places = ofDestructor;
  places.insert(place);
  return places;
}

TEST(PropertyParameterAbi, HasItsOperationsInTheFirstThreeSlotsAndItsDestructorAfterThem) {
  const PropertyIntParameter base(L"", L"", false);
  EXPECT_EQ(Differences(base, PropertyIntParameter(L"", L"", false)), Places());
  EXPECT_EQ(Differences(base, Derived()), ofDestructor);
  EXPECT_EQ(Differences(base, WithOwnCheckValue()), WithDestructor(0));
  EXPECT_EQ(Differences(base, WithOwnSetValue()), WithDestructor(1));
  EXPECT_EQ(Differences(base, WithOwnGetValue()), WithDestructor(2));
}

TEST(PropertyParameterAbi, HasItsMembersInOrderAfterThePointerToTheOperations) {
  const PropertyIntParameter field(L"", L"", false);
  const auto offset = [&field](const void* member) {
    return static_cast<const char*>(member) - reinterpret_cast<const char*>(&field);
  };
  EXPECT_EQ(offset(&field.name), static_cast<std::ptrdiff_t>(sizeof(void*)));
  EXPECT_LT(offset(&field.name), offset(&field.title));
  EXPECT_LT(offset(&field.title), offset(&field.valueType));
  EXPECT_LT(offset(&field.valueType), offset(&field.fieldFlag));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll::Properties
