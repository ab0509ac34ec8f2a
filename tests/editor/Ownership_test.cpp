// Tests of what the exports allocate, who owns it, and what remains after a failed allocation.
//
// The operators below count this program's allocations and fail on demand. They replace those of
// the language in the whole program, and in the library where the platform allows that; elsewhere
// the tests are skipped.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <exception>
#include <filesystem>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <typeinfo>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "authoring/Check.h"
#include "authoring/LoadedFiles.h"
#include "json5/Json5Record.h"
#include "mapping/CodeParams.h"
#include "mapping/RememberedItems.h"
#include "support/Classificators.h"
#include "support/DescribeDomens.h"
#include "support/DomenRows.h"
#include "support/OutOfRange.h"
#include "support/Output.h"
#include "support/Program.h"
#include "support/Results.h"
#include "support/TempFolder.h"

namespace {

// The use of the heap by one thread.
struct Heap {
  long blocks = 0;             // allocated and not released
  long arrayBlocks = 0;        // those of them from the array forms
  std::size_t arrayBytes = 0;  // total allocated by the array forms
  long failIn = 0;             // the throwing allocation that fails, counted from now; 0 for none
  bool keepsFailing = false;   // whether all after that one fail too, until `failIn` is set again
  bool failed = false;         // whether that one was requested
  bool refuses = false;        // whether all non-throwing allocations fail
};

constinit thread_local Heap heap;

long dearest = 0;  // the most allocations of a call under test

void* Allocate(std::size_t size, bool array) noexcept {
  void* const block = std::malloc(std::max<std::size_t>(size, 1));
  if (!block) return nullptr;
  ++heap.blocks;
  if (array) {
    ++heap.arrayBlocks;
    heap.arrayBytes += size;
  }
  return block;
}

void Free(void* block, bool array) noexcept {
  if (!block) return;
  --heap.blocks;
  if (array) --heap.arrayBlocks;
  std::free(block);
}

// Allocates a larger block and stores its address before its aligned part.
void* Allocate(std::size_t size, std::align_val_t alignment, bool array) noexcept {
  const std::size_t step = std::max(static_cast<std::size_t>(alignment), alignof(void*));
  const std::size_t more = step + sizeof(void*);
  if (size + more < size) return nullptr;
  void* const block = Allocate(size + more, array);
  if (!block) return nullptr;
  void* place = static_cast<char*>(block) + sizeof(void*);
  std::size_t space = size + step;
  std::align(step, size, place, space);
  static_cast<void**>(place)[-1] = block;
  return place;
}

void FreeAligned(void* place, bool array) noexcept {
  if (place) Free(static_cast<void**>(place)[-1], array);
}

// Returns whether this throwing allocation is to fail.
bool Fails() noexcept {
  if (heap.failIn == 0 || --heap.failIn != 0) return false;
  heap.failed = true;
  if (heap.keepsFailing) heap.failIn = 1;
  return true;
}

// The throwing forms.
template <class... Arguments>
void* AllocateOrThrow(Arguments... arguments) {
  if (Fails()) throw std::bad_alloc();
  void* const block = Allocate(arguments...);
  if (!block) throw std::bad_alloc();
  return block;
}

// The non-throwing forms. Their callers, such as a sort that tries to get a buffer, work without.
template <class... Arguments>
void* AllocateOrNot(Arguments... arguments) noexcept {
  const bool exhausted = heap.failed && heap.keepsFailing;
  return heap.refuses || exhausted ? nullptr : Allocate(arguments...);
}

}  // namespace

void* operator new(std::size_t size) {
  return AllocateOrThrow(size, false);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size, true);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNot(size, false);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNot(size, true);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, alignment, false);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, alignment, true);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return AllocateOrNot(size, alignment, false);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return AllocateOrNot(size, alignment, true);
}

void operator delete(void* block) noexcept {
  Free(block, false);
}
void operator delete[](void* block) noexcept {
  Free(block, true);
}
void operator delete(void* block, std::size_t) noexcept {
  Free(block, false);
}
void operator delete[](void* block, std::size_t) noexcept {
  Free(block, true);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  Free(block, false);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  Free(block, true);
}
void operator delete(void* block, std::align_val_t) noexcept {
  FreeAligned(block, false);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  FreeAligned(block, true);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  FreeAligned(block, false);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  FreeAligned(block, true);
}
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  FreeAligned(block, false);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  FreeAligned(block, true);
}

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;
using Editor = RevitMappingEditorDll;

// All results that a call can return, released as a caller releases them.
struct Results {
  Results() = default;
  Results(const Results&) = delete;
  Results& operator=(const Results&) = delete;
  ~Results() { Take(); }

  bool ArraysWritten() const {
    return texts[0].Written() || texts[1].Written() || texts[2].Written() || numbers.Written() ||
           flags[0].Written() || flags[1].Written();
  }

  // The number of arrays and strings of these results, and their bytes, as a caller expects them.
  long Blocks() const;
  std::size_t Bytes() const;

  // Returns the addresses of the buffers.
  std::vector<const void*> Addresses() const;

  // Returns all results as one text.
  std::wstring Take();

  int count = -1;
  int values[5] = {-1, -2, -3, -4, -5};
  const wchar_t* text = nullptr;
  Output<const wchar_t*> texts[3];
  Output<int> numbers;
  Output<bool> flags[2];
};

long Results::Blocks() const {
  return static_cast<long>(Addresses().size());
}

std::size_t Results::Bytes() const {
  const auto bytesOf = [](const wchar_t* one) { return (std::wcslen(one) + 1) * sizeof(wchar_t); };
  const auto size = static_cast<std::size_t>(count);
  std::size_t bytes = text ? bytesOf(text) : 0;
  for (const auto& output : texts) {
    if (!output.Written()) continue;
    bytes += size * sizeof(const wchar_t*);
    for (std::size_t i = 0; i < size; ++i) bytes += bytesOf(output.array[i]);
  }
  if (numbers.Written()) bytes += size * sizeof(int);
  for (const auto& output : flags) {
    if (output.Written()) bytes += size;  // one byte each
  }
  return bytes;
}

std::vector<const void*> Results::Addresses() const {
  std::vector<const void*> addresses;
  if (text) addresses.push_back(text);
  for (const auto& output : texts) {
    if (!output.Written()) continue;
    addresses.push_back(output.array);
    for (int i = 0; i < count; ++i) addresses.push_back(output.array[i]);
  }
  if (numbers.Written()) addresses.push_back(numbers.array);
  for (const auto& output : flags) {
    if (output.Written()) addresses.push_back(output.array);
  }
  return addresses;
}

std::wstring Results::Take() {
  std::wstring all = std::to_wstring(count);
  for (const int value : values) all += L" " + std::to_wstring(value);
  if (text) all += L" '" + ::Take(std::exchange(text, nullptr)) + L"'";
  for (auto& output : texts) {
    if (!output.Written()) continue;
    for (const std::wstring& one : output.Take(count)) all += L" '" + one + L"'";
    output.array = &output.before;
  }
  if (numbers.Written()) {
    for (const int number : numbers.Take(count)) all += L" " + std::to_wstring(number);
    numbers.array = &numbers.before;
  }
  for (auto& output : flags) {
    if (!output.Written()) continue;
    for (const bool flag : output.Take(count)) all += flag ? L" yes" : L" no";
    output.array = &output.before;
  }
  return all;
}

struct Call {
  const char* name;
  void (*run)(Editor& editor, Results& results);
};

const wchar_t* objectTypes[] = {L"Door of some kind", L"Room of some kind"};

