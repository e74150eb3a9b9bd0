#!/bin/bash
# shred_large.sh [GIB]: shreds a file of GIB gibibytes (5 by default) in one round, with the engine as built for the
# program, under Wine, and looks at some places of it meanwhile through a second name. Each of them must be seen with
# zeros, ones and random bytes, the file must have its size and one byte more, and the program at most 256 MiB of memory.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$ROOT/scripts/seal.sh"

SIZE=$((${1:-5} << 30))
MOST_KIB=$((256 << 10))
PLACES=(0 $((SIZE * 39 / 100)) $((SIZE * 8 / 10)) $((SIZE - 16)))
PREFIX=$SEAL_BUILD/bench-prefix
PLACE=$PREFIX/drive_c/bench

cmake -S "$ROOT" --preset win32 -DSCRUBHAVEN_BENCH=ON >/dev/null || exit 1
"$ROOT/scripts/build.sh" win32 shred_file || exit 1
make_prefix "$PREFIX" || exit 1
clean_up() {
  stop_prefix "$PREFIX"
  rm -rf "$PLACE"
  cmake -S "$ROOT" --preset win32 -DSCRUBHAVEN_BENCH=OFF >/dev/null
}
trap clean_up EXIT
mkdir -p "$PLACE"
cp -- "$SEAL_BUILD/win32/shred_file.exe" "$PLACE/"
truncate -s "$SIZE" "$PLACE/large.bin"
for place in "${PLACES[@]}"; do
  printf 'sixteen letters.' | dd of="$PLACE/large.bin" bs=16 seek="$place" oflag=seek_bytes conv=notrunc status=none
done
ln "$PLACE/large.bin" "$PLACE/second-name.bin"

hexadecimal() { od -An -v -tx1 | tr -d ' \n'; }
sixteen_bytes_at() { dd if="$PLACE/second-name.bin" bs=16 count=1 skip="$1" iflag=skip_bytes status=none | hexadecimal; }

"$ROOT/scripts/in_prefix.sh" "$PREFIX" 'C:\bench\shred_file.exe' shred 'C:\bench\large.bin' 1 >"$PLACE/seconds.txt" &
PROGRAM=$!
declare -A seen=()
peak=0
while kill -0 "$PROGRAM" 2>/dev/null; do
  for place in "${PLACES[@]}"; do
    case $(sixteen_bytes_at "$place") in
      00000000000000000000000000000000) seen[$place]+=0 ;;
      ffffffffffffffffffffffffffffffff) seen[$place]+=1 ;;
      "$(printf "sixteen letters." | hexadecimal)") seen[$place]+=- ;;
      *) seen[$place]+=r ;;
    esac
  done
  now=$(awk '/VmHWM/ { print $2 }' "/proc/$PROGRAM/status" 2>/dev/null)
  ((${now:-0} > peak)) && peak=$now
  sleep 0.2
done
wait "$PROGRAM"
STATUS=$?

echo "$SIZE bytes in $(tr -d '\r' <"$PLACE/seconds.txt") s; peak of memory $((peak >> 10)) MiB;" \
  "disk space of the file $(du -m "$PLACE/second-name.bin" | cut -f1) MiB"
for place in "${PLACES[@]}"; do
  order=$(tr -s '01r-' <<<"${seen[$place]}")
  echo "at $place: $order, at last $(sixteen_bytes_at "$place")"
  [[ $order =~ ^-?01r$ ]] || STATUS=1
done
[[ ! -e $PLACE/large.bin && $(stat -c %s "$PLACE/second-name.bin") == $((SIZE + 1)) ]] || STATUS=1
((peak > 0 && peak < MOST_KIB)) || STATUS=1
((STATUS == 0)) && echo "overwritten everywhere in every pass" || echo "FAILED"
exit "$STATUS"
