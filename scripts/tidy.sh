#!/bin/bash
# tidy.sh [FILE...]: clang-tidy over the logic and the machine in memory, or over the files given. Uses the
# native build's compile commands; platform/win32 is left out, because this clang has no Windows headers.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$ROOT" || exit 1
cmake --preset native -Wno-dev >/dev/null || exit 1

if (($# == 0)); then
  mapfile -t files < <(find console shredder finder cleaners settings controls platform -name '*.cpp' \
    ! -path 'platform/win32/*' ! -path 'console/main.cpp')
  set -- "${files[@]}"
fi
# Exit status 255, as of a crash, would make xargs skip the remaining files.
printf '%s\0' "$@" | xargs -0 -r -n 1 -P "$(nproc)" sh -c 'clang-tidy-19 -p build/native --quiet "$0" || exit 1' 2> >(
  grep -vE 'warnings? generated|Suppressed|Use -header-filter|^$' >&2)
