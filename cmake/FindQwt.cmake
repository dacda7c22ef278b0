# SPDX-License-Identifier: LGPL-2.1-or-later
# Finds Qwt 6 built for Qt 5 and gives Qwt::Qwt. Qwt ships no CMake package, and each distribution names
# it differently; the names that say "Qt 5" come first, since a plain "qwt" may be built for another Qt.
# Set Qwt_ROOT where it lies in a place of its own.

find_path(Qwt_INCLUDE_DIR
  NAMES qwt_global.h
  PATH_SUFFIXES qwt6-qt5 qwt-qt5 qt5/qwt6 qt5/qwt qwt6 qwt lib/qwt.framework/Headers)
find_library(Qwt_LIBRARY NAMES qwt-qt5 qwt6-qt5 qwt6 qwt)
mark_as_advanced(Qwt_INCLUDE_DIR Qwt_LIBRARY)

if(Qwt_INCLUDE_DIR AND EXISTS "${Qwt_INCLUDE_DIR}/qwt_global.h")
  file(STRINGS "${Qwt_INCLUDE_DIR}/qwt_global.h" version_line REGEX "#define[ \t]+QWT_VERSION_STR")
  string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" Qwt_VERSION "${version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt
  REQUIRED_VARS Qwt_LIBRARY Qwt_INCLUDE_DIR
  VERSION_VAR Qwt_VERSION)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
  add_library(Qwt::Qwt UNKNOWN IMPORTED)
  set_target_properties(Qwt::Qwt PROPERTIES
    IMPORTED_LOCATION "${Qwt_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Qwt_INCLUDE_DIR}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${Qwt_INCLUDE_DIR}")
endif()
