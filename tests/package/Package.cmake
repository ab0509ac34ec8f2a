# The package as its user meets it: installed into an empty folder, found by a project that knows
# nothing of this one, built against and run.

include(GNUInstallDirs)
set(package ${CMAKE_BINARY_DIR}/package)

add_test(NAME Package.IsInstalled
  COMMAND ${CMAKE_COMMAND}
          -D BUILD=${PROJECT_BINARY_DIR}
          -D CONFIG=$<CONFIG>
          -D PACKAGE=${package}
          -P ${CMAKE_CURRENT_LIST_DIR}/Install.cmake)
set_tests_properties(Package.IsInstalled PROPERTIES FIXTURES_SETUP package)

# The client gets the compiler, and flags like those for a sanitizer, which hold for a whole process.
# An emulator is passed to it as a command, so that it doesn't set up one of its own.
set(client_options
  -DCMAKE_BUILD_TYPE=$<CONFIG>
  -DCMAKE_CXX_FLAGS=${CMAKE_CXX_FLAGS}
  -DCMAKE_PREFIX_PATH=${package}/installed
  -DCMAKE_FIND_USE_PACKAGE_REGISTRY=FALSE)
if(CMAKE_TOOLCHAIN_FILE)
  list(APPEND client_options -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
else()
  list(APPEND client_options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER})
endif()
set(client ${package}/addin/addin${CMAKE_EXECUTABLE_SUFFIX})
if(CMAKE_CONFIGURATION_TYPES)
  set(client ${package}/addin/$<CONFIG>/addin${CMAKE_EXECUTABLE_SUFFIX})
endif()
set(platform_options "")
if(CMAKE_GENERATOR_PLATFORM)
  set(platform_options --build-generator-platform ${CMAKE_GENERATOR_PLATFORM})
endif()

add_test(NAME Package.ServesAClientThatIsBuiltAgainstIt
  COMMAND ${CMAKE_CTEST_COMMAND}
          --build-and-test ${PROJECT_SOURCE_DIR}/examples/addin ${package}/addin
          --build-generator ${CMAKE_GENERATOR} ${platform_options}
          --build-makeprogram ${CMAKE_MAKE_PROGRAM}
          --build-config $<CONFIG>
          --build-options ${client_options}
          --test-command ${CMAKE_CROSSCOMPILING_EMULATOR} ${client}
                         ${package}/installed/${CMAKE_INSTALL_DATADIR}/RevitMappingEditorDll/data)
set_tests_properties(Package.ServesAClientThatIsBuiltAgainstIt PROPERTIES
  FIXTURES_REQUIRED package)

# A sanitizer names files as the compiler was given them, for its reports.
if(NOT MSVC AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  add_test(NAME Package.DoesNotNameTheFoldersOfItsBuild
    COMMAND ${CMAKE_COMMAND}
            -D LIBRARY=$<TARGET_FILE:RevitMappingEditorDll>
            -D FOLDERS=${PROJECT_SOURCE_DIR},${PROJECT_BINARY_DIR}
            -P ${CMAKE_CURRENT_LIST_DIR}/Folders.cmake)
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
