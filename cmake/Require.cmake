# What the project takes from others. Where a package is missing, the configuration ends with a
# sentence that says what needs it and how to go on: CMake's own says neither.

# `needer` is a plural. Behind the Debian package stand the options that do without it.
function(end_for_missing package debian_package needer)
  list(TRANSFORM ARGN REPLACE "(.+)" "-D \\1=OFF" OUTPUT_VARIABLE without)
  list(JOIN without " " without)
  # CMake breaks no line that begins with a blank.
  message(FATAL_ERROR
    " ${needer} need ${package}: apt-get install ${debian_package}, or configure with ${without}")
endfunction()

# The package's targets are those of the caller's folder.
function(require_package package)
  find_package(${package} QUIET)
  if(NOT ${package}_FOUND)
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()

# For a package without a configuration for CMake: a header that it has.
function(require_header package header)
  string(MAKE_C_IDENTIFIER "${header}" name)
  find_path(folder_of_${name} ${header})
  mark_as_advanced(folder_of_${name})
  if(NOT folder_of_${name})
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()

# For a cross build, which takes sources out of a folder of the build machine.
function(require_folder package folder)
  if(NOT IS_DIRECTORY ${folder})
    end_for_missing(${package} ${ARGN})
  endif()
endfunction()
