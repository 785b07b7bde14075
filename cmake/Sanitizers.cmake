# Sanitizers for everything that is built here.

set(CIM_CLIENT_SANITIZE OFF CACHE STRING
  "ON: the address and undefined-behaviour sanitizers, with leak detection; thread: that of threads")
set_property(CACHE CIM_CLIENT_SANITIZE PROPERTY STRINGS OFF ON thread)

if(CIM_CLIENT_SANITIZE STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
elseif(CIM_CLIENT_SANITIZE)
  # The libraries have no run-time type information, which these checks need.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    list(APPEND sanitizers -fno-sanitize=function)
  endif()
  add_compile_options(${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(${sanitizers})
  # Tests are watched for wrong accesses only, which halves the time to compile them.
  set(CIM_CLIENT_TEST_SANITIZERS -fno-sanitize=undefined)
endif()
