# Runs the example on a published source and on a document without its bank, and compares its output
# with what it must be.
#   cmake -D CURVES=<program> -D DATA=<data folder> -D WORK_DIR=<scratch folder> -P check_curves.cmake
cmake_minimum_required(VERSION 3.20)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

# Fails unless the program ends with `status` and prints the lines.
function(expect status document)
  execute_process(COMMAND ${CURVES} ${document} ${WORK_DIR} RESULT_VARIABLE got OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  if(NOT got STREQUAL status)
    message(FATAL_ERROR "the program ended with ${got}, not ${status}\n${out}${err}")
  endif()
  foreach(line IN LISTS ARGN)
    string(FIND "\n${out}${err}" "\n${line}\n" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "no line\n${line}\nin\n${out}${err}")
    endif()
  endforeach()
endfunction()

expect(0 ${DATA}/xml/chemsep-purecomp.xml
  "  Formaldehyde           254.01  stored   254.05"
  "  Ethanol                351.81  stored   351.80"
  "209 of 224 are within 1 K of the stored ones."
  "Formaldehyde, equation 20, 1001 temperatures: 1001 have the bits of single evaluations\;"
  "vector instructions differ by at most 1e-12.")
expect(1 ${DATA}/xml/crc-purecomp.xml "curves: the document has no bank CHEMSEP")

file(REMOVE_RECURSE ${WORK_DIR})
