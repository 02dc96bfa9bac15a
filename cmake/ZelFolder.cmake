# zel_folder(<name> DEPENDS <lower folders>)
# One object library per source folder, from the folder's sources.cmake, which lists them. Its
# sources may include only headers of the lower folders: tests/layers/check_includes.cmake reads these
# from the CMakeLists.txt that calls this.

# The options of everything that is built here: language standard, warnings and sanitizers. The
# library is C++20; programs that act as hosts are built as C++17, as the public headers promise.
function(zel_compile_options target)
  cmake_parse_arguments(ARG "" "STANDARD" "" ${ARGN})
  if(NOT ARG_STANDARD)
    set(ARG_STANDARD 20)
  endif()
  set_target_properties(${target} PROPERTIES CXX_STANDARD ${ARG_STANDARD}
                        CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE "SHELL:-include ${PROJECT_SOURCE_DIR}/cmake/gcc12.h")
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_definitions(${target} PRIVATE _FILE_OFFSET_BITS=64)  # else only off_t of 32 bits
  endif()
  # The same digits on every processor: numbers of 64 bits in registers, and no product and sum in one
  # rounding, which the basic instructions of x86-64 do not have.
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i.86$")
    target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
  elseif(NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    target_compile_options(${target} PRIVATE -ffp-contract=off)
  endif()
  if(ZELACCESS_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ZELACCESS_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZELACCESS_SANITIZE}
                           -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${ZELACCESS_SANITIZE})
  endif()
endfunction()

function(zel_folder name)
  include(${PROJECT_SOURCE_DIR}/${name}/sources.cmake)  # sets <name>_SOURCES
  list(TRANSFORM ${name}_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${name}/)
  add_library(zel_${name} OBJECT ${${name}_SOURCES})
  zel_compile_options(zel_${name})
  set_target_properties(zel_${name} PROPERTIES POSITION_INDEPENDENT_CODE ON
                        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_definitions(zel_${name} PRIVATE ZELACCESS_BUILDING)
  target_include_directories(zel_${name} PUBLIC ${PROJECT_SOURCE_DIR}/include
                             ${PROJECT_SOURCE_DIR})
  set_property(GLOBAL APPEND PROPERTY ZEL_FOLDERS zel_${name})
endfunction()
