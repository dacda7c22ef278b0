# SPDX-License-Identifier: LGPL-2.1-or-later
# Run by CPack between installing and packing: adds what Debian asks of each package, and of a library's package.
# options.cmake, which the build made, says what the build was.

# Documents are compressed, without a time stamp.
function(compress file)
  execute_process(COMMAND gzip -9n "${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}")
  file(GLOB documents "${root}/usr/share/doc/*")
  file(COPY_FILE "${CORVALE_QT_DEBIAN}/changelog" "${documents}/changelog.Debian")
  compress("${documents}/changelog.Debian")
  file(GLOB manual_pages "${root}/usr/share/man/man1/*.1")
  foreach(page IN LISTS manual_pages)
    compress("${page}")
  endforeach()
endforeach()

# The packages that each file was linked with: they tell whom a fault of another library concerns.
file(GLOB_RECURSE own_library "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/runtime/*/${CORVALE_QT_SONAME}")
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}")
  file(GLOB documents "${root}/usr/share/doc/*")
  file(GLOB_RECURSE programs "${root}/usr/bin/*" "${root}/usr/lib/*/plugins/*.so" "${root}/usr/lib/*.so.*.*")
  if(NOT programs)
    continue()
  endif()
  get_filename_component(name "${documents}" NAME)
  execute_process(
    COMMAND "${CMAKE_CURRENT_LIST_DIR}/../scripts/make-sbom" --name "${name}" --version "${CORVALE_QT_VERSION}"
      --output "${documents}/sbom.cdx.json" --header "${CORVALE_QT_BOOST_HEADERS}/boost/version.hpp" ${programs} ${own_library}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# The version of the library that each symbol is there from. Packages of hosts are then made to depend on the version
# that has what they use.
file(GLOB_RECURSE library "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/runtime/*/${CORVALE_QT_SONAME}")
file(MAKE_DIRECTORY "${CORVALE_QT_CONTROL_FILES}")
set(package ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME})
execute_process(
  COMMAND dpkg-gensymbols -c1 -P/nowhere "-p${package}" "-v${CORVALE_QT_VERSION}" "-e${library}"
    "-I${CORVALE_QT_DEBIAN}/${package}.symbols" "-O${CORVALE_QT_CONTROL_FILES}/symbols"
  OUTPUT_VARIABLE difference
  ERROR_VARIABLE errors
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  string(REGEX MATCHALL "\n-[^\n]*" gone "${difference}")
  message(FATAL_ERROR "dpkg-gensymbols failed. Symbols of an earlier version that are gone:${gone}\n${errors}")
endif()
# For tools that do not read symbols.
string(REPLACE ".so." " " name_and_version "${CORVALE_QT_SONAME}")
file(WRITE "${CORVALE_QT_CONTROL_FILES}/shlibs" "${name_and_version} ${package} (>= ${CORVALE_QT_VERSION})\n")
file(WRITE "${CORVALE_QT_CONTROL_FILES}/triggers" "activate-noawait ldconfig\n")
