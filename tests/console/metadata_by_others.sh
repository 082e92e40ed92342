#!/usr/bin/env bash
# Photos of several encoders in all eight orientations, tagged by a program that is not ours, are
# corrected; then that program must find the same in the new files, but for what the correction
# changes, and the scene must stand upright.
#
#   metadata_by_others.sh TARNWELL-POCKET
set -euo pipefail

program=$1
for tool in exiftool cjpeg djpeg; do
  command -v "$tool" >/dev/null || { echo "skipped: $tool is missing"; exit 77; }
done
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir photos saved without-place

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# A scene of four quarters of grey (30, 90 above 150, 210), WIDTH x HEIGHT when it is upright, as a
# camera stores it that is held in this orientation.
stored_scene() {
  awk -v w="$1" -v h="$2" -v orientation="$3" 'BEGIN {
    exchanged = orientation >= 5
    print "P2", (exchanged ? h : w), (exchanged ? w : h), 255
    for (row = 0; row < (exchanged ? w : h); ++row) {
      for (column = 0; column < (exchanged ? h : w); ++column) {
        x = exchanged ? row : column
        y = exchanged ? column : row
        if (orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7) x = w - 1 - x
        if (orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8) y = h - 1 - y
        print (y < h / 2 ? 30 : 150) + (x < w / 2 ? 0 : 60)
      }
    }
  }'
}

declare -A encoders=([baseline]="-quality 90" [progressive]="-quality 75 -progressive" [restarts]="-quality 60 -restart 1 -optimize")
stored_scene 32 24 1 | cjpeg -quality 70 >thumbnail
for orientation in {1..8}; do
  for size in "96 64" "64 96"; do
    stored_scene $size "$orientation" | awk 'NR == 1 { print "P3", $2, $3, $4; next } { print $1, $1, $1 }' >scene.ppm
    for encoder in "${!encoders[@]}"; do
      # shellcheck disable=SC2086
      cjpeg ${encoders[$encoder]} scene.ppm >"photos/$encoder-${size/ /x}-$orientation.jpg"
    done
  done
  exiftool -q -overwrite_original -n "-IFD0:Orientation=$orientation" -Make=Maker -Model=Phone \
    -DateTimeOriginal="2024:05:06 07:08:09" -GPSLatitude=50.7 -GPSLatitudeRef=N -GPSAltitude=60 \
    -ExifImageWidth=1 -ExifImageHeight=1 -SubjectArea="3 4 5 6" -XMP-exif:SubjectLocation=3 \
    -JFIF:XResolution=300 -JFIF:YResolution=300 -JFIF:ResolutionUnit=2 "-ThumbnailImage<=thumbnail" \
    -XMP-dc:Title="A title" -XMP-exif:GPSLatitude=50.7 -XMP-photoshop:City=Bonn \
    -IPTC:Keywords=one -IPTC:Keywords=two -IPTC:City=Bonn -Comment="A comment" \
    photos/*-"$orientation.jpg"
done

correct() {
  "$program" correct photos/*.jpg --program-folder program --no-learn --quiet --module 1=off "$@"
}
correct --output-folder saved
correct --output-folder without-place --strip-place

# All at once: the other program takes longer to start than to read.
exiftool -q -a -G1 -s -n -w %d%f.txt photos saved without-place
exiftool -q -ext jpg -b -ThumbnailImage -w %d%f.thumbnail saved
if grep -lE 'GPS|City' without-place/*.txt || grep -l Bonn without-place/*.jpg; then
  fail "these tell the place"
fi

# What it finds, less what must change.
found() {
  local turned='(nothing)'
  if [[ $1 != *-1?(A).txt ]]; then turned=Subject; fi
  grep -vE "^\[(ExifTool|System|File|Composite)\]|Orientation|ExifImage|IFD1|IPTCDigest|ThumbnailImage|$turned" "$1"
}
has() { grep -qE "^\[$2\] +$3 +: $4\$" "saved/$1A.txt" || fail "$1: $3 is not $4"; }

for photo in photos/*.jpg; do
  name=$(basename "$photo" .jpg)
  diff <(found "photos/$name.txt") <(found "saved/${name}A.txt") || fail "$name: metadata differ"
  size=${name#*-}
  size=${size%-*}
  has "$name" IFD0 Orientation 1
  has "$name" ExifIFD ExifImageWidth "${size%x*}"
  has "$name" ExifIFD ExifImageHeight "${size#*x}"
  if [[ $name != *-1 ]] && grep Subject "saved/${name}A.txt"; then
    fail "$name: tells where the subject was before the turn"
  fi
  djpeg "saved/${name}A.thumbnail" >/dev/null || fail "$name: thumbnail"
  width=${size%x*} height=${size#*x}
  djpeg -grayscale "saved/${name}A.jpg" | tail -c $((width * height)) >pixels
  quarters=
  for y in $((height / 4)) $((height * 3 / 4)); do
    for x in $((width / 4)) $((width * 3 / 4)); do
      level=$(od -An -tu1 -j $((y * width + x)) -N 1 pixels)
      quarters+="$(((level + 15) / 30 * 30)) "
    done
  done
  [[ $quarters == "30 90 150 210 " ]] || fail "$name: is not upright: $quarters"
done
echo "$(ls photos/*.jpg | wc -l) photos hold what they held"
