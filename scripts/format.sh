#!/bin/bash
# format.sh [--check]: clang-format over all C++ of the project; with --check it changes nothing and fails on the first
# file that is formatted otherwise.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

ROOMS=()
for room in console shredder finder cleaners settings controls platform tests bench; do
  [[ -d $room ]] && ROOMS+=("$room")
done
MODE=(-i)
[[ ${1:-} == --check ]] && MODE=(--dry-run -Werror)
find "${ROOMS[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r -n 16 -P 2 clang-format "${MODE[@]}"
