#!/bin/bash
# demo.sh PREFIX: plays the demonstration on a virtual screen: demo.exe (demo/main.cpp) starts the
# installed program, drives its window, prints each step, and ends with 0 when every step had its expected result.
# Screenshots (see play.sh) go to build/demo/.
set -uo pipefail
SCRIPTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$SCRIPTS/seal.sh"
source "$SCRIPTS/play.sh"
SECONDS_AT_MOST=300

if [[ ${1:-} == --on-screen ]]; then
  play_program "$SECONDS_AT_MOST" "$SEAL_BUILD/demo" "$2" 'C:\demo\demo.exe'
  exit
fi

PREFIX=$(realpath -- "$1")
trap 'stop_prefix "$PREFIX"' EXIT
trap 'exit 143' TERM INT HUP
rm -rf -- "$SEAL_BUILD/demo"
mkdir -p "$SEAL_BUILD/demo" "$PREFIX/drive_c/demo"
cp -- "$SEAL_BUILD/win32-tests/demo.exe" "$PREFIX/drive_c/demo/" || exit 1

"$SCRIPTS/with_display.sh" "$SCRIPTS/demo.sh" --on-screen "$PREFIX"
STATUS=$?
if ((STATUS == 0)); then
  echo "demonstration: finished; screenshots are in build/demo/"
else
  echo "demonstration: FAILED (exit $STATUS)"
fi
exit "$STATUS"
