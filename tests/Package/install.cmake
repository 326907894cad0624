# SPDX-License-Identifier: MIT
# Installs the build tree BUILD, and moves the installed files to the folder TO: they must not depend on
# the folder in which they were installed.
set(first_place "${TO} at first")
file(REMOVE_RECURSE "${first_place}" "${TO}")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIG}" --prefix "${first_place}" --strip
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${first_place}" "${TO}")
