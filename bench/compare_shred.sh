#!/bin/bash
# compare_shred.sh [RUNS]: compares the shredder with other tools. Each run times all of them in turn, so that a ratio
# compares times under the same load. RUNS is 5 by default.
#
#   shredding   elapsed time for a file of 16 MiB: the engine as built for the program, under Wine, against
#               `shred -n 84 -u` and against 84 plain rewrites of the file (below 1: the program is faster)
#   keystream   bytes per second of processor time in blocks of 16 KiB: RC4 of that build and of the native build
#               against OpenSSL's (above 1: the program is faster)
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$ROOT/scripts/seal.sh"

RUNS=${1:-5}
MEGABYTES=16
PASSES=84
KEYSTREAM_MEGABYTES=2048
PREFIX=$SEAL_BUILD/bench-prefix
PLACE=$PREFIX/drive_c/bench

"$ROOT/scripts/build.sh" bench || exit 1
cmake -S "$ROOT" --preset win32 -DSCRUBHAVEN_BENCH=ON >/dev/null || exit 1
"$ROOT/scripts/build.sh" win32 shred_file || exit 1
make_prefix "$PREFIX" || exit 1
# Also restores the configuration of the program's build.
clean_up() {
  stop_prefix "$PREFIX"
  cmake -S "$ROOT" --preset win32 -DSCRUBHAVEN_BENCH=OFF >/dev/null
}
trap clean_up EXIT
mkdir -p "$PLACE"
cp -- "$SEAL_BUILD/win32/shred_file.exe" "$PLACE/"

in_prefix() { "$ROOT/scripts/in_prefix.sh" "$PREFIX" 'C:\bench\shred_file.exe' "$@" 2>/dev/null | tr -d '\r'; }
new_file() { head -c "${MEGABYTES}M" /dev/urandom >"$PLACE/$1"; sync "$PLACE/$1"; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.3f\n", a / b }'; }
seconds_of() {
  local start=$EPOCHREALTIME
  "$@"
  awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.3f\n", b - a }'
}
rewrite() {
  local pass
  for ((pass = 0; pass < PASSES; ++pass)); do
    dd if=/dev/zero of="$1" bs="${MEGABYTES}M" count=1 conv=notrunc status=none
  done
}
openssl_keystream() {
  openssl speed -seconds 1 -bytes 16384 -provider legacy -provider default -evp rc4 2>/dev/null |
    awk '$1 == "RC4" { printf "%.0f\n", $2 * 1000 }'
}
native_keystream() {
  "$SEAL_BUILD/bench/scrubhaven_bench" --benchmark_filter='Keystream/16384$' --benchmark_format=csv 2>/dev/null |
    awk -F, '/^"Keystream/ { printf "%.0f\n", 16384 * 1e9 / $4; exit }'
}
summary() {
  sort -g <<<"$2" | awk -v name="$1" '{ v[NR] = $1 }
    END { printf "%-44s min %s  median %s  max %s\n", name, v[1], v[int((NR + 1) / 2)], v[NR] }'
}

in_prefix keystream 1 >/dev/null # starts Wine's services before the first measurement
SHRED='' REWRITES='' STREAM32='' STREAM64=''
for ((run = 1; run <= RUNS; ++run)); do
  new_file ours.bin && ours=$(in_prefix shred 'C:\bench\ours.bin') || exit 1
  new_file other.bin && other=$(seconds_of shred -n "$PASSES" -u "$PLACE/other.bin")
  new_file plain.bin && plain=$(seconds_of rewrite "$PLACE/plain.bin")
  stream32=$(in_prefix keystream "$KEYSTREAM_MEGABYTES") openssl=$(openssl_keystream) stream64=$(native_keystream)
  echo "run $run: ours $ours s, shred $other s, $PASSES rewrites $plain s;" \
    "keystream 32-bit $((stream32 / 1000000)), native $((stream64 / 1000000)), OpenSSL $((openssl / 1000000)) MB/s"
  SHRED+=$(ratio "$ours" "$other")$'\n' REWRITES+=$(ratio "$ours" "$plain")$'\n'
  STREAM32+=$(ratio "$stream32" "$openssl")$'\n' STREAM64+=$(ratio "$stream64" "$openssl")$'\n'
done
rm -f "$PLACE/plain.bin"
summary "time, ours / shred -n $PASSES -u" "${SHRED%$'\n'}"
summary "time, ours / $PASSES plain rewrites" "${REWRITES%$'\n'}"
summary 'keystream, 32-bit build under Wine / OpenSSL' "${STREAM32%$'\n'}"
summary 'keystream, native build / OpenSSL' "${STREAM64%$'\n'}"
