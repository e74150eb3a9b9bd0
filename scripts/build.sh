#!/bin/bash
# build.sh PRESET [TARGET...]: configures and builds one preset, one line of progress, the rest to build/PRESET.log.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
PRESET=$1
shift
LOG=$ROOT/build/$PRESET.log
mkdir -p "$ROOT/build"
cd "$ROOT" || exit 1

TARGETS=()
for target in "$@"; do TARGETS+=(--target "$target"); done

printf 'build: %s ... ' "$PRESET${*:+ ($*)}"
SECONDS=0
if { cmake --preset "$PRESET" -Wno-dev && cmake --build --preset "$PRESET" "${TARGETS[@]}"; } </dev/null >"$LOG" 2>&1; then
  echo "${SECONDS} s"
else
  echo "failed (build/$PRESET.log)"
  grep -nE 'error|FAILED' "$LOG" | head -n 40
  echo '...'
  tail -n 40 "$LOG"
  exit 1
fi
