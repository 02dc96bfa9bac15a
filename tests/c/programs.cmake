# Hosts of the C interface: in C by each compiler that is installed, in Fortran, and one that loads the
# library at run time.
find_program(ZELACCESS_GCC gcc)
find_program(ZELACCESS_CLANG_C clang)
find_program(ZELACCESS_FORTRAN gfortran)
if(NOT TARGET ZelC OR NOT TARGET zel OR NOT library_type STREQUAL "SHARED_LIBRARY")
  return()
endif()
add_test(NAME c_exported_symbols
         COMMAND ${CMAKE_COMMAND} -D LIBRARY=$<TARGET_FILE:ZelC> -D NM=${CMAKE_NM}
                 -D SYMBOL_VERSION=ZELC_${PROJECT_VERSION_MAJOR}
                 -D WORD_BYTES=${CMAKE_SIZEOF_VOID_P} -D SOURCE_DIR=${PROJECT_SOURCE_DIR}
                 -P ${CMAKE_CURRENT_SOURCE_DIR}/c/check_symbols.cmake)
function(zel_c_program name compiler expected compile run)
  add_test(NAME ${name}
           COMMAND ${CMAKE_COMMAND} -D NAME=${compiler} -D "COMPILE=${compile}" -D "RUN=${run}"
                   -D LIBRARY=$<TARGET_FILE:ZelC> -D ZEL=$<TARGET_FILE:zel>
                   -D DATA=${PROJECT_SOURCE_DIR}/data/xml -D VERSION=${PROJECT_VERSION}
                   -D EXPECTED=${expected}
                   -D WORK_DIR=${CMAKE_CURRENT_BINARY_DIR}/c/${name}
                   -P ${CMAKE_CURRENT_SOURCE_DIR}/c/check_program.cmake)
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "skipped: ")
endfunction()
set(c_examples ${PROJECT_SOURCE_DIR}/examples/c)
set(c_expected ${CMAKE_CURRENT_SOURCE_DIR}/c/ethanol.txt)
set(c_options -std=c99 -pedantic -Wall -Wextra -Wshadow -Werror
              -I${PROJECT_SOURCE_DIR}/include)
set(c_flags ${c_options} ${c_examples}/ethanol.c)
# The first program of the document.
set(c_document ${PROJECT_SOURCE_DIR}/docs/c-interface.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${c_document})
file(READ ${c_document} c_block)
string(REGEX REPLACE "^.*\n```c\n(#include.*)\n```\n\nThe libraries.*$" "\\1\n" c_block "${c_block}")
string(REGEX MATCH "prints ([^*]*) \\*/" c_prints "${c_block}")
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/c/first.c CONTENT "@c_block@" @ONLY)
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/c/first.txt CONTENT "${CMAKE_MATCH_1}\n" @ONLY)
if(ZELACCESS_SANITIZE)
  # With the compiler whose sanitizers the library is built with, and their part for C++.
  set(c_compiler ${ZELACCESS_CLANG_C} -fsanitize-link-c++-runtime)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(c_compiler ${ZELACCESS_GCC})
  endif()
  zel_c_program(c_program "a compiler for C" ${c_expected}
                "${c_compiler};-fsanitize=${ZELACCESS_SANITIZE};${c_flags};-lstdc++" "")
else()
  zel_c_program(c_document_program gcc ${CMAKE_CURRENT_BINARY_DIR}/c/first.txt
                "${ZELACCESS_GCC};${c_options};${CMAKE_CURRENT_BINARY_DIR}/c/first.c" "")
  zel_c_program(c_program_gcc gcc ${c_expected} "${ZELACCESS_GCC};${c_flags}" "")
  if(ZELACCESS_CLANG_C)
    zel_c_program(c_program_clang clang ${c_expected} "${ZELACCESS_CLANG_C};${c_flags}" "")
  endif()
  zel_c_program(fortran_program gfortran ${c_expected}
                "${ZELACCESS_FORTRAN};-std=f2003;-Wall;-Wextra;-pedantic;-Werror;${PROJECT_SOURCE_DIR}/hosts/c/zelaccess.f90;${c_examples}/ethanol.f90"
                "")
  zel_c_program(c_loaded_at_run_time python3 ${c_expected} ""
                "/usr/bin/env;python3;-B;${c_examples}/ethanol.py;$<TARGET_FILE:ZelC>")
endif()
