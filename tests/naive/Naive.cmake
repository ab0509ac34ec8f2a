include_guard(GLOBAL)

# The naive forms of the library's rules, which tests compare it with. Text.h says what they use of
# the library.
add_library(naive OBJECT
  ${CMAKE_CURRENT_LIST_DIR}/ClassificatorFile.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CodeLookup.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ColoratSection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DomenFiles.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Editor.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Fields.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Json5.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MapTextSection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MappingString.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamSection.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Records.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Text.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextFile.cpp)
target_include_directories(naive PUBLIC
  ${CMAKE_CURRENT_LIST_DIR}/..
  ${PROJECT_SOURCE_DIR}/include
  ${PROJECT_SOURCE_DIR}/src)
