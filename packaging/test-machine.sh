#!/bin/bash
# Builds the libraries and their tests for another machine and runs the tests under qemu-user.
#
# usage: test-machine.sh MACHINE [BUILD_FOLDER]      MACHINE: arm64, armhf, i386 or s390x
#
# Needs the packages of the sections "build", "test" and "machines".  Debian's cross compiler and
# the machine's own packages are unpacked into the build folder: installed, the compilers would put
# gcc-multilib out, and the machine's packages need its architecture in this machine's list.
#
# Left out are the tests with the label "machine", for reasons that tests/CMakeLists.txt has, and
# those of the documentation, which is the same on every machine.  At the end the XML library's two
# engines are compared on 300,000 mutants of documents.
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
usage() {
  echo "usage: $0 arm64|armhf|i386|s390x [BUILD_FOLDER]" >&2
  exit 2
}
[[ $# == 1 || $# == 2 ]] || usage
machine=$1
case $machine in
  arm64) triplet=aarch64-linux-gnu emulator=qemu-aarch64 ;;
  armhf) triplet=arm-linux-gnueabihf emulator=qemu-arm ;;
  i386) triplet=i686-linux-gnu emulator=qemu-i386 ;;
  s390x) triplet=s390x-linux-gnu emulator=qemu-s390x ;;
  *) usage ;;
esac
build=$(realpath -m "${2:-$source/build/$machine}")
sysroot=$build/sysroot

# What the libraries and the tests are linked with, and what runs them.
machine_packages=(libc6 libexpat1 libexpat1-dev libfmt-dev libgcc-s1 libgmock-dev libgtest-dev
  libspdlog-dev libstdc++6)

# The cross compiler and the packages of the machine that it brings along, but for the assembler
# and the linker, which are installed.
compiler_packages() {
  apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks \
    --no-replaces --no-enhances "g++-$triplet" |
    grep -E "^[a-z].*($triplet|-$machine-cross)" | grep -v '^binutils-' | sort -u
}

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
  (
    cd "$build/packages"
    # A mirror may lack one of its lists; whether a package is missing shows when it is fetched.
    apt_of_machine update || true
    # CMake's packages of spdlog and its formatter ask for the libraries, too.
    mapfile -t names < <(apt-cache depends libspdlog-dev libfmt-dev |
      grep -oE 'lib(spdlog|fmt)[0-9.]+$' | sort -u)
    apt_of_machine download "${machine_packages[@]}" "${names[@]}"
    mapfile -t names < <(compiler_packages)
    apt-get -qq -o APT::Sandbox::User=root download "${names[@]}"
  )
  for package in "$build/packages"/*.deb; do dpkg-deb -x "$package" "$sysroot"; done
  # Links to /lib lead into the sysroot.
  find "$sysroot" -type l -lname '/*' -printf '%p %l\n' | while read -r link target; do
    ln -sfn "$sysroot$target" "$link"
  done
  ln -sfn "/usr/$triplet/bin" "$sysroot/usr/$triplet/bin"
  touch "$sysroot/complete"
}

# What docs/device-vendors.md has of each library; its size is held by a test.
show_libraries() {
  local library
  for library in src/libCIM-Client platform/xmlparser/libXMLParser platform/rtlog/librtlog; do
    "$triplet-strip" -o "$build/stripped" "$build/$library.so.1"
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
# qemu-i386 keeps one table of segments for all threads: who returns from the handler of a signal
# goes on with another thread's.  amd64 runs that test by itself.
direct=
[[ $machine-$(uname -m) != i386-x86_64 ]] || direct=exchange_failures_test
# An emulated program cannot start itself anew, as tests of its death would have it.
GTEST_DEATH_TEST_STYLE=fast ctest --test-dir "$build" --output-on-failure --no-tests=error \
  --timeout 1500 --parallel "$(nproc)" --label-exclude '^(valgrind|machine)$' \
  --exclude-regex "^docs_|^${direct:-none}\$"
if [[ -n $direct ]]; then
  folders=$sysroot/lib/i386-linux-gnu:$sysroot/usr/lib/i386-linux-gnu
  "$sysroot/lib/ld-linux.so.2" --library-path "$folders" \
    "$(find "$build/tests" -name $direct -type f)" --gtest_brief=1
fi
"$emulator" -L "$sysroot" "$build/tests/platform/xml_mutants_test" seconds=3000 \
  mutants=300000 from=50000 "$source"/fuzz/{xml_engines.dict,seeds/xml_engines}
show_libraries
