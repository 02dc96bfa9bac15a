# Fails if a Doxygen command is not at the start of its comment line, where a reader looks for it, or
# if a line of the program at the top of a header has two statements: clang-format joins lines when a
# comment above them has become too long.
#   cmake -D HEADERS=<folder of the public headers> -P check_doc_lines.cmake
cmake_minimum_required(VERSION 3.20)

file(GLOB headers ${HEADERS}/*.h)
set(seen 0)
foreach(header IN LISTS headers)
  file(STRINGS ${header} commands REGEX "/// .*[\\](param|return|copydetails)")
  foreach(line IN LISTS commands)
    math(EXPR seen "${seen} + 1")
    if(NOT line MATCHES "^ */// [\\](param|return|copydetails)[^\\]*$")
      message(SEND_ERROR "${header}: ${line}")
    endif()
  endforeach()
  file(READ ${header} text)
  string(REGEX REPLACE "\n#ifndef .*" "" program "${text}")
  string(REGEX REPLACE " // [^\n]*" "" program "${program}")
  string(REGEX REPLACE "for \\([^\n]*" "" program "${program}")
  if("${program}" MATCHES "\n///     [^\n]*; [^ }\n][^\n]*")
    message(SEND_ERROR "${header}: ${CMAKE_MATCH_0}")
  endif()
endforeach()
if(seen EQUAL 0)
  message(FATAL_ERROR "no documented function found in ${HEADERS}")
endif()
