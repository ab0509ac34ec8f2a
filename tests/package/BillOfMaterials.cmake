# Tests that the bill of materials is JSON, names what is installed, and has only a given time.
#
#   cmake -D FILE=FILE -D NAME=NAME -D VERSION=VERSION -D SOURCE_FOLDER=FOLDER -D WORK=FOLDER
#         -P BillOfMaterials.cmake

cmake_minimum_required(VERSION 3.25)
include(${SOURCE_FOLDER}/cmake/BillOfMaterials.cmake)

set(template ${SOURCE_FOLDER}/packaging/RevitMappingEditorDll.spdx.json.in)

function(expect_member text expected)
  string(JSON found GET "${text}" ${ARGN})
  if(NOT found STREQUAL expected)
    message(FATAL_ERROR "${ARGN} is ${found} and not ${expected}")
  endif()
endfunction()

# Writes the bill of a version at a time, which is not given if it is empty.
function(bill_of version time output)
  unset(ENV{SOURCE_DATE_EPOCH})
  if(NOT time STREQUAL "")
    set(ENV{SOURCE_DATE_EPOCH} ${time})
  endif()
  set(PROJECT_NAME ${NAME})
  set(PROJECT_VERSION ${version})
  write_bill_of_materials(${template} ${WORK}/bill.json)
  file(READ ${WORK}/bill.json text)
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

file(READ ${FILE} installed)
expect_member("${installed}" SPDX-2.3 spdxVersion)
expect_member("${installed}" ${NAME} packages 0 name)
expect_member("${installed}" ${VERSION} packages 0 versionInfo)
expect_member("${installed}" MIT packages 0 licenseDeclared)
string(JSON package_id GET "${installed}" packages 0 SPDXID)
expect_member("${installed}" DESCRIBES relationships 0 relationshipType)
expect_member("${installed}" ${package_id} relationships 0 relatedSpdxElement)
string(JSON packages LENGTH "${installed}" packages)
if(NOT packages EQUAL 1)
  message(FATAL_ERROR "${packages} packages are named, and one is installed")
endif()
string(JSON address GET "${installed}" documentNamespace)
if(NOT address MATCHES "^urn:uuid:[0-9a-f]+-[0-9a-f]+-5[0-9a-f]+-[0-9a-f]+-[0-9a-f]+$")
  message(FATAL_ERROR "No name of a document by a hash: ${address}")
endif()
if(installed MATCHES "@[A-Za-z_]+@")
  message(FATAL_ERROR "Nothing has taken the place of ${CMAKE_MATCH_0}")
endif()

# The installed bill may have a given time or not. These check both kinds.
bill_of(${VERSION} "" timeless)
expect_member("${timeless}" 1970-01-01T00:00:00Z creationInfo created)
expect_member("${timeless}" ${address} documentNamespace)
bill_of(${VERSION} 86399 at_a_time)
expect_member("${at_a_time}" 1970-01-01T23:59:59Z creationInfo created)

bill_of(${VERSION}.1 "" of_another)
string(JSON address_of_another GET "${of_another}" documentNamespace)
if(address_of_another STREQUAL address)
  message(FATAL_ERROR "Two versions share the name ${address}")
endif()

# A second JSON reader, if there is one.
if(PYTHON)
  execute_process(COMMAND ${PYTHON} -m json.tool ${FILE} ${WORK}/parsed.json
    COMMAND_ERROR_IS_FATAL ANY)
endif()
