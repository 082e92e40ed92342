# Shared by the scripts at the root.
# shellcheck shell=bash

root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")

CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
export CMAKE_BUILD_PARALLEL_LEVEL
if [[ -z ${CMAKE_CXX_COMPILER_LAUNCHER-} ]] && command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# quietly LOG COMMAND...: runs the command with everything it says in LOG, and shows that only when
# the command fails.
quietly() {
  local log=$1 status=0
  shift
  mkdir -p "$(dirname "$log")"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if ((status)); then
    cat "$log" >&2
    echo "failed: $*" >&2
  fi
  return "$status"
}

# build_preset PRESET [cmake --build arguments]: configures the first time, then lets ninja decide.
# Two builds of one preset wait for each other.
build_preset() {
  local preset=$1
  shift
  mkdir -p "$root/build/logs"
  (
    cd "$root" || exit
    flock 9
    if [[ ! -e build/$preset/build.ninja ]]; then
      quietly "build/logs/$preset-configure.log" cmake --preset "$preset" || exit
    fi
    quietly "build/logs/$preset-build.log" cmake --build --preset "$preset" "$@"
  ) 9>"$root/build/logs/$preset.lock"
}

# Wine in a prefix of its own, silent but for what the program itself says.
prepare_wine() {
  export WINEPREFIX=${WINEPREFIX:-$root/build/wine}
  export WINEDEBUG=${WINEDEBUG:--all}
  # Without these two it would ask to download engines that no program here uses.
  export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
  mkdir -p "$WINEPREFIX"
}

# Runs a command on the display that is there, or on a virtual one.
with_display() {
  if [[ -n ${DISPLAY-} ]]; then
    "$@"
  else
    xvfb-run --auto-servernum --server-args="-screen 0 1920x1200x24" "$@"
  fi
}
