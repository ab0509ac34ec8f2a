# Tests of the package from a user's view: it is installed into an empty folder, and a separate
# project finds it, builds with it and runs.

include(GNUInstallDirs)
set(package ${CMAKE_BINARY_DIR}/package)
set(installed_share ${package}/installed/${CMAKE_INSTALL_DATADIR}/RevitMappingEditorDll)

add_test(NAME Package.IsInstalled
  COMMAND ${CMAKE_COMMAND}
          -D BUILD=${PROJECT_BINARY_DIR}
          -D CONFIG=$<CONFIG>
          -D PACKAGE=${package}
          -P ${CMAKE_CURRENT_LIST_DIR}/Install.cmake)
set_tests_properties(Package.IsInstalled PROPERTIES FIXTURES_SETUP package)

set(client ${package}/addin/addin${CMAKE_EXECUTABLE_SUFFIX})
if(CMAKE_CONFIGURATION_TYPES)
  set(client ${package}/addin/$<CONFIG>/addin${CMAKE_EXECUTABLE_SUFFIX})
endif()

# The emulator is passed to the client, so that it doesn't look for one itself.
add_test(NAME Package.ServesAClientThatIsBuiltAgainstIt
  COMMAND ${CMAKE_CTEST_COMMAND}
          --build-and-test ${PROJECT_SOURCE_DIR}/examples/addin ${package}/addin
          ${like_this}
          --build-makeprogram ${CMAKE_MAKE_PROGRAM}
          --build-options ${options_like_this}
                          -DCMAKE_BUILD_TYPE=$<CONFIG>
                          -DCMAKE_PREFIX_PATH=${package}/installed
                          -DCMAKE_FIND_USE_PACKAGE_REGISTRY=FALSE
          --test-command ${CMAKE_CROSSCOMPILING_EMULATOR} ${client}
                         ${installed_share}/data)
set_tests_properties(Package.ServesAClientThatIsBuiltAgainstIt PROPERTIES
  FIXTURES_REQUIRED package)

find_program(PYTHON3 python3)
add_test(NAME Package.HasABillOfMaterials
  COMMAND ${CMAKE_COMMAND}
          -D FILE=${installed_share}/RevitMappingEditorDll.spdx.json
          -D NAME=${PROJECT_NAME}
          -D VERSION=${PROJECT_VERSION}
          -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR}
          -D WORK=${package}/bill
          -D PYTHON=${PYTHON3}
          -P ${CMAKE_CURRENT_LIST_DIR}/BillOfMaterials.cmake)
set_tests_properties(Package.HasABillOfMaterials PROPERTIES FIXTURES_REQUIRED package)

# Sanitizers embed file names for their reports.
if(NOT MSVC AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_test(NAME Package.DoesNotNameTheFoldersOfItsBuild
    COMMAND ${CMAKE_COMMAND}
            -D LIBRARY=$<TARGET_FILE:RevitMappingEditorDll>
            -D FOLDERS=${PROJECT_SOURCE_DIR},${PROJECT_BINARY_DIR}
            -P ${CMAKE_CURRENT_LIST_DIR}/Folders.cmake)
endif()

# Independent of the target. Needs a generator that exports the compile commands.
if(NOT CMAKE_CROSSCOMPILING AND CMAKE_GENERATOR MATCHES "Ninja|Makefiles")
  add_test(NAME Package.WarningsAreErrorsForItsDevelopersAlone
    COMMAND ${CMAKE_COMMAND}
            -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR}
            -D WORK=${package}/warnings
            -D GENERATOR=${CMAKE_GENERATOR}
            -D COMPILER=${CMAKE_CXX_COMPILER}
            -P ${CMAKE_CURRENT_LIST_DIR}/Warnings.cmake)
endif()

# Independent of the target too. The packages are the system's unless a toolchain file has others.
if(NOT CMAKE_TOOLCHAIN_FILE AND CMAKE_GENERATOR MATCHES "Ninja|Makefiles")
  add_test(NAME Package.SaysWhatIsMissingAndHowToInstallIt
    COMMAND ${CMAKE_COMMAND}
            -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR}
            -D WORK=${package}/missing
            -D GENERATOR=${CMAKE_GENERATOR}
            -D COMPILER=${CMAKE_CXX_COMPILER}
            -P ${CMAKE_CURRENT_LIST_DIR}/Missing.cmake)
endif()

if(MINGW)
  add_test(NAME Package.DllNeedsWindowsAloneAndTellsItsVersion
    COMMAND ${CMAKE_COMMAND}
            -D LIBRARY=$<TARGET_FILE:RevitMappingEditorDll>
            -D OBJDUMP=${CMAKE_OBJDUMP}
            -D WINDRES=${CMAKE_RC_COMPILER}
            -D VERSION=${PROJECT_VERSION}
            -P ${CMAKE_CURRENT_LIST_DIR}/Dll.cmake)
endif()

add_test(NAME Package.HasOneVersionWhereverItIsNamed
  COMMAND ${CMAKE_COMMAND}
          -D SOURCE_FOLDER=${PROJECT_SOURCE_DIR}
          -D VERSION=${PROJECT_VERSION}
          -P ${CMAKE_CURRENT_LIST_DIR}/Version.cmake)
