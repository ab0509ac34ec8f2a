# Tests that the files that can't read the version from the main file repeat the same one.
#
#   cmake -D SOURCE_FOLDER=FOLDER -D VERSION=VERSION -P Version.cmake

cmake_minimum_required(VERSION 3.25)

function(expect_text file text)
  file(READ ${SOURCE_FOLDER}/${file} content)
  string(FIND "${content}" "${text}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${file} lacks ${text}")
  endif()
endfunction()

string(REGEX MATCH "^[0-9]+[.][0-9]+" major_and_minor ${VERSION})
set(call "find_package(RevitMappingEditor ${major_and_minor} REQUIRED)")

expect_text(CHANGELOG.md "${VERSION}")
expect_text(docs/windows.md "RevitMappingEditorDll-${VERSION}-win64.zip")
expect_text(docs/windows.md "${call}")
expect_text(examples/addin/CMakeLists.txt "${call}")
expect_text(packaging/vcpkg/vcpkg.json "\"version\": \"${VERSION}\"")
