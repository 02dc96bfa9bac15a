# Runs a program of a document in a folder with libraries of published data. Its arguments, if it
# has any: a document to read, a library to make, a document to write.
#   cmake -D PROGRAM=<program> -D ZEL=<zel> -D DATA=<documents> -D WORK_DIR=<scratch> -D PRINTS=<text>
#         -P run_block.cmake
cmake_minimum_required(VERSION 3.21)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK_DIR} RESULT_VARIABLE failed
                  OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "${ARGN}: ${failed}\n${out}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

foreach(library sample perry crc)
  run(${ZEL} import ${library}.lb1 ${DATA}/${library}.xml --create)
endforeach()
run(${PROGRAM} ${DATA}/sample.xml ${WORK_DIR}/own.lb1 ${WORK_DIR}/out.xml)
string(FIND "${out}" "${PRINTS}" at)
if(at EQUAL -1 OR PRINTS STREQUAL "")
  message(FATAL_ERROR "not \"${PRINTS}\", but:\n${out}")
endif()
