# A tool chain for another machine that Debian has a cross compiler for; see tests/machines/run.
#   cmake -D CMAKE_TOOLCHAIN_FILE=cmake/machine.cmake -D ZEL_TRIPLET=s390x-linux-gnu
#         -D ZEL_LIBRARY_FOLDER=<its folder of libraries below usr/lib, for most machines the triplet>
#         -D ZEL_MACHINE_ROOT=<folder with the unpacked packages of that machine>
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZEL_TRIPLET ZEL_LIBRARY_FOLDER ZEL_MACHINE_ROOT)
set(CMAKE_SYSTEM_NAME Linux)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${ZEL_TRIPLET})
set(CMAKE_C_COMPILER ${ZEL_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${ZEL_TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${ZEL_LIBRARY_FOLDER})
set(CMAKE_FIND_ROOT_PATH ${ZEL_MACHINE_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# What the unpacked libraries need is next to them, and in the folders of the cross compiler.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,-rpath-link,${ZEL_MACHINE_ROOT}/usr/lib/${ZEL_LIBRARY_FOLDER} -Wl,-rpath-link,${ZEL_MACHINE_ROOT}/lib/${ZEL_LIBRARY_FOLDER}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT ${CMAKE_EXE_LINKER_FLAGS_INIT})
