# Two builds of one commit give the same bytes, in whatever folders they stand. The compiler would
# write the folders into debug information and into what an assertion prints.
#
# The linker of mingw-w64 is told in the main file to write no time. MSVC is left as it is: the PDB
# file that it makes names the folders in any case.

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
