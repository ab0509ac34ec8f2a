# Tests of the library's promises to programs that are already built: its names, and who frees what.

find_program(ABI_CLANG clang++-19)
find_program(ABI_NM NAMES llvm-nm-19 llvm-nm nm)

function(add_abi_check name script)
  add_test(NAME Abi.${name}
    COMMAND ${CMAKE_COMMAND} ${ARGN} -P ${CMAKE_CURRENT_SOURCE_DIR}/abi/${script})
  set_tests_properties(Abi.${name} PROPERTIES SKIP_REGULAR_EXPRESSION "skipped: ")
endfunction()

if(NOT CMAKE_CROSSCOMPILING)  # independent of the target
  add_abi_check(MicrosoftNamesAreTheWrittenOnes msvc/Check.cmake
    -D CLANG=${ABI_CLANG} -D NM=${ABI_NM} -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR}
    -D OBJECT=${CMAKE_CURRENT_BINARY_DIR}/MsvcNames.obj)
endif()

set(written_names ${CMAKE_CURRENT_SOURCE_DIR}/abi/itanium_names.txt)
set(lister "")
if(MSVC)
  set(written_names ${CMAKE_CURRENT_SOURCE_DIR}/abi/msvc/names.txt)
elseif(NOT WIN32)
  set(lister -D NM=${CMAKE_NM})
endif()
add_abi_check(ExportsAreTheWrittenOnes Exports.cmake
  -D LIBRARY=$<TARGET_FILE:RevitMappingEditorDll> -D NAMES=${written_names} ${lister})

if(MINGW)
  add_abi_check(SourcesGiveNoWarnings Strict.cmake
    -D CLANG=${ABI_CLANG} -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR} -D TARGET=x86_64-w64-mingw32)
elseif(NOT WIN32)
  add_abi_check(SourcesGiveNoWarnings Strict.cmake
    -D CLANG=${ABI_CLANG} -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR})
endif()

if(MINGW)
  # A program that uses ucrtbase.dll, while the library uses msvcrt.dll, mingw-w64's default. It
  # names all its libraries itself and doesn't use the C++ runtime, which is built for the default.
  add_executable(other_runtime abi/OtherRuntime.cpp)
  target_compile_definitions(other_runtime PRIVATE _UCRT)
  target_compile_options(other_runtime PRIVATE -fno-exceptions)
  target_link_options(other_runtime PRIVATE -nodefaultlibs)
  target_link_libraries(other_runtime PRIVATE
    RevitMappingEditorDll mingw32 gcc mingwex ucrt kernel32)
  add_test(NAME Abi.ResultsAreReleasedForAnotherRuntime
    COMMAND other_runtime ${PROJECT_SOURCE_DIR}/data/domens.txt)
  set_tests_properties(Abi.ResultsAreReleasedForAnotherRuntime PROPERTIES SKIP_RETURN_CODE 77)
endif()
