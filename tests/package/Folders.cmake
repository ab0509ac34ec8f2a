# Tests that the library doesn't contain the names of its build folders, so that it is the same
# wherever it is built.

string(REPLACE "," ";" FOLDERS "${FOLDERS}")
foreach(folder IN LISTS FOLDERS)
  string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" pattern "${folder}")
  file(STRINGS ${LIBRARY} found REGEX "${pattern}/" LIMIT_COUNT 5)
  if(found)
    message(FATAL_ERROR "${LIBRARY} names ${folder}: ${found}")
  endif()
endforeach()
