# SPDX-License-Identifier: MIT
# Installs the build tree BUILD, and moves what was installed to the folder TO: nothing of it may
# depend on the place that it was installed in.
set(first_place "${TO} at first")
file(REMOVE_RECURSE "${first_place}" "${TO}")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIG}" --prefix "${first_place}" --strip
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${first_place}" "${TO}")
