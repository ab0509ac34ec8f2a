#include "hostile/PaintedStack.h"

#include <pthread.h>
#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <system_error>

namespace {

// The C library uses a few kilobytes of it.
constexpr std::size_t stackSize = std::size_t{512} << 10;
constexpr std::size_t guardSize = std::size_t{64} << 10;
constexpr unsigned char paint = 0xA5;

void CheckCall(int error, const char* what) {
  if (error != 0) throw std::system_error(error, std::generic_category(), what);
}

// The memory of a stack, with a guard page at its end.
class Stack {
 public:
  Stack()
      : memory(
            static_cast<unsigned char*>(mmap(nullptr, guardSize + stackSize, PROT_READ | PROT_WRITE,
                                             MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
    CheckCall(memory == MAP_FAILED ? errno : 0, "mmap");
    std::memset(Begin(), paint, stackSize);
    CheckCall(mprotect(memory, guardSize, PROT_NONE) != 0 ? errno : 0, "mprotect");
  }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;
  ~Stack() { munmap(memory, guardSize + stackSize); }

  unsigned char* Begin() const { return memory + guardSize; }

  std::size_t Used() const {
    const unsigned char* const end = Begin() + stackSize;
    return static_cast<std::size_t>(end -
                                    std::find_if(static_cast<const unsigned char*>(Begin()), end,
                                                 [](unsigned char byte) { return byte != paint; }));
  }

 private:
  unsigned char* memory;
};

struct Job {
  const std::function<void()>& work;
  std::exception_ptr failure;
};

void* Run(void* argument) {
  Job& job = *static_cast<Job*>(argument);
  try {
    job.work();
  } catch (...) {
    job.failure = std::current_exception();
  }
  return nullptr;
}

void RunOn(const Stack& stack, Job& job) {
  pthread_attr_t attributes;
  CheckCall(pthread_attr_init(&attributes), "pthread_attr_init");
  CheckCall(pthread_attr_setstack(&attributes, stack.Begin(), stackSize), "pthread_attr_setstack");
  pthread_t thread{};
  const int error = pthread_create(&thread, &attributes, Run, &job);
  pthread_attr_destroy(&attributes);
  CheckCall(error, "pthread_create");
  CheckCall(pthread_join(thread, nullptr), "pthread_join");
  if (job.failure) std::rethrow_exception(job.failure);
}

}  // namespace

std::size_t RunOnPaintedStack(const std::function<void()>& work) {
  const auto used = [](const std::function<void()>& some) {
    const Stack stack;
    Job job{some, nullptr};
    RunOn(stack, job);
    return stack.Used();
  };
  const std::size_t ofThread = used([] {});
  return used(work) - ofThread;
}
