# SPDX-License-Identifier: LGPL-2.1-or-later
# Most of the library makes windows, answers a person, or does a little once in a frame. Optimised builds compile that to be small,
# which takes a third of its code away. What goes through many readings or pixels is compiled to be fast, as is every source that is not
# named here.

# corvale_qt_small(Name ...): sources Name.cpp of the calling folder that go through neither many readings nor many pixels.
function(corvale_qt_small)
  foreach(name IN LISTS ARGN)
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp")
    if(NOT EXISTS "${source}")
      message(FATAL_ERROR "corvale_qt_small: there is no ${source}")
    endif()
    set_property(GLOBAL APPEND PROPERTY CORVALE_QT_SMALL "${source}")
  endforeach()
endfunction()

# corvale_qt_compile_small(target): compiles these sources of the target to be small. Called after corvale_qt_compile_folders(), of
# whose sources made of several those become small that have only such sources.
function(corvale_qt_compile_small target)
  if(NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo)$" OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  get_property(named GLOBAL PROPERTY CORVALE_QT_SMALL)
  get_target_property(sources ${target} SOURCES)
  get_target_property(base ${target} SOURCE_DIR)
  get_target_property(binary ${target} BINARY_DIR)
  set(small "${binary}/${target}_autogen/mocs_compilation.cpp") # what calls slots by their numbers
  foreach(source IN LISTS sources)
    get_filename_component(source "${source}" ABSOLUTE BASE_DIR "${base}")
    if(NOT source IN_LIST named)
      continue()
    endif()
    get_source_file_property(group "${source}" TARGET_DIRECTORY ${target} UNITY_GROUP)
    if(CORVALE_QT_COMPILE_FOLDERS AND group)
      set(small_group "${group}_small")
      set_source_files_properties("${source}" TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${small_group})
      list(APPEND small "${binary}/CMakeFiles/${target}.dir/Unity/unity_${small_group}_cxx.cxx")
    else()
      list(APPEND small "${source}")
    endif()
  endforeach()
  list(REMOVE_DUPLICATES small)
  # Loops begin at addresses that suit the processor, as before; that functions and jumps do so takes a twentieth of the code.
  # Each function has a section of its own, so that the linker leaves out what nothing calls.
  target_compile_options(${target} PRIVATE -fno-align-functions -fno-align-jumps -ffunction-sections -fdata-sections)
  # Precompiled headers are compiled to be fast, and gcc takes what it optimises for from them.
  set_source_files_properties(${small} TARGET_DIRECTORY ${target} PROPERTIES
    COMPILE_OPTIONS -Os SKIP_PRECOMPILE_HEADERS ON)
endfunction()
