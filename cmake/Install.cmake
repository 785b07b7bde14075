# What `cmake --install` installs besides the tools, and how others find it: pkg-config, the CMake
# package CIMClient.  The components are the Debian packages of packaging/README.md.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/CIMClient)

# A library: what programs need at run time, and what their developers need.
function(install_library target runtime_component)
  install(TARGETS ${target} EXPORT CIMClientTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
      COMPONENT ${runtime_component} NAMELINK_COMPONENT libcim-client-dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libcim-client-dev)
endfunction()

install_library(cim_client libcim-client1)
install_library(XMLParser libxmlparser1)
install_library(rtlog librtlog1)
if(TARGET cim_client_static)
  install_library(cim_client_static libcim-client-dev)
endif()

install(DIRECTORY include/ platform/xmlparser/include/ platform/rtlog/include/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT libcim-client-dev
  FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")

# Pages of section 3, if the source tree has them.
install(DIRECTORY docs/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man3
  COMPONENT libcim-client-dev FILES_MATCHING PATTERN "*.3")

install(EXPORT CIMClientTargets NAMESPACE CIMClient:: DESTINATION ${package_dir}
  COMPONENT libcim-client-dev)
configure_package_config_file(cmake/CIMClientConfig.cmake.in CIMClientConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
# The soname stays, so that any later version serves.
write_basic_package_version_file(CIMClientConfigVersion.cmake COMPATIBILITY AnyNewerVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/CIMClientConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/CIMClientConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT libcim-client-dev)

# The folders relative to that of the .pc file, so that an installed tree may be moved, and
# `cmake --install --prefix` may name any other.
function(relative_to_pc result folder)
  if(IS_ABSOLUTE ${folder})
    set(${result} ${folder} PARENT_SCOPE)
  else()
    file(RELATIVE_PATH relative /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix/${folder})
    set(${result} "\${pcfiledir}/${relative}" PARENT_SCOPE)
  endif()
endfunction()
relative_to_pc(pc_libdir ${CMAKE_INSTALL_LIBDIR})
relative_to_pc(pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
configure_file(cmake/cim-client.pc.in cim-client.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/cim-client.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT libcim-client-dev)
