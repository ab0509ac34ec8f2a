# The tests of the project's Python scripts.

find_package(Python3 COMPONENTS Interpreter)
if(NOT Python3_FOUND)
  message(STATUS "No python3: the scripts are not tested")
  return()
endif()

add_test(NAME Scripts.IdentifierCharsAreThoseOfTheUnicodeData
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/scripts/identifier_chars.py
          --check ${PROJECT_SOURCE_DIR}/src/json5/IdentifierRanges.h)
set_tests_properties(Scripts.IdentifierCharsAreThoseOfTheUnicodeData PROPERTIES
  SKIP_RETURN_CODE 77)

add_test(NAME Scripts.MutantsAreFoundAndTriedOutAsTheirTestsSay
  COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${PROJECT_SOURCE_DIR}/scripts/mutate
          ${Python3_EXECUTABLE} -B -m unittest discover -s ${CMAKE_CURRENT_LIST_DIR}/mutate
          -p *_test.py)
