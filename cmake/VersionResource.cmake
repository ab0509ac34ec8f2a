# What Windows shows of the DLL under "Properties, Details", from the version of the project.

if(WIN32)
  enable_language(RC)
  configure_file(
    ${PROJECT_SOURCE_DIR}/packaging/RevitMappingEditorDll.rc.in
    ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.rc @ONLY)
  target_sources(RevitMappingEditorDll PRIVATE ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.rc)
endif()
