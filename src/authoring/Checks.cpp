#include "authoring/Checks.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr Severity hint = Severity::hint;
constexpr Severity warning = Severity::warning;
constexpr Severity error = Severity::error;

// clang-format off
constexpr std::array checks = {
    // The frame of a text file
    Check{101, "byte-order-mark", error,
          {"The file begins with a byte order mark, so that its first line is not seen as a "
           "heading; save the file as UTF-8 without the mark.",
           "Файл начинается с метки порядка байтов, поэтому его первая строка не считается "
           "заголовком; сохраните файл в UTF-8 без метки."}},
    Check{102, "not-utf8", error,
          {"The reading ends here, at bytes that are not UTF-8, and the rest of the file is "
           "lost; save the file as UTF-8.",
           "Чтение обрывается здесь на байтах, которые не являются UTF-8, и остаток файла "
           "пропадает; сохраните файл в UTF-8."}},
    Check{103, "end-of-text-byte", error,
          {"The reading ends here, at a byte 1A, and the rest of the file is lost; delete that "
           "byte.",
           "Чтение обрывается здесь на байте 1A, и остаток файла пропадает; удалите этот байт."}},
    Check{104, "heading-not-seen", error,
          {"\"{0}\" is not seen as the heading {1}, and the lines below it are not read; write "
           "{1}, in capitals and without blanks.",
           "«{0}» не считается заголовком {1}, и строки под ним не читаются; напишите {1} "
           "заглавными буквами и без пробелов."}},
    Check{105, "unknown-section", hint,
          {"This line begins a section that nobody reads, with all lines up to the next "
           "heading; if it is meant as a statement, begin it in another way than with \"==\".",
           "Эта строка открывает раздел, который никто не читает, со всеми строками до "
           "следующего заголовка; если это запись, начните её не с «==»."}},
    Check{106, "cut-at-semicolons", error,
          {"The section is cut at semicolons, since it has no fewer of them than line ends, and "
           "{0} of its statements run over several lines; end every statement with a semicolon, "
           "or leave out all semicolons.",
           "Раздел делится по точкам с запятой, потому что их не меньше, чем концов строк, и "
           "записей, которые занимают несколько строк, в нём {0}; заканчивайте точкой с запятой "
           "каждую запись или уберите их все."}},
    Check{107, "semicolons-lost", error,
          {"The section is cut at line ends, so that its semicolons separate nothing, and {0} "
           "of its lines hold several statements; write one statement on a line, without "
           "semicolons.",
           "Раздел делится по концам строк, поэтому точки с запятой в нём ничего не разделяют, "
           "и строк с несколькими записями в нём {0}; пишите по одной записи в строке, без "
           "точек с запятой."}},
    Check{108, "section-not-for-this-file", hint,
          {"A domain file is read for its ==DOMEN sections alone, so that this section has no "
           "effect; load the file as a classificator.",
           "В файле доменов читаются только разделы ==DOMEN, поэтому этот раздел не действует; "
           "загрузите файл как классификатор."}},
    Check{109, "no-section", warning,
          {"The file has no section that is read, and so no effect; begin a section with a "
           "heading, as ==MAPTEXT or ==DOMEN.",
           "В файле нет раздела, который читается, поэтому файл не действует; начните раздел "
           "заголовком, например ==MAPTEXT или ==DOMEN."}},
    Check{110, "section-replaced", warning,
          {"A later {0} section takes the place of this one; keep one of them.",
           "Более поздний раздел {0} заменяет этот; оставьте один из них."}},
    Check{111, "extension-not-read", warning,
          {"The name of the file ends neither in .txt nor in .json, in small letters, so that "
           "its domains are not read; rename it.",
           "Имя файла не оканчивается строчными буквами на .txt или .json, поэтому его домены "
           "не читаются; переименуйте файл."}},
    Check{112, "comment-over-lines", warning,
          {"The section is cut at semicolons, so that this comment runs on to the next "
           "semicolon and takes the lines below it along; end it with a semicolon.",
           "Раздел делится по точкам с запятой, поэтому этот комментарий продолжается до "
           "следующей из них и захватывает строки ниже; закончите его точкой с запятой."}},

    // ==MAPTEXT
    Check{201, "domain-list-without-parentheses", warning,
          {"A parenthesis is missing, so that the domain list has no effect; write @@ (id id).",
           "Не хватает скобки, поэтому список доменов не действует; напишите @@ (id id)."}},
    Check{202, "domain-list-replaced", warning,
          {"A later domain list takes the place of this one; keep one of them.",
           "Более поздний список доменов заменяет этот; оставьте один из них."}},
    Check{203, "mark-missing", warning,
          {"The statement names fewer than two marks, so that it has no effect; write @$, the "
           "opening mark and the closing mark.",
           "Указано меньше двух знаков, поэтому запись не действует; напишите @$, открывающий и "
           "закрывающий знак."}},
    Check{204, "default-code-replaced", warning,
          {"A later default code takes the place of this one; keep one of them.",
           "Более поздний код по умолчанию заменяет этот; оставьте один из них."}},
    Check{205, "pattern-without-code", warning,
          {"The pattern has an empty code; write a header, as @CODE, above it.",
           "У образца пустой код; напишите над ним заголовок кода, например @КОД."}},
    Check{206, "header-without-code", warning,
          {"The header has no code, so that the patterns below it have none; write the code "
           "after @, before any block.",
           "У заголовка нет кода, поэтому его нет и у образцов ниже; напишите код после @, до "
           "блоков."}},
    Check{207, "header-without-pattern", warning,
          {"No pattern follows the code {0}, so that no element gets it; write a pattern below "
           "the header, or delete the header.",
           "За кодом {0} нет образцов, поэтому его не получит ни один элемент; напишите образец "
           "под заголовком кода или удалите его."}},
    Check{208, "block-not-closed", warning,
          {"The item block is not closed on this line, so that its items are lost; write the "
           "closing mark {0}.",
           "Блок свойств не закрыт в этой строке, поэтому его свойства пропадают; напишите "
           "закрывающий знак {0}."}},
    Check{209, "unreachable", warning,
          {"No description gets to this pattern, since one that it fits is taken by \"{0}\" "
           "before; make that pattern longer, or move this one above it if both have as many "
           "words.",
           "Ни одно описание не дойдёт до этого образца: всё, что ему подходит, раньше забирает "
           "«{0}»; сделайте тот образец длиннее или, если слов поровну, поставьте этот выше."}},
    Check{210, "semicolon-in-pattern", warning,
          {"The semicolon is part of the pattern's word, so that only a description with a "
           "semicolon fits; take it off.",
           "Точка с запятой входит в слово образца, поэтому подойдёт лишь описание с точкой с "
           "запятой; уберите её."}},
    Check{211, "tab-in-pattern", warning,
          {"A tab or a non-breaking blank in the pattern separates no words; write an ordinary "
           "blank.",
           "Табуляция или неразрывный пробел в образце не разделяет слова; поставьте обычный "
           "пробел."}},
    Check{212, "line-end-in-pattern", warning,
          {"The section is cut at semicolons, and a line end is part of the pattern's word, "
           "which no description has; end the statement above with a semicolon.",
           "Раздел делится по точкам с запятой, и конец строки вошёл в слово образца, какого "
           "нет ни в одном описании; закончите запись выше точкой с запятой."}},
    Check{213, "double-blank", hint,
          {"Two blanks in a row make an empty word, which any word fits; write one blank unless "
           "that is meant.",
           "Два пробела подряд дают пустое слово, которому подходит любое; если это не "
           "намеренно, оставьте один пробел."}},
    Check{214, "long-mark", warning,
          {"Of the opening mark {0} only the first character is taken off, so that the rest "
           "becomes part of the first property's name; use a mark of one character.",
           "От открывающего знака {0} отнимается только первый символ, и остаток попадает в имя "
           "первого свойства; возьмите знак из одного символа."}},
    Check{215, "semicolon-in-code", warning,
          {"The section is cut at line ends, so that the semicolon is part of the code {0}; "
           "take it off.",
           "Раздел делится по концам строк, поэтому точка с запятой входит в код {0}; уберите "
           "её."}},
    Check{216, "letters-of-two-scripts", hint,
          {"The word \"{0}\" has Latin and Cyrillic letters, which may look alike and are "
           "different; type it anew in one script.",
           "В слове «{0}» есть латинские и русские буквы, которые похожи, но различны; наберите "
           "его заново одним алфавитом."}},

    // Items
    Check{301, "property-unknown", warning,
          {"The property {0} is in none of the listed domains, so that the item is left out; "
           "write the id of one of their properties, or add its domain to the list.",
           "Свойства {0} нет ни в одном домене списка, поэтому оно не выводится; напишите id "
           "свойства из этих доменов или добавьте его домен в список."}},
    Check{302, "items-without-domains", warning,
          {"The section has no domain list, so that no item shows; write @@ with the domains' "
           "ids in parentheses.",
           "В разделе нет списка доменов, поэтому свойства не выводятся; напишите @@ и id "
           "доменов в скобках."}},
    Check{303, "value-refused", warning,
          {"The field {1} of {0} doesn't take \"{2}\" and keeps the value of the domain; write "
           "a value of its type ({3}).",
           "Поле {1} свойства {0} не принимает «{2}» и сохраняет значение домена; напишите "
           "значение его типа ({3})."}},
    Check{304, "value-without-field", warning,
          {"\"{1}\" comes after the last field of {0} and is lost; leave it out.",
           "«{1}» стоит после последнего поля свойства {0} и пропадает; уберите его."}},
    Check{305, "name-without-field", warning,
          {"The property {0} has no field for \"{1}\", and the value is lost; write the name of "
           "a field.",
           "В свойстве {0} нет поля для «{1}», и значение пропадает; напишите имя поля."}},
    Check{306, "item-dropped", warning,
          {"A word without \"=\" among the named values of {0} is the name of a field, so that "
           "all of the item is left out; write name=value.",
           "Среди именованных значений свойства {0} есть слово без «=», которое называет поле, "
           "поэтому свойство не выводится целиком; напишите имя=значение."}},
    Check{307, "values-lost", warning,
          {"\"{0}\" has more than one separator, so that its values are lost; write one \"=\", "
           "or one colon before the names, and separate values by commas.",
           "В «{0}» больше одного разделителя, поэтому его значения пропадают; оставьте один "
           "знак «=» или одно двоеточие перед именами, а значения разделяйте запятыми."}},
    Check{308, "domain-not-loaded", warning,
          {"The domain {0} of the list is in none of the files; load its file, or correct the "
           "id.",
           "Домена {0} из списка нет ни в одном файле; загрузите его файл или исправьте id."}},
    Check{309, "domain-hides-property", hint,
          {"The list has {1} before {2}, and both have a property {0}, so that the one of {2} "
           "is never filled; give one of them another id, or change the order if that one is "
           "meant.",
           "В списке {1} стоит раньше {2}, и в обоих есть свойство {0}, поэтому свойство из {2} "
           "никогда не заполняется; переименуйте одно из них или измените порядок, если нужно "
           "второе."}},
    Check{310, "item-swallowed", warning,
          {"\"{1}\" is a value of {0}, as nothing before it ends that item; write it in a block "
           "of its own.",
           "«{1}» читается как значение свойства {0}, так как то ничем не закончено; запишите "
           "его в отдельном блоке."}},

    // ==DOMEN
    Check{401, "domain-without-id", warning,
          {"The domain has no id, so that all up to the next @@@ is lost; write @@@ and the id.",
           "У домена нет id, поэтому всё до следующего @@@ пропадает; напишите @@@ и id."}},
    Check{402, "property-without-domain", warning,
          {"The property belongs to no domain and is lost; write @@@ and a domain's id above it.",
           "Свойство не относится ни к какому домену и пропадает; напишите выше @@@ и id домена."}},
    Check{403, "property-incomplete", warning,
          {"A column is missing, so that the property is lost with the value lines below it; "
           "write @ id unique sort-index title.",
           "Не хватает столбца, поэтому свойство пропадает вместе со строками значений под ним; "
           "напишите @ id уникальность порядок название."}},
    Check{404, "property-number-refused", warning,
          {"\"{0}\" is no whole number, so that the property is lost with the value lines below "
           "it; write 1 or 0 for unique, and a whole number for the sort index.",
           "«{0}» не целое число, поэтому свойство пропадает вместе со строками значений под "
           "ним; напишите 1 или 0 для уникальности и целое число для порядка."}},
    Check{405, "property-again", warning,
          {"The domain {0} has a property {1} already, which keeps its title, types and "
           "numbers; only the value lines below are added to it. Change the first definition "
           "instead.",
           "В домене {0} уже есть свойство {1}, и его название, типы и числа остаются; к нему "
           "лишь добавляются строки значений ниже. Измените первое определение."}},
    Check{406, "field-without-property", warning,
          {"The value line belongs to no property and is lost; write a good @ line above it.",
           "Строка значения не относится ни к какому свойству и пропадает; напишите выше "
           "правильную строку @."}},
    Check{407, "field-incomplete", warning,
          {"A column is missing, most often the flag, so that the field is lost; write name "
           "type flag default title.",
           "Не хватает столбца, чаще всего признака, поэтому поле пропадает; напишите имя тип "
           "признак значение подпись."}},
    Check{408, "field-type-unknown", warning,
          {"\"{0}\" is no type, so that the field is lost; write int, real, str, ilist, rlist "
           "or slist, in small letters.",
           "«{0}» не тип, поэтому поле пропадает; напишите int, real, str, ilist, rlist или "
           "slist строчными буквами."}},
    Check{409, "field-flag-refused", warning,
          {"\"{0}\" is no whole number, so that the field is lost; write 1 or 0 for the flag.",
           "«{0}» не целое число, поэтому поле пропадает; напишите признак 1 или 0."}},
    Check{410, "field-again", warning,
          {"The property {1} of {0} has a field {2} already, which stays; change it there.",
           "В свойстве {1} домена {0} уже есть поле {2}, и оно остаётся; измените его там."}},
    Check{411, "default-refused", warning,
          {"The field {2} of {1} doesn't take the default \"{3}\" and stays as it starts: a "
           "number at 1, a text empty; write a value of its type.",
           "Поле {2} свойства {1} не принимает значение по умолчанию «{3}» и остаётся "
           "начальным: число 1, текст пустой; напишите значение его типа."}},
    Check{412, "domain-unused", warning,
          {"No classificator lists the domain {0}, so that no item is filled from it; add it to "
           "a domain list, as @@ ({0}).",
           "Ни один классификатор не называет домен {0} в списке, поэтому свойства из него не "
           "выводятся; добавьте его в список доменов: @@ ({0})."}},
    Check{413, "property-unused", warning,
          {"No item fills the property {0}; write an item for it into a block of a code, or "
           "delete it if nobody sets it by hand.",
           "Ни один код не заполняет свойство {0}; добавьте его в блок кода или удалите, если "
           "его никто не задаёт вручную."}},
    Check{415, "semicolon-in-domain-id", warning,
          {"The section is cut at line ends, so that the semicolon is part of the domain's id "
           "{0}; take it off.",
           "Раздел делится по концам строк, поэтому точка с запятой входит в id домена {0}; "
           "уберите её."}},
    Check{416, "names-begin-alike", hint,
          {"The name of the field {0} begins with that of the field {1}, so that a value for "
           "{0} goes to both; rename one of them, or name both with each value.",
           "Имя поля {0} начинается с имени поля {1}, поэтому значение для {0} попадает в оба; "
           "переименуйте одно из них или указывайте оба."}},
    Check{417, "object-types-carry-on", hint,
          {"The object types are still those set for the domain above; write @@ after each @@@, "
           "an empty one for all types.",
           "Типы объектов всё ещё те, что заданы для домена выше; пишите @@ после каждого @@@, "
           "пустую для всех типов."}},

    // A .json file
    Check{501, "json-not-utf8", error,
          {"The bytes here are not UTF-8, so that the whole file reads as an empty one; save it "
           "as UTF-8.",
           "Байты здесь не являются UTF-8, поэтому весь файл читается как пустой; сохраните его "
           "в UTF-8."}},
    Check{502, "json-ends-early", error,
          {"The file ends before its last brace, bracket, quotation mark or comment is closed, "
           "so that all of it reads as empty; close what is open.",
           "Файл кончается раньше, чем закрыты скобки, кавычки или комментарий, поэтому весь он "
           "читается как пустой; закройте открытое."}},
    Check{503, "json-comma-missing", error,
          {"A comma is missing before this, or a brace or bracket is closed by one of the other "
           "kind, so that the whole file reads as an empty one; write a comma between two "
           "members or entries.",
           "Перед этим местом нет запятой, или скобка закрыта скобкой другого вида, поэтому "
           "весь файл читается как пустой; поставьте запятую между соседними частями."}},
    Check{504, "json-colon-missing", error,
          {"A colon is missing between a key and its value, so that the whole file reads as an "
           "empty one; write key: value.",
           "Между ключом и значением нет двоеточия, поэтому весь файл читается как пустой; "
           "напишите ключ: значение."}},
    Check{505, "json-key-malformed", error,
          {"A key is expected here, so that the whole file reads as an empty one; write a word "
           "of letters, digits, _ and $, or any key in quotation marks.",
           "Здесь ожидается ключ, поэтому весь файл читается как пустой; напишите слово из "
           "букв, цифр, _ и $ или любой ключ в кавычках."}},
    Check{506, "json-value-malformed", error,
          {"A value is expected here, so that the whole file reads as an empty one; write a "
           "text in quotation marks, a number, or a list in square brackets.",
           "Здесь ожидается значение, поэтому весь файл читается как пустой; напишите текст в "
           "кавычках, число или список в квадратных скобках."}},
    Check{507, "json-text-not-closed", error,
          {"The text is not closed on its line, so that the whole file reads as an empty one; "
           "write the closing quotation mark.",
           "Текст не закрыт в своей строке, поэтому весь файл читается как пустой; поставьте "
           "закрывающую кавычку."}},
    Check{508, "json-escape-malformed", error,
          {"The escape here is malformed, so that the whole file reads as an empty one; write "
           "two hexadecimal digits after \\x, four after \\u, and \\\\ for a backslash.",
           "Код после обратной косой черты записан неверно, поэтому весь файл читается как "
           "пустой; после \\x пишите две шестнадцатеричные цифры, после \\u четыре, а саму "
           "черту как \\\\."}},
    Check{509, "json-number-malformed", error,
          {"The number is malformed, so that the whole file reads as an empty one; write "
           "digits, without a 0 before them, and with a point for decimals.",
           "Число записано неверно, поэтому весь файл читается как пустой; пишите цифры без "
           "нуля впереди, дробную часть после точки."}},
    Check{510, "json-comment-malformed", error,
          {"A single stroke begins no comment, so that the whole file reads as an empty one; "
           "write // or /*.",
           "Одна косая черта не начинает комментарий, поэтому весь файл читается как пустой; "
           "напишите // или /*."}},
    Check{511, "json-rest", error,
          {"Something follows the closing brace, so that the whole file reads as an empty one; "
           "keep all in one pair of braces.",
           "После закрывающей скобки что-то есть, поэтому весь файл читается как пустой; "
           "держите всё в одной паре скобок."}},
    Check{512, "json-too-deep", error,
          {"More than 1000 braces and brackets are nested here, so that the whole file reads as "
           "an empty one; take some out.",
           "Здесь вложено больше 1000 скобок, поэтому весь файл читается как пустой; уберите "
           "лишние."}},
    Check{520, "domain-exists", warning,
          {"The domain {0} is loaded already and stays, so that nothing of this file is taken; "
           "rename the file, or load it first.",
           "Домен {0} уже загружен и остаётся, поэтому из этого файла ничего не берётся; "
           "переименуйте файл или загрузите его раньше."}},
    Check{521, "property-list-missing", warning,
          {"The file lists no properties, so that the domain has none; write their ids in "
           "asFuncsNames of Domen.",
           "В файле нет списка свойств, поэтому в домене их нет; напишите их id в asFuncsNames "
           "раздела Domen."}},
    Check{522, "key-unknown", warning,
          {"Nobody reads the key {0} here, so that it has no effect; correct it, or delete it.",
           "Ключ {0} здесь никто не читает, поэтому он не действует; исправьте или удалите его."}},
    Check{523, "section-inside", warning,
          {"The section {0} is inside another value, where nobody reads it; write the three "
           "sections side by side in the outermost braces.",
           "Раздел {0} находится внутри другого значения, где его никто не читает; напишите три "
           "раздела рядом во внешних скобках."}},
    Check{524, "not-an-object", warning,
          {"The value of {0} is not in braces and counts as left out; write its keys and values "
           "in braces.",
           "Значение {0} не в фигурных скобках и считается пропущенным; напишите ключи и "
           "значения в фигурных скобках."}},
    Check{525, "not-a-text", warning,
          {"The value of {0} is no text and counts as left out; write it in quotation marks.",
           "Значение {0} не текст и считается пропущенным; напишите его в кавычках."}},
    Check{526, "not-a-whole-number", warning,
          {"The value of {0} is no whole number of 32 bits and counts as left out; write one "
           "without quotation marks.",
           "Значение {0} не целое число в 32 бита и считается пропущенным; напишите такое число "
           "без кавычек."}},
    Check{527, "not-a-number", warning,
          {"The value of {0} is no number and counts as left out; write one without quotation "
           "marks, with a point for decimals.",
           "Значение {0} не число и считается пропущенным; напишите число без кавычек, дробную "
           "часть после точки."}},
    Check{528, "not-a-list", warning,
          {"The value of {0} is no list and counts as left out; write texts in square brackets.",
           "Значение {0} не список и считается пропущенным; напишите тексты в квадратных "
           "скобках."}},
    Check{529, "entry-not-a-text", warning,
          {"The entry of the list is no text and is passed over; write it in quotation marks.",
           "Эта запись списка не текст и пропускается; напишите её в кавычках."}},
    Check{530, "key-again", warning,
          {"The key {0} occurs again in the same braces, and only the last one counts; keep one "
           "of them.",
           "Ключ {0} ещё раз встречается в тех же скобках, и считается только последний; "
           "оставьте один из них."}},
    Check{531, "property-without-member", warning,
          {"The property {0} is listed, but Properties has no member of that name, so that it "
           "has no title and no fields; write the member, or correct the id.",
           "Свойство {0} указано в списке, но в Properties его нет, поэтому у него нет ни "
           "названия, ни полей; опишите его там или исправьте id."}},
    Check{532, "field-without-member", warning,
          {"The field {0} is listed, but ArrayValueFields has no member of that name, so that "
           "it is a number that shows 1; write the member, or correct the name.",
           "Поле {0} указано в списке, но в ArrayValueFields его нет, поэтому оно число и "
           "показывает 1; опишите его там или исправьте имя."}},
    Check{533, "property-not-listed", warning,
          {"No list of Domen names {0}, so that it is no property; add it to asFuncsNames of "
           "Domen.",
           "Список в Domen не называет {0}, поэтому это не свойство; добавьте его в "
           "asFuncsNames раздела Domen."}},
    Check{534, "field-not-listed", warning,
          {"No property that is read lists {0}, so that it is no field; add it to asFuncsNames "
           "of a property.",
           "Ни одно читаемое свойство не называет {0}, поэтому это не поле; добавьте его в "
           "asFuncsNames свойства."}},
    Check{535, "type-unknown", warning,
          {"\"{0}\" is no type, so that the field is a whole number that shows 1; write i, r, "
           "s, ai, ar or as, in small letters.",
           "«{0}» не тип, поэтому поле становится целым числом и показывает 1; напишите i, r, "
           "s, ai, ar или as строчными буквами."}},
    Check{536, "default-of-another-type", warning,
          {"{0} doesn't go with the type of the field, so that it is not read and the field "
           "shows {2}; write {1}, or correct sType.",
           "{0} не подходит к типу поля, поэтому не читается, и поле показывает {2}; напишите "
           "{1} или исправьте sType."}},
    Check{537, "default-missing", warning,
          {"The field {0} has no default, so that it shows {2}; write {1}.",
           "У поля {0} нет значения по умолчанию, поэтому оно показывает {2}; напишите {1}."}},
    Check{538, "default-besides", hint,
          {"{0} is not read, since {1} is the default of the field's type; delete it.",
           "{0} не читается, так как для типа этого поля служит {1}; удалите его."}},
    Check{539, "default-not-taken", warning,
          {"The field doesn't take the default \"{0}\" and shows 1; write an ordinary number.",
           "Поле не принимает значение по умолчанию «{0}» и показывает 1; напишите обычное "
           "число."}},
    Check{540, "listed-twice", warning,
          {"{0} is in this list already, so that the second time has no effect; delete it.",
           "{0} уже есть в этом списке, поэтому второй раз не действует; удалите его."}},
    Check{541, "field-shared", hint,
          {"Another property lists the field {0} too, so that both have its type, title and "
           "default; use another name if they are to differ.",
           "Поле {0} указано и в другом свойстве, поэтому тип, подпись и значение у них общие; "
           "если они должны различаться, возьмите другое имя."}},
    Check{542, "id-not-read", hint,
          {"sId is not read: the id of the property is {0}, the name of its member; rename the "
           "member, or delete sId.",
           "sId не читается: id свойства {0}, как называется его запись; переименуйте её или "
           "удалите sId."}},
    Check{543, "blank-in-id", warning,
          {"No item of a classificator can name the property {0}, as its id has a blank; take "
           "the blank out.",
           "Классификатор не может назвать свойство {0}, так как в его id есть пробел; уберите "
           "пробел."}},
    Check{544, "domain-not-nameable", warning,
          {"No domain list can name the domain {0}, as its id has a blank or a parenthesis; "
           "rename the file.",
           "Список доменов не может назвать домен {0}, так как в его id есть пробел или скобка; "
           "переименуйте файл."}},
    Check{545, "json-no-object", error,
          {"The file is not one object in braces, so that it reads as an empty one; write all "
           "in one pair of braces.",
           "Файл не является одним объектом в фигурных скобках и читается как пустой; напишите "
           "всё в одной паре скобок."}},
    Check{546, "classificator-named-json", warning,
          {"The name of the classificator ends in .json, so that it is also read as a domain "
           "file, for the domain {0}; rename it to .txt.",
           "Имя классификатора оканчивается на .json, поэтому он читается ещё и как файл домена "
           "{0}; переименуйте его в .txt."}},
    Check{547, "blank-in-field-name", hint,
          {"The name of the field {0} has a blank, so that values reach it by position only; "
           "take the blank out.",
           "В имени поля {0} есть пробел, поэтому значения попадают в него только по порядку; "
           "уберите пробел."}},

    // ==COLORAT
    Check{601, "colorat-without-lines", warning,
          {"The block has only one line and is left out, so that it makes no Colorat; write "
           "colour lines below its title line.",
           "В блоке только одна строка, он пропускается и не даёт схемы цветов; напишите под "
           "строкой названия строки цветов."}},
    Check{602, "colorat-title-without-blank", warning,
          {"The title line has no blank, so that the block is left out with all its colours; "
           "write the id, a blank and a title.",
           "В строке названия нет пробела, поэтому блок пропускается со всеми цветами; напишите "
           "id, пробел и название."}},
    Check{603, "not-five-words", warning,
          {"A colour line has exactly five words, so that this line is left out; write key "
           "text, three channels and a percentage.",
           "В строке цвета должно быть ровно пять слов, поэтому эта строка пропускается; "
           "напишите ключ, три канала и процент."}},
    Check{604, "colour-again", warning,
          {"The key text {0} has a colour in this Colorat already, which stays, but this line "
           "takes a number away from those after it; delete it.",
           "У ключа {0} в этой схеме уже есть цвет, и он остаётся, но эта строка забирает номер "
           "у следующих; удалите её."}},
    Check{605, "colour-out-of-range", warning,
          {"\"{0}\" is out of range and becomes the nearest number in it; write a channel from "
           "0 to 255, a percentage from 0 to 100.",
           "«{0}» вне диапазона и становится ближайшим числом из него; канал пишите от 0 до "
           "255, процент от 0 до 100."}},
    Check{606, "colour-no-number", warning,
          {"\"{0}\" doesn't begin as a number and becomes 0; write a whole number.",
           "«{0}» не начинается как число и становится 0; напишите целое число."}},
    Check{607, "remark-is-colour", warning,
          {"The remark has five words and so is a colour, of the key text \"{0}\"; give it "
           "another length.",
           "В пояснении пять слов, поэтому оно стало цветом ключа «{0}»; измените его длину."}},
    Check{608, "at-sign-in-line", warning,
          {"An at-sign begins a block wherever it is, so that this line opens one; take the "
           "at-sign out.",
           "Знак @ начинает блок, где бы он ни стоял, поэтому эта строка открывает блок; "
           "уберите знак."}},
    Check{609, "colours-alike", hint,
          {"The eye can hardly tell the colour of {0} from that of {1}; choose another for one "
           "of them.",
           "Глаз едва отличит цвет {0} от цвета {1}; выберите для одного из них другой."}},
    Check{610, "key-without-code", hint,
          {"The key text {0} is no code of the file, nor the beginning of one; correct it, or "
           "delete the line.",
           "Ключ {0} не является кодом файла или началом кода; исправьте его или удалите строку."}},
    Check{611, "code-without-colour", hint,
          {"The code {0} has no colour in {1}, where most codes have one; add a line for it.",
           "У кода {0} нет цвета в схеме {1}, где он есть у большинства кодов; добавьте строку."}},
    Check{612, "colorat-without-colours", warning,
          {"The Colorat has no colour, since none of its lines is a colour line; write key "
           "text, three channels and a percentage, or delete it.",
           "В схеме нет цветов, так как ни одна её строка не является строкой цвета; напишите "
           "ключ, три канала и процент или удалите схему."}},
    Check{613, "title-over-lines", warning,
          {"The block is cut at semicolons, so that its title line runs on to the first of them "
           "and takes the lines below it along; write one colour on a line, without semicolons.",
           "Блок делится по точкам с запятой, поэтому строка названия продолжается до первой из "
           "них и захватывает строки ниже; пишите по одному цвету в строке, без точек с запятой."}},

    // ==CLASS and ==PARAM
    Check{701, "title-not-shown", hint,
          {"No call returns what ==CLASS declares; the name that users see comes from the "
           "add-in.",
           "То, что объявлено в ==CLASS, не выводится; имя, которое видят пользователи, задаёт "
           "надстройка."}},
    Check{702, "param-has-no-effect", hint,
          {"The section names no domains, so that nothing comes of it today; write the items in "
           "==MAPTEXT.",
           "Раздел не называет доменов, поэтому сегодня не действует; напишите свойства в "
           "==MAPTEXT."}},
    Check{801, "similar-name", hint,
          {"\"{0}\" is not known; probably \"{1}\" was meant.",
           "«{0}» неизвестно; вероятно, имелось в виду «{1}»."}},
};
// clang-format on

}  // namespace

std::span<const Check> AllChecks() {
  return checks;
}

const Check& CheckOf(int number) {
  return *std::lower_bound(checks.begin(), checks.end(), number,
                           [](const Check& check, int least) { return check.number < least; });
}

std::string Fill(const Sentence& sentence, Language language,
                 const std::vector<std::string>& arguments) {
  const std::string_view text = language == Language::english ? sentence.english : sentence.russian;
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '{') {
      filled += text[i];
      continue;
    }
    filled += arguments.at(static_cast<std::size_t>(text[i + 1] - '0'));
    i += 2;
  }
  return filled;
}

const Sentence& SentenceOf(RelatedKind kind) {
  static constexpr std::array<Sentence, 5> sentences = {{
      {"this pattern comes first", "этот образец идёт раньше"},
      {"this definition stays", "остаётся это определение"},
      {"this one takes its place", "его заменяет это"},
      {"this is the other colour", "это другой цвет"},
      {"it is listed here too", "здесь он указан тоже"},
  }};
  return sentences[static_cast<std::size_t>(kind)];
}

}  // namespace TolvenLibs::RevitMappingEditorDll
