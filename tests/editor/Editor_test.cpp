// Tests of the exported class as an object, and of its results.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/Classificators.h"
#include "support/GlobalLocale.h"
#include "support/OutOfRange.h"
#include "support/Results.h"
#include "support/TempFolder.h"
#include "support/UpperFails.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Editor = RevitMappingEditorDll;
using Names = ClassificatorNames;

// A classificator and its domain in one file.
constexpr const char* walls =
    "==MAPTEXT\n@@ (D)\n@A {P=8} {Q}\nwall\n"
    "==DOMEN\n@@@ D\n@P 0 0\nF int 0 7\n@Q 0 0\nF str 0 q\n";

// The items of a wall by `walls`.
constexpr const wchar_t* wallItems = L"A;P= 8;Q= q;";

constexpr const char* doors = "==MAPTEXT\n@B\ndoor\n";

// Extends the property Q of `walls`.
constexpr const char* moreOfQ = "==DOMEN\n@@@ D\n@Q 0 0\nG int 0 2\n";

std::wstring Map(Editor& editor, const wchar_t* text = L"wall") {
  return Take(editor.GetMappingStr(text, 1, L"="));
}

// Returns the answers of an editor with an active Classificator.
std::vector<std::wstring> Answers(Editor& editor) {
  std::vector<std::wstring> answers = {Take(editor.GetStartMark()),
                                       Take(editor.GetEndMark()),
                                       Take(editor.GetActiveClassificatorParamName()),
                                       Take(editor.GetDefaultClaccificatorCode()),
                                       Map(editor, L"wall"),
                                       Map(editor, L"door"),
                                       Map(editor, L"roof")};
  for (auto& [id, name] : ListClassificators(editor)) {
    answers.push_back(id);
    answers.push_back(name);
  }
  return answers;
}

// An editor that has loaded both files, with all selections and marks set.
class FilledEditor : public testing::Test {
 protected:
  FilledEditor() : editor(std::make_unique<Editor>(folder.Wide().c_str(), L"")) {
    folder.Write("walls.txt", walls);
    folder.Write("doors.txt", doors);
    folder.Write("more.txt", moreOfQ);
    editor->CreateClassificator(L"doors", L"Doors", L"DoorCode", L"doors.txt");
    editor->CreateClassificator(L"walls", L"Стены", L"WallCode", L"walls.txt");
    editor->SetActiveClassificator(L"walls");
    editor->SetStartMark(L"<");
    editor->SetEndMark(L">");
  }

  TempFolder folder;
  std::unique_ptr<Editor> editor;
};

// Construction

TEST(Editor, StartsEmpty) {
  Editor editor(L"folder", L"config");
  EXPECT_EQ(ListClassificators(editor), Names{});
  EXPECT_EQ(editor.SetActiveClassificator(L"id"), 1);
  EXPECT_EQ(Take(editor.GetStartMark()), L" ");
  EXPECT_EQ(Take(editor.GetEndMark()), L" ");
}

TEST(Editor, HasNoVirtualOperations) {
  EXPECT_FALSE(std::is_polymorphic_v<Editor>);
}

TEST(Editor, CopiesTheArgumentsOfItsConstructor) {
  const TempFolder folder;
  folder.Write("walls.txt", walls);
  std::wstring dataFolder = folder.Wide();
  std::wstring config = L"config";
  Editor editor(dataFolder.data(), config.data());
  dataFolder.assign(dataFolder.size(), L'!');
  config.assign(config.size(), L'!');
  EXPECT_EQ(editor.CreateClassificator(L"id", L"", L"", L"walls.txt"), 0);
}

TEST(Editor, TakesItsFirstArgumentAsTheDataFolder) {
  const TempFolder folder;
  folder.Write("walls.txt", walls);
  Editor crossed(L"config", folder.Wide().c_str());
  EXPECT_EQ(crossed.CreateClassificator(L"id", L"", L"", L"walls.txt"), -1);
}

// Marks

TEST(Marks, AreReturnedWithABlankThatIsNotStored) {
  Editor editor(L"", L"");
  editor.SetStartMark(L"AB");
  editor.SetEndMark(L"CD");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Take(editor.GetStartMark()), L" AB");
    EXPECT_EQ(Take(editor.GetEndMark()), L"CD ");
  }
}

TEST(Marks, AreStoredUnchanged) {
  Editor editor(L"", L"");
  for (const std::wstring mark : {L"", L" ", L" \tметка\n ", L"{;}", L"\U0001F600", L"x"}) {
    editor.SetStartMark(mark.c_str());
    editor.SetEndMark(mark.c_str());
    EXPECT_EQ(Take(editor.GetStartMark()), L" " + mark);
    EXPECT_EQ(Take(editor.GetEndMark()), mark + L" ");
  }
}

