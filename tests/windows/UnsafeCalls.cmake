# Looks for calls of C functions that Microsoft's headers declare unsafe: MSVC warns of each
# (C4996), and warnings are errors.
#
#   cmake -D SOURCE_FOLDER=FOLDER -P UnsafeCalls.cmake

cmake_minimum_required(VERSION 3.25)

set(unsafe
  asctime ctime fopen freopen fscanf fwscanf getenv gmtime localtime mbsrtowcs mbstowcs scanf setbuf
  sprintf sscanf strcat strcpy strerror strncat strncpy strtok swscanf tmpfile tmpnam vsprintf
  vswprintf wcrtomb wcscat wcscpy wcsncat wcsncpy wcsrtombs wcstok wcstombs wctomb wscanf)
list(JOIN unsafe "|" names)

file(GLOB_RECURSE sources LIST_DIRECTORIES FALSE
  ${SOURCE_FOLDER}/examples/*.cpp ${SOURCE_FOLDER}/examples/*.h
  ${SOURCE_FOLDER}/include/*.h
  ${SOURCE_FOLDER}/src/*.cpp ${SOURCE_FOLDER}/src/*.h
  ${SOURCE_FOLDER}/tests/*.cpp ${SOURCE_FOLDER}/tests/*.h
  ${SOURCE_FOLDER}/tools/*.cpp ${SOURCE_FOLDER}/tools/*.h)
# Excludes sources for other systems, and a header that uses another call on Windows.
list(FILTER sources EXCLUDE REGEX "/support/FailingCalls[.]cpp$|/classify/Environment[.]h$")
list(LENGTH sources count)
if(count LESS 100)
  message(FATAL_ERROR "Only ${count} sources are found in ${SOURCE_FOLDER}")
endif()

set(calls "")
foreach(source IN LISTS sources)
  file(STRINGS ${source} lines REGEX "(^|[^A-Za-z0-9_])(${names})[(]")
  foreach(line IN LISTS lines)
    string(APPEND calls "\n${source}: ${line}")
  endforeach()
endforeach()
if(calls)
  message(FATAL_ERROR "cl warns of these calls:${calls}")
endif()
