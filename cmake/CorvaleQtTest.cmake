# SPDX-License-Identifier: LGPL-2.1-or-later
# Two functions that build a program and register it with CTest: offscreen, with a time limit, in a fixed
# locale and time zone, and failing where Qt complains of a connection by name. For both,
#   INTERNAL  links the library's objects instead of the shared library: for parts that are not exported.
#
# corvale_qt_add_test(tst_Name [INTERNAL] [GL | ALSO_GL] [ALSO_SCALED] [SOURCES file ...] [LIBRARIES target ...] [TIMEOUT seconds])
#
# Builds tst_Name.cpp of the calling folder (and SOURCES).
#   GL           runs on a display made for it (xvfb-run), since the test needs OpenGL; label "gl".
#   ALSO_GL      runs the same cases there once more, as tst_Name-gl.
#   ALSO_SCALED  runs them once more with two device pixels to a pixel each way, as tst_Name-scaled.
#
# corvale_qt_add_fuzz_test(fuzz_Name [INTERNAL] [SOURCES file ...] [LIBRARIES target ...] [ROUNDS number])
#
# Builds fuzz_Name.cpp of the calling folder, which defines what tests/support/FuzzTarget.h declares, and runs
# it on a fixed row of inputs (ROUNDS of them, otherwise some thousand); label "fuzz". Configured with
# CORVALE_QT_FUZZ (preset "fuzz") the same program is driven by libFuzzer, for as long as one likes.

find_program(XVFB_RUN_PROGRAM xvfb-run)

# Most tests link the whole library: a third of the time that they take to build, if the linker is a slow one.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=lld CORVALE_QT_HAS_LLD)

# Every test starts from Qt's widgets and its test library.
add_library(corvale_qt_test_flags INTERFACE)
add_library(corvale_qt_test_precompiled OBJECT EXCLUDE_FROM_ALL "${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp")
set_target_properties(corvale_qt_test_precompiled PROPERTIES AUTOMOC OFF)
target_link_libraries(corvale_qt_test_precompiled
  PRIVATE Qt5::Widgets Qwt::Qwt Qt5::Test corvale_qt_flags corvale_qt_test_flags)
corvale_qt_precompile_into(corvale_qt_test_precompiled
  <QtTest/qsignalspy.h> <QtTest/qtestcase.h> <QtTest/qtestevent.h> <QtTest/qtesttouch.h>)
if(CORVALE_QT_SANITIZE)
  # The arithmetic that is checked is that of the code under test: to check that of the tests as well, and to know their lines,
  # takes nearly half of the time that the tests need to be compiled.
  target_compile_options(corvale_qt_test_flags INTERFACE -fno-sanitize=undefined -g0)
endif()

set(corvale_qt_lsan_suppressions "${PROJECT_SOURCE_DIR}/cmake/lsan-suppressions.txt")
if(CORVALE_QT_SANITIZE)
  # The GL drivers are unloaded before the leak check runs; without a dlclose that does nothing the
  # leaks in them have no module name left to suppress.
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/nodlclose.c"
    CONTENT "int dlclose(void *handle);\nint dlclose(void *handle) { (void)handle; return 0; }\n")
  enable_language(C)
  add_library(corvale_qt_nodlclose MODULE "${PROJECT_BINARY_DIR}/nodlclose.c")
  set(corvale_qt_preloaded "$<TARGET_FILE:corvale_qt_nodlclose>")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Its sanitizer is a library that must be loaded before all others; that of clang is part of the program.
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libasan.so
      OUTPUT_VARIABLE sanitizer_library OUTPUT_STRIP_TRAILING_WHITESPACE)
    string(PREPEND corvale_qt_preloaded "${sanitizer_library}:")
  endif()
endif()