// Each query, at least once. None of them changes the editor.
const Call queries[] = {
    {"GetActiveClassificatorParamName",
     [](Editor& editor, Results& to) { to.text = editor.GetActiveClassificatorParamName(); }},
    {"GetActiveDomenId", [](Editor& editor, Results& to) { to.text = editor.GetActiveDomenId(); }},
    {"GetClaccificatorCode",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(1); }},
    {"GetClaccificatorCode, empty",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(0); }},
    {"GetClaccificatorCode, default",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(-1); }},
    {"GetClaccificatorCodeId",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.GetClaccificatorCodeId(L"Basic Wall Exterior of bricks");
     }},
    {"GetClaccificatorCodeParams, none",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCodeParams(-1, 1, L"="); }},
    {"GetClaccificatorCodeParams of ==PARAM",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCodeParams(1, 2, L"="); }},
    {"GetClassificatorsNames",
     [](Editor& editor, Results& to) {
       editor.GetClassificatorsNames(to.count, to.texts[0].array, to.texts[1].array);
     }},
    {"GetColor",
     [](Editor& editor, Results& to) {
       editor.GetColor(L"SecondKeyText", to.values[0], to.values[1], to.values[2], to.values[3],
                       to.values[4]);
     }},
    {"GetColorNum",
     [](Editor& editor, Results& to) { to.values[0] = editor.GetColorNum(L"SecondKeyText"); }},
    {"GetColoratsIds",
     [](Editor& editor, Results& to) { editor.GetColoratsIds(to.count, to.texts[0].array); }},
    {"GetDefaultClaccificatorCode",
     [](Editor& editor, Results& to) { to.text = editor.GetDefaultClaccificatorCode(); }},
    {"GetDomenPropertiesCheckInfo",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertiesCheckInfo(L"Openings", to.count, to.texts[0].array,
                                          to.flags[0].array, to.numbers.array, to.flags[1].array);
     }},
    {"GetDomenPropertyFieldsValues",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertyFieldsValues(L"Openings", L"EveryType", to.count, to.texts[0].array,
                                           to.texts[1].array, to.numbers.array, to.flags[0].array,
                                           to.texts[2].array);
     }},
    {"GetDomenPropertyFieldsValues, no fields",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertyFieldsValues(L"Structures", L"Fieldless", to.count, to.texts[0].array,
                                           to.texts[1].array, to.numbers.array, to.flags[0].array,
                                           to.texts[2].array);
     }},
    {"GetDomenPropertyFieldsValues, unknown domain",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertyFieldsValues(L"Unknown domain", L"EveryType", to.count,
                                           to.texts[0].array, to.texts[1].array, to.numbers.array,
                                           to.flags[0].array, to.texts[2].array);
     }},
    {"GetDomenPropertysByObjType",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertysByObjType(L"Openings", L"Door of some kind", to.count,
                                         to.texts[0].array, to.texts[1].array, to.numbers.array);
     }},
    {"GetDomenPropertysByObjTypes",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertysByObjTypes(L"Openings", 2, objectTypes, to.count, to.texts[0].array,
                                          to.texts[1].array, to.numbers.array);
     }},
    {"GetDomensIds",
     [](Editor& editor, Results& to) {
       if (const wchar_t** ids = editor.GetDomensIds(to.count)) to.texts[0].array = ids;
     }},
    {"GetDomensNames",
     [](Editor& editor, Results& to) {
       if (const wchar_t** names = editor.GetDomensNames(to.count)) to.texts[0].array = names;
     }},
    {"GetEndMark", [](Editor& editor, Results& to) { to.text = editor.GetEndMark(); }},
    {"GetMappingStr of ==PARAM",
     [](Editor& editor, Results& to) {
       to.text = editor.GetMappingStr(L"Basic Wall Exterior of bricks", 2, L" suffix=");
     }},
    {"GetPropertiesSortIndex",
     [](Editor& editor, Results& to) {
       editor.GetPropertiesSortIndex(L"Structures", to.count, to.texts[0].array, to.numbers.array);
     }},
    {"GetStartMark", [](Editor& editor, Results& to) { to.text = editor.GetStartMark(); }},
};

// The calls that compose the items of a code. They omit an item that fails, so a failed allocation
// may cost an item instead of the answer.
const Call compositions[] = {
    {"GetClaccificatorCodeParams",
     [](Editor& editor, Results& to) {
       to.text = editor.GetClaccificatorCodeParams(1, 1, L" suffix=");
     }},
    {"GetMappingStr",
     [](Editor& editor, Results& to) {
       to.text = editor.GetMappingStr(L"Basic Wall Exterior of bricks", 1, L" suffix=");
     }},
    {"GetMappingStr, default code",
     [](Editor& editor, Results& to) {
       to.text = editor.GetMappingStr(L"Some other thing", 1, L" suffix=");
     }},
};

std::vector<Call> AllQueries() {
  std::vector<Call> all(std::begin(queries), std::end(queries));
  all.insert(all.end(), std::begin(compositions), std::end(compositions));
  return all;
}

// Calls that change the editor, here to the state that it is already in.
const Call changes[] = {
    {"CreateClassificator, absent",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.CreateClassificator(L"A new classificator", L"Name", L"Parameter",
                                                 L"no such file.txt");
     }},
    {"CreateDomen",
     [](Editor& editor, Results& to) { to.values[0] = editor.CreateDomen(L"a.txt"); }},
    {"CreateDomen, absent",
     [](Editor& editor, Results& to) { to.values[0] = editor.CreateDomen(L"no such file.txt"); }},
    {"CreateDomen, other extension",
     [](Editor& editor, Results& to) { to.values[0] = editor.CreateDomen(L"a.dat"); }},
    {"CreateDomen, folder",
     [](Editor& editor, Results& to) { to.values[0] = editor.CreateDomen(L"folder.txt"); }},
    {"ExportJson, absent",
     [](Editor& editor, Results&) {
       editor.ExportJson(L"no such domain", L"no such folder/a.json");
     }},
    {"ExportJson, no folder",
     [](Editor& editor, Results&) { editor.ExportJson(L"Openings", L"no such folder/a.json"); }},
    {"SetActiveClassificator",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.SetActiveClassificator(L"First classificator");
     }},
    {"SetActiveClassificator, absent",
     [](Editor& editor, Results& to) { to.values[0] = editor.SetActiveClassificator(L"None"); }},
    {"SetActiveColorat",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.SetActiveColorat(L"second_colours");
     }},
    {"SetActiveColorat, absent",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.SetActiveColorat(L"no such colorat");
     }},
    {"SetActiveDomenByName",
     [](Editor& editor, Results& to) {
       to.values[0] = editor.SetActiveDomenByName(L"Structures");
     }},
    {"SetActiveDomenByName, absent",
     [](Editor& editor, Results& to) { to.values[0] = editor.SetActiveDomenByName(L"no such"); }},
    {"SetActiveDomenId",
     [](Editor& editor, Results& to) { to.values[0] = editor.SetActiveDomenId(L"Structures"); }},
    {"SetActiveDomenId, absent",
     [](Editor& editor, Results& to) { to.values[0] = editor.SetActiveDomenId(L"no such"); }},
    {"SetEndMark", [](Editor& editor, Results&) { editor.SetEndMark(L"an end mark>"); }},
    {"SetStartMark", [](Editor& editor, Results&) { editor.SetStartMark(L"<a start mark"); }},
    {"operator=",
     [](Editor& editor, Results&) {
       const Editor& self = editor;
       editor = self;
     }},
    {"copy constructor and destructor", [](Editor& editor, Results&) { Editor copy(editor); }},
};

constexpr const char* firstFile =
    "==CLASS\n@@@ A scheme of walls (Walls Openings)\n"
    "==MAPTEXT\n"
    "@@ (Structures Openings)\n"
    "unclassified thing\n"  // before any code, so with an empty one
    "$ Z99-everything-else\n"
    "@B2010-exterior-walls {EveryType=5,2.5,text,6,7.5,word} {Rating:Class=K60} {Absent=1}"
    " {Fieldless=1} {Rating:Class=}\n"
    "basic wall exterior\n"
    "==PARAM\nB2010-exterior-walls Rating=K90\nZ99 Rating=K30\n"
    "==COLORAT\n"
    "@first_colours First colours\nA100 255 0 0 50\n"
    "@second_colours Second colours\nFirstKeyText 1 2 3 4\nSecondKeyText 5 6 7 8\n"
    "==DOMEN\n"
    "@@@ Openings\n"
    "@ EveryType 1 10 A property with a field of every type\n"
    "Integer int 0 30 An integer of its own\nRealNumber real 1 0.5 A real\nText str 0 \"\"\n"
    "Integers ilist 1 12 Some integers\nReals rlist 0 1e3 Some reals\nWords slist 1 main Words\n"
    "@ Rating 0 -20 Element rating class\nClass str 0 K30 Rating class\n"
    "@@@ Structures\n"
    "@ Fieldless 0 5 A property without fields\n@ Another 0 6 Another one\nLength real 0 2\n";

constexpr const char* secondFile =
    "==MAPTEXT\n@C-doors\ninner door\n==COLORAT\n@doors Doors\nD1 1 2 3 4\n";

// Returns a file with every section, each long enough for its containers to grow more than once.
std::string RichFile() {
  std::string file =
      "==CLASS\n@@@ A scheme with all sections (Rich Scheme)\n"
      "==MAPTEXT\n@@ (Zones Rooms)\n$ N99-anything-else\n";
  std::string params = "==PARAM\n";
  std::string colors = "==COLORAT\n@main_colours Main colours\n";
  std::string domens = "==DOMEN\n@@@ Zones\n@@ Rooms_of_some_kind Doors_of_some_kind\n";
  for (int i = 0; i < 6; ++i) {
    const std::string number = std::to_string(i);
    file += "@N-" + number + "-some-code {Property" + number + "=1,2.5,text} {Many f1=7 f2=8}\n";
    file += "new thing of kind " + number + "\nnew other thing " + number + "\n";
    params += "N-" + number + " Property" + number + "=1 Many f1=7;\n";
    colors += "KeyTextNumber" + number + " 1 2 3 4\n";
    domens += "@ Property" + number + " 1 " + number + " Title of property " + number +
              "\nInteger int 0 30 An integer\nReal real 1 0.5 A real\nText str 0 \"A_text\"\n" +
              "Integers ilist 1 12 Some integers\nReals rlist 0 1e3 Some reals\n" +
              "Words slist 1 main Words\n";
  }
  domens += "@ Many 0 30 A property of many fields\n";
  for (int i = 0; i < 40; ++i) domens += "f" + std::to_string(i) + " int 0 1 One of many fields\n";
  return file + params + colors + domens + "@@@ Rooms\n@ Room 0 1 A room\nName slist 0 \"a\"\n";
}

