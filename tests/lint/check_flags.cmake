# Fails if compile_commands.json is not written, or has a warning flag that clang does not know.
#   cmake -D COMMANDS=<compile_commands.json> -D CLANG=<clang++> -D WORK_DIR=<scratch> -P check_flags.cmake
cmake_minimum_required(VERSION 3.20)

file(STRINGS ${COMMANDS} lines REGEX "\"command\"")
string(REGEX MATCHALL " -[Wf][^ \"\\]+" flags "${lines}")
list(TRANSFORM flags STRIP)
list(REMOVE_DUPLICATES flags)
list(FILTER flags EXCLUDE REGEX "^-Wl,")
if(NOT "-Wconversion" IN_LIST flags)
  message(FATAL_ERROR "no warning flags found in ${COMMANDS}")
endif()

file(WRITE ${WORK_DIR}/empty.cpp "")
execute_process(COMMAND ${CLANG} ${flags} -Werror=unknown-warning-option -fsyntax-only
                        ${WORK_DIR}/empty.cpp RESULT_VARIABLE failed ERROR_VARIABLE why)
if(failed)
  message(FATAL_ERROR "clang does not take the flags of ${COMMANDS}:\n${why}")
endif()
