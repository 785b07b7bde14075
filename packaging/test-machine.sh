#!/bin/bash
# Builds the libraries and their tests for another machine and runs the tests under qemu-user.
#
# usage: test-machine.sh MACHINE [BUILD_FOLDER]      MACHINE: arm64, armhf, i386 or s390x
#
# Needs the packages of the sections "build", "test" and "machines".  The machine's own packages
# are unpacked into the build folder, so that nothing is installed and this machine's list of
# architectures stays as it is.  At the end stand the sizes of the libraries.
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
usage() {
  echo "usage: $0 arm64|armhf|i386|s390x [BUILD_FOLDER]" >&2
  exit 2
}
[[ $# == 1 || $# == 2 ]] || usage
machine=$1
case $machine in
  arm64) triplet=aarch64-linux-gnu ;;
  armhf) triplet=arm-linux-gnueabihf ;;
  i386) triplet=i686-linux-gnu ;;
  s390x) triplet=s390x-linux-gnu ;;
  *) usage ;;
esac
build=$(realpath -m "${2:-$source/build/$machine}")
sysroot=$build/sysroot

# What the libraries and the tests are linked with, from the machine's packages; the names that
# hold a version are those of Debian 12.
packages=(libexpat1 libexpat1-dev libgtest-dev libgmock-dev libspdlog-dev libspdlog1.10 libfmt-dev
  libfmt9)

# apt with a list of packages of its own, for the machine's architecture alone.
apt_of_machine() {
  local state=$build/apt
  mkdir -p "$state"/{lists/partial,archives/partial}
  touch "$state/status"
  apt-get -qq -o APT::Architecture="$machine" -o APT::Architectures="$machine" \
    -o APT::Sandbox::User=root -o Dir::State::Lists="$state/lists" \
    -o Dir::State::status="$state/status" -o Dir::Cache="$state" "$@"
}

unpack_packages() {
  [[ ! -e $sysroot/complete ]] || return 0
  mkdir -p "$build/packages" "$sysroot"
  (cd "$build/packages" && apt_of_machine update && apt_of_machine download "${packages[@]}")
  for package in "$build/packages"/*.deb; do dpkg-deb -x "$package" "$sysroot"; done
  # Links to /lib lead into the sysroot.
  find "$sysroot" -type l -lname '/*' -printf '%p %l\n' | while read -r link target; do
    ln -sfn "$sysroot$target" "$link"
  done
  touch "$sysroot/complete"
}

# Sizes as docs/device-vendors.md has them.
show_sizes() {
  local library
  for library in src/libCIM-Client platform/xmlparser/libXMLParser platform/rtlog/librtlog; do
    $triplet-strip -o "$build/stripped" "$build/$library.so.1"
    printf '%-18s %7d bytes stripped, needs %s\n' "$(basename $library.so.1)" \
      "$(stat --format=%s "$build/stripped")" \
      "$(readelf -d "$build/stripped" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | paste -sd' ')"
  done
}

unpack_packages
cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCIM_CLIENT_TOOLS=OFF \
  -DCIM_CLIENT_SYSROOT="$sysroot" \
  -DCMAKE_TOOLCHAIN_FILE="$source/cmake/toolchains/$machine.cmake"
cmake --build "$build"
# Emulated, a test takes its time; the texts about the project are the same on every machine.
ctest --test-dir "$build" --output-on-failure --no-tests=error --timeout 1500 \
  --label-exclude valgrind --exclude-regex '^docs_'
show_sizes