// Returns the editor's answers to these queries, or the message of the exception.
template <class Calls>
std::wstring AnswersTo(const Calls& calls, Editor& editor) {
  std::wstring answers;
  for (const Call& call : calls) {
    Results results;
    try {
      call.run(editor, results);
      answers += results.Take() + L"\n";
    } catch (const std::out_of_range&) {
      answers += L"out of range\n";
    }
  }
  return answers;
}

// Returns all answers of an editor.
std::wstring Answers(Editor& editor) {
  return AnswersTo(AllQueries(), editor);
}

// The same without the answers that every load extends.
std::wstring AnswersAboutTheFirst(Editor& editor) {
  std::vector<Call> calls = AllQueries();
  std::erase_if(calls, [](const Call& call) {
    const std::string_view name = call.name;
    return name == "GetClassificatorsNames" || name == "GetDomensIds" || name == "GetDomensNames" ||
           name == "GetActiveDomenId";
  });
  return AnswersTo(calls, editor);
}

// The same without the answers that need an active Classificator.
std::wstring AnswersWithoutClassificator(Editor& editor) {
  std::vector<Call> calls = AllQueries();
  std::erase_if(calls, [](const Call& call) {
    const std::string_view name = call.name;
    return name.find("Claccificator") != name.npos || name.starts_with("GetMappingStr") ||
           name == "GetActiveClassificatorParamName";
  });
  return AnswersTo(calls, editor);
}

// The queries about the rich file.
const Call richQueries[] = {
    {"GetActiveDomenId", [](Editor& editor, Results& to) { to.text = editor.GetActiveDomenId(); }},
    {"GetActiveClassificatorParamName",
     [](Editor& editor, Results& to) { to.text = editor.GetActiveClassificatorParamName(); }},
    {"GetClaccificatorCode",
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(11); }},
    {"GetColoratsIds",
     [](Editor& editor, Results& to) { editor.GetColoratsIds(to.count, to.texts[0].array); }},
    {"GetColor",
     [](Editor& editor, Results& to) {
       editor.GetColor(L"KeyTextNumber5", to.values[0], to.values[1], to.values[2], to.values[3],
                       to.values[4]);
     }},
    {"GetDefaultClaccificatorCode",
     [](Editor& editor, Results& to) { to.text = editor.GetDefaultClaccificatorCode(); }},
    {"GetDomenPropertiesCheckInfo",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertiesCheckInfo(L"Zones", to.count, to.texts[0].array, to.flags[0].array,
                                          to.numbers.array, to.flags[1].array);
     }},
    {"GetDomenPropertysByObjType",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertysByObjType(L"Zones", L"Doors_of_some_kind", to.count,
                                         to.texts[0].array, to.texts[1].array, to.numbers.array);
     }},
    {"GetMappingStr of ==PARAM",
     [](Editor& editor, Results& to) { to.text = editor.GetMappingStr(L"new other", 2, L"="); }},
};

// The queries about the values of its properties.
const Call richValueQueries[] = {
    {"GetDomenPropertyFieldsValues",
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertyFieldsValues(L"Zones", L"Property5", to.count, to.texts[0].array,
                                           to.texts[1].array, to.numbers.array, to.flags[0].array,
                                           to.texts[2].array);
     }},
    {"GetMappingStr",
     [](Editor& editor, Results& to) {
       to.text = editor.GetMappingStr(L"New Thing of Kind 5 and more", 1, L"=");
     }},
};

// An editor with two classificators, two colorats in the active one, two domains, and all marks and
// selections set.
class Ownership : public testing::Test {
 protected:
  void SetUp() override {
    dearest = 0;
    folder.Write("a.txt", firstFile);
    folder.Write("b.txt", secondFile);
    folder.Write("a.dat", firstFile);
    std::filesystem::create_directory(folder.Path() / "folder.txt");
    editor.emplace(folder.Wide().c_str(), L"a configuration text");
    Fill(*editor);
    // The first lookups fill the caches.
    Answers(*editor);

    const long before = heap.blocks;
    const wchar_t* mark = editor->GetStartMark();
    const bool reached = heap.blocks != before;
    delete[] mark;
    if (!reached) {
      GTEST_SKIP() << "the operators of a program don't reach into libraries on this platform";
    }
  }

  void TearDown() override {
    if (dearest != 0) RecordProperty("allocations", static_cast<int>(dearest));
  }

  // Returns an equal editor whose caches are empty.
  Editor Unasked() const {
    Editor unasked(folder.Wide().c_str(), L"a configuration text");
    Fill(unasked);
    return unasked;
  }

  static void Fill(Editor& editor) {
    EXPECT_EQ(editor.CreateClassificator(L"First classificator", L"Первый классификатор",
                                         L"ClassCode", L"a.txt"),
              0);
    EXPECT_EQ(editor.CreateClassificator(L"", L"", L"", L"b.txt"), 0);
    EXPECT_EQ(editor.SetActiveClassificator(L"First classificator"), 0);
    EXPECT_EQ(editor.SetActiveColorat(L"second_colours"), 0);
    EXPECT_EQ(editor.SetActiveDomenId(L"Structures"), 0);
    editor.SetStartMark(L"<a start mark");
    editor.SetEndMark(L"an end mark>");
  }

  TempFolder folder;
  std::optional<Editor> editor;
};

// Counting

TEST(CountingOperators, CountEveryFormAndAlign) {
  constexpr std::align_val_t alignment{256};
  const auto aligned = [](const void* place) {
    return reinterpret_cast<std::uintptr_t>(place) % 256 == 0;
  };
  const Heap before = heap;
  void* const single[] = {::operator new(5), ::operator new(0, std::nothrow),
                          ::operator new(5, alignment), ::operator new(5, alignment, std::nothrow)};
  void* const arrays[] = {::operator new[](5), ::operator new[](0, std::nothrow),
                          ::operator new[](5, alignment),
                          ::operator new[](5, alignment, std::nothrow)};
  EXPECT_EQ(heap.blocks, before.blocks + 8);
  EXPECT_EQ(heap.arrayBlocks, before.arrayBlocks + 4);
  EXPECT_TRUE(aligned(single[2]) && aligned(single[3]) && aligned(arrays[2]) && aligned(arrays[3]));
  ::operator delete(single[0]);
  ::operator delete(single[1], std::nothrow);
  ::operator delete(single[2], alignment);
  ::operator delete(single[3], alignment, std::nothrow);
  ::operator delete[](arrays[0]);
  ::operator delete[](arrays[1], std::nothrow);
  ::operator delete[](arrays[2], alignment);
  ::operator delete[](arrays[3], alignment, std::nothrow);
  EXPECT_EQ(heap.blocks, before.blocks);
  EXPECT_EQ(heap.arrayBlocks, before.arrayBlocks);
}

TEST_F(Ownership, IsOfArrayBlocksOfTheExactSizeAndOfNothingElse) {
  for (const Call& query : AllQueries()) {
    SCOPED_TRACE(query.name);
    Results results;
    const Heap before = heap;
    query.run(*editor, results);
    const Heap after = heap;
    EXPECT_EQ(after.arrayBlocks - before.arrayBlocks, results.Blocks());
    EXPECT_EQ(after.blocks - before.blocks, results.Blocks());
    EXPECT_EQ(after.arrayBytes - before.arrayBytes, results.Bytes());
  }
}

TEST_F(Ownership, IsReleasedByTheCallerInFull) {
  for (const Call& query : AllQueries()) {
    SCOPED_TRACE(query.name);
    const Heap before = heap;
    {
      Results results;
      query.run(*editor, results);
    }
    EXPECT_EQ(heap.blocks, before.blocks);
    EXPECT_EQ(heap.arrayBlocks, before.arrayBlocks);
  }
}

TEST_F(Ownership, IsUnchangedByCallsThatChangeNothing) {
  const std::wstring answers = Answers(*editor);
  for (const Call& change : changes) {
    SCOPED_TRACE(change.name);
    const Heap before = heap;
    {
      Results results;
      change.run(*editor, results);
    }
    // The call may have cleared the caches; these queries fill them again.
    EXPECT_EQ(Answers(*editor), answers);
    EXPECT_EQ(heap.blocks, before.blocks);
    EXPECT_EQ(heap.arrayBlocks, before.arrayBlocks);
  }
}

TEST_F(Ownership, EndsWithTheEditor) {
  const std::wstring dataFolder = folder.Wide();
  const Heap before = heap;
  {
    Editor loaded(dataFolder.c_str(), L"a configuration text");
    Fill(loaded);
    Editor copy(loaded);
    Editor assigned(L"another folder", L"another text");
    assigned.SetStartMark(L"a mark that is replaced");
    assigned = copy;
    copy = Editor(L"", L"");
    EXPECT_EQ(Answers(assigned), Answers(loaded));
  }
  EXPECT_EQ(heap.blocks, before.blocks);
  EXPECT_EQ(heap.arrayBlocks, before.arrayBlocks);
}

