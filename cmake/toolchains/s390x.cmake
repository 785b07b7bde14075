# Debian's cross compilers for s390x, and qemu to run what they build.
set(machine_processor s390x)
set(machine_triplet s390x-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
