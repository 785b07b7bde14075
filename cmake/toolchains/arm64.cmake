# Debian's cross compilers for arm64, and qemu to run what they build.
set(machine_processor aarch64)
set(machine_triplet aarch64-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
