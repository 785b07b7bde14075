# Debian's cross compilers for another machine.  CIM_CLIENT_SYSROOT names a folder into which the
# compiler and the machine's packages have been unpacked, as packaging/test-machine.sh does.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${machine_processor})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CIM_CLIENT_SYSROOT)
set(CMAKE_SYSROOT ${CIM_CLIENT_SYSROOT})
set(CMAKE_C_COMPILER ${CMAKE_SYSROOT}/usr/bin/${machine_triplet}-gcc)
set(CMAKE_CXX_COMPILER ${CMAKE_SYSROOT}/usr/bin/${machine_triplet}-g++)

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Debian names its folders of i386 differently from its compilers.
string(REPLACE i686 i386 CMAKE_LIBRARY_ARCHITECTURE ${machine_triplet})

# What is built here runs under qemu-user, with the machine's own libc.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${machine_processor};-L;${CMAKE_SYSROOT})
