#!/usr/bin/env bash
# Several programs at once at the same work: photos that want the same name, watchers of the same
# folder, corrections that are learnt in the same file. Nothing is lost, cut short or replaced.
#
#   races.sh PROGRAM        TARNWELL_RACES: how many rounds (10); one in ten is one of watchers and
#                           one of learners
set -euo pipefail

# shellcheck source=tests/console/photos.sh
source "$(dirname "${BASH_SOURCE[0]}")/photos.sh"
program=$1
rounds=${TARNWELL_RACES:-10}
work=$(mktemp -d "${TMPDIR:-/tmp}/races-XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/album"
for i in {0..9}; do bitmap $((40 + 10 * i)) 30 >"$work/album/p$i.jpg"; done

fail() {
  echo "round $round: $*" >&2
  cat "$work"/*.log >&2
  exit 1
}

start() { # NUMBER WORDS...
  "$program" "${@:2}" --threads 1 --quiet --program-folder "$work/program" 2>"$work/$1.log" &
  started+=($!)
}

finish() {
  local child
  for child in "${started[@]}"; do wait "$child" || fail "a program ended with code $?"; done
  started=()
}

# Both photos are called p; each must be there as some pX.jpg.
race_for_a_name() {
  local out=$work/out
  mkdir -p "$work/one" "$work/two" "$out"
  cp "$work/album/p1.jpg" "$work/one/p.jpg"
  cp "$work/album/p2.jpg" "$work/two/p.jpg"
  start 1 correct "$work/one/p.jpg" --output-folder "$out" --no-learn
  start 2 correct "$work/two/p.jpg" --output-folder "$out" --no-learn
  finish
  # Noise that differs gives files that differ.
  local sums
  sums=$(sha256sum "$out"/p[AB].jpg | cut -d ' ' -f 1 | sort)
  [[ $sums == "$names_expected" ]] || fail "pA.jpg and pB.jpg are not the two corrected photos"
  (($(find "$out" -type f | wc -l) == 2)) || fail "something else lies in the output folder"
  rm -rf "$out"
}

race_of_watchers() {
  local photo folders=(--input "$work/in" --output "$work/out" --processed "$work/done")
  mkdir "$work"/{in,out,done}
  cp "$work"/album/* "$work/in"
  start 1 watch "${folders[@]}" --once
  start 2 watch "${folders[@]}" --once
  finish
  (cd "$work/album" && sha256sum p*) >"$work/sums"
  (cd "$work/done" && sha256sum --quiet --check "$work/sums") || fail "a photo is lost"
  [[ -z $(ls -A "$work/in") ]] || fail "a photo was left"
  for photo in "$work"/out/*; do is_whole "$photo" || fail "$photo is cut short"; done
  for photo in "$work"/album/*; do
    [[ -e $work/out/${photo##*/} ]] || fail "${photo##*/} has no output"
  done
  [[ -z $(find "$work"/{out,done} -name '.*' -type f) ]] || fail "strays were left"
  twice=$((twice + $(find "$work/out" -name '*~*' | wc -l)))
  rm -rf "$work"/{in,out,done}
}

race_of_learners() {
  local learner learnt="$work/program/Cameras/Default/Default/Smart Data.tsd"
  rm -f "$learnt"
  for learner in {1..8}; do
    mkdir "$work/out$learner"
    start "$learner" correct "$work"/album/* --output-folder "$work/out$learner" --learn
  done
  finish
  has_whole_records "$learnt" || fail "a record is cut short"
  (($(wc -l <"$learnt") == 80)) || fail "$(wc -l <"$learnt") of 80 records are there"
  rm -rf "$work"/out?
}

twice=0
started=()
round=0
names_expected=$(for number in 1 2; do
  "$program" correct "$work/album/p$number.jpg" --output "$work/expected.jpg" --quiet --no-learn \
    --program-folder "$work/program"
  sha256sum <"$work/expected.jpg" | cut -d ' ' -f 1
  rm "$work/expected.jpg"
done | sort)
for ((round = 1; round <= rounds; ++round)); do
  race_for_a_name
  if ((round % 10 == 0)); then
    race_of_watchers
    race_of_learners
  fi
done
echo "$rounds races for a name, $((rounds / 10)) of two watchers ($twice of their photos were" \
  "corrected by both), $((rounds / 10)) of eight learners"
