# Compiles MsvcNames.cpp for Microsoft's ABI and compares the undefined symbols of the object file
# with the list names.txt. Nothing of Microsoft's is needed: the folder `standard` declares what the
# header of the class uses of the standard headers.
#
#   cmake -D CLANG=PROGRAM -D NM=PROGRAM -D SOURCE_FOLDER=FOLDER -D OBJECT=FILE -P Check.cmake

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../Names.cmake)

if(NOT CLANG OR NOT NM)
  message("skipped: clang++-19, or a program that lists the symbols of its objects, is not at hand")
  return()
endif()

execute_process(
  COMMAND ${CLANG} --target=x86_64-pc-windows-msvc -std=c++20 -fno-exceptions -Wall -Wextra -Werror
          -nostdinc -isystem ${CMAKE_CURRENT_LIST_DIR}/standard
          -I ${SOURCE_FOLDER}/include -I ${SOURCE_FOLDER}/src -D REVIT_MAPPING_EDITOR_EXPORTS
          -c ${CMAKE_CURRENT_LIST_DIR}/MsvcNames.cpp -o ${OBJECT}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${NM} --undefined-only --format=just-symbols ${OBJECT}
  OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" found "${table}")

read_names(${CMAKE_CURRENT_LIST_DIR}/names.txt written)
expect_same_names("${written}" "${found}")
