#!/usr/bin/env bash
# Installs the Debian packages that are still missing for the named groups of work:
#
#   scripts/setup.sh native|window|test|fuzz|format ...
#
# Does nothing, and takes no time worth mentioning, when everything is there.
set -euo pipefail

packages=()
for group in "$@"; do
  case $group in
    native) packages+=(g++ cmake ninja-build libjpeg-dev libgif-dev libcli11-dev) ;;
    window)
      packages+=(cmake ninja-build libcli11-dev googletest g++-mingw-w64-x86-64-posix
        wine wine64 xvfb xauth fonts-liberation fonts-wine)
      ;;
    window32) packages+=(g++-mingw-w64-i686-posix) ;;
    test) packages+=(googletest libbenchmark-dev libimage-exiftool-perl libjpeg-turbo-progs) ;;
    fuzz) packages+=(clang libclang-rt-dev) ;;
    format) packages+=(git clang-format) ;;
    *)
      echo "setup: no such group: $group" >&2
      exit 2
      ;;
  esac
done

if ! command -v dpkg-query >/dev/null; then
  echo "setup: this is no Debian system; these packages or their like are needed: ${packages[*]}" >&2
  exit 0
fi

# dpkg-query fails when it does not know one of the names, and still lists the others.
installed=" $(dpkg-query -W -f '${db:Status-Status}:${Package} ' "${packages[@]}" 2>/dev/null || true)"
missing=()
for package in "${packages[@]}"; do
  [[ $installed == *" installed:$package "* ]] || missing+=("$package")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    echo "setup: please install these packages: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y \
    -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" >>"$log" 2>&1 </dev/null
}

echo "Installing packages: ${missing[*]}" >&2
if ! { apt update && apt install --no-install-recommends "${missing[@]}"; }; then
  cat "$log" >&2
  echo "setup: the packages could not be installed" >&2
  exit 1
fi
