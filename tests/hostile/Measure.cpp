#include "hostile/Measure.h"

#include <malloc.h>

#include <ctime>
#include <filesystem>

#include "hostile/Heap.h"
#include "hostile/PaintedStack.h"

namespace {

double Now() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// Otherwise small sizes would reuse freed memory of the allocator, and large ones would need new
// memory from the system.
void ReturnFreedMemory() {
  mallopt(M_MMAP_THRESHOLD, 256 << 10);
  malloc_trim(0);
}

void Load(Subject& subject, const std::wstring& file) {
  if (!file.ends_with(L".txt")) {
    return Require(subject.editor.CreateDomen(file.c_str()) == 0, "the domain is loaded");
  }
  const int status = subject.editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str());
  Require(status == 0, "the classificator is loaded");
  Require(subject.editor.SetActiveClassificator(L"S") == 0, "it is selected");
}

}  // namespace

PreparedCase::PreparedCase(const HostileCase& hostileCase, std::size_t caseSize)
    : theCase(hostileCase), size(caseSize) {
  if (theCase.bytes) file = folder.Write(theCase.fileName, theCase.bytes(size));
}

Cost PreparedCase::Measure() const {
  ReturnFreedMemory();
  Cost cost;
  cost.stack = RunOnPaintedStack([this, &cost] {
    ResetHeapUse();
    const std::size_t before = ReadHeapUse().taken;
    const double start = Now();
    Run();
    cost.seconds = Now() - start;
    const HeapUse use = ReadHeapUse();
    cost.allocated = use.allocated;
    cost.peak = use.peak - before;
  });
  return cost;
}

std::size_t PreparedCase::FileSize() const {
  return file.empty() ? 0 : std::filesystem::file_size(folder.Path() / theCase.fileName);
}

void PreparedCase::Run() const {
  Subject subject(size);
  subject.folder = folder.Wide() + L"/";
  if (!file.empty()) Load(subject, file);
  theCase.ask(subject);
}
