# SPDX-License-Identifier: LGPL-2.1-or-later
# Makes and installs corvale_qt.pc: what the exported target says, in the words of a command line.

# Relative to the .pc file, so that the prefix may be chosen, or moved, after the build.
file(RELATIVE_PATH pkgconfig_to_prefix
  "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" pkgconfig_to_prefix "${pkgconfig_to_prefix}")

set(pkgconfig_requires "Qt5Qwt6")
foreach(component IN LISTS corvale_qt_components)
  string(APPEND pkgconfig_requires " Qt5${component}")
endforeach()

if(corvale_qt_needs_muparser)
  string(APPEND pkgconfig_requires " muparser")
endif()

set(pkgconfig_link_options "")
set(pkgconfig_definitions "")
if(library_type STREQUAL "STATIC")
  get_target_property(options corvale_qt INTERFACE_LINK_OPTIONS)
  list(TRANSFORM options PREPEND " ")
  list(JOIN options "" pkgconfig_link_options)
  get_target_property(definitions corvale_qt INTERFACE_COMPILE_DEFINITIONS)
  list(TRANSFORM definitions PREPEND " -D")
  list(JOIN definitions "" pkgconfig_definitions)
endif()

configure_file("${PROJECT_SOURCE_DIR}/cmake/corvale_qt.pc.in" "${PROJECT_BINARY_DIR}/corvale_qt.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/corvale_qt.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
