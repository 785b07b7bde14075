# Run by cpack before it packs: adds to each package's folder what Debian wants of every package.
# Files get the time of SOURCE_DATE_EPOCH, if it is set.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
set(packaging ${CPACK_CIM_CLIENT_SOURCE}/packaging/debian)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(package IN LISTS CPACK_COMPONENTS_ALL)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${package})
  if(NOT IS_DIRECTORY ${root}/usr)
    message(FATAL_ERROR "${package} is empty: ${root}")
  endif()
  set(doc ${root}/usr/share/doc/${package})
  file(MAKE_DIRECTORY ${doc})
  file(COPY ${packaging}/copyright DESTINATION ${doc})
  run(${packaging}/changelog.py ${CPACK_CIM_CLIENT_SOURCE}/CHANGELOG.md
    ${CPACK_CIM_CLIENT_MAINTAINER} OUTPUT_FILE ${doc}/changelog)
  file(GLOB pages ${root}/usr/share/man/man?/*.[1-9])
  run(gzip -9n ${doc}/changelog ${pages})
  file(GLOB overrides ${packaging}/${package}.lintian-overrides)
  if(overrides)
    file(MAKE_DIRECTORY ${root}/usr/share/lintian/overrides)
    configure_file(${overrides} ${root}/usr/share/lintian/overrides/${package} COPYONLY)
  endif()
endforeach()
