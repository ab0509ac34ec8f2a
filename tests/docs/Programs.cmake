# Builds programs from the C++ blocks of the documents, so that readers copy compiled code.

# Returns the texts of all blocks of a document whose opening fence is followed by exactly `kind`,
# each between `before` and `after`, joined.
function(read_blocks document kind before after output)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${document})
  file(READ ${PROJECT_SOURCE_DIR}/${document} rest)
  set(blocks "")
  set(fence "```${kind}\n")
  string(LENGTH "${fence}" fence_length)
  while(TRUE)
    string(FIND "${rest}" "${fence}" start)
    if(start EQUAL -1)
      break()
    endif()
    math(EXPR start "${start} + ${fence_length}")
    string(SUBSTRING "${rest}" ${start} -1 rest)
    string(FIND "${rest}" "```" end)
    string(SUBSTRING "${rest}" 0 ${end} block)
    string(SUBSTRING "${rest}" ${end} -1 rest)
    string(APPEND blocks "${before}${block}${after}")
  endwhile()
  set(${output} "${blocks}" PARENT_SCOPE)
endfunction()

function(add_document_program name text)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "${text}" @ONLY)
  add_executable(${name} ${source})
  target_link_libraries(${name} PRIVATE RevitMappingEditorDll)
endfunction()

# The README has a complete program.
read_blocks(README.md cpp "" "" readme_text)
add_document_program(readme_program "${readme_text}")

# The guide to the exports has one program in pieces: its head, and then blocks that share no names.
read_blocks(docs/api.md "cpp head" "" "" api_head)
read_blocks(docs/api.md cpp "{\n" "}\n" api_body)
add_document_program(api_program "${api_head}${api_body}}\n")
