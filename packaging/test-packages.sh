#!/bin/bash
# Builds the Debian packages, checks them with lintian, installs them into a clean root and runs
# them there.
#
# usage: test-packages.sh BUILD_FOLDER
#
# The clean root needs a superuser and Debian's archive.  Status: 0 passed, 1 failed, 77 the clean
# root could not be made, so that its part is neither passed nor failed.
# shellcheck disable=SC2016 # what runs in the root is expanded there
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
[[ $# == 1 ]] || { echo "usage: $0 BUILD_FOLDER" >&2; exit 2; }
build=$(realpath -m "$1")
packages=$build/packages

fail() {
  echo "packages: $*" >&2
  exit 1
}

skip() {
  echo "packages: SKIPPED, not tested: $*" >&2
  exit 77
}

check_with_lintian() {
  # Why some tags stay is in packaging/README.md.
  lintian --allow-root --fail-on error,warning \
    --suppress-tags-from-file "$here/debian/lintian-tags" "$packages"/*.deb ||
    fail "lintian finds fault"
}

# Debian's release of this machine, with nothing but what every system has.
make_root() {
  [[ $(id -u) == 0 ]] || skip "no superuser"
  command -v debootstrap >/dev/null || skip "no debootstrap"
  root=$(mktemp -d)
  trap 'rm -rf --one-file-system "$root"' EXIT
  # shellcheck source=/dev/null
  debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root" \
    >"$build/debootstrap.log" 2>&1 || skip "debootstrap: $(tail -n 1 "$build/debootstrap.log")"
}

# Runs commands in the root; what they mount goes with them.
inside() {
  unshare --mount --pid --fork bash -c \
    'mount -t proc proc "$0/proc" && exec chroot "$0" /bin/bash -euo pipefail -c "$1"' "$root" "$1"
}

install_into_root() {
  mkdir -p "$root/packages"
  cp "$packages"/*.deb "$root/packages"
  inside 'export DEBIAN_FRONTEND=noninteractive
          apt-get -qq update
          apt-get -qq -y --no-install-recommends install /packages/*.deb >/dev/null
          dpkg --audit' >"$build/installed.log" 2>&1 ||
    fail "cannot be installed: $(tail -n 3 "$build/installed.log")"
}

run_in_root() {
  inside ': >/tmp/said
          cim-sandbox --port 0 >/tmp/said &
          for _ in {1..100}; do
            port=$(sed -n "s/^listening on .*:\([0-9]*\)$/\1/p" /tmp/said)
            [[ -z $port ]] || break
            sleep 0.1
          done
          cim-client --url "http://127.0.0.1:$port/root/cimv2" enumerate-instances CIM_Fan
          kill %1' >"$build/ran.log" 2>&1 || fail "do not run: $(cat "$build/ran.log")"
  for name in "Front fan left" "Front fan right" "Spare fan"; do
    grep -q "$name" "$build/ran.log" || fail "no $name: $(cat "$build/ran.log")"
  done
}

# The same model through the broker library, which is loaded from the folder that it lies in.
run_local_in_root() {
  touch "$root/etc/Binary.txt"
  inside 'export LD_LIBRARY_PATH=$(dirname "$(find /usr/lib -name libcimcClientSfcbLocal.so)")
          cim-client --url http://127.0.0.1/root/cimv2 enumerate-instances CIM_Fan' \
    >"$build/local.log" 2>&1 ||
    fail "the local broker: $(cat "$build/local.log")"
  grep -q "Front fan left" "$build/local.log" || fail "local: $(cat "$build/local.log")"
  rm "$root/etc/Binary.txt"
}

remove_from_root() {
  inside 'apt-get -qq -y purge cim-client-tools libcim-client-dev libcim-client1 libxmlparser1 \
            librtlog1 >/dev/null
          ! find /usr -iname "*cim?client*" -o -iname "*cim-sandbox*" -o -iname "*rtlog*" |
            grep .' >"$build/removed.log" 2>&1 ||
    fail "something stays when they go: $(cat "$build/removed.log")"
}

mkdir -p "$build"
"$here/build-packages.sh" "$build" >"$build.log" 2>&1 || { tail -n 20 "$build.log"; exit 1; }
check_with_lintian
make_root
install_into_root
run_in_root
run_local_in_root
remove_from_root
echo "packages: built, checked, installed into a clean root, run there, and removed"
