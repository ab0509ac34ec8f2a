# Inputs that are made to be dear: the program times them, the tests count what they allocate. The
# exported class is part of both, so that a test's operators reach into it.
add_library(hostile_cases OBJECT
  ${CMAKE_CURRENT_LIST_DIR}/Cases.cpp
  ${PROJECT_SOURCE_DIR}/src/editor/RevitMappingEditorDll.cpp
  ${PROJECT_SOURCE_DIR}/tests/support/TempFolder.cpp)
target_include_directories(hostile_cases PUBLIC
  ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(hostile_cases PUBLIC REVIT_MAPPING_EDITOR_EXPORTS)

add_executable(hostile ${CMAKE_CURRENT_LIST_DIR}/hostile.cpp)
target_link_libraries(hostile PRIVATE hostile_cases base parts domen_json cfg json5)

add_executable(hostile_tests ${CMAKE_CURRENT_LIST_DIR}/HostileSizes_test.cpp)
target_compile_definitions(hostile_tests PRIVATE SLOW_BUILD=$<NOT:$<CONFIG:Release>>)
target_link_libraries(hostile_tests PRIVATE
  hostile_cases base parts domen_json cfg json5 GTest::gtest_main)
gtest_discover_tests(hostile_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
