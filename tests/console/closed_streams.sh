#!/usr/bin/env bash
# A reader of the output that has gone: every photo is corrected, and the lost output counts as a
# failure. Streams that the caller closed: their numbers go to no file of the program's.
#
#   closed_streams.sh PROGRAM
set -euo pipefail

# shellcheck source=tests/console/photos.sh
source "$(dirname "${BASH_SOURCE[0]}")/photos.sh"
program=$1
work=$(mktemp -d "${TMPDIR:-/tmp}/streams-XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{in,out,done}
for i in {0..2}; do bitmap 90 60 >"$work/p$i.bmp"; done

fail() {
  echo "$*" >&2
  exit 1
}

exec {gone}> >(true)
wait $!
code=0
"$program" correct "$work"/p?.bmp --record --no-learn --program-folder "$work/program" \
  >&"$gone" 2>&1 || code=$?
((code == 1)) || fail "a reader that has gone: code $code"
(($(find "$work" -name 'p?A.bmp' | wc -l) == 3)) || fail "a reader that has gone: photos are missing"

"$program" watch --input "$work/in" --output "$work/out" --processed "$work/done" \
  --program-folder "$work/program" <&- >&- 2>&- &
watch=$!
cp "$work/p0.bmp" "$work/in"
until [[ -e $work/done/p0.bmp ]]; do sleep 0.1; done
for stream in 0 1 2; do
  [[ $(readlink "/proc/$watch/fd/$stream") == /dev/null ]] || fail "stream $stream is another file"
done
kill "$watch"
wait "$watch" || fail "a watch with closed streams: code $?"
