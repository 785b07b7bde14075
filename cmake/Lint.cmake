# Checks of the source text, as tests labelled "lint".  They read the sources and
# compile_commands.json and need nothing built but the generated sources.

option(CIM_CLIENT_LINT "Add the checks of the source text to the tests" OFF)
option(CIM_CLIENT_LINT_ALL "Let clang-tidy look at tools and tests, too: takes a quarter of an hour" OFF)

if(CIM_CLIENT_LINT)
  foreach(tool IN ITEMS clang-format clang-tidy run-clang-tidy cppcheck shellcheck)
    find_program(CIM_CLIENT_${tool} ${tool} REQUIRED)
  endforeach()
  include(ProcessorCount)
  ProcessorCount(processors)

  set(folders include src platform tools tests bench fuzz)
  set(patterns ${folders})
  list(TRANSFORM patterns REPLACE "(.+)" "\\1/*.c;\\1/*.cpp;\\1/*.h;\\1/*.hpp")
  file(GLOB_RECURSE own_files CONFIGURE_DEPENDS ${patterns})
  add_test(NAME clang_format COMMAND ${CIM_CLIENT_clang-format} --dry-run -Werror ${own_files})

  set(tidied "^${PROJECT_SOURCE_DIR}/(src|platform)/")
  if(CIM_CLIENT_LINT_ALL)
    set(tidied "^${PROJECT_SOURCE_DIR}/")
  endif()
  add_test(NAME clang_tidy
    COMMAND ${CIM_CLIENT_run-clang-tidy} -quiet -j ${processors} -p ${PROJECT_BINARY_DIR} ${tidied})

  add_test(NAME cppcheck
    COMMAND ${CIM_CLIENT_cppcheck} --quiet -j ${processors} --error-exitcode=1
      --project=${PROJECT_BINARY_DIR}/compile_commands.json -i${PROJECT_BINARY_DIR}
      --enable=warning,performance,portability --library=posix,googletest --inline-suppr
      --suppressions-list=${PROJECT_SOURCE_DIR}/.cppcheck-suppressions)

  file(GLOB scripts run test release coverage fuzz/run .ci/run packaging/*.sh)
  add_test(NAME shellcheck COMMAND ${CIM_CLIENT_shellcheck} ${scripts})

  set_tests_properties(clang_format clang_tidy cppcheck shellcheck PROPERTIES LABELS lint)
  set_tests_properties(clang_tidy cppcheck PROPERTIES
    PROCESSORS ${processors} TIMEOUT 1800 COST 1000)
endif()
