# The contents of an installed package.

include(${CMAKE_CURRENT_LIST_DIR}/BillOfMaterials.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/Reproducible.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/VersionResource.cmake)

# The header of the class includes those of its private members in src/. They keep their folders,
# below the only include folder.
set_target_properties(RevitMappingEditorDll PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "")
target_sources(RevitMappingEditorDll PUBLIC FILE_SET HEADERS BASE_DIRS include src FILES
  include/PropertyParameter.h
  include/RevitMappingEditorApi.h
  include/RevitMappingEditorDll.h
  include/RevitMappingEditorRelease.h
  src/classificator/Classificator.h
  src/classificator/ColoratSection.h
  src/domen/Domen.h
  src/domen/DomenProperties.h
  src/domen/DomenProperty.h
  src/domen/DomenStore.h
  src/domen/Domens.h
  src/domen/Revision.h
  src/mapping/MapTextRecord.h
  src/mapping/MapTextRecords.h
  src/mapping/MapTextSection.h
  src/mapping/ParamItem.h
  src/mapping/ParamSection.h
  src/mapping/RememberedItems.h)
# The headers are in C++17, the newest version that all C++/CLI compilers support.
target_compile_features(RevitMappingEditorDll INTERFACE cxx_std_17)

# The views of the records in Visual Studio's debugger.
set(natvis ${PROJECT_SOURCE_DIR}/packaging/RevitMappingEditorDll.natvis)
if(CMAKE_GENERATOR MATCHES "Visual Studio")
  target_sources(RevitMappingEditorDll PRIVATE ${natvis})
elseif(MSVC)
  target_link_options(RevitMappingEditorDll PRIVATE LINKER:/NATVIS:${natvis})
  set_property(TARGET RevitMappingEditorDll APPEND PROPERTY LINK_DEPENDS ${natvis})
endif()

option(REVIT_MAPPING_EDITOR_INSTALL "Install and pack the library" ${PROJECT_IS_TOP_LEVEL})
if(NOT REVIT_MAPPING_EDITOR_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)
include(GNUInstallDirs)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/RevitMappingEditorDll)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/RevitMappingEditor)
set(share_folder ${CMAKE_INSTALL_DATADIR}/RevitMappingEditorDll)

install(TARGETS RevitMappingEditorDll EXPORT RevitMappingEditor
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${header_folder}
  INCLUDES DESTINATION ${header_folder})
install(FILES ${natvis} DESTINATION ${header_folder})
if(MSVC)
  install(FILES $<TARGET_PDB_FILE:RevitMappingEditorDll> DESTINATION ${CMAKE_INSTALL_BINDIR}
    CONFIGURATIONS Debug RelWithDebInfo)
endif()

install(EXPORT RevitMappingEditor NAMESPACE RevitMappingEditor::
  FILE RevitMappingEditorTargets.cmake DESTINATION ${config_folder})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/RevitMappingEditorConfig.cmake.in
  ${PROJECT_BINARY_DIR}/RevitMappingEditorConfig.cmake
  INSTALL_DESTINATION ${config_folder}
  PATH_VARS share_folder
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RevitMappingEditorConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/RevitMappingEditorConfig.cmake
  ${PROJECT_BINARY_DIR}/RevitMappingEditorConfigVersion.cmake
  DESTINATION ${config_folder})

write_bill_of_materials(
  ${PROJECT_SOURCE_DIR}/packaging/RevitMappingEditorDll.spdx.json.in
  ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.spdx.json)
install(FILES ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.spdx.json DESTINATION ${share_folder})

# Side by side as here, because a data file names its schema by a relative path.
install(FILES LICENSE DESTINATION ${share_folder})
install(FILES docs/api.md docs/domen.schema.json docs/formats.md docs/windows.md
  DESTINATION ${share_folder}/docs)
install(FILES
  data/README.md
  data/classificator_ru.txt
  data/domens.txt
  data/elements.tsv
  data/elements_ru.tsv
  data/uniformat.txt
  data/zones.json
  DESTINATION ${share_folder}/data)

# A zip file for each platform. It is reproducible too if SOURCE_DATE_EPOCH is set.
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME RevitMappingEditorDll)
set(CPACK_PACKAGE_VENDOR "The RevitMappingEditorDll authors")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
string(TOLOWER ${CMAKE_SYSTEM_NAME} platform)
if(WIN32)
  set(platform win)
endif()
math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
set(CPACK_PACKAGE_FILE_NAME RevitMappingEditorDll-${PROJECT_VERSION}-${platform}${bits})
set(CPACK_STRIP_FILES FALSE)
include(CPack)
