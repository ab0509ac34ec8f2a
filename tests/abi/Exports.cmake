# Compares the exports of the built library with a list: itanium_names.txt, or msvc/names.txt for
# names by Microsoft's ABI.
#
#   cmake -D LIBRARY=FILE -D NAMES=LIST -D NM=PROGRAM -P Exports.cmake   a shared object
#   cmake -D LIBRARY=FILE -D NAMES=LIST -P Exports.cmake                 a DLL

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/DllExports.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/Names.cmake)

read_names(${NAMES} written)
foreach(name IN LISTS written)
  if(name MATCHES "^(_ZN.+)([CD])1(E.+)$")
    list(APPEND written ${CMAKE_MATCH_1}${CMAKE_MATCH_2}2${CMAKE_MATCH_3})
  endif()
endforeach()

if(NM)
  execute_process(COMMAND ${NM} --dynamic --defined-only --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n]+" found "${table}")
else()
  read_dll_exports(${LIBRARY} found)
endif()

expect_same_names("${written}" "${found}")
