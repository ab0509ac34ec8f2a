# Tests that configuring without a required package fails with a sentence that names the package,
# the command that installs it, and the options that make it unnecessary.
#
#   cmake -D SOURCE_FOLDER=FOLDER -D WORK=FOLDER -D GENERATOR=NAME -D COMPILER=PROGRAM
#         -P Missing.cmake

cmake_minimum_required(VERSION 3.25)

function(expect_sentence package sentence)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SOURCE_FOLDER} -B ${WORK}/${package} -G ${GENERATOR}
            -DCMAKE_CXX_COMPILER=${COMPILER}
            -DCMAKE_DISABLE_FIND_PACKAGE_${package}=ON
            ${ARGN}
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
  if(status EQUAL 0)
    message(FATAL_ERROR "Without ${package} the project is configured all the same")
  endif()
  string(FIND "${errors}" "${sentence}\n" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "Without ${package} it is not said that\n${sentence}\nbut\n${errors}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})

set(no_programs "-D REVIT_MAPPING_EDITOR_TOOLS=OFF -D REVIT_MAPPING_EDITOR_TESTS=OFF")
expect_sentence(CLI11 "The console programs need CLI11: \
apt-get install libcli11-dev, or configure with ${no_programs}")
expect_sentence(nlohmann_json "The console programs need nlohmann_json: \
apt-get install nlohmann-json3-dev, or configure with ${no_programs}")
expect_sentence(GTest "The tests need GTest: \
apt-get install libgtest-dev, or configure with -D REVIT_MAPPING_EDITOR_TESTS=OFF")
expect_sentence(benchmark "The benchmarks need benchmark: \
apt-get install libbenchmark-dev, or configure with -D REVIT_MAPPING_EDITOR_BENCHMARKS=OFF"
  -DREVIT_MAPPING_EDITOR_BENCHMARKS=ON
  -DREVIT_MAPPING_EDITOR_TESTS=OFF
  -DREVIT_MAPPING_EDITOR_TOOLS=OFF)
