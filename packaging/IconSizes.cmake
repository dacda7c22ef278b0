# SPDX-License-Identifier: LGPL-2.1-or-later
# The monitor's icon as pictures of the sizes that desktops ask for, made of its two drawings.
add_executable(corvale_monitor_icon DrawIcon.cpp)
target_link_libraries(corvale_monitor_icon PRIVATE Qt5::Svg corvale_qt_flags)

set(pictures "")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
  set(drawing "${PROJECT_SOURCE_DIR}/monitor/resources/corvale-monitor.svg")
  if(size LESS 32)
    set(drawing "${PROJECT_SOURCE_DIR}/monitor/resources/corvale-monitor-small.svg")
  endif()
  set(picture "${CMAKE_CURRENT_BINARY_DIR}/corvale-monitor-${size}.png")
  add_custom_command(OUTPUT "${picture}"
    COMMAND corvale_monitor_icon "${drawing}" ${size} "${picture}"
    DEPENDS "${drawing}" VERBATIM)
  list(APPEND pictures "${picture}")
  install(FILES "${picture}" RENAME corvale-monitor.png
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps" COMPONENT monitor)
endforeach()
add_custom_target(corvale_monitor_icons ALL DEPENDS ${pictures})
