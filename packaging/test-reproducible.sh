#!/bin/bash
# Builds the libraries twice, from two copies of the sources in two folders of different length:
# they are the same, byte by byte.
#
# usage: test-reproducible.sh WORK_FOLDER [CMAKE_OPTION...]
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
[[ $# -ge 1 ]] || { echo "usage: $0 WORK_FOLDER [CMAKE_OPTION...]" >&2; exit 2; }
work=$1
shift

# With debugging information, which holds the most paths.
build() {
  local folder=$work/$1
  mkdir -p "$folder/source"
  cp -r "$source"/{CMakeLists.txt,cmake,docs,include,platform,src} "$folder/source"
  cmake -S "$folder/source" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_BUILD_RPATH_USE_ORIGIN=ON \
    -DCIM_CLIENT_TOOLS=OFF -DCIM_CLIENT_TESTS=OFF -DCIM_CLIENT_INSTALL=OFF \
    -DCIM_CLIENT_STATIC=ON "${@:2}" >"$folder/log"
  cmake --build "$folder/build" >>"$folder/log" || { tail -n 20 "$folder/log" >&2; return 1; }
}

rm -rf "$work"
build one "$@"
build another/folder "$@"
compared=0
while read -r library; do
  cmp "$work/one/build/$library" "$work/another/folder/build/$library"
  compared=$((compared + 1))
done < <(cd "$work/one/build" && find . -name 'lib*.so.*.*.*' -o -name 'lib*.a')
[[ $compared == 4 ]] || { echo "compared $compared libraries, not 4" >&2; exit 1; }
echo "the $compared libraries are the same"
