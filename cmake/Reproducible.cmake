# Makes builds reproducible in any folder. Otherwise the compiler would write the names of the
# folders into debug information and assertions.
#
# The main file makes the linker of mingw-w64 write no time. MSVC is left out, because its PDB files
# contain the folders in any case.

if(NOT MSVC)
  set(own_targets ${rooms} RevitMappingEditorDll)
  if(REVIT_MAPPING_EDITOR_CFG_LIBRARY)
    list(REMOVE_ITEM own_targets ${REVIT_MAPPING_EDITOR_CFG_LIBRARY})
  endif()
  foreach(target IN LISTS own_targets)
    target_compile_options(${target} PRIVATE
      -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
      -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
  endforeach()
endif()
