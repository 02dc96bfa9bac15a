# Makes the interchange documents anew and holds them against those that are kept.
#   cmake -D PYTHON=<interpreter> -D DATA=<data folder> -D WORK_DIR=<scratch folder> -P check_interchange.cmake
cmake_minimum_required(VERSION 3.20)

file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${PYTHON} ${DATA}/make_interchange.py ${WORK_DIR} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB made RELATIVE ${WORK_DIR} ${WORK_DIR}/*)
file(GLOB kept RELATIVE ${DATA}/xml ${DATA}/xml/*)
if(NOT made STREQUAL kept OR made STREQUAL "")
  message(FATAL_ERROR "made: ${made}\nkept: ${kept}")
endif()
foreach(name IN LISTS made)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${WORK_DIR}/${name} ${DATA}/xml/${name}
                  RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "data/xml/${name} is not what data/make_interchange.py makes")
  endif()
endforeach()
file(REMOVE_RECURSE ${WORK_DIR})
