// Files with every kind of statement, and queries about them.

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "fuzz/Answers.h"

inline constexpr std::string_view richScheme =
    "left out\n"
    "==CLASS of a kind\r\n"
    "@@@ Пример (ABC Class)\n"
    "==MAPTEXT\n"
    "@@ (D E)\n"
    "$ Z99 rest\n"
    "! walls\n"
    "@W10 {P=7,red LIST:c1=1,c2=2} {TEXT один two;}\n"
    "BASIC WALL\n"
    "СТЕНА  😀\n"
    "@$ [[ ]]\n"
    "@D20 [[P=5]] rest\n"
    "DOOR\n"
    "/ doors\n"
    "==PARAM\n"
    "W10 {P=60 Q=2}\n"
    "==COLORAT\n"
    "@main Main\n"
    "A100 255 -5 0x7 50\n"
    "A200 0 128 255 700\n"
    "@second Other\n"
    "B1 10 20 30 100\n"
    "==DOMEN\n"
    "@@@ D\n"
    "@@ Door Room\n"
    "@ P 1 10 Title  of P\n"
    "n int 1 3 Number\n"
    "s str 0 \"x\"\n"
    "@ LIST 0 -2\n"
    "c slist 1 y\n"
    "@@@ E\n"
    "@ TEXT 0 5\n"
    "t str 1 z\n"
    "r real 0 2.5e1\n"
    "==NOTES\n"
    "rest";

inline constexpr std::string_view richDomens =
    "==DOMEN\n"
    "@@@ D;@@ Door;@ P 1 10 Имя;n int 1 3 Number;l ilist 0 12;\n"
    "@ Q 0 5;r real 0 .5;q rlist 1 1e2\n"
    "==DOMEN\n"
    "@@@ E rest\n"
    "@ Q 0 -7\n"
    "w slist 0 \"a\"\n"
    "! no more\n";

inline constexpr std::string_view richJson =
    "\xEF\xBB\xBF// a domain\n"
    "{\n"
    "  Domen: {\"sName\": \"Зоны\\u0021\", 'asFuncsNames': ['P', \"Q\", 7]},\n"
    "  \"Properties\": {\n"
    "    P: {asObjectTypes: [\"Door\", 'Room',], sName: 'P\\x41\\\n', iUniq: 0x1, iSortId: -2.0,\n"
    "        asFuncsNames: [\"n\", \"s\", \"l\"]},\n"
    "    \"Q\": {iUniq: +1, asFuncsNames: ['r', 'none']}, /* last */\n"
    "  },\n"
    "  ArrayValueFields: {\n"
    "    n: {sType: 'i', iDefault: 5e0}, s: {sType: \"s\", sDefault: 'a \"b\"'},\n"
    "    l: {sType: \"as\", sDefault: \"c \\uD83D\\uDE00\"}, r: {rDefault: .25, sName: 'R', u: "
    "null},\n"
    "  },\n"
    "}\n";

struct RichFile {
  const char* fileName;
  std::string_view bytes;
};

inline constexpr RichFile richFiles[] = {
    {"scheme.txt", richScheme}, {"domens.txt", richDomens}, {"domen.json", richJson}};

// Loads one of them, or a variant of it, into an editor of the library or a naive one.
template <class AnEditor>
int LoadRich(AnEditor& editor, std::string_view fileName, const std::wstring& file) {
  if (fileName != "scheme.txt") return editor.CreateDomen(file.c_str());
  const int status = editor.CreateClassificator(L"S", L"Scheme", L"Code", file.c_str());
  EXPECT_EQ(editor.SetActiveClassificator(L"S"), 0);
  return status;
}

// In capitals, so that the locale doesn't matter.
inline const Questions richQuestions = {
    {L"BASIC WALLS 200", L"BASIC", L"СТЕНА  😀1", L"DOORS", L"[[", L""},
    {L"Door", L"Room", L"A200", L"B1"}};
