# A library that names the folders it was built in is not the same when it is built elsewhere.

string(REPLACE "," ";" FOLDERS "${FOLDERS}")
foreach(folder IN LISTS FOLDERS)
  string(REGEX REPLACE "([][+.*()^$?|\\\\])" "\\\\\\1" pattern "${folder}")
  file(STRINGS ${LIBRARY} found REGEX "${pattern}/" LIMIT_COUNT 5)
  if(found)
    message(FATAL_ERROR "${LIBRARY} names ${folder}: ${found}")
  endif()
endforeach()
