# Debian's cross compilers for armhf, and qemu to run what they build.
set(machine_processor arm)
set(machine_triplet arm-linux-gnueabihf)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