TEST_F(Ownership, IsTheSameForAnEditorAndItsCopies) {
  Editor first(*editor);
  const long before = heap.blocks;
  std::optional<Editor> second(first);
  const long blocks = heap.blocks - before;
  first = *second;  // releases as much as it allocates
  EXPECT_EQ(heap.blocks, before + blocks);
  second.reset();
  EXPECT_EQ(heap.blocks, before);
}

// Buffers

TEST_F(Ownership, IsOfBuffersThatNoOtherCallReturns) {
  for (const Call& query : AllQueries()) {
    SCOPED_TRACE(query.name);
    Results first;
    Results second;
    query.run(*editor, first);
    query.run(*editor, second);
    std::vector<const void*> addresses = first.Addresses();
    const std::vector<const void*> more = second.Addresses();
    addresses.insert(addresses.end(), more.begin(), more.end());
    EXPECT_EQ(std::set<const void*>(addresses.begin(), addresses.end()).size(), addresses.size());
    EXPECT_EQ(first.Take(), second.Take());
  }
}

TEST_F(Ownership, IsOfANewBufferEvenForAnEmptyText) {
  const std::wstring empty = folder.Write("empty.txt", "");
  Editor bare(L"", L"");
  ASSERT_EQ(bare.CreateClassificator(L"", L"", L"", empty.c_str()), 0);
  ASSERT_EQ(bare.SetActiveClassificator(L""), 0);
  const Call emptyTexts[] = {
      {"GetActiveClassificatorParamName",
       [](Editor& one, Results& to) { to.text = one.GetActiveClassificatorParamName(); }},
      {"GetActiveDomenId", [](Editor& one, Results& to) { to.text = one.GetActiveDomenId(); }},
      {"GetClaccificatorCode",
       [](Editor& one, Results& to) { to.text = one.GetClaccificatorCode(-1); }},
      {"GetClaccificatorCodeParams",
       [](Editor& one, Results& to) { to.text = one.GetClaccificatorCodeParams(-1, 1, L""); }},
      {"GetDefaultClaccificatorCode",
       [](Editor& one, Results& to) { to.text = one.GetDefaultClaccificatorCode(); }},
  };
  for (const Call& call : emptyTexts) {
    SCOPED_TRACE(call.name);
    Results first;
    Results second;
    const Heap before = heap;
    call.run(bare, first);
    call.run(bare, second);
    const Heap after = heap;
    ASSERT_NE(first.text, nullptr);
    EXPECT_EQ(*first.text, L'\0');
    EXPECT_NE(first.text, second.text);
    EXPECT_EQ(after.blocks - before.blocks, 2);
    EXPECT_EQ(after.arrayBytes - before.arrayBytes, 2 * sizeof(wchar_t));
  }
}

// A NUL in a file ends the text of a result.
TEST_F(Ownership, IsOfNoUnitAfterTheFirstNulOfAText) {
  const std::wstring file = folder.Write("nul.txt", "==MAPTEXT\n@A1\0B2\nwall\n"s);
  Editor one(L"", L"");
  ASSERT_EQ(one.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str()), 0);
  ASSERT_EQ(one.SetActiveClassificator(L"S"), 0);
  one.SetEndMark(L"a mark that nobody sees");
  Results code;
  Results mapping;
  const Heap before = heap;
  code.text = one.GetClaccificatorCode(0);
  mapping.text = one.GetMappingStr(L"wall", 1, L"");
  const Heap after = heap;
  EXPECT_EQ(after.arrayBytes - before.arrayBytes, code.Bytes() + mapping.Bytes());
  EXPECT_STREQ(code.text, L"A1");
  EXPECT_STREQ(mapping.text, L"Code A1");
}

TEST_F(Ownership, IsNotTouchedByLaterCallsNorByTheEndOfTheEditor) {
  const std::vector<Call> all = AllQueries();
  std::vector<std::wstring> expected;
  for (const Call& query : all) {
    Results results;
    query.run(*editor, results);
    expected.push_back(results.Take());
  }
  std::vector<Results> held(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i].run(*editor, held[i]);
  editor->SetStartMark(L"<another mark");
  editor->SetActiveColorat(L"first_colours");
  editor->SetActiveDomenId(L"Openings");
  editor->SetActiveClassificator(L"");
  *editor = Editor(L"", L"");
  editor.reset();
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_EQ(held[i].Take(), expected[i]) << all[i].name;
  }
}

// Failures of a lookup

struct Failure {
  const char* name;
  const char* text;
  int count;  // its value after the call; it is -1 before
  void (*run)(Editor& editor, Results& results);
};

const Failure withoutClassificator[] = {
    {"SetActiveColorat", badSubscript, -1,
     [](Editor& editor, Results&) { editor.SetActiveColorat(L"second_colours"); }},
    {"GetColoratsIds", badSubscript, -1,
     [](Editor& editor, Results& to) { editor.GetColoratsIds(to.count, to.texts[0].array); }},
    {"GetColorNum", badSubscript, -1,
     [](Editor& editor, Results& to) { to.values[0] = editor.GetColorNum(L"SecondKeyText"); }},
    {"GetColor", badSubscript, -1,
     [](Editor& editor, Results& to) {
       editor.GetColor(L"SecondKeyText", to.values[0], to.values[1], to.values[2], to.values[3],
                       to.values[4]);
     }},
};

const Failure withClassificator[] = {
    {"GetColorNum", badKey, -1,
     [](Editor& editor, Results& to) { to.values[0] = editor.GetColorNum(L"no such key text"); }},
    {"GetColor", badKey, -1,
     [](Editor& editor, Results& to) {
       editor.GetColor(L"no such key text", to.values[0], to.values[1], to.values[2], to.values[3],
                       to.values[4]);
     }},
    {"GetClaccificatorCode, too great", badSubscript, -1,
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(2); }},
    {"GetClaccificatorCode, too small", badSubscript, -1,
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCode(-2); }},
    {"GetClaccificatorCodeParams of ==MAPTEXT", badSubscript, -1,
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCodeParams(2, 1, L"="); }},
    {"GetClaccificatorCodeParams of ==PARAM", badSubscript, -1,
     [](Editor& editor, Results& to) { to.text = editor.GetClaccificatorCodeParams(2, 2, L"="); }},
    {"GetDomenPropertyFieldsValues", badKey, -1,
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertyFieldsValues(L"Openings", L"no such property", to.count,
                                           to.texts[0].array, to.texts[1].array, to.numbers.array,
                                           to.flags[0].array, to.texts[2].array);
     }},
    {"GetDomenPropertiesCheckInfo", badSubscript, 0,
     [](Editor& editor, Results& to) {
       editor.GetDomenPropertiesCheckInfo(L"Structures", to.count, to.texts[0].array,
                                          to.flags[0].array, to.numbers.array, to.flags[1].array);
     }},
};

// Expects that a failed call has written no results, and that `results.count` is `count`.
void ExpectUntouched(const Results& results, int count) {
  const Results untouched;
  EXPECT_EQ(results.count, count);
  EXPECT_FALSE(results.ArraysWritten());
  EXPECT_EQ(results.text, nullptr);
  EXPECT_TRUE(std::equal(std::begin(results.values), std::end(results.values), untouched.values));
}

void ExpectFailure(Editor& editor, const Failure& failure) {
  SCOPED_TRACE(failure.name);
  Results results;
  const long before = heap.blocks;
  try {
    failure.run(editor, results);
    ADD_FAILURE() << "nothing is raised";
  } catch (const std::exception& error) {
    EXPECT_TRUE(typeid(error) == typeid(std::out_of_range)) << typeid(error).name();
    EXPECT_STREQ(error.what(), failure.text);
  }
  EXPECT_EQ(heap.blocks, before);
  ExpectUntouched(results, failure.count);
}

TEST_F(Ownership, IsOfNothingWhenALookupFails) {
  const std::wstring answers = Answers(*editor);
  for (const Failure& failure : withClassificator) ExpectFailure(*editor, failure);
  EXPECT_EQ(Answers(*editor), answers);

  Editor empty(L"", L"");
  Editor unselected(folder.Wide().c_str(), L"");
  ASSERT_EQ(unselected.CreateClassificator(L"id", L"", L"", L"a.txt"), 0);
  for (const Failure& failure : withoutClassificator) {
    ExpectFailure(empty, failure);
    ExpectFailure(unselected, failure);
  }
}

// Failed allocations

// Whether only one allocation fails, or all further ones too, as when memory is exhausted.
class FailureMode {
 public:
  explicit FailureMode(bool keepsFailing) { heap.keepsFailing = keepsFailing; }
  FailureMode(const FailureMode&) = delete;
  FailureMode& operator=(const FailureMode&) = delete;
  ~FailureMode() { heap.keepsFailing = false; }
};

constexpr bool failureModes[] = {false, true};

