# SPDX-License-Identifier: MIT
# Decides whether QtModels is built: sets has_qt, and TKM_LRELEASE, Qt's compiler of translations.
set(TKM_BUILD_QT AUTO CACHE STRING
  "Build QtModels: ON, OFF, or AUTO: if Qt 6 and its lrelease are found. Not with an external platform")
set_property(CACHE TKM_BUILD_QT PROPERTY STRINGS AUTO ON OFF)
set(TKM_LEAST_QT 6.4)
set(has_qt OFF)
if(TKM_BUILD_QT AND NOT TKM_PLATFORM STREQUAL "external")
  set(is_required "")
  if(NOT TKM_BUILD_QT STREQUAL "AUTO")
    set(is_required REQUIRED)
  endif()
  find_package(Qt6 ${TKM_LEAST_QT} QUIET ${is_required} COMPONENTS Widgets)
  if(Qt6Widgets_FOUND)
    # A program of this machine, also when building for another one.
    find_program(TKM_LRELEASE NAMES lrelease-qt6 lrelease ${is_required}
      HINTS "${QT_HOST_PATH}/bin" "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}"
      DOC "Qt's compiler of translations; on Debian, in qt6-l10n-tools")
    mark_as_advanced(TKM_LRELEASE)
    if(TKM_LRELEASE)
      set(has_qt ON)
    endif()
  endif()
endif()
