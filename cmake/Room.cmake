# Adds a folder of src/ as an object library of the same name, for every library and program that
# links it.

function(add_room folder)
  cmake_path(GET folder FILENAME target)
  list(TRANSFORM ARGN PREPEND src/${folder}/)
  add_library(${target} OBJECT ${ARGN})
  target_include_directories(${target} PUBLIC include src)
endfunction()