class FailedAllocations : public Ownership, public testing::WithParamInterface<bool> {
  const FailureMode mode{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Ownership, FailedAllocations, testing::ValuesIn(failureModes),
                         [](const auto& mode) { return mode.param ? "AndAllAfterIt" : "Alone"; });

struct Attempt {
  bool failed;  // the allocation was requested and failed
  bool raised;  // the call threw `bad_alloc`
};

// Runs the call while its n-th allocation fails, and in one mode all further ones.
template <class Run>
Attempt RunFailing(long n, Run run) {
  bool raised = false;
  heap.failIn = n;
  try {
    run();
  } catch (const std::bad_alloc&) {
    raised = true;
  } catch (...) {
    heap.failIn = 0;
    heap.failed = false;
    throw;
  }
  heap.failIn = 0;
  const bool failed = std::exchange(heap.failed, false);
  if (failed) dearest = std::max(dearest, n);
  return {failed, raised};
}

// More allocations than any call of these tests makes.
constexpr long enough = 5000;

// Returns whether the call ends in its own failure. Allocates nothing itself.
bool EndsInItsFailure(const Failure& failure, Editor& editor, Results& results) {
  try {
    failure.run(editor, results);
  } catch (const std::out_of_range& error) {
    return std::string_view(error.what()) == failure.text;
  }
  return false;
}

template <class AnswersOf>
void ExpectFailureOrBadAlloc(Editor& editor, const Failure& failure, AnswersOf answersOf) {
  SCOPED_TRACE(failure.name);
  const std::wstring answers = answersOf(editor);
  long n = 1;
  for (bool complete = false; !complete && n < enough; ++n) {
    Results results;
    bool asItShould = false;
    const long before = heap.blocks;
    const Attempt attempt =
        RunFailing(n, [&] { asItShould = EndsInItsFailure(failure, editor, results); });
    complete = !attempt.failed;
    ASSERT_EQ(heap.blocks, before) << n;
    EXPECT_NE(attempt.raised, asItShould) << n;
    EXPECT_TRUE(!complete || asItShould);
    ExpectUntouched(results, failure.count);
    ASSERT_EQ(answersOf(editor), answers) << n;
  }
  EXPECT_GT(n, 2) << "no allocation failed";
  EXPECT_LT(n, enough);
}

TEST_P(FailedAllocations, IsOfNothingWhenAnyAllocationOfALookupThatFailsFails) {
  for (const Failure& failure : withClassificator) {
    ExpectFailureOrBadAlloc(*editor, failure, Answers);
  }

  Editor empty(L"", L"");
  Editor unselected(folder.Wide().c_str(), L"");
  ASSERT_EQ(unselected.CreateClassificator(L"id", L"", L"", L"a.txt"), 0);
  Editor undisturbed(unselected);
  for (const Failure& failure : withoutClassificator) {
    ExpectFailureOrBadAlloc(empty, failure, AnswersWithoutClassificator);
    ExpectFailureOrBadAlloc(unselected, failure, AnswersWithoutClassificator);
  }
  ASSERT_EQ(undisturbed.SetActiveClassificator(L"id"), 0);
  ASSERT_EQ(unselected.SetActiveClassificator(L"id"), 0);
  EXPECT_EQ(Answers(unselected), Answers(undisturbed));
}

TEST_P(FailedAllocations, IsOfNothingWhenAnyAllocationOfAQueryFails) {
  const std::wstring answers = Answers(*editor);
  for (const Call& query : queries) {
    SCOPED_TRACE(query.name);
    Results full;
    query.run(*editor, full);
    const std::wstring fullText = full.Take();
    const std::wstring untouched = Results().Take();
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      Results results;
      const long before = heap.blocks;
      const Attempt attempt = RunFailing(n, [&] { query.run(*editor, results); });
      complete = !attempt.failed;
      ASSERT_EQ(attempt.raised, attempt.failed) << n;
      if (complete) {
        EXPECT_EQ(results.Take(), fullText);
      } else {
        ASSERT_EQ(heap.blocks, before) << n;
        EXPECT_FALSE(results.ArraysWritten()) << n;
        results.count = -1;  // it may have been written
        EXPECT_EQ(results.Take(), untouched) << n;
      }
      ASSERT_EQ(Answers(*editor), answers) << n;
    }
    EXPECT_LT(n, enough);
  }
}

std::vector<std::wstring> ItemsOf(std::wstring_view text) {
  std::vector<std::wstring> items;
  for (std::size_t end; (end = text.find(L';')) != text.npos; text.remove_prefix(end + 1)) {
    items.emplace_back(text.substr(0, end));
  }
  items.emplace_back(text);
  return items;
}

// Returns whether the text is the full one except for whole items that are omitted. `head` is their
// common prefix.
bool IsWithoutItems(const std::wstring& text, const std::wstring& full, std::wstring_view head) {
  if (!text.starts_with(head)) return false;
  const std::vector<std::wstring> items = ItemsOf(std::wstring_view(text).substr(head.size()));
  const std::vector<std::wstring> all = ItemsOf(std::wstring_view(full).substr(head.size()));
  if (items.back() != all.back()) return false;
  auto next = all.begin();
  for (const std::wstring& item : items) {
    next = std::find(next, all.end(), item);
    if (next == all.end()) return false;
    ++next;
  }
  return true;
}

TEST_P(FailedAllocations, IsOfNothingOrOfWholeItemsWhenAnyAllocationOfACompositionFails) {
  const std::wstring answers = Answers(*editor);
  for (const Call& composition : compositions) {
    SCOPED_TRACE(composition.name);
    Results full;
    composition.run(*editor, full);
    const std::wstring fullText = full.text;
    const std::size_t mark = fullText.find(L"ClassCode");
    const std::wstring head =
        mark == fullText.npos ? L"" : fullText.substr(0, fullText.find(L';') + 1);
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      Results results;
      const long before = heap.blocks;
      const Attempt attempt = RunFailing(n, [&] { composition.run(*editor, results); });
      complete = !attempt.failed;
      if (attempt.raised) {
        ASSERT_EQ(heap.blocks, before) << n;
        EXPECT_EQ(results.text, nullptr) << n;
      } else {
        ASSERT_NE(results.text, nullptr) << n;
        ASSERT_EQ(heap.blocks, before + 1) << n;
        EXPECT_TRUE(IsWithoutItems(results.text, fullText, head)) << n << ": " << results.text;
        if (complete) {
          EXPECT_EQ(results.text, fullText);
        }
      }
      ASSERT_EQ(Answers(*editor), answers) << n;
    }
    EXPECT_LT(n, enough);
  }
}

// The caches must not affect the answers, nor must a failure to fill them.
TEST_P(FailedAllocations, IsOfTheSameAnswersWhenAnyAllocationOfAFirstCallFails) {
  const std::wstring answers = Answers(*editor);
  for (const Call& query : AllQueries()) {
    SCOPED_TRACE(query.name);
    Results full;
    query.run(*editor, full);
    const std::wstring fullText = full.text ? full.text : L"";
    const std::wstring all = full.Take();
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      const long before = heap.blocks;
      {
        Editor unasked = Unasked();
        const long loaded = heap.blocks;
        Results results;
        const Attempt attempt = RunFailing(n, [&] { query.run(unasked, results); });
        complete = !attempt.failed;
        if (attempt.raised) {
          EXPECT_FALSE(results.ArraysWritten()) << n;
          EXPECT_EQ(results.text, nullptr) << n;
        } else if (results.text && !complete) {
          const std::size_t head =
              fullText.find(L"ClassCode") == fullText.npos ? 0 : fullText.find(L';') + 1;
          EXPECT_TRUE(IsWithoutItems(results.text, fullText, fullText.substr(0, head))) << n;
        } else {
          EXPECT_EQ(results.Take(), all) << n;
        }
        ASSERT_GE(heap.blocks, loaded) << n;
        ASSERT_EQ(Answers(unasked), answers) << n;
      }
      ASSERT_EQ(heap.blocks, before) << n;
    }
    EXPECT_LT(n, enough);
  }
}

TEST_P(FailedAllocations, IsUnchangedWhenAnyAllocationOfACallThatChangesNothingFails) {
  const std::wstring answers = AnswersAboutTheFirst(*editor);
  for (const Call& change : changes) {
    SCOPED_TRACE(change.name);
    // A load returns a status for a failure, and an export ignores it.
    const bool load = std::string_view(change.name).starts_with("Create");
    const bool silent = std::string_view(change.name).starts_with("ExportJson");
    Results undisturbed;
    change.run(*editor, undisturbed);
    AnswersAboutTheFirst(*editor);
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      Results results;
      const long before = heap.blocks;
      const Attempt attempt = RunFailing(n, [&] { change.run(*editor, results); });
      complete = !attempt.failed;
      if (!silent && !load) {
        ASSERT_EQ(attempt.raised, attempt.failed) << n;
      }
      if (!attempt.raised) {
        const bool unread = load && attempt.failed;
        EXPECT_EQ(results.values[0], unread ? 3 : undisturbed.values[0]) << n;
      }
      ASSERT_EQ(AnswersAboutTheFirst(*editor), answers) << n;
      // Repeats the call, so that it ends in the same state whether or not it failed before.
      change.run(*editor, results);
      EXPECT_EQ(results.values[0], undisturbed.values[0]) << n;
      AnswersAboutTheFirst(*editor);
      ASSERT_EQ(heap.blocks, before) << n;
    }
    EXPECT_LT(n, enough);
  }
}