TEST(Marks, AreCopiesOfTheArguments) {
  Editor editor(L"", L"");
  std::wstring mark = L"AB";
  editor.SetStartMark(mark.data());
  editor.SetEndMark(mark.data());
  mark = L"XY";
  EXPECT_EQ(Take(editor.GetStartMark()), L" AB");
  EXPECT_EQ(Take(editor.GetEndMark()), L"AB ");
}

TEST_F(FilledEditor, PutsTheMarksAroundAMappingStringWithoutTheirBlanks) {
  EXPECT_EQ(Map(*editor), L"<WallCode A;P= 8;Q= q;>");
}

// Results

TEST(Results, AreNewBuffersEachTime) {
  Editor editor(L"", L"");
  const wchar_t* first = editor.GetStartMark();
  const wchar_t* second = editor.GetStartMark();
  EXPECT_NE(first, second);
  EXPECT_EQ(Take(first), Take(second));
}

TEST_F(FilledEditor, ReturnsABufferWithANulForAnEmptyText) {
  editor->CreateClassificator(L"", L"", L"", L"doors.txt");
  editor->SetActiveClassificator(L"");
  const wchar_t* paramName = editor->GetActiveClassificatorParamName();
  ASSERT_NE(paramName, nullptr);
  EXPECT_EQ(*paramName, L'\0');
  delete[] paramName;
  const wchar_t* items = editor->GetClaccificatorCodeParams(0, 1, L"");
  ASSERT_NE(items, nullptr);
  EXPECT_EQ(*items, L'\0');
  delete[] items;
}

TEST(Results, LeaveTheArraysUnchangedWhenTheCountIsZero) {
  Editor editor(L"", L"");
  int count = 17;
  const wchar_t* untouched = L"untouched";
  const wchar_t** ids = &untouched;
  const wchar_t** names = nullptr;
  editor.GetClassificatorsNames(count, ids, names);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(ids, &untouched);
  EXPECT_EQ(names, nullptr);
}

TEST_F(FilledEditor, ReturnsNewArraysOfNewStringsEachTime) {
  editor->CreateClassificator(L"same", L"same", L"", L"doors.txt");
  int count = 0;
  const wchar_t** ids = nullptr;
  const wchar_t** names = nullptr;
  editor->GetClassificatorsNames(count, ids, names);
  const wchar_t** firstIds = ids;
  const wchar_t** firstNames = names;
  editor->GetClassificatorsNames(count, ids, names);
  ASSERT_EQ(count, 3);
  EXPECT_NE(ids, firstIds);
  EXPECT_NE(names, firstNames);
  for (int i = 0; i < count; ++i) {
    EXPECT_NE(ids[i], firstIds[i]);
    EXPECT_NE(names[i], firstNames[i]);
    EXPECT_NE(ids[i], names[i]);
  }
  EXPECT_EQ(TakeAll(count, firstIds), TakeAll(count, ids));
  EXPECT_EQ(TakeAll(count, firstNames), TakeAll(count, names));
}

TEST_F(FilledEditor, DoesNotChangeItsResultsWhenDestroyed) {
  const wchar_t* mark = editor->GetStartMark();
  const wchar_t* paramName = editor->GetActiveClassificatorParamName();
  const wchar_t* mapping = editor->GetMappingStr(L"wall", 1, L"=");
  int count = 0;
  const wchar_t** ids = nullptr;
  const wchar_t** names = nullptr;
  editor->GetClassificatorsNames(count, ids, names);

  editor->SetStartMark(L"another");
  editor->SetActiveClassificator(L"doors");
  editor->CreateClassificator(L"x", L"y", L"z", L"doors.txt");
  editor.reset();

  EXPECT_EQ(Take(mark), L" <");
  EXPECT_EQ(Take(paramName), L"WallCode");
  EXPECT_EQ(Take(mapping), std::wstring(L"<WallCode ") + wallItems + L">");
  EXPECT_EQ(TakeAll(count, ids), (std::vector<std::wstring>{L"doors", L"walls"}));
  EXPECT_EQ(TakeAll(count, names), (std::vector<std::wstring>{L"Doors", L"Стены"}));
}

// Failures

