#!/bin/bash
# Builds the libraries with musl in the place of glibc and tries them there.
#
# usage: test-musl.sh [BUILD_FOLDER]
#
# Debian's musl-tools have no C++ library, so what runs are programs in C, each with the shared
# libraries and once more linked statically:
#
#   c_operations           the operations against the sandbox object manager, and documents
#   c_face_test            the interface as C sees it
#   platform headers       the two platform libraries by themselves
#   rtlog_test             the tests of the logger, which start a program built with musl
#   guide                  the programs of the guide's pages that are in C alone
#
# The sandbox and the tests that start programs are built for this machine as it is.  Needs the
# packages of the sections "build", "test" and "machines".
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
[[ $# -le 1 ]] || { echo "usage: $0 [BUILD_FOLDER]" >&2; exit 2; }
build=$(realpath -m "${1:-$source/build/musl}")
native=$build/native
passed=0

fail() {
  echo "musl: $*" >&2
  exit 1
}

pass() {
  passed=$((passed + 1))
  echo "passed: $*"
}

# Expat and spdlog would need builds of their own for musl; without them the libraries need none.
build_libraries() {
  cmake -S "$source" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCIM_CLIENT_TOOLS=OFF \
    -DCIM_CLIENT_TESTS=OFF -DCIM_CLIENT_STATIC=ON -DCIM_CLIENT_XML_EXPAT=OFF \
    -DCIM_CLIENT_LOGGER=plain -DCMAKE_TOOLCHAIN_FILE="$source/cmake/toolchains/musl.cmake"
  cmake --build "$build"
}

build_native() {
  cmake -S "$source" -B "$native" -G Ninja -DCMAKE_BUILD_TYPE=Debug
  cmake --build "$native" --target cim-sandbox rtlog_plain_test
}

# compile NAME LANGUAGE_OPTIONS... SOURCES...: the program, and NAME_static.
compile() {
  local name=$1
  shift
  local options=(-Wall -Wextra -Werror -D_GNU_SOURCE -I"$source/include"
    -I"$source/platform/xmlparser/include" -I"$source/platform/rtlog/include")
  musl-gcc -std=c99 "${options[@]}" -rdynamic "$@" -o "$build/$name" \
    -L"$build/src" -L"$build/platform/xmlparser" -L"$build/platform/rtlog" \
    -lCIM-Client -lXMLParser -lrtlog \
    -Wl,-rpath,"$build/src:$build/platform/xmlparser:$build/platform/rtlog"
  musl-gcc -std=c99 -static "${options[@]}" "$@" -o "$build/${name}_static" \
    "$build/src/libCIM-Client.a" "${objects[@]}"
}

# Both programs of a name, which end with status 0.
try() {
  local name=$1
  shift
  "$build/$name" "$@" || fail "$name fails"
  pass "$name"
  "$build/${name}_static" "$@" || fail "$name, linked statically, fails"
  pass "$name, linked statically"
}

# Nothing of glibc is asked for.
check_needs() {
  local library needed
  for library in src/libCIM-Client platform/xmlparser/libXMLParser platform/rtlog/librtlog; do
    strip -o "$build/stripped" "$build/$library.so.1"
    needed=$(readelf -d "$build/stripped" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | sort |
      paste -sd' ')
    printf '%-18s %7d bytes stripped, needs %s\n' "$(basename $library.so.1)" \
      "$(stat --format=%s "$build/stripped")" "$needed"
    [[ $needed == libc.so || $needed == "libXMLParser.so.1 libc.so librtlog.so.1" ]] ||
      fail "$library.so.1 needs $needed"
  done
}

start_sandbox() {
  "$native/tools/cim-sandbox/cim-sandbox" --port 0 >"$build/sandbox.out" &
  sandbox=$!
  trap 'kill $sandbox 2>/dev/null || true; wait $sandbox || true' EXIT
  for _ in {1..100}; do
    port=$(sed -n 's/^listening on .*:\([0-9]*\)$/\1/p' "$build/sandbox.out")
    [[ -z $port ]] || return 0
    sleep 0.1
  done
  fail "the sandbox did not start"
}

# The tests of the logger, with a program in the place of theirs.
try_logger() {
  RTLOG_TEST_WRITER=$build/$1 "$native/tests/platform/rtlog_plain_test" --gtest_brief=1 ||
    fail "the logger of $1 fails"
  pass "rtlog_test with $1"
}

try_guide() {
  local page tools=$build/tools
  mkdir -p "$tools"
  ln -sf "$(command -v musl-gcc)" "$tools/gcc"
  for page in "$source"/docs/guide/*.md; do
    if [[ $(basename "$page") != README.md ]] && ! grep -q '^```cpp' "$page"; then
      PATH=$tools:$PATH python3 "$source/tests/docs/page.py" "$page" "$source" "$build" \
        "$native/tools/cim-sandbox/cim-sandbox" || fail "$page fails"
      pass "guide/$(basename "$page")"
    fi
  done
}

build_libraries
build_native
mapfile -t objects < <(find "$build/platform" -path '*_objects.dir/*' -name '*.o')
objects+=("$build/platform/xmlparser/CMakeFiles/XMLParser.dir/xml_parser.cpp.o")
compile c_operations "$source/tests/project/c_operations.c"
compile c_face_test "$source/tests/project/header/c_face_test.c"
compile platform_headers "$source/tests/platform/headers_test.c"
compile log_writer "$source/tests/platform/log_writer.c"
check_needs
start_sandbox
try c_face_test
try platform_headers
try c_operations "$port"
try_logger log_writer
try_logger log_writer_static
try_guide
echo "musl: $passed passed"
