#include "domen/Revision.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

TEST(Revision, ReturnsOneTokenUntilAChange) {
  Revision revision;
  const auto first = revision.Get();
  ASSERT_TRUE(first);
  EXPECT_EQ(revision.Get(), first);
  revision.Change();
  EXPECT_NE(revision.Get(), first);
}

TEST(Revision, ReturnsNoTokenThatAnybodyStillHas) {
  Revision revision;
  std::vector<std::shared_ptr<const void>> tokens;
  for (int i = 0; i < 100; ++i) {
    tokens.push_back(revision.Get());
    revision.Change();
  }
  EXPECT_EQ(std::set(tokens.begin(), tokens.end()).size(), 100u);
}

TEST(Revision, DiffersForACopyAndStaysForItsSource) {
  const Revision source;
  const auto token = source.Get();
  const Revision copy(source);
  EXPECT_NE(copy.Get(), token);
  EXPECT_EQ(source.Get(), token);
}

TEST(Revision, ChangesForTheTargetOfAnAssignment) {
  const Revision source;
  const auto token = source.Get();
  Revision target;
  const auto before = target.Get();
  target = source;
  EXPECT_NE(target.Get(), token);
  EXPECT_NE(target.Get(), before);
  EXPECT_EQ(source.Get(), token);
}

TEST(Revision, ChangesForBothSidesOfAMove) {
  Revision source;
  const auto token = source.Get();
  Revision moved(std::move(source));
  EXPECT_NE(moved.Get(), token);
  EXPECT_NE(source.Get(), token);
  const auto ofMoved = moved.Get();
  const auto ofSource = source.Get();
  source = std::move(moved);
  EXPECT_NE(source.Get(), ofSource);
  EXPECT_NE(source.Get(), ofMoved);
  EXPECT_NE(moved.Get(), ofMoved);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
