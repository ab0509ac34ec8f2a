# Tests that the DLL needs nothing but Windows, and that it has the version.

set(allowed KERNEL32.dll msvcrt.dll ntdll.dll)

execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "DLL Name: [^\n\r]+" imports "${headers}")
list(TRANSFORM imports REPLACE "DLL Name: " "")
if(NOT imports)
  message(FATAL_ERROR "No imports are listed: the headers were not read.")
endif()
list(REMOVE_ITEM imports ${allowed})
if(imports)
  message(FATAL_ERROR "Needs more than Windows: ${imports}")
endif()

execute_process(COMMAND ${WINDRES} --input-format=coff ${LIBRARY}
  OUTPUT_VARIABLE resources COMMAND_ERROR_IS_FATAL ANY)
foreach(line
    "VALUE \"FileVersion\", \"${VERSION}\""
    "VALUE \"ProductVersion\", \"${VERSION}\""
    "VALUE \"OriginalFilename\", \"RevitMappingEditorDll.dll\"")
  string(FIND "${resources}" "${line}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "The version resource lacks ${line}:\n${resources}")
  endif()
endforeach()
