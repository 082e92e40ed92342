#!/usr/bin/env bash
# Kills "watch", "directory" and "correct" in turn at random instants of their work, again and again
# over the same folders, and looks after each kill that no photo was lost or changed, no output is cut
# short, none was replaced, and what was learnt is whole.
#
#   kills.sh PROGRAM        TARNWELL_KILLS: how many kills (12); TARNWELL_SEED: where the instants
#                           start, as a failure told it
set -euo pipefail

# shellcheck source=tests/console/photos.sh
source "$(dirname "${BASH_SOURCE[0]}")/photos.sh"
program=$(readlink -f "$1")
kills=${TARNWELL_KILLS:-12}
# No dot in the folder: free names would lead elsewhere (automation/free_name.h).
work=$(mktemp -d "${TMPDIR:-/tmp}/kills-XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir -p in out "done" hidden corrected album/TWout
learnt="program/Cameras/Default/Default/Smart Data.tsd"
seed=${TARNWELL_SEED:-$RANDOM}
RANDOM=$seed
made=0 arrived=0 round=0 seen=0 too_late=0

fail() {
  echo "after kill $round, seed $seed: $*" >&2
  exit 1
}

# A bitmap of noise in FOLDER. Some are called .jpg: read by their content, they are saved as JPEG
# files.
make_photo() { # FOLDER
  local name
  name=$(printf 'p%05d.%s' "$made" "$([[ $((made % 3)) == 0 ]] && echo bmp || echo jpg)")
  bitmap $((100 + RANDOM % 300)) $((60 + RANDOM % 200)) >"hidden/$name"
  mv "hidden/$name" "$1/$name"
  made=$((made + 1))
}

run() { # COMMAND
  case $1 in
    watch) set -- watch --input in --output out --processed done --once ;;
    directory) set -- directory album ;;
    correct) set -- correct album/p* --output-folder corrected --learn ;;
  esac
  exec "$program" "$@" --threads 2 --quiet --program-folder program
}

# Files of the folders; names that start with a dot are work in progress.
files() { find "$@" -type f ! -name '.*'; }

# Puts new photos into the watched folder.
fill() {
  while (($(find in -type f | wc -l) < 10)); do
    make_photo in
    arrived=$((arrived + 1))
  done
}

milliseconds() { echo $(($(date +%s%N) / 1000000)); }

check() {
  local file
  (($(files in done | wc -l) == arrived)) || fail "a photo is lost"
  sha256sum --quiet --check album.sums || fail "a photo was changed"
  while read -r file; do
    [[ -e out/${file##*/} ]] || fail "${file##*/} was moved without an output"
  done < <(files done)
  # Before the first output there is nothing to hold against, and sha256sum refuses an empty list.
  if [[ -s sums ]]; then sha256sum --quiet --check sums || fail "an output was replaced"; fi
  while read -r file; do
    is_whole "$file" || fail "$file is cut short"
    seen=$((seen + 1))
  done < <(files out corrected album/TWout -newer sums)
  [[ ! -e $learnt ]] || has_whole_records "$learnt" || fail "a learning record is cut short"
  # Names run out, and time: what has been looked at goes.
  rm -f corrected/p* album/TWout/p*
  files out | xargs -r sha256sum >sums
  touch -d '1 second ago' sums
}

for ((i = 0; i < 10; ++i)); do make_photo album; done
sha256sum album/p* >album.sums
: >sums
touch -d '1 hour ago' sums
commands=(watch directory correct)
declare -A takes
for command in "${commands[@]}"; do
  fill
  began=$(milliseconds)
  (run "$command") || fail "$command ended with code $?"
  takes[$command]=$(($(milliseconds) - began + 1))
  check
done
while ((round < kills)); do
  fill
  command=${commands[round % 3]}
  delay=$((RANDOM % takes[$command]))
  (run "$command") &
  child=$!
  sleep "$((delay / 1000)).$(printf %03d $((delay % 1000)))"
  kill -KILL "$child" 2>/dev/null || true
  code=0
  wait "$child" 2>/dev/null || code=$?
  case $code in
    0) too_late=$((too_late + 1)) ;; # it was faster than the one that was timed
    137) round=$((round + 1)) ;;
    *) fail "$command ended with code $code" ;;
  esac
  check
done
for command in "${commands[@]}"; do (run "$command") || fail "the last $command ended with code $?"; done
check
(($(find in -type f | wc -l) == 0)) || fail "photos were left in the input folder"
strays=$(find . -name '.*' -type f)
[[ -z $strays ]] || fail "strays were left: $strays"
doubles=$(find out -type f -name '*~*' | wc -l)
((doubles <= 2 * kills)) || fail "$doubles outputs are double"
echo "$kills kills ($too_late more came too late), $made photos, $seen outputs whole and kept," \
  "$doubles of them written once more, $(wc -l <"$learnt") records learnt"
