# Installs a build into a folder that holds nothing of earlier ones.

file(REMOVE_RECURSE ${PACKAGE})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${PACKAGE}/installed
  COMMAND_ERROR_IS_FATAL ANY)
