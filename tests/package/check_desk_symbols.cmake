# Fails when the desk's library exports anything that its public headers do not mark.
#   cmake -D LIBRARY=<file> -D NM=<nm> -P check_desk_symbols.cmake
cmake_minimum_required(VERSION 3.20)

execute_process(COMMAND ${NM} -D --defined-only -C ${LIBRARY} OUTPUT_VARIABLE lines
                RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "cannot read the symbols of ${LIBRARY}")
endif()
set(names Component Item Libraries Error OpenError LibraryInUse DamagedLibrary MissingComponent
            ConflictingIdentity MissingItem MissingDatum UnknownWord SearchPath
            Append Table Change UndoLastChange HistoryOf DataOf PairsOf CoverageOf CompareSources
            TableTextOf FlattenTo SheetOf ReportOf Evaluator LibraryFile WhyOf CheckOf FindingsOf BankTypes
            FieldsOfType MissingBank)
set(seen "")
set(bad "")
string(REPLACE "\n" ";" lines "${lines}")
foreach(line ${lines})
  string(REGEX REPLACE "^[0-9a-f]+ [A-Za-z] " "" name "${line}")
  string(REGEX REPLACE "^(typeinfo|typeinfo name|vtable) for " "" own "${name}")
  if(own MATCHES "^zel::desk::([A-Za-z]+)" AND CMAKE_MATCH_1 IN_LIST names)
    list(APPEND seen ${CMAKE_MATCH_1})
  else()
    string(APPEND bad "  ${name}\n")
  endif()
endforeach()
if(bad)
  message(FATAL_ERROR "Exported beyond the public interface:\n${bad}")
endif()
foreach(name Component Item Libraries MissingItem SearchPath Change ReportOf)
  if(NOT name IN_LIST seen)
    message(FATAL_ERROR "${name} is not exported")
  endif()
endforeach()
