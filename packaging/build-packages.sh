#!/bin/bash
# Builds the Debian packages for this machine.
#
# usage: build-packages.sh BUILD_FOLDER [OUTPUT_FOLDER]     the packages go into OUTPUT_FOLDER;
#                                                           BUILD_FOLDER/packages when left out
#
# Compiles with Debian's hardening flags.  Needs the packages of the section "build".
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
[[ $# == 1 || $# == 2 ]] || { echo "usage: $0 BUILD_FOLDER [OUTPUT_FOLDER]" >&2; exit 2; }
build=$(realpath -m "$1")
output=$(realpath -m "${2:-$build/packages}")

# The time that files get: the last commit's, so that the same sources make the same packages.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$source" log -1 --format=%ct 2>/dev/null ||
  stat --format=%Y "$source/CHANGELOG.md")}
export SOURCE_DATE_EPOCH

# Debugging information would be stripped again.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
export DEB_CFLAGS_MAINT_STRIP=-g DEB_CXXFLAGS_MAINT_STRIP=-g
# Debian's -O2 is the last word: Release would add -O3.
flags=(
  -DCMAKE_C_FLAGS_RELEASE=-DNDEBUG
  -DCMAKE_CXX_FLAGS_RELEASE=-DNDEBUG
  -DCMAKE_C_FLAGS="$(dpkg-buildflags --get CFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
  -DCMAKE_CXX_FLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
  -DCMAKE_SHARED_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)"
  -DCMAKE_EXE_LINKER_FLAGS="$(dpkg-buildflags --get LDFLAGS)")

cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_BUILD_RPATH_USE_ORIGIN=ON -DCMAKE_INSTALL_SYSCONFDIR=/etc -DCIM_CLIENT_TESTS=OFF \
  -DCIM_CLIENT_STATIC=ON "${flags[@]}"
cmake --build "$build"
(cd "$build" && cpack -G DEB -B "$build/packed")
mkdir -p "$output"
mv "$build"/packed/*.deb "$output"
rm -rf "$build/packed"
