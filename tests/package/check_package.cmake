# Installs the library into a scratch prefix and builds a small host with it in both ways that the
# package offers.
#   cmake -D BUILD_DIR=<build> -D SOURCE_DIR=<this folder> -D COMPILER=<c++> -D READELF=<readelf>
#         -D GENERATOR=<build tool> -D VERSION=<version> -D SOVERSION=<number in the soname>
#         -D ZEL=<ON when zel is built> -D C_COMPILER=<cc> -D FORTRAN=<gfortran, or nothing>
#         -P check_package.cmake
cmake_minimum_required(VERSION 3.20)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "${ARGN}\n${out}")
  endif()
endfunction()

set(work ${BUILD_DIR}/package_test)
file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${work}/prefix)

# The command-line host, its manual page and its completions.
if(ZEL)
  run(${work}/prefix/bin/zel --version)
  foreach(file share/man/man1/zel.1 share/bash-completion/completions/zel
             share/zelaccess/schemas/find.json
               share/fish/vendor_completions.d/zel.fish share/zsh/site-functions/_zel
               bin/zel-textconv)
    if(NOT EXISTS ${work}/prefix/${file})
      message(FATAL_ERROR "no ${file} is installed")
    endif()
  endforeach()
endif()

if(NOT EXISTS ${work}/prefix/share/doc/ZelAccess/LICENSE)
  message(FATAL_ERROR "no LICENSE is installed")
endif()

# Every public header, including those of the wider interfaces.
file(GLOB headers RELATIVE ${SOURCE_DIR}/../../include ${SOURCE_DIR}/../../include/zelaccess/*.h)
if(NOT "zelaccess/LibMaint_p.h" IN_LIST headers)
  message(FATAL_ERROR "the headers are elsewhere")
endif()
foreach(header ${headers})
  if(NOT EXISTS ${work}/prefix/include/${header})
    message(FATAL_ERROR "no include/${header} is installed")
  endif()
endforeach()

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE_DIR}/host -B ${work}/host
    -D CMAKE_PREFIX_PATH=${work}/prefix -D CMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${work}/host)
run(${work}/host/small_host)
run(${work}/host/desk_host)
run(${work}/host/c_host)

file(GLOB pc ${work}/prefix/lib*/pkgconfig ${work}/prefix/lib*/*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} ${pc})
execute_process(COMMAND pkg-config --cflags --libs zelaccess
                RESULT_VARIABLE failed OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed)
  message(FATAL_ERROR "pkg-config does not know zelaccess")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
file(GLOB library ${work}/prefix/lib*/libZelAccess.so ${work}/prefix/lib*/*/libZelAccess.so)
get_filename_component(libdir ${library} DIRECTORY)
if(NOT EXISTS ${libdir}/libZelAccess.so.${VERSION})
  message(FATAL_ERROR "no libZelAccess.so.${VERSION} in ${libdir}")
endif()
execute_process(COMMAND ${READELF} -d ${library} OUTPUT_VARIABLE dynamic)
string(FIND "${dynamic}" "[libZelAccess.so.${SOVERSION}]" soname)
if(soname EQUAL -1)
  message(FATAL_ERROR "the soname is not libZelAccess.so.${SOVERSION}:\n${dynamic}")
endif()
run(${COMPILER} -std=c++17 -D PACKAGE_VERSION="${VERSION}" ${SOURCE_DIR}/host/small_host.cpp -o ${work}/small_host ${flags}
    -Wl,-rpath,${libdir})
run(${work}/small_host)
execute_process(COMMAND pkg-config --cflags --libs zeldesk
                RESULT_VARIABLE failed OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed)
  message(FATAL_ERROR "pkg-config does not know zeldesk")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${COMPILER} -std=c++17 ${SOURCE_DIR}/host/desk_host.cpp -o ${work}/desk_host ${flags}
    -Wl,-rpath,${libdir})
run(${work}/desk_host)

# The C interface: one library to link, and the source of the module for Fortran.
execute_process(COMMAND pkg-config --cflags --libs zelc
                RESULT_VARIABLE failed OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed OR NOT flags MATCHES "-lZelC" OR flags MATCHES "-lZelDesk")
  message(FATAL_ERROR "pkg-config does not know zelc, or not as one library: ${flags}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${C_COMPILER} -std=c99 -D PACKAGE_VERSION="${VERSION}" ${SOURCE_DIR}/host/c_host.c
    -o ${work}/c_host ${flags} -Wl,-rpath,${libdir})
run(${work}/c_host)
execute_process(COMMAND pkg-config --variable=fortran_module zelc
                OUTPUT_VARIABLE module OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT EXISTS ${module})
  message(FATAL_ERROR "no module for Fortran is installed: \"${module}\"")
endif()
if(FORTRAN)
  execute_process(COMMAND ${FORTRAN} -std=f2003 -c ${module} WORKING_DIRECTORY ${work}
                  RESULT_VARIABLE failed ERROR_VARIABLE out)
  if(failed OR NOT EXISTS ${work}/zelaccess.mod)
    message(FATAL_ERROR "the installed module for Fortran does not compile\n${out}")
  endif()
endif()
