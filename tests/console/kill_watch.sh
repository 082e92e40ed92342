#!/usr/bin/env bash
# Kills a watch at random instants, again and again over the same folders, and looks after each kill
# that no photo was lost, no output is cut short and none was replaced.
#
#   kill_watch.sh PROGRAM        TARNWELL_KILLS: how many kills (20)
set -euo pipefail

program=$1
kills=${TARNWELL_KILLS:-20}
# No dot in the folder: free names would lead elsewhere (automation/free_name.h).
work=$(mktemp -d "${TMPDIR:-/tmp}/kill-watch-XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work"/{in,out,done,hidden}
made=0

fail() {
  echo "after kill $round: $*" >&2
  exit 1
}

little_endian() { # VALUE BYTES
  local i
  for ((i = 0; i < $2; ++i)); do printf "\\x$(printf %02x $((($1 >> (8 * i)) & 255)))"; done
}

# A bitmap of noise. Some are called .jpg: read by their content, they are saved as JPEG files.
make_photo() {
  local width=$((100 + RANDOM % 300)) height=$((60 + RANDOM % 200)) name
  local bytes=$(((width * 3 + 3) / 4 * 4 * height))
  name=$(printf 'p%05d.%s' "$made" "$([[ $((made % 3)) == 0 ]] && echo bmp || echo jpg)")
  {
    printf BM; little_endian $((bytes + 54)) 4; little_endian 0 4; little_endian 54 4
    little_endian 40 4; little_endian "$width" 4; little_endian "$height" 4; little_endian 1 2
    little_endian 24 2; little_endian 0 4; little_endian "$bytes" 4
    little_endian 0 4; little_endian 0 4; little_endian 0 4; little_endian 0 4
    head -c "$bytes" /dev/urandom
  } >"$work/hidden/$name"
  mv "$work/hidden/$name" "$work/in/$name"
  made=$((made + 1))
}

watch() {
  exec "$program" watch --input "$work/in" --output "$work/out" --processed "$work/done" --once \
    --threads 2 --quiet --program-folder "$work/program"
}

# Files whose name starts with a dot are work in progress.
check() {
  local file size tail_bytes
  (($(find "$work/in" "$work/done" -type f ! -name '.*' | wc -l) == made)) || fail "a photo is lost"
  while read -r file; do
    [[ -e $work/out/${file##*/} ]] || fail "${file##*/} was moved without an output"
  done < <(find "$work/done" -type f ! -name '.*')
  # Before the first output there is nothing to hold against, and sha256sum refuses an empty list.
  if [[ -s $work/sums ]]; then
    (cd "$work" && sha256sum --quiet --check sums) || fail "an output was replaced"
  fi
  while read -r file; do
    size=$(stat -c %s "$file")
    case $file in
      *.bmp) # the header tells the size
        (($(od -An -t u4 -j 2 -N 4 "$file") == size)) || fail "$file is cut short"
        ;;
      *)
        tail_bytes=$(tail -c 2 "$file" | od -An -t x1 | tr -d ' ')
        [[ $tail_bytes == ffd9 ]] || fail "$file is cut short"
        ;;
    esac
  done < <(find "$work/out" -type f ! -name '.*' -newer "$work/sums")
  (cd "$work"; find out -type f ! -name '.*' -exec sha256sum {} + >sums.new)
  mv "$work/sums.new" "$work/sums"
  touch -d '1 second ago' "$work/sums"
}

: >"$work/hidden/empty"
(cd "$work" && sha256sum hidden/empty >sums && touch -d '1 hour ago' sums)
round=0
too_late=0
while ((round < kills)); do
  while (($(find "$work/in" -type f | wc -l) < 10)); do make_photo; done
  (watch) &
  child=$!
  sleep "0.$(printf %03d $((RANDOM % 150)))"
  kill -KILL "$child" 2>/dev/null || true
  code=0
  wait "$child" 2>/dev/null || code=$?
  case $code in
    0) too_late=$((too_late + 1)) ;;
    137) round=$((round + 1)) ;;
    *) fail "the watch ended with code $code" ;;
  esac
  check
done
(watch) || fail "the last run ended with code $?"
check
(($(find "$work/in" -type f | wc -l) == 0)) || fail "photos were left in the input folder"
(($(find "$work/out" "$work/done" -name '.*' -type f | wc -l) == 0)) || fail "strays were left"
doubles=$(find "$work/out" -type f -name '*~*' | wc -l)
((doubles <= 2 * kills)) || fail "$doubles outputs are double"
echo "$kills kills ($too_late more came too late), $made photos, $doubles outputs written once more"
