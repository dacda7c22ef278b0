# SPDX-License-Identifier: LGPL-2.1-or-later

# corvale_qt_read_control(component): sets in the caller what debian/control says of the package that holds a component of
# the installation: control_package, control_SECTION, _ARCHITECTURE, _DEPENDS, _RECOMMENDS and _SUGGESTS, _DESCRIPTION (a first
# line, then the others), and _DEPENDS_ON_LIBRARIES, which is whether its files are looked at for what they link.
function(corvale_qt_read_control component)
  set(control "${PROJECT_SOURCE_DIR}/debian/control")
  set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${control}")
  file(READ "${control}" text)
  # A semicolon would part a stanza as it parts the items of a list.
  string(ASCII 31 semicolon)
  string(REPLACE ";" "${semicolon}" text "${text}")
  # A stanza ends with an empty line; without its field of the component it is another package's.
  string(REGEX REPLACE "\n\n+" ";" stanzas "${text}\n\n")
  list(FILTER stanzas INCLUDE REGEX "\nX-Component: ${component}\n")
  list(LENGTH stanzas count)
  if(NOT count EQUAL 1)
    message(FATAL_ERROR "${control} has ${count} packages of the component ${component}")
  endif()
  string(REPLACE "${semicolon}" ";" stanza "\n${stanzas}\n")
  set(control_package "")
  foreach(field IN ITEMS Package Section Architecture Depends Recommends Suggests)
    string(TOUPPER ${field} upper)
    set(control_${upper} "")
    if(stanza MATCHES "\n${field}: ([^\n]*)")
      set(control_${upper} "${CMAKE_MATCH_1}")
    endif()
  endforeach()
  string(FIND "${control_DEPENDS}" "\${shlibs:Depends}" at)
  set(depends_on_libraries ON)
  if(at EQUAL -1)
    set(depends_on_libraries OFF)
  endif()
  string(REGEX REPLACE "\\\${(misc|shlibs):Depends}(, )?" "" control_DEPENDS "${control_DEPENDS}")
  foreach(field IN ITEMS DEPENDS RECOMMENDS SUGGESTS)
    string(REPLACE "\${binary:Version}" "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}"
      control_${field} "${control_${field}}")
  endforeach()
  string(REGEX MATCH "\nDescription: (.*)" description "${stanza}")
  string(REPLACE "\n " "\n" description "${CMAKE_MATCH_1}")
  string(STRIP "${description}" control_DESCRIPTION)

  set(control_package "${control_PACKAGE}" PARENT_SCOPE)
  set(control_DEPENDS_ON_LIBRARIES ${depends_on_libraries} PARENT_SCOPE)
  foreach(name IN ITEMS SECTION ARCHITECTURE DEPENDS RECOMMENDS SUGGESTS DESCRIPTION)
    set(control_${name} "${control_${name}}" PARENT_SCOPE)
  endforeach()
endfunction()
