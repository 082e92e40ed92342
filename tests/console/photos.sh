# What the scripts beside this one share; to be sourced.

little_endian() { # VALUE BYTES
  local i
  for ((i = 0; i < $2; ++i)); do printf "\\x$(printf %02x $((($1 >> (8 * i)) & 255)))"; done
}

# A bitmap of noise.
bitmap() { # WIDTH HEIGHT
  local bytes=$((($1 * 3 + 3) / 4 * 4 * $2))
  printf BM; little_endian $((bytes + 54)) 4; little_endian 0 4; little_endian 54 4
  little_endian 40 4; little_endian "$1" 4; little_endian "$2" 4; little_endian 1 2
  little_endian 24 2; little_endian 0 4; little_endian "$bytes" 4
  little_endian 0 4; little_endian 0 4; little_endian 0 4; little_endian 0 4
  head -c "$bytes" /dev/urandom
}

# Whether the bitmap or JPEG file goes on to its end.
is_whole() { # FILE
  case $1 in
    *.bmp) (($(od -An -t u4 -j 2 -N 4 "$1") == $(stat -c %s "$1"))) ;; # the header tells the size
    *) [[ $(tail -c 2 "$1" | od -An -t x1 | tr -d ' ') == ffd9 ]] ;;
  esac
}

# Whether every record of a file of learning data is there from end to end.
has_whole_records() { # FILE
  awk -F '\t' 'NF != 21 || $0 !~ /\r$/ { exit 1 }' "$1"
}
