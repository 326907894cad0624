# SPDX-License-Identifier: MIT
# Fails unless the desktop program PROGRAM opens FILE without a display and writes a picture of its window
# into FOLDER, where it also keeps its settings.
file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{XDG_CONFIG_HOME} "${FOLDER}")
set(ENV{XDG_STATE_HOME} "${FOLDER}")
set(picture "${FOLDER}/picture.png")
execute_process(COMMAND "${PROGRAM}" "${FILE}" --picture "${picture}" COMMAND_ERROR_IS_FATAL ANY)
file(READ "${picture}" beginning LIMIT 8 HEX)
if(NOT beginning STREQUAL "89504e470d0a1a0a")
  message(FATAL_ERROR "${picture} is not a PNG file; it begins with ${beginning}")
endif()
