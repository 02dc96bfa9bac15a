# The port of a source tree, which is used from there:
#   vcpkg install zelaccess --overlay-ports=cmake/recipes/vcpkg
# It has the library; the desk, zel and the C interface need libcsv, which is not a port.
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../../../.." ABSOLUTE)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    -DZELACCESS_TESTS=OFF
    -DZELACCESS_EXAMPLES=OFF
    -DZELACCESS_DESK=OFF
    -DZELACCESS_ZEL=OFF
    -DZELACCESS_C=OFF
    -DZELACCESS_INSTALL=ON)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME ZelAccess CONFIG_PATH lib/cmake/ZelAccess)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
