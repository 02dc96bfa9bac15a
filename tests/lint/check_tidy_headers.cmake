# Fails unless clang-tidy, with the settings of this tree, reports a fault in a header of every folder that
# has headers.
#   cmake -D TIDY=<clang-tidy> -D SOURCE_DIR=<this tree> -D WORK_DIR=<scratch> -P check_tidy_headers.cmake
cmake_minimum_required(VERSION 3.20)

file(GLOB_RECURSE headers RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/*.h)
list(FILTER headers EXCLUDE REGEX "^build")
set(folders "")
foreach(header ${headers})
  get_filename_component(folder ${header} DIRECTORY)
  list(APPEND folders ${folder})
endforeach()
list(REMOVE_DUPLICATES folders)
list(LENGTH folders count)
if(count LESS 15)
  message(FATAL_ERROR "only ${count} folders have headers in ${SOURCE_DIR}")
endif()

file(REMOVE_RECURSE ${WORK_DIR})
file(COPY ${SOURCE_DIR}/.clang-tidy DESTINATION ${WORK_DIR})
set(includes "")
foreach(folder ${folders})
  string(MAKE_C_IDENTIFIER ${folder} name)
  file(WRITE ${WORK_DIR}/${folder}/faulty.h "inline int* From_${name}() { return 0; }\n")
  string(APPEND includes "#include <${folder}/faulty.h>\n")
endforeach()
file(WRITE ${WORK_DIR}/all.cpp "${includes}")

execute_process(COMMAND ${TIDY} ${WORK_DIR}/all.cpp -- -std=c++20 -I${WORK_DIR} OUTPUT_VARIABLE found
                ERROR_QUIET)
foreach(folder ${folders})
  string(FIND "${found}" "${WORK_DIR}/${folder}/faulty.h:1:" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "clang-tidy says nothing of a fault in a header of ${folder}:\n${found}")
  endif()
endforeach()
