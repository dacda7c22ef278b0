# SPDX-License-Identifier: LGPL-2.1-or-later
# What the folders of the library use to say what they hold.

# corvale_qt_classes(Name ...): public classes, each in Name.h and Name.cpp of the calling folder.
# The header is installed, and a forwarding header <corvale_qt/Name> is made.
function(corvale_qt_classes)
  foreach(name IN LISTS ARGN)
    target_sources(corvale_qt_objects PRIVATE ${name}.h ${name}.cpp)
    corvale_qt_public_header(${name}.h ${name})
  endforeach()
endfunction()

# corvale_qt_public_header(File.h [Class ...]): a header of the calling folder that hosts include; one
# forwarding header for each class named.
function(corvale_qt_public_header header)
  get_filename_component(folder "${CMAKE_CURRENT_SOURCE_DIR}" NAME)
  install(FILES ${header}
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/corvale_qt/${folder}" COMPONENT development)
  foreach(class IN LISTS ARGN)
    corvale_qt_forwarding_header(${class} "\"corvale_qt/${folder}/${header}\"")
  endforeach()
endfunction()

# corvale_qt_forwarding_header(Class included): a header <corvale_qt/Class> that includes what is given, with
# its quotes or angle brackets.
function(corvale_qt_forwarding_header class included)
  set(forward "${PROJECT_BINARY_DIR}/include/corvale_qt/${class}")
  file(CONFIGURE OUTPUT "${forward}" CONTENT "#include ${included}\n")
  install(FILES "${forward}"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/corvale_qt" COMPONENT development)
endfunction()

# corvale_qt_private(File ...): sources and private headers of the calling folder.
function(corvale_qt_private)
  target_sources(corvale_qt_objects PRIVATE ${ARGN})
endfunction()
