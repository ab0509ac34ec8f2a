# What is in the package, as SPDX 2.3 has it, for those who have to account for what they install.

# The same version gives the same bytes. The format requires a time, and that of the build would
# differ: it is what SOURCE_DATE_EPOCH gives, or the beginning of that count.
function(write_bill_of_materials template output)
  set(created "1970-01-01T00:00:00Z")
  if(DEFINED ENV{SOURCE_DATE_EPOCH})
    string(TIMESTAMP created "%Y-%m-%dT%H:%M:%SZ" UTC)
  endif()
  # The namespace is RFC 4122's own for addresses, the name is the package's address by type alone.
  string(UUID document_id
    NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8
    NAME pkg:generic/${PROJECT_NAME}@${PROJECT_VERSION}
    TYPE SHA1)
  configure_file(${template} ${output} @ONLY)
endfunction()
