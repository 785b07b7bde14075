# Debian's cross compilers for another machine.  CIM_CLIENT_SYSROOT names a folder with the
# machine's libraries and headers beyond libc's, unpacked from its Debian packages.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${machine_processor})
set(CMAKE_C_COMPILER ${machine_triplet}-gcc)
set(CMAKE_CXX_COMPILER ${machine_triplet}-g++)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CIM_CLIENT_SYSROOT)
set(CMAKE_FIND_ROOT_PATH ${CIM_CLIENT_SYSROOT} /usr/${machine_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Debian names its folders of i386 differently from its compilers.
string(REPLACE i686 i386 machine_folder ${machine_triplet})
set(CMAKE_LIBRARY_ARCHITECTURE ${machine_folder})

# Libraries that libraries need are looked for as the machine's linker would.
set(machine_libraries
  ${CIM_CLIENT_SYSROOT}/usr/lib/${machine_folder}:${CIM_CLIENT_SYSROOT}/lib/${machine_folder})
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,-rpath-link,${machine_libraries})
set(CMAKE_SHARED_LINKER_FLAGS_INIT -Wl,-rpath-link,${machine_libraries})

# What is built here runs under qemu-user, with libc of the cross compiler.
set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-${machine_processor};-L;/usr/${machine_triplet};-E;LD_LIBRARY_PATH=${machine_libraries})
