# Adversarial inputs. The programs have their own allocation operators and inspect their stacks,
# both of which need a system like Linux.
add_library(hostile OBJECT
  hostile/Case.cpp
  hostile/CheckCases.cpp
  hostile/ClassificatorCases.cpp
  hostile/CompositionCases.cpp
  hostile/DomenCases.cpp
  hostile/ExportCases.cpp
  hostile/Heap.cpp
  hostile/JsonCases.cpp
  hostile/LookupCases.cpp
  hostile/MapTextCases.cpp
  hostile/Measure.cpp
  hostile/PaintedStack.cpp
  hostile/PathCases.cpp
  hostile/TextFileCases.cpp
  support/TempFolder.cpp)
# The operators replace those of the library too.
set_source_files_properties(hostile/Heap.cpp PROPERTIES COMPILE_OPTIONS -fvisibility=default)
target_include_directories(hostile PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(hostile PUBLIC RevitMappingEditorDll)

add_executable(hostile_tests hostile/Hostile_test.cpp)
target_compile_definitions(hostile_tests PRIVATE
  SLOW_BUILD=$<NOT:$<CONFIG:Release>>)
target_link_libraries(hostile_tests PRIVATE hostile authoring ${rooms} GTest::gtest_main)
gtest_discover_tests(hostile_tests DISCOVERY_TIMEOUT 60)

# scripts/hostile.sh runs it.
add_executable(hostile_sizes EXCLUDE_FROM_ALL hostile/Sizes.cpp)
target_link_libraries(hostile_sizes PRIVATE hostile authoring ${rooms})
