// The places of the virtual operations, which callers that were built against the header rely on.

#include "PropertyParameter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace TolvenLibs::RevitMappingEditorDll::Properties {
namespace {

// In the Itanium ABI a pointer to a virtual member holds one more than the offset of its place.
template <class Member>
std::ptrdiff_t SlotOf(Member member) {
  std::ptrdiff_t offset = 0;
  std::memcpy(&offset, &member, sizeof offset);
  return (offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(PropertyParameterAbi, HasItsOperationsInTheFirstThreePlaces) {
  EXPECT_EQ(SlotOf(&PropertyParameter::CheckValue), 0);
  EXPECT_EQ(SlotOf(&PropertyParameter::SetValue), 1);
  EXPECT_EQ(SlotOf(&PropertyParameter::GetValue), 2);
}

TEST(PropertyParameterAbi, HasItsMembersInTheirOrderBehindThePlaceOfTheOperations) {
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
