# Holds what the built library exports against the list itanium_names.txt.
#
#   cmake -D LIBRARY=FILE -D NM=PROGRAM -P Exports.cmake        a shared object
#   cmake -D LIBRARY=FILE -D OBJDUMP=PROGRAM -P Exports.cmake   a DLL

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/Names.cmake)

read_names(${CMAKE_CURRENT_LIST_DIR}/itanium_names.txt written)
foreach(name IN LISTS written)
  if(name MATCHES "^(_ZN.+)([CD])1(E.+)$")
    list(APPEND written ${CMAKE_MATCH_1}${CMAKE_MATCH_2}2${CMAKE_MATCH_3})
  endif()
endforeach()

if(NM)
  execute_process(COMMAND ${NM} --dynamic --defined-only --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
else()
  execute_process(COMMAND ${OBJDUMP} --private-headers ${LIBRARY}
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  # A line for each name under this heading, up to an empty one; the name comes last.
  string(FIND "${table}" "[Ordinal/Name Pointer] Table" start)
  if(start EQUAL -1)
    message(FATAL_ERROR "${LIBRARY} exports no names")
  endif()
  string(SUBSTRING "${table}" ${start} -1 table)
  string(FIND "${table}" "\n" start)
  string(FIND "${table}" "\n\n" end)
  math(EXPR length "${end} - ${start} + 1")
  string(SUBSTRING "${table}" ${start} ${length} table)
endif()
string(REGEX MATCHALL "[^ \t\n]+\n" found "${table}")
list(TRANSFORM found STRIP)

expect_same_names("${written}" "${found}")
