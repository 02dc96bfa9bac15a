# Installs what a host needs: the library, its headers, its package and its pkg-config file.

include(CMakePackageConfigHelpers)
install(TARGETS ZelAccess EXPORT ZelAccessTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zelaccess
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT ZelAccessTargets NAMESPACE ZelAccess::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZelAccess)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZelAccessConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
set(zel_data_dir ${CMAKE_INSTALL_DATADIR}/zelaccess)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ZelAccessConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/ZelAccessConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZelAccess
                              PATH_VARS zel_data_dir)
install(FILES ${PROJECT_BINARY_DIR}/ZelAccessConfig.cmake
              ${PROJECT_BINARY_DIR}/ZelAccessConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZelAccess)
# Folders below the prefix move with it; absolute ones stay where they are.
foreach(folder LIBDIR INCLUDEDIR DATADIR)
  set(pc_${folder} ${CMAKE_INSTALL_${folder}})
  if(NOT IS_ABSOLUTE "${pc_${folder}}")
    set(pc_${folder} "\${prefix}/${pc_${folder}}")
  endif()
endforeach()
# Relative to the pkg-config file itself, so that `cmake --install --prefix` can choose the prefix.
set(pc_PREFIX ${CMAKE_INSTALL_PREFIX})
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH pc_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" pc_PREFIX "\${pcfiledir}/${pc_PREFIX}")
endif()
# Installs the pkg-config file of a library; with static libraries next to the shared ones, also that of
# the static library, which it names by its file.
function(zel_pkg_config name)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  if(zel_both_kinds)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}-static.pc.in
                   ${PROJECT_BINARY_DIR}/${name}-static.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}-static.pc
            DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  endif()
endfunction()
set(pc_requires "")
# The C interface: a host in C links one shared library, but all static ones.
set(pc_c_requires "Requires.private: zeldesk")
set(pc_c_libraries "")
if(zel_kind STREQUAL "STATIC")
  set(pc_requires "libxml-2.0")
  set(pc_c_requires "Requires: libxml-2.0")
  set(pc_c_libraries " -lZelDesk -lZelAccess -lcsv -lstdc++ -lm")
endif()
zel_pkg_config(zelaccess)
if(zel_both_kinds)
  install(EXPORT ZelAccessStaticTargets NAMESPACE ZelAccess::
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZelAccess)
endif()