TEST_F(FilledEditor, LetsAnExceptionReachTheCallerAndIsUnchangedAfterIt) {
  if (!oneRuntime) GTEST_SKIP() << "the tests can't make the library fail";
  const std::vector<std::wstring> before = Answers(*editor);
  EXPECT_EQ(OutOfRangeOf([&] { delete[] editor->GetClaccificatorCode(1); }), badSubscript);
  {
    const GlobalLocale failing(UpperFails);
    EXPECT_THROW(editor->GetClaccificatorCodeId(L"wall"), UpperCasingFailed);
    EXPECT_THROW(editor->GetMappingStr(L"wall", 1, L"="), UpperCasingFailed);
  }
  EXPECT_EQ(Answers(*editor), before);
}

// Copying

TEST_F(FilledEditor, HasACopyThatAnswersAlike) {
  Editor copy(*editor);
  EXPECT_EQ(Answers(copy), Answers(*editor));
  Editor copyOfCopy(copy);
  EXPECT_EQ(Answers(copyOfCopy), Answers(*editor));
}

TEST_F(FilledEditor, HasACopyThatSearchesTheSameDataFolder) {
  Editor copy(*editor);
  EXPECT_EQ(copy.CreateClassificator(L"more", L"", L"", L"doors.txt"), 0);
}

TEST_F(FilledEditor, SharesNothingWithItsCopy) {
  Editor copy(*editor);
  const std::vector<std::wstring> before = Answers(*editor);
  for (Editor* changed : {&copy, editor.get()}) {
    Editor& other = changed == &copy ? *editor : copy;
    const std::vector<std::wstring> otherBefore = Answers(other);
    changed->CreateClassificator(L"more", L"More", L"", L"walls.txt");
    changed->CreateDomen(L"more.txt");
    EXPECT_EQ(Map(*changed), L"<WallCode A;P= 8;Q= q 2;>");
    changed->SetActiveClassificator(L"doors");
    changed->SetStartMark(L"[");
    changed->SetEndMark(L"]");
    EXPECT_EQ(Answers(other), otherBefore);
  }
  EXPECT_EQ(Answers(copy), Answers(*editor));
  EXPECT_NE(Answers(copy), before);
}

TEST_F(FilledEditor, IsOutlivedByItsCopy) {
  const std::vector<std::wstring> before = Answers(*editor);
  Editor copy(*editor);
  editor.reset();
  EXPECT_EQ(Answers(copy), before);
}

TEST_F(FilledEditor, OutlivesItsCopy) {
  const std::vector<std::wstring> before = Answers(*editor);
  std::make_unique<Editor>(*editor).reset();
  EXPECT_EQ(Answers(*editor), before);
}

TEST(Editor, CanBeCopiedWhileItIsEmpty) {
  Editor editor(L"", L"");
  Editor copy(editor);
  EXPECT_EQ(ListClassificators(copy), Names{});
  EXPECT_EQ(copy.SetActiveClassificator(L"id"), 1);
  EXPECT_EQ(Take(copy.GetStartMark()), L" ");
}

// Assignment

TEST_F(FilledEditor, CopiesAllItHasToTheEditorThatItIsAssignedTo) {
  Editor target(L"no such folder", L"");
  EXPECT_EQ(&(target = *editor), &target);
  EXPECT_EQ(Answers(target), Answers(*editor));
  EXPECT_EQ(target.CreateClassificator(L"more", L"", L"", L"doors.txt"), 0);
  EXPECT_EQ(ListClassificators(*editor).size(), 2u);

  const std::vector<std::wstring> before = Answers(target);
  editor.reset();
  EXPECT_EQ(Answers(target), before);
}

TEST_F(FilledEditor, LosesAllItHadWhenAssignedTo) {
  // The names of `walls` with other contents.
  folder.Write("other.txt",
               "==MAPTEXT\n@@ (D)\n@A {P} {Q}\nwall\n"
               "==DOMEN\n@@@ D\n@P 0 0\nF int 0 1\n");
  Editor source(folder.Wide().c_str(), L"");
  source.CreateClassificator(L"other", L"", L"Code", L"other.txt");
  source.SetActiveClassificator(L"other");
  *editor = source;
  EXPECT_EQ(ListClassificators(*editor), (Names{{L"other", L""}}));
  EXPECT_EQ(editor->SetActiveClassificator(L"walls"), -1);
  EXPECT_EQ(Map(*editor), L"Code A;P= 1;");
  EXPECT_EQ(Take(editor->GetStartMark()), L" ");
  EXPECT_EQ(Take(editor->GetEndMark()), L" ");
}

