# SPDX-License-Identifier: LGPL-2.1-or-later
# Makes faults in memory hard to exploit in what is built. scripts/check-packages reads the result in the packages.
#   in every build        read-only relocations, all bound at the start; no executable stack; programs at random addresses
#   in optimised builds   guarded stack frames, checked string functions, and targets of indirect jumps that are marked
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

target_link_options(corvale_qt_flags INTERFACE LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)

set(hardening -fstack-protector-strong)
foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "CORVALE_QT_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    list(APPEND hardening ${flag})
  endif()
endforeach()
# Level 3 also knows the sizes of blocks from the heap; older compilers stop at 2.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  list(APPEND hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
else()
  list(APPEND hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
target_compile_options(corvale_qt_flags INTERFACE "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${hardening}>")
