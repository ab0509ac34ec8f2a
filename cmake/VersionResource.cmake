# The version resource of the DLL, which Windows shows under "Properties, Details".

if(WIN32)
  enable_language(RC)
  configure_file(
    ${PROJECT_SOURCE_DIR}/packaging/RevitMappingEditorDll.rc.in
    ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.rc @ONLY)
  target_sources(RevitMappingEditorDll PRIVATE ${PROJECT_BINARY_DIR}/RevitMappingEditorDll.rc)
endif()
