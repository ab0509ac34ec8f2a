# An overlay port, which builds the sources that it is part of.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

# The exported class is used across the boundary of a DLL, and callers free memory of the DLL.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY ONLY_DYNAMIC_CRT)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    -DCMAKE_COMPILE_WARNING_AS_ERROR=OFF
    -DREVIT_MAPPING_EDITOR_INSTALL=ON
    -DREVIT_MAPPING_EDITOR_TESTS=OFF
    -DREVIT_MAPPING_EDITOR_TOOLS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(
  PACKAGE_NAME RevitMappingEditor
  CONFIG_PATH lib/cmake/RevitMappingEditor)
vcpkg_copy_pdbs()

file(REMOVE_RECURSE
  "${CURRENT_PACKAGES_DIR}/debug/include"
  "${CURRENT_PACKAGES_DIR}/debug/share")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
