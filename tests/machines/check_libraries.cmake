# Makes the libraries of the published documents and compares their bytes with the sums in a file, which
# are the same on every machine. After a change of the documents, `sha256sum *.lb?` in WORK_DIR gives the
# new ones.
#   cmake -D PROGRAM=<published_libraries> -D DOCUMENTS=<folder> -D SUMS=<file> -D WORK_DIR=<scratch>
#         [-D EMULATOR=<command that runs programs of the machine>] -P check_libraries.cmake
cmake_minimum_required(VERSION 3.20)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
execute_process(COMMAND ${EMULATOR} ${PROGRAM} ${WORK_DIR} ${DOCUMENTS} RESULT_VARIABLE failed
                OUTPUT_QUIET ERROR_VARIABLE err)
if(failed)
  message(FATAL_ERROR "${PROGRAM}: ${failed}\n${err}")
endif()
file(STRINGS ${SUMS} lines)
file(GLOB files RELATIVE ${WORK_DIR} ${WORK_DIR}/*.lb?)
list(LENGTH lines count)
list(LENGTH files found)
if(NOT count EQUAL 14 OR NOT found EQUAL 14)
  message(FATAL_ERROR "${found} files were made, ${count} sums are known")
endif()
foreach(line ${lines})
  string(REGEX MATCH "^([0-9a-f]+)  (.*)$" line "${line}")
  file(SHA256 ${WORK_DIR}/${CMAKE_MATCH_2} sum)
  if(NOT sum STREQUAL CMAKE_MATCH_1)
    message(FATAL_ERROR "${CMAKE_MATCH_2} has other bytes than on other machines: ${sum}")
  endif()
endforeach()
message(STATUS "${found} files are the same")
