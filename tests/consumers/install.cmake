# Installs the build into PREFIX by way of another folder.
file(REMOVE_RECURSE "${PREFIX}" "${PREFIX}-at-first")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIG}" --prefix "${PREFIX}-at-first"
  COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${PREFIX}-at-first" "${PREFIX}")
