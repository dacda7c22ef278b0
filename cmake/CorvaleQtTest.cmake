# SPDX-License-Identifier: LGPL-2.1-or-later
# corvale_qt_add_test(tst_Name [INTERNAL] [GL] [SOURCES file ...] [LIBRARIES target ...] [TIMEOUT seconds])
#
# Builds tst_Name.cpp of the calling folder (and SOURCES) and registers it with CTest: offscreen, with a
# time limit, in a fixed locale and time zone, and failing where Qt complains of a connection by name.
#   INTERNAL  links the library's objects instead of the shared library: for parts that are not exported.
#   GL        runs on a display made for it (xvfb-run), since the test needs OpenGL; label "gl".

find_program(XVFB_RUN_PROGRAM xvfb-run)

set(corvale_qt_lsan_suppressions "${PROJECT_SOURCE_DIR}/cmake/lsan-suppressions.txt")
if(CORVALE_QT_SANITIZE)
  # The GL drivers are unloaded before the leak check runs; without a dlclose that does nothing the
  # leaks in them have no module name left to suppress.
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/nodlclose.c"
    CONTENT "int dlclose(void *handle);\nint dlclose(void *handle) { (void)handle; return 0; }\n")
  enable_language(C)
  add_library(corvale_qt_nodlclose MODULE "${PROJECT_BINARY_DIR}/nodlclose.c")
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libasan.so
    OUTPUT_VARIABLE corvale_qt_asan_library OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()

set(corvale_qt_runtime_dir "${PROJECT_BINARY_DIR}/runtime")
file(MAKE_DIRECTORY "${corvale_qt_runtime_dir}")
file(CHMOD "${corvale_qt_runtime_dir}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

# What every test program of this project is run with.
function(corvale_qt_test_properties test)
  set_tests_properties(${test} PROPERTIES
    ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC;QT_SCALE_FACTOR=1;XDG_RUNTIME_DIR=${corvale_qt_runtime_dir};LSAN_OPTIONS=suppressions=${corvale_qt_lsan_suppressions}:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1"
    FAIL_REGULAR_EXPRESSION "QObject::connect:;QObject::disconnect:;QMetaObject::connectSlotsByName:"
    # A test that skips every case it has (no real readings, no OpenGL) is shown as skipped.
    SKIP_REGULAR_EXPRESSION "Totals: 2 passed, 0 failed, [1-9][0-9]* skipped")
endfunction()

function(corvale_qt_add_test name)
  cmake_parse_arguments(arg "INTERNAL;GL" "TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE corvale_qt_test_support Qt5::Test corvale_qt_flags ${arg_LIBRARIES})
  if(arg_INTERNAL)
    target_link_libraries(${name} PRIVATE corvale_qt_objects)
    target_compile_definitions(${name} PRIVATE CORVALE_QT_STATIC_DEFINE)
  else()
    target_link_libraries(${name} PRIVATE Corvale_Qt::corvale_qt)
  endif()

  if(NOT arg_GL)
    add_test(NAME ${name} COMMAND ${name})
    corvale_qt_test_properties(${name})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
    # The offscreen platform would use a display that happens to be there, and find OpenGL on it.
    set_property(TEST ${name} PROPERTY ENVIRONMENT_MODIFICATION "DISPLAY=unset:")
    set_property(TEST ${name} PROPERTY LABELS unit)
  elseif(XVFB_RUN_PROGRAM)
    set(preload "")
    if(CORVALE_QT_SANITIZE)
      set(preload env "LD_PRELOAD=${corvale_qt_asan_library}:$<TARGET_FILE:corvale_qt_nodlclose>")
    endif()
    add_test(NAME ${name} COMMAND "${XVFB_RUN_PROGRAM}" -a -s "-screen 0 1280x1024x24"
      ${preload} $<TARGET_FILE:${name}>)
    corvale_qt_test_properties(${name})
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=xcb")
    set_property(TEST ${name} PROPERTY LABELS gl)
  else()
    message(WARNING "${name} needs OpenGL on a display: xvfb-run was not found, the test is left out")
    return()
  endif()
  set_property(TEST ${name} PROPERTY TIMEOUT ${arg_TIMEOUT})
endfunction()
