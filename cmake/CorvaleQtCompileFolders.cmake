# SPDX-License-Identifier: LGPL-2.1-or-later
# corvale_qt_compile_folders(target): if CORVALE_QT_COMPILE_FOLDERS is set, the sources of each folder are compiled as one.
# For a build of everything from nothing only: a change to one file compiles its whole folder.
function(corvale_qt_compile_folders target)
  if(NOT CORVALE_QT_COMPILE_FOLDERS)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  # In one source of several, gcc takes it for an error that a class of a private header holds what only its own source knows.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  get_target_property(sources ${target} SOURCES)
  get_target_property(base ${target} SOURCE_DIR)
  foreach(source IN LISTS sources)
    if(source MATCHES "\\.cpp$")
      get_filename_component(path "${source}" ABSOLUTE BASE_DIR "${base}")
      get_filename_component(folder "${path}" DIRECTORY)
      file(RELATIVE_PATH group "${PROJECT_SOURCE_DIR}" "${folder}")
      string(MAKE_C_IDENTIFIER "${group}" group)
      set_source_files_properties("${path}" TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${group})
    endif()
  endforeach()
endfunction()
