# Compiles all sources and headers of the library with all warnings of clang, including those for
# Microsoft's dialect (-Wmicrosoft).
#
#   cmake -D CLANG=PROGRAM -D SOURCE_FOLDER=FOLDER [-D TARGET=TRIPLE] -P Strict.cmake
#
# The target is that of the mingw cross-build. Without one the sources are compiled for this system,
# in Microsoft's dialect.

cmake_minimum_required(VERSION 3.25)

if(NOT CLANG)
  message("skipped: clang++-19 is not at hand")
  return()
endif()

set(flags -std=c++20 -fsyntax-only -Werror -Weverything)
list(APPEND flags
  -Wno-c++98-compat-pedantic    # the library is written in C++20
  -Wno-c++20-compat
  -Wno-deprecated-declarations  # a sort of the standard library calls a deprecated function of it
  -Wno-switch-enum              # most outcomes of an account are alike, and go by the default
  -Wno-padded                   # padding between members doesn't matter
  -Wno-unsafe-buffer-usage)     # the interfaces of the library and of the system use plain pointers

if(TARGET)
  set(other_system Posix)
  list(APPEND flags --target=${TARGET} -DNOMINMAX -DWIN32_LEAN_AND_MEAN)
else()
  set(other_system Windows)
  # The dialect lacks three macros that this system's standard library needs.
  list(APPEND flags -fms-compatibility -fms-compatibility-version=19.40 -D__STRICT_ANSI__
    -D__GCC_ATOMIC_TEST_AND_SET_TRUEVAL=1 -D__GCC_ATOMIC_POINTER_LOCK_FREE=2)
endif()

set(folders -I ${SOURCE_FOLDER}/include -I ${SOURCE_FOLDER}/src -I ${SOURCE_FOLDER}/src/json/cfg
  -DREVIT_MAPPING_EDITOR_EXPORTS)
file(GLOB_RECURSE sources ${SOURCE_FOLDER}/src/*.cpp)
list(FILTER sources EXCLUDE REGEX "/Files${other_system}[.]cpp$")
file(GLOB_RECURSE headers ${SOURCE_FOLDER}/include/*.h ${SOURCE_FOLDER}/src/*.h)

execute_process(COMMAND ${CLANG} ${flags} ${folders} ${sources} RESULT_VARIABLE sources_warn)

# Each header is self-contained. The macro in one is used by the others.
execute_process(COMMAND ${CLANG} ${flags} -Wno-unused-macros ${folders} -x c++-header ${headers}
  RESULT_VARIABLE headers_warn)

if(sources_warn OR headers_warn)
  message(FATAL_ERROR "There are warnings")
endif()
