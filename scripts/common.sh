# What the scripts share: sourced, never run. Afterwards the current folder is the repository's root.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Objects are the same wherever the tree lies, so that a second clone finds them in the cache.
export CCACHE_BASEDIR="$PWD"
export CCACHE_NOHASHDIR=1

jobs=$(nproc)

# configure PRESET [cmake arguments]
configure() {
  local arguments=()
  if command -v ccache >/dev/null; then
    arguments+=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
  cmake --preset "$1" --log-level=WARNING "${arguments[@]}" "${@:2}" >/dev/null
}

# The tracked C++ files.
cpp_files() {
  git ls-files -- "$@"
}
