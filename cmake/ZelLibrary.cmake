# The library, its package and its pkg-config file. It is shared unless BUILD_SHARED_LIBS is OFF.

# zel_export(<library> <map>)
# A shared library exports only what its map in cmake/ names. On Windows, what the headers mark is
# exported, and nothing of the static libraries in it.
function(zel_export library map)
  if(WIN32)
    target_link_options(${library} PRIVATE -Wl,--exclude-libs,ALL)
  else()
    target_link_options(${library} PRIVATE
                        -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/${map})
    set_property(TARGET ${library} APPEND PROPERTY LINK_DEPENDS
                 ${PROJECT_SOURCE_DIR}/cmake/${map})
  endif()
endfunction()

get_property(zel_folders GLOBAL PROPERTY ZEL_FOLDERS)

set(zel_kind SHARED)
if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
  set(zel_kind STATIC)
endif()
add_library(ZelAccess ${zel_kind})
add_library(ZelAccess::ZelAccess ALIAS ZelAccess)
# The same objects for tests and benchmarks, which also use internals.
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
zel_compile_options(zel_inside)
if(WIN32)
  target_compile_definitions(zel_inside PUBLIC ZELACCESS_STATIC)
endif()
# The dependencies of the library; a host that links the shared library needs none of them.
set(zel_system_libraries ${CMAKE_DL_LIBS} LibXml2::LibXml2)
target_link_libraries(zel_inside PUBLIC ${zel_system_libraries})
if(zel_kind STREQUAL "SHARED")
  target_link_libraries(ZelAccess PRIVATE "$<BUILD_INTERFACE:${zel_system_libraries}>")
  zel_export(ZelAccess exports.map)
else()
  # Within another project the imported target is not known where a program is linked.
  target_link_libraries(ZelAccess PRIVATE ${CMAKE_DL_LIBS} "$<BUILD_INTERFACE:${LIBXML2_LIBRARIES}>"
                                          $<INSTALL_INTERFACE:LibXml2::LibXml2>)
  if(WIN32)
    target_compile_definitions(ZelAccess INTERFACE ZELACCESS_STATIC)
  endif()
endif()

# zel_static_too(<target>)
# The same objects as a static library ZelAccess::<target>Static, where both kinds are installed. Its
# file has the name of the target; the pkg-config file is <name>-static.
set(zel_both_kinds OFF)
if(ZELACCESS_STATIC_TOO AND zel_kind STREQUAL "SHARED" AND NOT WIN32)
  set(zel_both_kinds ON)
endif()
function(zel_static_too target)
  cmake_parse_arguments(ARG "" "" "OBJECTS;LINK" ${ARGN})
  if(NOT zel_both_kinds)
    return()
  endif()
  add_library(${target}Static STATIC ${ARG_OBJECTS})
  add_library(ZelAccess::${target}Static ALIAS ${target}Static)
  set_target_properties(${target}Static PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME ${target})
  target_compile_features(${target}Static INTERFACE cxx_std_17)
  target_include_directories(${target}Static INTERFACE
                             $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                             $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target}Static PRIVATE ${ARG_LINK})
  if(ZELACCESS_INSTALL)
    install(TARGETS ${target}Static EXPORT ZelAccessStaticTargets
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  endif()
endfunction()
list(TRANSFORM zel_folders REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE zel_objects)
zel_static_too(ZelAccess OBJECTS ${zel_objects} LINK ${CMAKE_DL_LIBS}
               "$<BUILD_INTERFACE:${LIBXML2_LIBRARIES}>" $<INSTALL_INTERFACE:LibXml2::LibXml2>)

# Everything that is built with the sanitizers must be linked with them. Their run-time library may
# be linked only into the program, so a shared library can be required to have no undefined symbols
# only without them.
if(ZELACCESS_SANITIZE)
  target_link_options(zel_inside PUBLIC -fsanitize=${ZELACCESS_SANITIZE})
elseif(zel_kind STREQUAL "SHARED")
  target_link_options(ZelAccess PRIVATE -Wl,--no-undefined)
endif()
