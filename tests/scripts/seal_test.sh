#!/bin/bash
# A prefix from which host files can be reached must be refused, and a prefix made by the scripts must still be sealed
# after Wine ran in it.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
source "$ROOT/scripts/seal.sh"
PREFIX=$SEAL_BUILD/test-prefix/seal
OUTSIDE=$(mktemp -d)
FAILED=0
trap 'stop_prefix "$PREFIX"; rm -rf -- "$OUTSIDE"' EXIT

complain() { echo "FAILED: $*"; FAILED=1; }
sealed() { check_sealed "$PREFIX" 2>/dev/null || complain "$1: refused"; }
refused() {
  check_sealed "$PREFIX" 2>/dev/null && complain "$1: not noticed"
  "$ROOT/scripts/in_prefix.sh" "$PREFIX" cmd /c 'echo x >C:\started' 2>/dev/null && complain "$1: started all the same"
  [[ ! -e $PREFIX/drive_c/started ]] || complain "$1: a program ran"
}

# with_link TARGET LINK CLAIM NAME: CLAIM (sealed or refused) must hold while the link is there.
with_link() {
  ln -s -- "$1" "$PREFIX/$2"
  "$3" "$4"
  rm -- "$PREFIX/$2"
}

make_prefix "$PREFIX" || exit 1
sealed 'a fresh prefix'

with_link / dosdevices/z: refused 'drive z:'
with_link "$OUTSIDE" dosdevices/e: refused 'a drive e:'
with_link /dev/null dosdevices/e:: refused 'a device for a drive'
with_link "$OUTSIDE" dosdevices/d: refused 'a drive d: that was not named'
with_link "$OUTSIDE" dosdevices/com5 refused 'a folder under the name of a port'
with_link "$OUTSIDE" drive_c/users/Public/Music/out refused 'a link from a profile folder'
with_link /nowhere/at/all drive_c/windows/temp/out refused 'a dangling link to the outside'
with_link ../../.. home/out refused 'a relative link out of the home folder'
with_link ../windows drive_c/users/inside sealed 'a link that stays inside'

SCRUBHAVEN_DRIVE_D=$OUTSIDE
with_link "$OUTSIDE" dosdevices/d: sealed 'the drive d: that was named'
with_link "$ROOT" dosdevices/d: refused 'a drive d: elsewhere than named'
unset SCRUBHAVEN_DRIVE_D

mv "$PREFIX/dosdevices/c:" "$PREFIX/c"
with_link "$OUTSIDE" dosdevices/c: refused 'a drive c: elsewhere'
mv "$PREFIX/c" "$PREFIX/dosdevices/c:"

mv "$PREFIX/home" "$PREFIX/home-away"
refused 'no home of its own'
mv "$PREFIX/home-away" "$PREFIX/home"

cp -a "$PREFIX/dosdevices" "$OUTSIDE/"
mkdir -p "$OUTSIDE"/{drive_c,home/.local/share}
echo disable >"$OUTSIDE/.update-timestamp"
check_sealed "$OUTSIDE" 2>/dev/null && complain 'a prefix outside build/: not noticed'
make_prefix "$OUTSIDE" 2>/dev/null && complain 'made a prefix outside build/'
[[ -d $OUTSIDE/home ]] || complain 'deleted a folder outside build/'
make_prefix "$SEAL_BUILD" 2>/dev/null && complain 'made a prefix of build/ itself'

# An opened address reaches the recorder instead of the host's browser, and running Wine makes no way out.
"$ROOT/scripts/in_prefix.sh" "$PREFIX" start http://www.velmatrix.example/ >/dev/null 2>&1 </dev/null
for ((tries = 0; tries < 100; ++tries)); do
  [[ -s $PREFIX/drive_c/opened-addresses.txt ]] && break
  sleep 0.1
done
grep -q '^http://www.velmatrix.example/' "$PREFIX/drive_c/opened-addresses.txt" 2>/dev/null ||
  complain 'an opened address did not reach the recorder'
sealed 'a prefix in which Wine runs'
stop_prefix "$PREFIX"
sealed 'a prefix in which Wine ran'

((FAILED == 0)) && echo 'every unsealed prefix was refused'
exit "$FAILED"