TEST_P(FailedAllocations, IsUnchangedWhenAnyAllocationOfASelectionOrAMarkFails) {
  const Call changing[] = {
      {"SetActiveClassificator",
       [](Editor& one, Results&) { EXPECT_EQ(one.SetActiveClassificator(L""), 0); }},
      {"SetActiveColorat",
       [](Editor& one, Results&) { EXPECT_EQ(one.SetActiveColorat(L"first_colours"), 0); }},
      {"SetActiveDomenByName",
       [](Editor& one, Results&) { EXPECT_EQ(one.SetActiveDomenByName(L"Openings"), 0); }},
      {"SetActiveDomenId",
       [](Editor& one, Results&) { EXPECT_EQ(one.SetActiveDomenId(L"Openings"), 0); }},
      {"SetEndMark",
       [](Editor& one, Results&) { one.SetEndMark(L"an end mark that is longer than before>"); }},
      {"SetStartMark",
       [](Editor& one, Results&) { one.SetStartMark(L"<a start mark longer than before"); }},
      {"operator=",
       [](Editor& one, Results&) {
         Editor other(one);
         other.SetStartMark(L"");
         one = other;
       }},
  };
  const std::wstring answers = Answers(*editor);
  for (const Call& change : changing) {
    SCOPED_TRACE(change.name);
    Editor undisturbed(*editor);
    Results unused;
    change.run(undisturbed, unused);
    const std::wstring changed = Answers(undisturbed);
    ASSERT_NE(changed, answers);
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      const long before = heap.blocks;
      {
        Editor copy(*editor);
        Answers(copy);  // fills its caches, which must not show later
        Results results;
        const Attempt attempt = RunFailing(n, [&] { change.run(copy, results); });
        complete = !attempt.failed;
        ASSERT_EQ(attempt.raised, attempt.failed) << n;
        if (attempt.raised) {
          ASSERT_EQ(Answers(copy), answers) << n;
          change.run(copy, results);
        }
        ASSERT_EQ(Answers(copy), changed) << n;
      }
      ASSERT_EQ(heap.blocks, before) << n;
    }
    EXPECT_LT(n, enough);
  }
}

TEST_P(FailedAllocations, IsOfNothingWhenAnyAllocationOfANewEditorFails) {
  const std::wstring answers = Answers(*editor);
  const std::wstring dataFolder = folder.Wide();
  long n = 1;
  for (bool complete = false; !complete && n < enough; ++n) {
    const long before = heap.blocks;
    {
      std::optional<Editor> copy;
      const Attempt attempt = RunFailing(n, [&] {
        const Editor made(dataFolder.c_str(), L"a configuration text");
        copy.emplace(*editor);
      });
      complete = !attempt.failed;
      ASSERT_EQ(attempt.raised, attempt.failed) << n;
      ASSERT_EQ(copy.has_value(), complete) << n;
      if (complete) {
        EXPECT_EQ(Answers(*copy), answers);
      }
    }
    ASSERT_EQ(heap.blocks, before) << n;
  }
  EXPECT_LT(n, enough);
  EXPECT_EQ(Answers(*editor), answers);
}

// A failure inside a reader is its status 3, and one outside is thrown. Either way the editor keeps
// its earlier answers, answers about what was read, and can load the file again.
TEST_P(FailedAllocations, IsWholeWhenAnyAllocationOfALoadFails) {
  folder.Write("rich.txt", RichFile());
  const auto load = [](Editor& one, const wchar_t* id) {
    return one.CreateClassificator(id, L"A new name", L"RichCode", L"rich.txt");
  };
  Editor undisturbed(*editor);
  ASSERT_EQ(load(undisturbed, L"a new id"), 0);
  ASSERT_EQ(undisturbed.SetActiveClassificator(L"a new id"), 0);
  const std::wstring richAnswers = AnswersTo(richQueries, undisturbed);
  const std::wstring richValues = AnswersTo(richValueQueries, undisturbed);
  ASSERT_EQ((richAnswers + richValues).find(L"out of range"), richAnswers.npos);

  const std::wstring answers = AnswersAboutTheFirst(*editor);
  const std::size_t count = ListClassificators(*editor).size();
  for (const bool classificator : {true, false}) {
    SCOPED_TRACE(classificator ? "CreateClassificator" : "CreateDomen");
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      const long before = heap.blocks;
      {
        Editor copy(*editor);
        int status = -1;
        const Attempt attempt = RunFailing(n, [&] {
          status = classificator ? load(copy, L"a new id") : copy.CreateDomen(L"rich.txt");
        });
        complete = !attempt.failed;
        if (!attempt.raised) {
          EXPECT_EQ(status, complete ? 0 : 3) << n;
        }
        const std::size_t added = classificator && !attempt.raised ? 1 : 0;
        ASSERT_EQ(ListClassificators(copy).size(), count + added) << n;
        ASSERT_EQ(AnswersAboutTheFirst(copy), answers) << n;
        // Up to where it was read.
        if (added != 0) {
          EXPECT_EQ(copy.SetActiveClassificator(L"a new id"), 0);
          AnswersTo(richQueries, copy);
          AnswersTo(richValueQueries, copy);
        }
        const bool untouched = copy.SetActiveDomenId(L"Zones") == -1;
        EXPECT_EQ(load(copy, L"once more"), 0) << n;
        EXPECT_EQ(copy.SetActiveClassificator(L"once more"), 0) << n;
        ASSERT_EQ(AnswersTo(richQueries, copy), richAnswers) << n;
        // A field that exists keeps its value, which may be the initial one instead of its
        // default.
        if (untouched) {
          ASSERT_EQ(AnswersTo(richValueQueries, copy), richValues) << n;
        }
      }
      ASSERT_EQ(heap.blocks, before) << n;
    }
    EXPECT_LT(n, enough);
  }
}

// An entry is made even if there is nothing to read, or no reader of domains for it.
TEST_P(FailedAllocations, IsWholeWhenAnyAllocationOfALoadWithoutDomensFails) {
  struct Case {
    const wchar_t* file;
    int status;
  };
  const std::wstring answers = AnswersAboutTheFirst(*editor);
  const std::size_t count = ListClassificators(*editor).size();
  for (const Case& loaded : {Case{L"folder.txt", 2}, Case{L"a.dat", -1}}) {
    SCOPED_TRACE(std::filesystem::path(loaded.file).string());
    const auto load = [&loaded](Editor& one, const wchar_t* id) {
      return one.CreateClassificator(id, L"A new name", L"NewCode", loaded.file);
    };
    Editor undisturbed(*editor);
    ASSERT_EQ(load(undisturbed, L"once more"), loaded.status);
    ASSERT_EQ(undisturbed.SetActiveClassificator(L"once more"), 0);
    const std::wstring newAnswers = AnswersAboutTheFirst(undisturbed);
    ASSERT_NE(newAnswers, answers);
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      const long before = heap.blocks;
      {
        Editor copy(*editor);
        int status = -2;
        const Attempt attempt = RunFailing(n, [&] { status = load(copy, L"a new id"); });
        complete = !attempt.failed;
        if (!attempt.raised) {
          EXPECT_EQ(status, complete ? loaded.status : 3) << n;
        }
        ASSERT_EQ(ListClassificators(copy).size(), count + !attempt.raised) << n;
        ASSERT_EQ(AnswersAboutTheFirst(copy), answers) << n;
        EXPECT_EQ(load(copy, L"once more"), loaded.status) << n;
        EXPECT_EQ(copy.SetActiveClassificator(L"once more"), 0) << n;
        ASSERT_EQ(AnswersAboutTheFirst(copy), newAnswers) << n;
      }
      ASSERT_EQ(heap.blocks, before) << n;
    }
    EXPECT_LT(n, enough);
  }
}

const wchar_t* const domensOfTheFile[] = {L"First_domain_of_the_file",
                                          L"Second_domain_of_the_file"};

// Returns the fields of both domains, in file order.
FieldRows FieldsOfTheFile(Editor& editor) {
  FieldRows all;
  for (const wchar_t* domen : domensOfTheFile) {
    for (const auto& [id, name, sortIndex] : OfType(editor, domen, L"Door")) {
      for (const FieldRow& row : Fields(editor, domen, id.c_str())) all.push_back(row);
    }
  }
  return all;
}

// Returns the field with the initial value of its type.
FieldRow AtItsStart(FieldRow field) {
  std::get<4>(field) = std::get<2>(field) == 3 ? L"1" : L"";
  return field;
}

