# A second run of test programs, under valgrind.

option(CIM_CLIENT_VALGRIND "Run the library's tests under valgrind, too" OFF)

if(CIM_CLIENT_VALGRIND)
  find_program(CIM_CLIENT_valgrind valgrind REQUIRED)
endif()

# Adds the test `name`_valgrind: the program `name` without a wrong access and without a leak.
function(cim_valgrind_test name)
  if(CIM_CLIENT_VALGRIND)
    add_test(NAME ${name}_valgrind
      COMMAND ${CIM_CLIENT_valgrind} --quiet --error-exitcode=99 --leak-check=full
        --errors-for-leak-kinds=definite,indirect --fair-sched=yes $<TARGET_FILE:${name}>)
    set_tests_properties(${name}_valgrind PROPERTIES LABELS valgrind TIMEOUT 900)
  endif()
endfunction()
