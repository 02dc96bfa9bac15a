# Compiles a host of the C interface, runs it in a folder with libraries of published data, and compares
# what it prints. A missing compiler is an error in CI; elsewhere the test is skipped with a line that
# begins with "skipped".
#   cmake -D "COMPILE=<compiler and sources>" -D NAME=<compiler that may be missing> -D LIBRARY=<libZelC>
#         -D ZEL=<zel> -D DATA=<documents> -D EXPECTED=<file> -D VERSION=<version> -D WORK_DIR=<scratch>
#         -D "RUN=<program and arguments; empty: what was compiled>" -P check_program.cmake
cmake_minimum_required(VERSION 3.21)

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE failed
                  OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(failed)
    message(FATAL_ERROR "${ARGN}: ${failed}\n${out}${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
if(NOT COMPILE STREQUAL "")
  list(GET COMPILE 0 compiler)
  if(NOT compiler OR compiler MATCHES "-NOTFOUND$")
    if(DEFINED ENV{CI})
      message(FATAL_ERROR "${NAME} is not installed (scripts/bootstrap --tests)")
    endif()
    message(STATUS "skipped: ${NAME} is not installed (scripts/bootstrap --tests)")
    return()
  endif()
  get_filename_component(folder ${LIBRARY} DIRECTORY)
  run(${COMPILE} -o program -L${folder} -lZelC -Wl,-rpath,${folder})
endif()

foreach(library sample perry crc)
  run(${ZEL} import ${library}.lb1 ${DATA}/${library}.xml --create)
endforeach()
if(RUN STREQUAL "")
  set(RUN ${WORK_DIR}/program)
endif()
run(${RUN})
file(READ ${EXPECTED} expected)
string(REPLACE "@VERSION@" "${VERSION}" expected "${expected}")
if(NOT out STREQUAL expected)
  message(FATAL_ERROR "printed:\n${out}expected:\n${expected}")
endif()
