# SPDX-License-Identifier: LGPL-2.1-or-later
# Compiler settings that every target of this project shares.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Otherwise it leaves alone what uses precompiled headers.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE_PROGRAM}")
endif()

add_library(corvale_qt_flags INTERFACE)
# The order of products and sums is part of what the models promise: no fused multiply-add.
target_compile_options(corvale_qt_flags INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
  # Qt's logging macros use what clang takes for an extension of GNU's.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
  # Of several sources compiled as one, a name that hides one of another source is no fault.
  $<$<NOT:$<BOOL:${CORVALE_QT_COMPILE_FOLDERS}>>:-Wshadow>
  $<$<BOOL:${CORVALE_QT_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(corvale_qt_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS)

if(CORVALE_QT_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  # Line tables are all that a report needs; full debug information doubles the build's time here.
  target_compile_options(corvale_qt_flags INTERFACE ${sanitizers} -g1)
  target_link_options(corvale_qt_flags INTERFACE ${sanitizers})
endif()

if(CORVALE_QT_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "CORVALE_QT_FUZZ needs clang, which brings libFuzzer; this compiler is "
      "${CMAKE_CXX_COMPILER_ID}")
  endif()
  set(fuzzing -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  target_compile_options(corvale_qt_flags INTERFACE ${fuzzing} -g1)
  target_link_options(corvale_qt_flags INTERFACE -fsanitize=address,undefined)
  if(CORVALE_QT_COVERAGE)
    target_compile_options(corvale_qt_flags INTERFACE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(corvale_qt_flags INTERFACE -fprofile-instr-generate)
  endif()
endif()

# Half of the time that a small source takes goes into the headers of Qt. Only what every target has may stand
# here: a compiler refuses headers that were compiled with a definition that the source does not have.

# corvale_qt_precompile_into(target header ...): the object library has the common headers and these ones precompiled.
function(corvale_qt_precompile_into target)
  target_precompile_headers(${target} PRIVATE
    <QtWidgets> <qwt_plot.h> <qwt_plot_curve.h> <qwt_scale_map.h>
    <algorithm> <cmath> <functional> <limits> <memory> <random> <vector> ${ARGN})
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

add_library(corvale_qt_precompiled OBJECT EXCLUDE_FROM_ALL "${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp")
set_target_properties(corvale_qt_precompiled PROPERTIES AUTOMOC OFF)
target_link_libraries(corvale_qt_precompiled PRIVATE Qt5::Widgets Qwt::Qwt corvale_qt_flags)
corvale_qt_precompile_into(corvale_qt_precompiled)

# corvale_qt_precompile(target [from]): its sources find the common headers precompiled, or those of another object library.
function(corvale_qt_precompile target)
  set(from corvale_qt_precompiled)
  if(ARGC GREATER 1)
    set(from ${ARGV1})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${from})
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()
