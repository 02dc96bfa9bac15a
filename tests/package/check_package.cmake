# Installs the library into a scratch prefix and builds a small host against it in both ways that a
# package offers.
#   cmake -D BUILD_DIR=<build> -D SOURCE_DIR=<this folder> -D COMPILER=<c++> -P check_package.cmake

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "${ARGN}\n${out}")
  endif()
endfunction()

set(work ${BUILD_DIR}/package_test)
file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${work}/prefix)

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/host -B ${work}/host -D CMAKE_PREFIX_PATH=${work}/prefix
    -D CMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${work}/host)
run(${work}/host/small_host)

file(GLOB pc ${work}/prefix/lib*/pkgconfig ${work}/prefix/lib*/*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} ${pc})
execute_process(COMMAND pkg-config --define-variable=prefix=${work}/prefix --cflags --libs zelaccess
                RESULT_VARIABLE failed OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
if(failed)
  message(FATAL_ERROR "pkg-config does not know zelaccess")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
file(GLOB library ${work}/prefix/lib*/libZelAccess.so ${work}/prefix/lib*/*/libZelAccess.so)
get_filename_component(libdir ${library} DIRECTORY)
run(${COMPILER} -std=c++17 ${SOURCE_DIR}/host/small_host.cpp -o ${work}/small_host ${flags}
    -Wl,-rpath,${libdir})
run(${work}/small_host)
