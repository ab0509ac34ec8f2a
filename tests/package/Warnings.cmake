# Tests that warnings are errors for developers of the library but not for its users, by the
# exported compile commands.
#
#   cmake -D SOURCE_FOLDER=FOLDER -D WORK=FOLDER -D GENERATOR=NAME -D COMPILER=PROGRAM
#         -P Warnings.cmake

cmake_minimum_required(VERSION 3.25)

# Configures a project and returns its compile commands.
function(read_commands name source output)
  set(build ${WORK}/${name})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${source} -B ${build} -G ${GENERATOR}
            -DCMAKE_CXX_COMPILER=${COMPILER}
            -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
            -DREVIT_MAPPING_EDITOR_TESTS=OFF
            -DREVIT_MAPPING_EDITOR_TOOLS=OFF
            ${ARGN}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${build}/compile_commands.json commands)
  if(NOT commands MATCHES "RevitMappingEditorDll[.]cpp")
    message(FATAL_ERROR "${name}: the library's sources are not compiled")
  endif()
  set(${output} "${commands}" PARENT_SCOPE)
endfunction()

set(error_option "(-Werror|[-/]WX)[ \"]")
set(warning_option "(-Wall|-Wextra|-Wpedantic|-Wconversion|-Wshadow|[-/]W4)[ \"]")

function(expect_strictness name commands errors warnings)
  foreach(kind IN ITEMS error warning)
    set(has FALSE)
    if(commands MATCHES "${${kind}_option}")
      set(has TRUE)
    endif()
    if(NOT has STREQUAL "${${kind}s}")
      message(FATAL_ERROR "${name}: options for ${kind}s are given: ${has}:\n${commands}")
    endif()
  endforeach()
endfunction()

file(REMOVE_RECURSE ${WORK})

read_commands(developed ${SOURCE_FOLDER} commands)
expect_strictness(developed "${commands}" TRUE TRUE)

read_commands(switched_off ${SOURCE_FOLDER} commands -DCMAKE_COMPILE_WARNING_AS_ERROR=OFF)
expect_strictness(switched_off "${commands}" FALSE TRUE)

# The vcpkg recipe, with functions that record their arguments.
function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 call "" SOURCE_PATH OPTIONS)
  read_commands(vcpkg ${call_SOURCE_PATH} commands ${call_OPTIONS})
  expect_strictness(vcpkg "${commands}" FALSE TRUE)
  set_property(GLOBAL PROPERTY configured_by_vcpkg TRUE)
endfunction()
foreach(name IN ITEMS check_linkage cmake_install cmake_config_fixup copy_pdbs install_copyright)
  cmake_language(EVAL CODE "function(vcpkg_${name})\nendfunction()")
endforeach()
set(PORT revit-mapping-editor)
set(CURRENT_PACKAGES_DIR ${WORK}/vcpkg_packages)
include(${SOURCE_FOLDER}/packaging/vcpkg/portfile.cmake)
get_property(configured GLOBAL PROPERTY configured_by_vcpkg)
if(NOT configured)
  message(FATAL_ERROR "The recipe for vcpkg configures nothing")
endif()

# A project that includes the sources, as FetchContent does.
file(WRITE ${WORK}/host/CMakeLists.txt
  "cmake_minimum_required(VERSION 3.25)\n"
  "project(Host LANGUAGES CXX)\n"
  "add_subdirectory(\"${SOURCE_FOLDER}\" library)\n")
read_commands(part_of_another ${WORK}/host commands)
expect_strictness(part_of_another "${commands}" FALSE FALSE)

# It decides on warnings as errors, also for its parts.
read_commands(part_of_a_strict_one ${WORK}/host commands -DCMAKE_COMPILE_WARNING_AS_ERROR=ON)
expect_strictness(part_of_a_strict_one "${commands}" TRUE FALSE)