// The last field may lack its default. A further load finds it and adds the rest.
TEST_P(FailedAllocations, KeepsWhatATextFileHasBeforeAFailedAllocation) {
  std::string text = "==DOMEN\n@@@ First_domain_of_the_file\n";
  for (const char* property : {"P1", "P2", "P3", "P4"}) {
    text += "@ " + std::string(property) + " 0 1\nNumbers ilist 1 12\nWords slist 0 main\n";
  }
  text += "==DOMEN\n@@@ Second_domain_of_the_file\n@ Q 0 1\nNumbers ilist 0 34\n";
  const std::wstring file = folder.Write("two.txt", text);
  Editor undisturbed(*editor);
  ASSERT_EQ(undisturbed.CreateDomen(file.c_str()), 0);
  const FieldRows all = FieldsOfTheFile(undisturbed);
  ASSERT_EQ(all.size(), 9u);

  std::size_t most = 0;
  std::array<bool, 10> ended = {};    // whether reading ended after so many fields
  std::array<bool, 10> started = {};  // and whether the last of them had its initial value then
  long n = 1;
  for (bool complete = false; !complete && n < enough; ++n) {
    const long before = heap.blocks;
    {
      Editor copy(*editor);
      int status = -1;
      const Attempt attempt = RunFailing(n, [&] { status = copy.CreateDomen(file.c_str()); });
      complete = !attempt.failed;
      if (!attempt.raised) {
        EXPECT_EQ(status, complete ? 0 : 3) << n;
      }
      const FieldRows kept = FieldsOfTheFile(copy);
      ASSERT_GE(kept.size(), most) << n;
      ASSERT_LE(kept.size(), all.size()) << n;
      most = kept.size();
      if (copy.SetActiveDomenId(domensOfTheFile[1]) == 0) {
        ASSERT_GE(most, 8u) << n;
      }
      FieldRows expected = all;
      if (most != 0 && kept.back() == AtItsStart(all[most - 1])) {
        expected[most - 1] = kept.back();
        started[most] = true;
      }
      ASSERT_TRUE(std::equal(kept.begin(), kept.end(), expected.begin())) << n;
      ended[most] |= status == 3;
      EXPECT_EQ(copy.CreateDomen(file.c_str()), 0) << n;
      EXPECT_EQ(FieldsOfTheFile(copy), expected) << n;
      EXPECT_EQ(::Take(copy.GetActiveDomenId()), domensOfTheFile[1]) << n;
    }
    ASSERT_EQ(heap.blocks, before) << n;
  }
  EXPECT_LT(n, enough);
  EXPECT_EQ(std::count(ended.begin(), ended.end(), true), 10) << "before the first one, too";
  EXPECT_EQ(std::count(started.begin(), started.end(), true), 9);
}

// Returns the number of records of the active Classificator: code ids below it have codes.
int CountRecords(Editor& editor) {
  int count = 0;
  for (int step = 1 << 20; step != 0; step /= 2) {
    try {
      delete[] editor.GetClaccificatorCode(count + step - 1);
      count += step;
    } catch (const std::out_of_range&) {
      // The id is too great.
    }
  }
  return count;
}

// The later the failure, the more patterns there are. The entry is made before its file is read.
TEST_P(FailedAllocations, KeepsThePatternsThatWereReadBeforeIt) {
  constexpr int patterns = 2'000;
  std::string text = "==MAPTEXT\n";
  for (int i = 0; i < patterns; ++i) text += "@C" + std::to_string(i) + "\npattern\n";
  folder.Write("patterns.txt", text);

  int most = 0;
  bool endedWithPatterns = false;
  long n = 1;
  for (bool complete = false; !complete && n < 10 * patterns; ++n) {
    const long before = heap.blocks;
    {
      Editor one(folder.Wide().c_str(), L"");
      int status = -1;
      const Attempt attempt = RunFailing(
          n, [&] { status = one.CreateClassificator(L"S", L"Scheme", L"Code", L"patterns.txt"); });
      complete = !attempt.failed;
      ASSERT_EQ(ListClassificators(one).size(), attempt.raised ? 0u : 1u) << n;
      if (!attempt.raised) {
        EXPECT_EQ(status, complete ? 0 : 3) << n;
        ASSERT_EQ(one.SetActiveClassificator(L"S"), 0) << n;
        const int count = CountRecords(one);
        ASSERT_GE(count, most) << n;
        most = count;
        if (count != 0) {
          EXPECT_EQ(::Take(one.GetClaccificatorCode(count - 1)), L"C" + std::to_wstring(count - 1));
        }
        endedWithPatterns |= status == 3 && count != 0;
      }
    }
    ASSERT_EQ(heap.blocks, before) << n;
  }
  EXPECT_EQ(most, patterns);
  EXPECT_TRUE(endedWithPatterns);
}

// The reader returns status 3 and adds nothing, or the call throws.
TEST_P(FailedAllocations, IsUnchangedWhenAnyAllocationOfAConfigurationFileFails) {
  const std::wstring file = folder.Write("Zones.json", R"({
    // every kind of value, in every notation
    "Domen": {"sName": "Zones \u006ff the model", asFuncsNames: ['Property5', "Limits",]},
    "Properties": {
      "Property5": {"asObjectTypes": ["Doors_of_some_kind", "Room of some kind"], "iSortId": 0xA,
                     "sName": "Kind of zone", "asFuncsNames": ["Kind", "Marks"]},
      "Limits": {"iUnique": 1, "asFuncsNames": ["Lower", "Upper", "Count", "Counts"]}},
    "ArrayValueFields": {
      "Kind": {"sType": "s", "sDefault": "A text of some length"},
      "Marks": {"sType": "as", "sDefault": "some marks of a zone"},
      "Lower": {"sName": "The lower limit", "sType": "r", "rDefault": -1.5e3},
      "Upper": {"sType": "ar", "rDefault": 2}, "Count": {"sType": "i", "iDefault": 3},
      "Counts": {"sType": "ai"}}})");
  Editor undisturbed(*editor);
  ASSERT_EQ(undisturbed.CreateDomen(file.c_str()), 0);
  const std::wstring jsonAnswers = AnswersTo(richValueQueries, undisturbed);
  ASSERT_NE(jsonAnswers.find(L"A text of some length"), jsonAnswers.npos);
  const std::wstring answers = Answers(*editor);
  long n = 1;
  for (bool complete = false; !complete && n < enough; ++n) {
    const long before = heap.blocks;
    {
      Editor copy(*editor);
      int status = -1;
      const Attempt attempt = RunFailing(n, [&] { status = copy.CreateDomen(file.c_str()); });
      complete = !attempt.failed;
      if (complete) {
        EXPECT_EQ(status, 0);
        EXPECT_EQ(copy.SetActiveDomenByName(L"Zones of the model"), 0);
      } else {
        EXPECT_TRUE(attempt.raised || status == 3) << n << ": " << status;
        EXPECT_EQ(Answers(copy), answers) << n;
        EXPECT_EQ(copy.CreateDomen(file.c_str()), 0) << n;
      }
      EXPECT_EQ(AnswersTo(richValueQueries, copy), jsonAnswers) << n;
    }
    ASSERT_EQ(heap.blocks, before) << n;
  }
  EXPECT_LT(n, enough);
}

// An export that fails leaves the old file or none, and no other.
TEST_P(FailedAllocations, IsOfTheOldFileOrTheNewWhenAnyAllocationOfAnExportFails) {
  const TempFolder targets;
  const std::filesystem::path path = targets.Path() / "a.json";
  const std::wstring target = path.wstring();
  const auto filesThere = [&] {
    return std::distance(std::filesystem::directory_iterator(targets.Path()), {});
  };
  const auto exportDomen = [&] { editor->ExportJson(L"Openings", target.c_str()); };
  exportDomen();
  const std::optional<std::string> newBytes = ReadBytesIfThere(path);
  ASSERT_GT(newBytes.value_or("").size(), 100u);
  const std::wstring answers = Answers(*editor);
  const std::optional<std::string> olds[] = {"old", std::nullopt};
  for (const std::optional<std::string>& old : olds) {
    SCOPED_TRACE(old.value_or("no file"));
    int keptOld = 0;
    long n = 1;
    for (bool complete = false; !complete && n < enough; ++n) {
      std::filesystem::remove(path);
      if (old) targets.Write("a.json", *old);
      const long before = heap.blocks;
      const Attempt attempt = RunFailing(n, exportDomen);
      complete = !attempt.failed;
      ASSERT_EQ(heap.blocks, before) << n;
      const std::optional<std::string> held = ReadBytesIfThere(path);
      ASSERT_EQ(filesThere(), held ? 1 : 0) << n;
      EXPECT_TRUE(held == newBytes || (!complete && held == old)) << n;
      if (attempt.raised) {
        EXPECT_EQ(held, old) << n << ": only copies of the arguments can do that";
      }
      keptOld += held == old;
      exportDomen();
      EXPECT_EQ(ReadBytesIfThere(path), newBytes) << n;
      ASSERT_EQ(filesThere(), 1) << n;
    }
    EXPECT_GT(keptOld, 1);
    EXPECT_LT(n, enough);
  }
  EXPECT_EQ(Answers(*editor), answers);
}

