# Builds the library as a static one within another project: it installs nothing unless this is
# requested; then its package and its pkg-config file work for programs, with folders of the library
# and of the headers outside the prefix, and zel works without a shared library.
#   cmake -D WORK_DIR=<scratch> -D SOURCE_DIR=<this folder> -D COMPILER=<c++> -D GENERATOR=<build tool>
#         -D VERSION=<version> -D ZEL=<ON when zel is to be built> -D C_COMPILER=<cc>
#         -P check_subproject.cmake
cmake_minimum_required(VERSION 3.21)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "${ARGN}\n${out}")
  endif()
endfunction()

# Builds the parent with additional settings and installs it.
function(install_parent prefix)
  run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE_DIR}/parent -B ${WORK_DIR}/build
      -D ZELACCESS_SOURCE=${SOURCE_DIR}/../.. -D CMAKE_CXX_COMPILER=${COMPILER} -D VERSION=${VERSION}
      -D BUILD_SHARED_LIBS=OFF -D CMAKE_INSTALL_PREFIX=${prefix} ${ARGN})
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
  run(${WORK_DIR}/build/parent)
  run(${CMAKE_COMMAND} --install ${WORK_DIR}/build)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR}/plain ${WORK_DIR}/whole ${WORK_DIR}/lib ${WORK_DIR}/inc ${WORK_DIR}/host
     ${WORK_DIR}/data)

install_parent(${WORK_DIR}/plain -U ZELACCESS_INSTALL -U ZELACCESS_ZEL -U ZELACCESS_C -U CMAKE_INSTALL_LIBDIR
               -U CMAKE_INSTALL_INCLUDEDIR)
file(GLOB_RECURSE installed RELATIVE ${WORK_DIR}/plain ${WORK_DIR}/plain/*)
if(NOT installed STREQUAL "bin/parent")
  message(FATAL_ERROR "a subproject installed files of its own: ${installed}")
endif()

install_parent(${WORK_DIR}/whole -D ZELACCESS_INSTALL=ON -D ZELACCESS_ZEL=${ZEL} -D ZELACCESS_C=ON
               -D CMAKE_INSTALL_LIBDIR=${WORK_DIR}/lib -D CMAKE_INSTALL_INCLUDEDIR=${WORK_DIR}/inc)
foreach(file lib/libZelAccess.a inc/zelaccess/LibMaint_p.h)
  if(NOT EXISTS ${WORK_DIR}/${file})
    message(FATAL_ERROR "no ${file} in ${WORK_DIR}")
  endif()
endforeach()
if(EXISTS ${WORK_DIR}/whole/include)
  message(FATAL_ERROR "headers are below the prefix, not in ${WORK_DIR}/inc")
endif()

if(ZEL)
  file(MAKE_DIRECTORY ${WORK_DIR}/data)
  run(${WORK_DIR}/whole/bin/zel create ${WORK_DIR}/data/own.lb1)
  run(${WORK_DIR}/whole/bin/zel check ${WORK_DIR}/data/own.lb1)
  file(GLOB_RECURSE shared ${WORK_DIR}/lib/*.so* ${WORK_DIR}/whole/*.so*)
  if(shared)
    message(FATAL_ERROR "shared libraries are installed: ${shared}")
  endif()
endif()

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE_DIR}/host -B ${WORK_DIR}/host
    -D STATIC=ON -D ZelAccess_DIR=${WORK_DIR}/lib/cmake/ZelAccess
    -D CMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/host)
run(${WORK_DIR}/host/small_host)
run(${WORK_DIR}/host/c_host)

set(ENV{PKG_CONFIG_PATH} ${WORK_DIR}/lib/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs zelaccess RESULT_VARIABLE failed
                OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed OR NOT flags MATCHES "-L${WORK_DIR}/lib " OR NOT flags MATCHES "-I${WORK_DIR}/inc ")
  message(FATAL_ERROR "pkg-config does not know lib and inc of ${WORK_DIR}: ${flags}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${COMPILER} -std=c++17 -D PACKAGE_VERSION="${VERSION}" ${SOURCE_DIR}/host/small_host.cpp
    -o ${WORK_DIR}/host/by_pkg_config ${flags})
run(${WORK_DIR}/host/by_pkg_config)

# A host in C also links what is in C++.
execute_process(COMMAND pkg-config --cflags --libs zelc RESULT_VARIABLE failed
                OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed)
  message(FATAL_ERROR "pkg-config does not know zelc")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${C_COMPILER} -std=c99 -D PACKAGE_VERSION="${VERSION}" ${SOURCE_DIR}/host/c_host.c
    -o ${WORK_DIR}/host/c_by_pkg_config ${flags})
run(${WORK_DIR}/host/c_by_pkg_config)
