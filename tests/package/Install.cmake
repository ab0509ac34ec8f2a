# Installs a build into an empty folder.

file(REMOVE_RECURSE ${PACKAGE})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${PACKAGE}/installed
  COMMAND_ERROR_IS_FATAL ANY)
