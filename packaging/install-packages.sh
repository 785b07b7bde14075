#!/bin/sh
# Installs what the project builds with, as listed in debian-packages.txt beside this script.
#
# usage: install-packages.sh [SECTION...]     without a section: build and test
#
# Asks for nothing, and does nothing when everything is there.  As an ordinary user it goes
# through sudo.  When it cannot install, one line says what is missing; the status is 1.
set -eu

list=$(dirname "$0")/debian-packages.txt
[ $# -gt 0 ] || set -- build test

# The packages of the wanted sections for this machine's architecture.  A line is a section,
# "# name", or a package, which may be bound to architectures as in "package [amd64 i386]".
wanted() {
  awk -v sections=" $* " -v architecture="$(dpkg --print-architecture)" '
    /^#/ { section = $2; next }
    NF == 0 || !index(sections, " " section " ") { next }
    NF > 1 { bound = $0; gsub(/[^a-z0-9 -]/, " ", bound) }
    NF == 1 || index(bound " ", " " architecture " ") { print $1 }' "$list" | sort -u
}

installed() {
  dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' |
    awk '$1 == "installed" { print $2 }' | sort -u
}

fail() {
  echo "$1; missing: $missing" >&2
  exit 1
}

# Runs a command as root.  Without a terminal nobody can answer sudo.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif [ -t 0 ]; then
    sudo "$@"
  else
    sudo --non-interactive "$@"
  fi
}

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
  echo "this is no Debian machine: the build takes what it finds (list: $list)" >&2
  exit 0
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
wanted "$@" >"$work/wanted"
installed >"$work/installed"
missing=$(comm -23 "$work/wanted" "$work/installed" | tr '\n' ' ' | sed 's/ $//')
[ -n "$missing" ] || exit 0

if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
  fail "cannot install packages: neither root nor sudo"
fi
echo "installing $missing"
as_root apt-get -qq update >"$work/log" 2>&1 ||
  fail "cannot update the list of packages ($(tail -n 1 "$work/log"))"
# shellcheck disable=SC2086 # one word for each package
as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends install $missing \
  >"$work/log" 2>&1 </dev/null || fail "cannot install packages ($(tail -n 1 "$work/log"))"
