# exported_names(<variable>)
# The names that LIBRARY exports, as the linker sees them, without their version; NM reads them. Fails
# when a name does not have the version SYMBOL_VERSION, or when nothing is exported.
function(exported_names variable)
  execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} OUTPUT_VARIABLE lines
                  RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "cannot read the symbols of ${LIBRARY}")
  endif()
  # The version is a symbol, too, where the linker writes one.
  string(REGEX REPLACE "[0-9a-f]+ A ${SYMBOL_VERSION}(@@${SYMBOL_VERSION})?\n" "" lines "${lines}")
  string(REGEX REPLACE "[0-9a-f]+ [A-Za-z] ([^\n]*)\n" "\\1;" names "${lines}")
  list(FILTER names EXCLUDE REGEX "^$")
  set(others ${names})
  list(FILTER others EXCLUDE REGEX "@@${SYMBOL_VERSION}$")
  if(others OR NOT names)
    list(JOIN others "\n  " others)
    message(FATAL_ERROR "${LIBRARY}: exported, but not as ${SYMBOL_VERSION}:\n  ${others}")
  endif()
  list(TRANSFORM names REPLACE "@@${SYMBOL_VERSION}$" "")
  set(${variable} ${names} PARENT_SCOPE)
endfunction()

# exported_declarations(<variable>)
# The same as a programmer writes them. That is not left to nm: the one of LLVM does not translate a name
# that has a version.
function(exported_declarations variable)
  exported_names(names)
  find_program(CXXFILT NAMES c++filt llvm-cxxfilt REQUIRED)
  execute_process(COMMAND ${CXXFILT} ${names} OUTPUT_VARIABLE lines OUTPUT_STRIP_TRAILING_WHITESPACE
                  RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "${CXXFILT} fails")
  endif()
  string(REPLACE "\n" ";" declarations "${lines}")
  set(${variable} ${declarations} PARENT_SCOPE)
endfunction()

# Fails unless every name that a released version has exported is still exported: those in
# exported_names.txt, which are of 64-bit systems.
function(expect_released_names)
  get_filename_component(library ${LIBRARY} NAME_WE)
  string(REGEX REPLACE "^lib" "" library ${library})
  file(STRINGS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exported_names.txt released REGEX "^${library} ")
  list(TRANSFORM released REPLACE "^${library} " "")
  list(LENGTH released count)
  if(count LESS 80)
    message(FATAL_ERROR "only ${count} released names of ${library}")
  endif()
  exported_names(names)
  list(REMOVE_ITEM released ${names})
  if(released)
    list(JOIN released "\n  " released)
    message(FATAL_ERROR "${LIBRARY} no longer exports\n  ${released}")
  endif()
endfunction()