TEST(Editor, PassesOnThatNoClassificatorIsSelected) {
  const TempFolder folder;
  const std::wstring file = folder.Write("colors.txt", "==COLORAT\n@m M\nA 1 2 3 4\n");
  Editor source(L"", L"");
  Editor target(L"", L"");
  for (Editor* one : {&source, &target}) {
    ASSERT_EQ(one->CreateClassificator(L"id", L"", L"", file.c_str()), 0);
  }
  ASSERT_EQ(target.SetActiveClassificator(L"id"), 0);
  ASSERT_EQ(target.GetColorNum(L"A"), 1);
  target = source;
  Editor copy(source);
  for (Editor* one : {&target, &copy}) {
    EXPECT_EQ(OutOfRangeOf([one] { one->GetColorNum(L"A"); }), badSubscript);
  }
}

TEST_F(FilledEditor, IsEmptyWhenAnEmptyEditorIsAssignedToIt) {
  *editor = Editor(folder.Wide().c_str(), L"");
  EXPECT_EQ(ListClassificators(*editor), Names{});
  EXPECT_EQ(editor->SetActiveClassificator(L"walls"), 1);
  // The domains are gone too.
  folder.Write("later.txt", "==MAPTEXT\n@@ (D)\n@A {P}\nwall");
  editor->CreateClassificator(L"later", L"", L"Code", L"later.txt");
  editor->SetActiveClassificator(L"later");
  EXPECT_EQ(Map(*editor), L"Code A;");
}

TEST_F(FilledEditor, KeepsEverythingWhenItIsAssignedToItself) {
  const std::vector<std::wstring> before = Answers(*editor);
  Editor& same = *editor;
  EXPECT_EQ(&(*editor = same), editor.get());
  EXPECT_EQ(Answers(*editor), before);
}

// Each copy makes a value field anew from its text. A text with several pairs of quotation marks
// and tabs loses one pair of each every time, so it counts the copies.
class LayeredValue : public testing::Test {
 protected:
  LayeredValue() : editor(folder.Wide().c_str(), L"") {
    folder.Write("a.txt",
                 "==MAPTEXT\n@@ (D)\n@A {P}\nwall\n"
                 "==DOMEN\n@@@ D\n@P 0 0\n"
                 "F str 0 \"\t\"\t\"\t\"\t\"\t\"\tx\t\"\t\"\t\"\t\"\t\"\t\" Title\n");
    editor.CreateClassificator(L"id", L"", L"", L"a.txt");
    editor.SetActiveClassificator(L"id");
  }

  // Returns the number of pairs of quotation marks that the value has left when it is written.
  static std::ptrdiff_t Layers(Editor& one) {
    const std::wstring text = Map(one);
    return std::count(text.begin(), text.end(), L'"') / 2;
  }

  TempFolder folder;
  Editor editor;
};

TEST_F(LayeredValue, PassesThroughItsTextOnceInACopy) {
  const std::ptrdiff_t layers = Layers(editor);
  ASSERT_GE(layers, 3);
  Editor copy(editor);
  EXPECT_EQ(Layers(copy), layers - 1);
  Editor copyOfCopy(copy);
  EXPECT_EQ(Layers(copyOfCopy), layers - 2);
  EXPECT_EQ(Layers(editor), layers);
}

TEST_F(LayeredValue, PassesThroughItsTextOnceInAnAssignment) {
  const std::ptrdiff_t layers = Layers(editor);
  Editor target(L"", L"");
  target = editor;
  EXPECT_EQ(Layers(target), layers - 1);
}

TEST_F(LayeredValue, IsUnchangedWhenTheEditorIsAssignedToItself) {
  const std::ptrdiff_t layers = Layers(editor);
  const Editor& same = editor;
  editor = same;
  EXPECT_EQ(Layers(editor), layers);
}

// Two editors

TEST_F(FilledEditor, SharesNothingWithAnotherEditor) {
  Editor other(folder.Wide().c_str(), L"");
  EXPECT_EQ(ListClassificators(other), Names{});
  EXPECT_EQ(Take(other.GetStartMark()), L" ");
  other.CreateDomen(L"more.txt");
  EXPECT_EQ(Map(*editor), std::wstring(L"<WallCode ") + wallItems + L">");
}

TEST_F(FilledEditor, WorksBesideAnotherEditorOnAnotherThread) {
  const std::vector<std::wstring> expected = Answers(*editor);
  const auto work = [&expected](Editor copy, int& same) {
    for (int i = 0; i < 100; ++i) {
      copy.CreateDomen(L"walls.txt");
      if (Answers(copy) == expected) ++same;
    }
  };
  int sameHere = 0;
  int sameThere = 0;
  std::thread thread(work, *editor, std::ref(sameThere));
  work(*editor, sameHere);
  thread.join();
  EXPECT_EQ(sameHere, 100);
  EXPECT_EQ(sameThere, 100);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
