#!/bin/bash
# format.sh [--check]: clang-format over all C++ of the project; with --check it changes nothing and fails when a file is
# formatted otherwise.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1

FOLDERS=(console shredder finder cleaners settings controls platform tests driver bench demo)
MODE=(-i)
[[ ${1:-} == --check ]] && MODE=(--dry-run -Werror)
find "${FOLDERS[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r -n 16 -P 2 clang-format "${MODE[@]}"
