# Sourced by the scripts beside this folder; leaves the caller in the project's root.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# Another build folder can be named, to keep a second build beside the first.
build=${BUILD:-build/release}


say() { printf '%s\n' "$*"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

# configure PRESET FOLDER [cmake arguments]
# Skipped when the folder is configured already: ninja runs cmake again by itself when a list changed.
configure() {
  local preset=$1 folder=$2
  shift 2
  if [ ! -f "$folder/build.ninja" ] || [ $# -gt 0 ]; then
    cmake --preset "$preset" -B "$folder" "$@"
  fi
}

# build_all FOLDER [targets]
# BUILT=1: what is there is taken as it is, by a test say that is no place to build in.
build_all() {
  [ -z "${BUILT:-}" ] || return 0
  local folder=$1
  shift
  cmake --build "$folder" ${1:+--target "$@"}
}
