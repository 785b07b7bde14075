# The HTML reference: target `docs` and, beside the tests, the test that Doxygen warns of nothing.

find_program(CIM_CLIENT_doxygen doxygen)

if(CIM_CLIENT_doxygen)
  # Writes the Doxygen settings NAME for HTML below `folder`.
  function(cim_doxygen_settings name folder)
    set(CIM_CLIENT_DOCS_OUTPUT ${folder})
    configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/${name} @ONLY)
    file(MAKE_DIRECTORY ${folder})
  endfunction()

  if(PROJECT_IS_TOP_LEVEL)
    cim_doxygen_settings(Doxyfile ${PROJECT_BINARY_DIR}/docs)
    add_custom_target(docs
      COMMAND ${CIM_CLIENT_doxygen} ${PROJECT_BINARY_DIR}/Doxyfile
      COMMENT "Writing the reference to ${PROJECT_BINARY_DIR}/docs/html/index.html"
      VERBATIM)
  endif()

  # The headers are the same in every build: once is enough.
  if(CIM_CLIENT_TESTS AND NOT CIM_CLIENT_SANITIZE AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    cim_doxygen_settings(Doxyfile.test ${PROJECT_BINARY_DIR}/docs-test)
    add_test(NAME docs_doxygen
      COMMAND ${CIM_CLIENT_doxygen} ${PROJECT_BINARY_DIR}/Doxyfile.test)
    set_tests_properties(docs_doxygen PROPERTIES TIMEOUT 900 COST 500)
  endif()
elseif(CIM_CLIENT_TESTS)
  message(STATUS "No doxygen: the reference is neither built nor tested")
endif()
