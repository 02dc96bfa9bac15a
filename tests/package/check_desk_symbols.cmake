# Fails when the desk's library exports anything that its public headers do not mark.
#   cmake -D LIBRARY=<file> -D NM=<nm> -D SYMBOL_VERSION=<name> -D WORD_BYTES=<of a pointer>
#         -P check_desk_symbols.cmake
cmake_minimum_required(VERSION 3.20)

include(${CMAKE_CURRENT_LIST_DIR}/exported_names.cmake)
exported_declarations(exported)
if(WORD_BYTES EQUAL 8)
  expect_released_names()
endif()
set(names Component Item Libraries Error OpenError LibraryInUse DamagedLibrary MissingComponent
            ConflictingIdentity MissingItem MissingDatum UnknownWord SearchPath
            Append Table Change UndoLastChange HistoryOf DataOf PairsOf CoverageOf CompareSources
            TableTextOf FlattenTo SheetOf ReportOf Evaluator LibraryFile WhyOf CheckOf FindingsOf BankTypes
            FieldsOfType MissingBank)
set(seen "")
set(bad "")
foreach(name ${exported})
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
