// That inputs which are made to be dear are read and answered, with memory in proportion to their
// size and on a stack of a fixed one. A test that takes much longer than the others has found work
// that grows faster than the input; scripts/hostile.sh measures it.

#include <gtest/gtest.h>
#include <malloc.h>
#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>

#include "hostile/Cases.h"
#include "support/TempFolder.h"

namespace {

// What the program has taken from the heap, in bytes.
std::atomic<std::size_t> inAll;
std::atomic<std::size_t> now;
std::atomic<std::size_t> atMost;

void* Allocate(std::size_t size) {
  void* const block = std::malloc(std::max<std::size_t>(size, 1));
  if (!block) throw std::bad_alloc();
  inAll += size;
  now += malloc_usable_size(block);
  atMost = std::max(atMost.load(), now.load());
  return block;
}

void Free(void* block) noexcept {
  if (!block) return;
  now -= malloc_usable_size(block);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void operator delete(void* block) noexcept {
  Free(block);
}
void operator delete[](void* block) noexcept {
  Free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Free(block);
}

namespace Hostile {
namespace {

// Runs the work on a thread that has a stack of so many bytes.
template <class Work>
void RunOnStackOf(std::size_t bytes, Work work) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
  const auto run = [](void* argument) -> void* {
    (*static_cast<Work*>(argument))();
    return nullptr;
  };
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

struct Memory {
  std::size_t inAll;
  std::size_t atMost;  // beyond what was taken before
};

Memory MemoryOf(const Case& one, std::size_t size) {
  const TempFolder folder;
  const std::wstring file = folder.Write(one.file, one.make(size));
  const std::size_t before = now;
  inAll = 0;
  atMost = before;
  Editor editor = LoadedEditor(file);
  EXPECT_EQ(one.ask(editor, size), one.answer(size));
  return {inAll, atMost - before};
}

// What a test takes of a case: less of one that is dear by rule, or of a build that is slow.
std::size_t SizeOf(const Case& one, std::size_t size) {
  if (one.dearByRule) size /= 20;
  return SLOW_BUILD ? size / 10 : size;
}

class HostileSizes : public testing::TestWithParam<Case> {};

TEST_P(HostileSizes, AreReadAndAnsweredOnASmallStack) {
  constexpr std::size_t stack = SLOW_BUILD ? 512 * 1024 : 128 * 1024;
  const Case& one = GetParam();
  const std::size_t size = SizeOf(one, 1'000'000);
  const TempFolder folder;
  const std::wstring file = folder.Write(one.file, one.make(size));
  std::wstring answer;
  RunOnStackOf(stack, [&] {
    Editor editor = LoadedEditor(file);
    answer = one.ask(editor, size);
  });
  EXPECT_EQ(answer, one.answer(size));
}

TEST_P(HostileSizes, TakeMemoryInProportion) {
  const Case& one = GetParam();
  const std::size_t size = SizeOf(one, 200'000);
  // What one pass leaves in the heap of the process is no matter of the next.
  MemoryOf(one, size);
  const Memory once = MemoryOf(one, size);
  const Memory twice = MemoryOf(one, 2 * size);
  constexpr std::size_t fixed = 20'000;
  EXPECT_LE(static_cast<double>(twice.inAll), 2.2 * static_cast<double>(once.inAll + fixed));
  EXPECT_LE(static_cast<double>(twice.atMost), 2.2 * static_cast<double>(once.atMost + fixed));
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
  std::string name;
  bool capital = true;
  for (const char unit : info.param.name) {
    const auto letter = static_cast<unsigned char>(unit);
    if (std::isalnum(letter)) name += static_cast<char>(capital ? std::toupper(letter) : letter);
    capital = !std::isalnum(letter);
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Inputs, HostileSizes, testing::ValuesIn(Cases()), NameOf);

}  // namespace
}  // namespace Hostile
