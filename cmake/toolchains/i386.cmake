# Debian's cross compilers for i386, and qemu to run what they build.
set(machine_processor i386)
set(machine_triplet i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
