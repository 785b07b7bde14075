# musl by Debian's musl-tools, for this machine.  They bring no C++ library: of the one beside gcc
# what lies in headers serves, which is all that the libraries use.  C programs are linked.
set(CMAKE_C_COMPILER musl-gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)  # a C++ program cannot be linked

function(ask_compiler result)
  execute_process(COMMAND g++ ${ARGN}
    OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${result} ${answer} PARENT_SCOPE)
endfunction()
ask_compiler(version -dumpversion)
ask_compiler(machine -print-multiarch)
ask_compiler(intrinsics -print-file-name=include)
string(REPLACE linux-gnu linux-musl musl ${machine})

set(folders /usr/include/c++/${version} /usr/include/${machine}/c++/${version}
  /usr/include/${musl} ${intrinsics})
list(TRANSFORM folders PREPEND "-isystem ")
list(JOIN folders " " folders)
# The C++ headers ask for the version of glibc, which is none, and for its name of a type.
set(CMAKE_CXX_FLAGS_INIT
  "-nostdinc ${folders} -D__locale_t=locale_t \"-D__GLIBC_PREREQ(major,minor)=0\"")

# The machine's own libraries are glibc's.
set(CMAKE_FIND_ROOT_PATH /usr/lib/${musl})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
