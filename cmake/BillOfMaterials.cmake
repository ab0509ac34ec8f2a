# Writes the bill of materials of the package, in SPDX 2.3.

# The same version has the same bytes. The format requires a time, and that of the build would
# differ, so it is SOURCE_DATE_EPOCH, or 0 in that count.
function(write_bill_of_materials template output)
  set(created "1970-01-01T00:00:00Z")
  if(DEFINED ENV{SOURCE_DATE_EPOCH})
    string(TIMESTAMP created "%Y-%m-%dT%H:%M:%SZ" UTC)
  endif()
  # The namespace is that of RFC 4122 for URLs; the name is the package's URL.
  string(UUID document_id
    NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8
    NAME pkg:generic/${PROJECT_NAME}@${PROJECT_VERSION}
    TYPE SHA1)
  configure_file(${template} ${output} @ONLY)
endfunction()
