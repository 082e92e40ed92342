#!/usr/bin/env bash
# A reader of the output that ends early, and streams that the caller closed: every photo is
# corrected, and the lost output counts as a failure.
#
#   closed_streams.sh PROGRAM
set -euo pipefail

# shellcheck source=tests/console/photos.sh
source "$(dirname "${BASH_SOURCE[0]}")/photos.sh"
program=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/streams-XXXXXX")
trap 'rm -rf "$work"' EXIT
for i in {0..5}; do bitmap 90 60 >"$work/p$i.bmp"; done

expect() { # CODE WHAT
  [[ $code == "$1" ]] || { echo "$2: code $code instead of $1" >&2; exit 1; }
  (($(find "$work" -name 'p?A.bmp' | wc -l) == 6)) || { echo "$2: photos are missing" >&2; exit 1; }
  rm -f "$work"/p?A.bmp
}
correct() {
  code=0
  "$program" correct "$work"/p?.bmp --record --no-learn --program-folder "$work/program" || code=$?
}

{ correct; echo "$code" >"$work/code"; } 2>&1 | head -n 1 >"$work/read"
code=$(<"$work/code")
expect 1 "a reader that ends after a line"
correct >&- 2>"$work/read"
expect 1 "closed output"
correct >"$work/read" 2>&- <&-
expect 0 "closed errors"
