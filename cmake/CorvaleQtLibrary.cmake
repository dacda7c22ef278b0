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
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  install(FILES ${header}
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${folder}" COMPONENT development)
  foreach(class IN LISTS ARGN)
    corvale_qt_forwarding_header(${class} "\"${folder}/${header}\"")
  endforeach()
endfunction()

# corvale_qt_former_headers(folder File.h ...): headers of the calling folder that used to lie in another folder
# of the library. A header that forwards stays there, so that hosts which include the old path still build.
function(corvale_qt_former_headers former_folder)
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  foreach(header IN LISTS ARGN)
    corvale_qt_forwarding_header(${former_folder}/${header} "\"${folder}/${header}\"")
  endforeach()
endfunction()

# corvale_qt_forwarding_header(name included): a header <corvale_qt/name> that includes what is given, with
# its quotes or angle brackets.
function(corvale_qt_forwarding_header name included)
  set(forward "${PROJECT_BINARY_DIR}/include/corvale_qt/${name}")
  file(CONFIGURE OUTPUT "${forward}" CONTENT "#include ${included}\n")
  get_filename_component(folder "corvale_qt/${name}" DIRECTORY)
  install(FILES "${forward}"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${folder}" COMPONENT development)
endfunction()

# corvale_qt_private(File ...): sources and private headers of the calling folder.
function(corvale_qt_private)
  target_sources(corvale_qt_objects PRIVATE ${ARGN})
endfunction()

# corvale_qt_resources(File.qrc): resources that are compiled into the library.
# Of a static library a linker takes only what is called, and nobody calls resources. Where the function that
# registers them is named, they are taken, and registered before main().
function(corvale_qt_resources file)
  corvale_qt_private("${file}")
  get_target_property(type corvale_qt TYPE)
  if(type STREQUAL "STATIC_LIBRARY")
    get_filename_component(name "${file}" NAME_WE)
    set(function "qInitResources_${name}")
    string(LENGTH "${function}" length)
    target_link_options(corvale_qt INTERFACE "-Wl,-u,_Z${length}${function}v")
  endif()
endfunction()
