#!/bin/bash
# compare_start.sh [RUNS]: times the start of the program beside that of Wine's notepad, in turn, from the command until
# the window is on the screen, and reads both working sets then. RUNS is 5 by default. Printed: min / median / max of
# both times in milliseconds, of their ratio, and the working sets in KiB.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$ROOT/scripts/seal.sh"

RUNS=${1:-5}
PREFIX=$SEAL_BUILD/bench-prefix

if [[ -z ${DISPLAY:-} || ${COMPARE_START_INSIDE:-} != yes ]]; then
  "$ROOT/scripts/build.sh" win32 || exit 1
  make_prefix "$PREFIX" || exit 1
  trap 'stop_prefix "$PREFIX"' EXIT
  "$ROOT/scripts/install_app.sh" "$PREFIX" || exit 1
  COMPARE_START_INSIDE=yes "$ROOT/scripts/with_display.sh" "${BASH_SOURCE[0]}" "$RUNS"
  exit
fi

windows() { xdotool search --onlyvisible --name "$1" 2>/dev/null; }

# start PROGRAM TITLE: prints milliseconds and KiB. The Windows process is the one that the window belongs to.
start() {
  local begin end window process
  begin=$(date +%s%N)
  "$ROOT/scripts/in_prefix.sh" "$PREFIX" "$1" >/dev/null 2>&1 &
  until window=$(windows "$2") && [[ $window ]]; do sleep 0.002; done
  end=$(date +%s%N)
  sleep 0.5
  process=$(xdotool getwindowpid "${window%%$'\n'*}")
  echo "$(((end - begin) / 1000000)) $(awk '/^VmRSS/ { print $2 }' "/proc/$process/status")"
  kill "$process"
  while [[ $(windows "$2") ]]; do sleep 0.01; done
}

statistics() {
  sort -g | awk -v what="$1" '{ v[NR] = $1 } END { printf "  %-28s %s / %s / %s\n", what, v[1], v[int((NR + 1) / 2)], v[NR] }'
}

# Explorer keeps the prefix running, so that neither program waits for its start.
"$ROOT/scripts/in_prefix.sh" "$PREFIX" explorer /desktop=shell >/dev/null 2>&1 &
sleep 3
for ((run = 0; run < RUNS; ++run)); do
  ours=$(start 'C:\Program Files\Scrubhaven\scrubhaven.exe' Scrubhaven)
  theirs=$(start notepad Notepad)
  echo "$ours $theirs"
done >"$PREFIX/starts"
awk '{ print $1 }' "$PREFIX/starts" | statistics 'program, milliseconds'
awk '{ print $3 }' "$PREFIX/starts" | statistics 'notepad, milliseconds'
awk '{ printf "%.2f\n", $1 / $3 }' "$PREFIX/starts" | statistics 'ratio'
awk '{ print $2 }' "$PREFIX/starts" | statistics 'program, working set, KiB'
awk '{ print $4 }' "$PREFIX/starts" | statistics 'notepad, working set, KiB'