# Without it a report of clang's sanitizers names no functions, and what is let through by their names would be reported.
find_program(LLVM_SYMBOLIZER_PROGRAM NAMES llvm-symbolizer-14 llvm-symbolizer)
set(corvale_qt_symbolizer "")
if(LLVM_SYMBOLIZER_PROGRAM)
  set(corvale_qt_symbolizer "ASAN_SYMBOLIZER_PATH=${LLVM_SYMBOLIZER_PROGRAM}")
endif()

set(corvale_qt_runtime_dir "${PROJECT_BINARY_DIR}/runtime")
file(MAKE_DIRECTORY "${corvale_qt_runtime_dir}")
file(CHMOD "${corvale_qt_runtime_dir}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

# What every test program of this project is run with. Where the address sanitizer keeps books of thread-local memory, its
# search for leaks now and then reads an address that never was one, and ends a test with OpenGL whose cases all passed.
function(corvale_qt_test_properties test)
  set_tests_properties(${test} PROPERTIES
    ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;QT_SCALE_FACTOR=1;XDG_RUNTIME_DIR=${corvale_qt_runtime_dir};XDG_STATE_HOME=${corvale_qt_runtime_dir};LSAN_OPTIONS=suppressions=${corvale_qt_lsan_suppressions}:print_suppressions=0;ASAN_OPTIONS=intercept_tls_get_addr=0;UBSAN_OPTIONS=print_stacktrace=1;${corvale_qt_symbolizer}"
    FAIL_REGULAR_EXPRESSION "QObject::connect:;QObject::disconnect:;QMetaObject::connectSlotsByName:"
    # A test that skips every case it has (no real readings, no OpenGL) is shown as skipped.
    SKIP_REGULAR_EXPRESSION "Totals: 2 passed, 0 failed, [1-9][0-9]* skipped")
endfunction()

# Makes the .moc file that a test's source includes, and one for each header among the other sources: a call of moc,
# where AUTOMOC would bring one more target and one more compilation for every test.
function(corvale_qt_moc_test test)
  set_target_properties(${test} PROPERTIES AUTOMOC OFF)
  target_include_directories(${test} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
  set(outputs "${CMAKE_CURRENT_BINARY_DIR}/${test}.moc")
  qt5_generate_moc(${test}.cpp ${outputs} TARGET ${test})
  foreach(header IN LISTS ARGN)
    if(header MATCHES "\\.h$")
      get_filename_component(name ${header} NAME_WE)
      set(output "${CMAKE_CURRENT_BINARY_DIR}/${test}-moc_${name}.cpp")
      qt5_generate_moc(${header} ${output} TARGET ${test})
      list(APPEND outputs ${output})
    endif()
  endforeach()
  target_sources(${test} PRIVATE ${outputs})
endfunction()

# Links a test program; internal says whether it takes the objects or the shared library.
function(corvale_qt_link_test test internal)
  corvale_qt_precompile(${test} corvale_qt_test_precompiled)
  if(CORVALE_QT_HAS_LLD)
    target_link_options(${test} PRIVATE -fuse-ld=lld)
  endif()
  target_link_libraries(${test} PRIVATE corvale_qt_test_support Qt5::Test corvale_qt_flags corvale_qt_test_flags ${ARGN})
  if(internal)
    target_link_libraries(${test} PRIVATE corvale_qt_objects corvale_qt_numerics)
    target_compile_definitions(${test} PRIVATE CORVALE_QT_STATIC_DEFINE)
  else()
    target_link_libraries(${test} PRIVATE Corvale_Qt::corvale_qt)
  endif()
endfunction()

# Registers a program of this project as a test without a display.
function(corvale_qt_add_offscreen_test test program label)
  add_test(NAME ${test} COMMAND ${program} ${ARGN})
  corvale_qt_test_properties(${test})
  set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  # The offscreen platform would use a display that happens to be there, and find OpenGL on it.
  set_property(TEST ${test} PROPERTY ENVIRONMENT_MODIFICATION "DISPLAY=unset:")
  set_property(TEST ${test} PROPERTY LABELS ${label})
endfunction()

# Registers one as a test on a display of its own, with OpenGL.
function(corvale_qt_add_display_test test program)
  if(NOT XVFB_RUN_PROGRAM)
    message(WARNING "${test} needs OpenGL on a display: xvfb-run was not found, the test is left out")
    return()
  endif()
  set(preload "")
  if(CORVALE_QT_SANITIZE)
    set(preload env "LD_PRELOAD=${corvale_qt_preloaded}")
  endif()
  add_test(NAME ${test} COMMAND "${XVFB_RUN_PROGRAM}" -a -s "-screen 0 1280x1024x24"
    ${preload} $<TARGET_FILE:${program}>)
  corvale_qt_test_properties(${test})
  set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=xcb")
  set_property(TEST ${test} PROPERTY LABELS gl)
endfunction()

function(corvale_qt_add_test name)
  cmake_parse_arguments(arg "INTERNAL;GL;ALSO_GL;ALSO_SCALED" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  corvale_qt_link_test(${name} ${arg_INTERNAL} ${arg_LIBRARIES})
  corvale_qt_moc_test(${name} ${arg_SOURCES})

  if(arg_GL)
    corvale_qt_add_display_test(${name} ${name})
  else()
    corvale_qt_add_offscreen_test(${name} ${name} unit)
  endif()
  if(arg_ALSO_GL)
    corvale_qt_add_display_test(${name}-gl ${name})
  endif()
  if(arg_ALSO_SCALED)
    corvale_qt_add_offscreen_test(${name}-scaled ${name} unit)
    set_property(TEST ${name}-scaled APPEND PROPERTY ENVIRONMENT_MODIFICATION "QT_SCALE_FACTOR=set:2")
  endif()
  foreach(test IN ITEMS ${name} ${name}-gl ${name}-scaled)
    if(TEST ${test})
      # What may take long begins first, so that no core waits for it in the end.
      set_tests_properties(${test} PROPERTIES TIMEOUT ${arg_TIMEOUT} COST ${arg_TIMEOUT})
    endif()
  endforeach()
endfunction()

# What drives the fuzz targets, compiled once for all of them.
add_library(corvale_qt_fuzz_driver OBJECT EXCLUDE_FROM_ALL
  "${PROJECT_SOURCE_DIR}/tests/support/FuzzDriver.cpp" "${PROJECT_SOURCE_DIR}/tests/support/FuzzMutator.cpp")
set_target_properties(corvale_qt_fuzz_driver PROPERTIES AUTOMOC OFF)
corvale_qt_link_test(corvale_qt_fuzz_driver FALSE Qt5::Widgets)
if(CORVALE_QT_FUZZ)
  target_compile_definitions(corvale_qt_fuzz_driver PRIVATE CORVALE_QT_FUZZ)
endif()

function(corvale_qt_add_fuzz_test name)
  cmake_parse_arguments(arg "INTERNAL" "ROUNDS" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_ROUNDS)
    set(arg_ROUNDS 3000)
  endif()
  add_executable(${name} ${name}.cpp $<TARGET_OBJECTS:corvale_qt_fuzz_driver> ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  corvale_qt_link_test(${name} ${arg_INTERNAL} Qt5::Widgets ${arg_LIBRARIES})
  # Inputs that reach lines which the seeds in the source do not.
  string(REPLACE "fuzz_" "" subject ${name})
  set(corpus "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${subject}")
  if(NOT EXISTS "${corpus}")
    set(corpus "")
  endif()
  if(CORVALE_QT_FUZZ)
    target_compile_definitions(${name} PRIVATE CORVALE_QT_FUZZ)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    corvale_qt_add_offscreen_test(${name} ${name} fuzz -runs=${arg_ROUNDS} -seed=1 -max_len=4096)
  else()
    corvale_qt_add_offscreen_test(${name} ${name} fuzz ${arg_ROUNDS} ${corpus})
  endif()
  # An input that hangs fails the test here; what is asked for takes seconds.
  set_property(TEST ${name} PROPERTY TIMEOUT 120)
endfunction()
