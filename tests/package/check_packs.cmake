# Fails when an object that is compiled for wider vectors than the rest of the library has a function
# that the linker could choose for other sources, too: one that is not local to the object. Only its
# entry is.
#   cmake -D OBJECTS=<files> -D NM=<nm> -P check_packs.cmake
cmake_minimum_required(VERSION 3.20)

list(LENGTH OBJECTS count)
if(NOT count EQUAL 2)
  message(FATAL_ERROR "not the two objects expected: ${OBJECTS}")
endif()
foreach(object ${OBJECTS})
  execute_process(COMMAND ${NM} --defined-only -C ${object} OUTPUT_VARIABLE lines RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "cannot read the symbols of ${object}")
  endif()
  string(REPLACE ";" "," lines "${lines}")
  string(REPLACE "\n" ";" lines "${lines}")
  set(entries 0)
  foreach(line ${lines})
    if(line MATCHES "^[0-9a-f]+ T zel::ComputeBlockOf[48]\\(")
      math(EXPR entries "${entries} + 1")
    elseif(NOT line MATCHES "^[0-9a-f]+ [a-tx-z] ")
      message(FATAL_ERROR "${object} shares: ${line}")
    endif()
  endforeach()
  if(NOT entries EQUAL 1)
    message(FATAL_ERROR "${object} has ${entries} entries")
  endif()
endforeach()
