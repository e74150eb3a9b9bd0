#!/bin/bash
# wine_test.sh SECONDS NAME PROGRAM [ARGUMENT...]: runs a Windows test program for SECONDS at most, in a fresh sealed
# prefix of its own (build/test-prefix/NAME) with a drive d: and the program installed if it is built, on a virtual screen
# of its own. Screenshots (see play.sh) go to build/test-screenshots/.
set -uo pipefail
SCRIPTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$SCRIPTS/seal.sh"
source "$SCRIPTS/play.sh"

if [[ ${1:-} == --on-screen ]]; then
  NAME=$2 SECONDS_AT_MOST=$3 PREFIX=$4
  shift 4
  play_program "$SECONDS_AT_MOST" "$SEAL_BUILD/test-screenshots" "$PREFIX" "C:\\tests\\$NAME.exe" "$@" |
    tee "$PREFIX/test.log"
  exit "${PIPESTATUS[0]}"
fi

SECONDS_AT_MOST=$1 NAME=$2 PROGRAM=$3
shift 3
PREFIX=$SEAL_BUILD/test-prefix/$NAME
make_prefix "$PREFIX" || exit 1
# A second drive, also inside the prefix, for tests across drives.
export SCRUBHAVEN_DRIVE_D=$PREFIX/drive_d
mkdir -p "$SCRUBHAVEN_DRIVE_D"
ln -s -- "$SCRUBHAVEN_DRIVE_D" "$PREFIX/dosdevices/d:"
trap 'stop_prefix "$PREFIX"' EXIT
trap 'exit 143' TERM INT HUP
[[ ! -f $SEAL_APP/scrubhaven.exe ]] || "$SCRIPTS/install_app.sh" "$PREFIX" || exit 1
mkdir -p "$PREFIX/drive_c/tests"
cp -- "$PROGRAM" "$PREFIX/drive_c/tests/$NAME.exe"

"$SCRIPTS/with_display.sh" "$SCRIPTS/wine_test.sh" --on-screen "$NAME" "$SECONDS_AT_MOST" "$PREFIX" "$@"
STATUS=$?
((STATUS == 124)) && echo "the time of $SECONDS_AT_MOST s was up" >&2
# A program that ends in the middle of a test may exit with 0, so its closing line must be there too.
if ((STATUS == 0)) && ! grep -q '^\[  PASSED  \]' "$PREFIX/test.log"; then
  echo "the test program ended before its last test" >&2
  STATUS=1
fi
check_sealed "$PREFIX" || STATUS=1
exit "$STATUS"
