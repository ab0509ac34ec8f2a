# Runs the tests of failing allocations on the library with containers whose moves allocate, as
# Microsoft's do: a move that is wrongly declared noexcept ends the program there.
file(GLOB_RECURSE library_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/*.cpp)
list(FILTER library_sources EXCLUDE REGEX Windows)
add_executable(heads_tests
  editor/Ownership_test.cpp
  support/Program.cpp
  support/TempFolder.cpp
  ${library_sources})
target_include_directories(heads_tests BEFORE PRIVATE
  abi/heads
  ${CMAKE_CURRENT_SOURCE_DIR}
  ${PROJECT_SOURCE_DIR}/include
  ${PROJECT_SOURCE_DIR}/src
  ${PROJECT_SOURCE_DIR}/src/json/cfg)
target_compile_definitions(heads_tests PRIVATE REVIT_MAPPING_EDITOR_EXPORTS)
target_link_libraries(heads_tests PRIVATE GTest::gtest_main)
gtest_discover_tests(heads_tests TEST_PREFIX Heads. DISCOVERY_TIMEOUT 60)
