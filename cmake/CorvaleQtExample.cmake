# SPDX-License-Identifier: LGPL-2.1-or-later
# corvale_qt_add_example(name [HEADLESS]): examples/name/main.cpp, built as a host would build it. Under the tests each
# example is started without a display and asked to end by itself: --quit-after MILLISECONDS. A HEADLESS one ends without
# being asked, and is run with a platform that no window could be opened on.
function(corvale_qt_add_example name)
  cmake_parse_arguments(arg "HEADLESS" "" "" ${ARGN})
  add_executable(example_${name} ${name}/main.cpp)
  set_target_properties(example_${name} PROPERTIES OUTPUT_NAME ${name})
  target_link_libraries(example_${name} PRIVATE Corvale_Qt::corvale_qt corvale_qt_flags)
  if(CORVALE_QT_BUILD_TESTING)
    if(arg_HEADLESS)
      set(platform none)
      add_test(NAME example_${name} COMMAND example_${name})
    else()
      set(platform offscreen)
      add_test(NAME example_${name} COMMAND example_${name} --quit-after 300)
    endif()
    set_tests_properties(example_${name} PROPERTIES
      ENVIRONMENT "QT_QPA_PLATFORM=${platform};LC_ALL=C.UTF-8"
      ENVIRONMENT_MODIFICATION "DISPLAY=unset:"
      FAIL_REGULAR_EXPRESSION "QObject::connect:;QMetaObject::connectSlotsByName:"
      LABELS example TIMEOUT 60)
  endif()
endfunction()