// More strings than the record's initial capacity.
void ExpectStringsFreed() {
  const long before = heap.blocks;
  bool failed = true;
  for (long n = 1; failed; ++n) {
    {
      Json5Record record;
      std::vector<const wchar_t*> strings(20'000);
      for (const wchar_t*& string : strings) string = new wchar_t[1]();
      const auto adopt = [&] { record.Adopt(strings.data(), strings.size()); };
      const Attempt attempt = RunFailing(n, adopt);
      failed = attempt.failed;
      EXPECT_EQ(attempt.raised, failed) << n;
    }
    EXPECT_EQ(heap.blocks, before) << n;
    ASSERT_TRUE(!failed || n < 10);
    EXPECT_TRUE(failed || n > 1) << "no allocation failed";
  }
}

TEST(Json5Record, FreesTheStringsThatItCannotTakeOver) {
  for (const bool keepsFailing : failureModes) {
    SCOPED_TRACE(keepsFailing);
    const FailureMode mode(keepsFailing);
    ExpectStringsFreed();
  }
}

// A composed mapping string is returned even if there is no memory to cache it.
TEST(RememberedItems, LeaveTheItemsAloneThatTheyCannotKeep) {
  for (const bool keepsFailing : failureModes) {
    const FailureMode mode(keepsFailing);
    const DomenStore store;
    const std::vector<std::wstring> domenIds = {L"A domain of some length"};
    long n = 1;
    for (bool complete = false; !complete && n < 10; ++n) {
      RememberedItems remembered;
      CodeItems items;
      items.text = L"P= a value of some length;";
      items.suffixPlaces = {1};
      const CodeItems* kept = nullptr;
      const Attempt attempt =
          RunFailing(n, [&] { kept = remembered.Keep(7, store, domenIds, items); });
      complete = !attempt.failed;
      EXPECT_FALSE(attempt.raised) << n;
      EXPECT_EQ(kept != nullptr, complete) << n;
      EXPECT_EQ((kept ? *kept : items).text, L"P= a value of some length;") << n;
      EXPECT_EQ((kept ? *kept : items).suffixPlaces.size(), 1u) << n;
      EXPECT_EQ(remembered.Find(7, store, domenIds), kept) << n;
    }
    EXPECT_GT(n, 4);
  }
}

// Domains that are stored before a load fails are a change too.
TEST(DomenStore, IsInAnotherStateWhenALoadHasChangedItWhicheverAllocationFails) {
  const TempFolder folder;
  const std::wstring files[] = {folder.Write("rich.txt", RichFile()),
                                folder.Write("a.json", R"({Domen: {asFuncsNames: ["P", "Q"]}})")};
  for (const std::wstring& file : files) {
    long n = 1;
    int changedByFailure = 0;
    for (bool complete = false; !complete && n < enough; ++n) {
      DomenStore store;
      store.AddDomen(L"Zones", Domen(L"Zones", L"Zones"));
      const std::wstring before = Describe(store);
      const auto state = store.State();
      int status = -1;
      complete = !RunFailing(n, [&] { status = store.LoadDomen(file, L""); }).failed;
      EXPECT_TRUE(status == (complete ? 0 : 3) || status == -1) << n;
      const bool changed = Describe(store) != before;
      if (changed) {
        EXPECT_NE(store.State(), state) << n;
      }
      changedByFailure += changed && !complete;
    }
    EXPECT_EQ(changedByFailure > 10, file == files[0]);
    EXPECT_LT(n, enough);
  }
}

// Storing the path is the first allocation.
void ExpectPathStored(const std::wstring& path) {
  long n = 2;
  for (bool complete = false; !complete && n < enough; ++n) {
    Classificator record(L"id");
    int status = -1;
    complete = !RunFailing(n, [&] { status = record.Load(path); }).failed;
    EXPECT_EQ(status, complete ? 0 : 3) << n;
    EXPECT_EQ(record.filePath, path) << n;
  }
  EXPECT_GT(n, 3) << "no allocation failed";
  EXPECT_LT(n, enough);
}

TEST(Load, HasStoredThePathWhicheverLaterAllocationFails) {
  const TempFolder folder;
  const std::wstring path = folder.Write("rich.txt", RichFile());
  for (const bool keepsFailing : failureModes) {
    SCOPED_TRACE(keepsFailing);
    const FailureMode mode(keepsFailing);
    ExpectPathStored(path);
  }
}

void ExpectTextTakenLater() {
  bool failed = true;
  for (long n = 1; failed; ++n) {
    RepeatedTexts texts;
    const wchar_t* const text = L"a text that is too long to stand in a string itself";
    failed = RunFailing(n, [&] { texts.PlaceOf(text); }).failed;
    ASSERT_EQ(texts.PlaceOf(text), 0u) << n;
    ASSERT_EQ(texts.Count(), 1u) << n;
    EXPECT_EQ(texts[0], text) << n;
    EXPECT_EQ(texts.PlaceOf(L"another"), 1u) << n;
    ASSERT_TRUE(!failed || n < 20);
    EXPECT_TRUE(failed || n > 1) << "no allocation failed";
  }
}

TEST(RepeatedTexts, TakeATextThatTheyHadNoMemoryForBefore) {
  for (const bool keepsFailing : failureModes) {
    SCOPED_TRACE(keepsFailing);
    const FailureMode mode(keepsFailing);
    ExpectTextTakenLater();
  }
}

// The places, fates and numbers of a report. Allocates nothing before `report` is complete.
std::string Told(const Report& report) {
  std::string told;
  const auto add = [&told](const Place& place) {
    for (const std::size_t number :
         {place.file, place.line, place.column, place.endLine, place.endColumn}) {
      told += std::to_string(number) + " ";
    }
  };
  for (const Statement& statement : report.statements) {
    add(statement.place);
    told += std::string(NameOf(statement.fate)) + "\n";
  }
  for (const Finding& finding : report.findings) {
    add(finding.place);
    told += std::to_string(finding.number);
    for (const std::string& argument : finding.arguments) told += " " + argument;
    told += "\n";
  }
  return told;
}

// A file with findings of every reader.
std::string FileWithSlips() {
  return RichFile() +
         "\n==MAPTEXT\n@@ (Openings none)\nwall\nwall 1\n@A {EveryType=x,y} {NONE=1} {P\nroof\n"
         "@B\n==COLORAT\n@c C\nk 1 2 3 400\nk 1 2 3 4\nl 1\n@d\n==DOMEN\n@@@ D\n@ P 0 1\n"
         "F int 0 x\nF int 0 1\n@ Q\nG int 0 1\n==NOTES\nx\n\n\x1Ay";
}

// Either a load ends in a status, or `bad_alloc` leaves the check, or the report is whole.
void ExpectReportWholeOrBadAlloc(const FileList& files, const std::string& whole) {
  long n = 1;
  // Each of the first hundred, and ever fewer of the others, of which there are thousands.
  for (bool complete = false; !complete && n < enough; n += 1 + n / 100) {
    const long before = heap.blocks;
    {
      std::optional<Report> report;
      std::optional<std::wstring> notLoaded;
      const Attempt attempt = RunFailing(n, [&] {
        LoadedFiles loaded;
        notLoaded = LoadFiles(files, loaded);
        if (!notLoaded) report = CheckFiles(loaded);
      });
      complete = !attempt.failed;
      EXPECT_EQ(attempt.raised || notLoaded, !report) << n;
      EXPECT_EQ(report ? Told(*report) : whole, whole) << n;
      EXPECT_TRUE(!complete || report);
    }
    ASSERT_EQ(heap.blocks, before) << n;
  }
  EXPECT_GT(n, 100);
  EXPECT_LT(n, enough);
}

TEST(CheckFiles, HasAWholeReportOrNoneWhicheverAllocationFails) {
  const TempFolder folder;
  const FileList files{{folder.Write("slips.txt", FileWithSlips())},
                       {folder.Write("domen.txt", RichFile())}};
  LoadedFiles loaded;
  ASSERT_EQ(LoadFiles(files, loaded), std::nullopt);
  const std::string whole = Told(CheckFiles(loaded));
  for (const bool keepsFailing : failureModes) {
    SCOPED_TRACE(keepsFailing);
    const FailureMode mode(keepsFailing);
    ExpectReportWholeOrBadAlloc(files, whole);
  }
}

// A sort without a buffer takes longer and has the same result.
TEST_F(Ownership, IsTheSameIfEveryOptionalAllocationFails) {
  folder.Write("rich.txt", RichFile());
  const auto answersOf = [this](bool refuses) {
    heap.refuses = refuses;
    Editor one(folder.Wide().c_str(), L"");
    EXPECT_EQ(one.CreateClassificator(L"id", L"", L"", L"rich.txt"), 0);
    EXPECT_EQ(one.CreateDomen(L"order.json"), 0);
    EXPECT_EQ(one.SetActiveClassificator(L"id"), 0);
    const std::wstring answers = AnswersTo(richQueries, one) + AnswersTo(richValueQueries, one);
    heap.refuses = false;
    return answers;
  };
  folder.Write("order.json", R"({Domen: {sName: "Z", asFuncsNames: ["d", "c", "b", "a"]},
      Properties: {d: {iSortId: 1}, c: {iSortId: 2}, b: {iSortId: 3}, c: {iSortId: 4}}})");
  EXPECT_EQ(answersOf(true), answersOf(false));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
