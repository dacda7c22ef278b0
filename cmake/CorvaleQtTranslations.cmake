# SPDX-License-Identifier: LGPL-2.1-or-later
# Translations are compiled into the program or the library that shows them, so that they are found wherever it is
# installed. scripts/update-translations brings the .ts files up to date with the code.

find_package(Qt5LinguistTools 5.15 REQUIRED)

# corvale_qt_translations(catalog result): a resource file with what is compiled from translations/catalog_*.ts, which
# programs see as :/catalog/translations/catalog_LANGUAGE.qm. Its path is stored in result.
function(corvale_qt_translations catalog result)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../translations/${catalog}_*.ts")
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/translations")
  file(MAKE_DIRECTORY "${folder}")
  set(entries "")
  foreach(source IN LISTS sources)
    get_filename_component(name "${source}" NAME_WE)
    add_custom_command(OUTPUT "${folder}/${name}.qm"
      COMMAND Qt5::lrelease -silent "${source}" -qm "${folder}/${name}.qm"
      DEPENDS "${source}"
      VERBATIM)
    # Half of a catalogue is saved, which is less than Qt asks for by default.
    string(APPEND entries "    <file compress-algo=\"zlib\" compress=\"9\" threshold=\"10\" alias=\"${name}.qm\">${folder}/${name}.qm</file>\n")
  endforeach()
  set(resources "${CMAKE_CURRENT_BINARY_DIR}/${catalog}_translations.qrc")
  file(CONFIGURE OUTPUT "${resources}" CONTENT
    "<RCC>\n  <qresource prefix=\"/${catalog}/translations\">\n${entries}  </qresource>\n</RCC>\n")
  set(${result} "${resources}" PARENT_SCOPE)
endfunction()
