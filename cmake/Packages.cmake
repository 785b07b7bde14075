# The Debian packages that `cpack -G DEB` makes, one for each component, and the tarball of
# `cpack -G TGZ`.  packaging/README.md says what is in which.
set(CPACK_PACKAGE_NAME cim-client)
set(CPACK_PACKAGE_VENDOR "The CIM client's developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)

set(CIM_CLIENT_MAINTAINER "CIM client developers <cim-client@localhost>" CACHE STRING
  "Who answers for the Debian packages: name and address")

set(CPACK_COMPONENTS_ALL
  libcim-client1 libcim-client-dev libxmlparser1 librtlog1 cim-client-tools)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CIM_CLIENT_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# The libraries that depend on each other are found where they have been built.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/platform/xmlparser
  ${PROJECT_BINARY_DIR}/platform/rtlog)

# One package: its section, the packages it needs besides what its programs are linked with, and
# its description, first the summary.
function(debian_package name section depends summary)
  string(TOUPPER ${name} key)
  string(CONCAT description ${ARGN})
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  if(section STREQUAL "libs")
    set(CPACK_DEBIAN_${key}_PACKAGE_CONTROL_EXTRA
      ${PROJECT_SOURCE_DIR}/packaging/debian/triggers PARENT_SCOPE)
  endif()
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
endfunction()

set(this "(= ${PROJECT_VERSION})")
debian_package(libcim-client1 libs "libxmlparser1, librtlog1"
  "client library for the CIM operations"
  "Reads and changes the management data of a CIM object manager, over CIM-XML\n"
  "or through the client library of a local broker, from programs in C and C++.")
debian_package(libcim-client-dev libdevel
  "libcim-client1 ${this}, libxmlparser1 ${this}, librtlog1 ${this}"
  "client library for the CIM operations (development files)"
  "Headers, static library, pkg-config file and CMake package of the CIM client\n"
  "library and of the two platform libraries that it calls.")
debian_package(libxmlparser1 libs ""
  "XML document parser of the CIM client library"
  "Stands in for the XML library of a device: a device's own package that\n"
  "provides libxmlparser1 takes its place.")
debian_package(librtlog1 libs ""
  "logger of the CIM client library"
  "Stands in for the logging library of a device: a device's own package that\n"
  "provides librtlog1 takes its place.  Silent unless CIM_CLIENT_LOG asks.")
debian_package(cim-client-tools admin "libcim-client1 (>= ${PROJECT_VERSION})"
  "command-line client and sandbox object manager for CIM"
  "cim-client reads and changes the management data of a CIM object manager,\n"
  "cim-sandbox is an object manager to develop and test against, with a sample\n"
  "model. Its local broker library serves the same model within a process.")

# What Debian wants of every package: compressed pages, change log, copyright file.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/complete_packages.cmake)
set(CPACK_CIM_CLIENT_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_CIM_CLIENT_MAINTAINER ${CIM_CLIENT_MAINTAINER})

include(CPack)
