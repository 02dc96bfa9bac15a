# Fails unless the library of the C interface exports exactly the functions that its headers declare, and
# the table of the document and the module for Fortran name exactly these.
#   cmake -D LIBRARY=<file> -D NM=<nm> -D SYMBOL_VERSION=<name> -D WORD_BYTES=<of a pointer>
#         -D SOURCE_DIR=<root> -P check_symbols.cmake
cmake_minimum_required(VERSION 3.20)

set(declared "")
file(GLOB headers ${SOURCE_DIR}/include/zelaccess/zel*.h)
foreach(header ${headers})
  file(STRINGS ${header} lines REGEX "^ZEL_C_API ")
  foreach(line ${lines})
    if(NOT line MATCHES "^ZEL_C_API zel_status (zel_[a-z_]+)\\(")
      message(FATAL_ERROR "${header}: returns no status: ${line}")
    endif()
    list(APPEND declared ${CMAKE_MATCH_1})
  endforeach()
endforeach()
list(LENGTH declared count)
if(count LESS 80)
  message(FATAL_ERROR "only ${count} functions found in ${SOURCE_DIR}/include/zelaccess")
endif()
list(SORT declared)

function(expect_same what)
  list(SORT ARGN)
  if(NOT "${ARGN}" STREQUAL "${declared}")
    set(missing ${declared})
    list(REMOVE_ITEM missing ${ARGN})
    list(REMOVE_ITEM ARGN ${declared})
    message(FATAL_ERROR "${what}: lacks ${missing}, has beyond the headers ${ARGN}")
  endif()
endfunction()

include(${CMAKE_CURRENT_LIST_DIR}/../package/exported_names.cmake)
exported_names(exported)
if(WORD_BYTES EQUAL 8)
  expect_released_names()
endif()
expect_same("the exports of ${LIBRARY}" ${exported})

file(STRINGS ${SOURCE_DIR}/docs/c-functions.md rows REGEX "^\\| `zel_")
list(TRANSFORM rows REPLACE "^\\| `(zel_[a-z_]+)`.*" "\\1")
expect_same("the table of docs/c-functions.md" ${rows})

file(STRINGS ${SOURCE_DIR}/hosts/c/zelaccess.f90 binds REGEX "end function zel_[a-z_]+$")
list(TRANSFORM binds REPLACE ".*end function (zel_[a-z_]+)$" "\\1")
list(REMOVE_ITEM binds zel_c zel_f)
expect_same("hosts/c/zelaccess.f90" ${binds})
