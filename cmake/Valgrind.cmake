# A second run of test programs, under valgrind.

option(CIM_CLIENT_VALGRIND "Run the library's tests under valgrind, too" OFF)

if(CIM_CLIENT_VALGRIND)
  find_program(CIM_CLIENT_valgrind valgrind REQUIRED)
endif()

# Adds the test `name`_valgrind: the program `name` without a wrong access and without a leak.
# Large tests run at a hundredth of their size, and none that compares times or tries every
# character.  A malloc() of the program's own stays in its place, on top of valgrind's.
function(cim_valgrind_test name)
  if(CIM_CLIENT_VALGRIND)
    set(exhaustive "Time.*:Characters.*:Bytes.*")
    add_test(NAME ${name}_valgrind
      COMMAND ${CIM_CLIENT_valgrind} --quiet --error-exitcode=99 --leak-check=full
        --errors-for-leak-kinds=definite,indirect --fair-sched=yes
        --soname-synonyms=somalloc=nouserintercepts $<TARGET_FILE:${name}>)
    set_tests_properties(${name}_valgrind PROPERTIES
      LABELS valgrind TIMEOUT 900
      ENVIRONMENT "CIM_CLIENT_TEST_SCALE=100;GTEST_FILTER=-${exhaustive}")
  endif()
endfunction()
