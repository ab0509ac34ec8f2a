# Finds the packages that the project uses. If one is missing, the configuration fails with a
# sentence that says what needs it and how to continue, which CMake's own message doesn't.

# `needer` is a plural. The options that make the package unnecessary follow `debian_package`.
function(end_for_missing package debian_package needer)
  list(TRANSFORM ARGN REPLACE "(.+)" "-D \\1=OFF" OUTPUT_VARIABLE without)
  list(JOIN without " " without)
  # CMake doesn't wrap lines that begin with a blank.
  message(FATAL_ERROR
    " ${needer} need ${package}: apt-get install ${debian_package}, or configure with ${without}")
endfunction()

# The package's targets are visible in the caller's folder.
function(require_package package)
  find_package(${package} QUIET)
  if(NOT ${package}_FOUND)
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()

# For a package without a CMake configuration: looks for one of its headers.
function(require_header package header)
  string(MAKE_C_IDENTIFIER "${header}" name)
  find_path(folder_of_${name} ${header})
  mark_as_advanced(folder_of_${name})
  if(NOT folder_of_${name})
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()

# For a cross build, which uses sources in a folder of the build machine.
function(require_folder package folder)
  if(NOT IS_DIRECTORY ${folder})
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()
