# SPDX-License-Identifier: MIT
# Decides whether QtModels is built: sets has_qt.
set(TKM_BUILD_QT AUTO CACHE STRING
  "Build QtModels: ON, OFF, or AUTO: if Qt 6 is found. Not with an external platform")
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
    set(has_qt ON)
  endif()
endif()
