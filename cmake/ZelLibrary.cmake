# The shared library, its package and its pkg-config file.

get_property(zel_folders GLOBAL PROPERTY ZEL_FOLDERS)

add_library(ZelAccess SHARED)
add_library(ZelAccess::ZelAccess ALIAS ZelAccess)
# The same objects for tests and benchmarks, which also look inside.
add_library(zel_inside STATIC)

foreach(target ZelAccess zel_inside)
  foreach(folder ${zel_folders})
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${folder}>)
  endforeach()
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
endforeach()
zel_compile_options(ZelAccess)
target_compile_features(ZelAccess INTERFACE cxx_std_17)
set_target_properties(ZelAccess PROPERTIES VERSION ${PROJECT_VERSION}
                      SOVERSION ${PROJECT_VERSION_MAJOR})
target_include_directories(ZelAccess INTERFACE
                           $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_compile_features(zel_inside PUBLIC cxx_std_20)
target_include_directories(zel_inside PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR})
