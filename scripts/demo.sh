#!/bin/bash
# demo.sh PREFIX: plays the demonstration on a virtual screen. The player is demo.exe (tests/desktop/demo_main.cpp), a
# Windows program that runs inside the prefix as C:\demo\demo.exe, starts
# C:\Program Files\Scrubhaven\scrubhaven.exe, drives its window as a person would, prints what it does and sees line by
# line, and ends with 0 when all went as it should. How it asks for a screenshot is told in play.sh; they go to
# build/demo/.
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
