#!/bin/bash
# compare_shred.sh [RUNS]: compares the shredder with other tools. Each run times all of them in turn, so that a ratio
# compares times under the same load. RUNS is 5 by default.
#
#   shredding   elapsed time for a file of 16 MiB: the engine as built for the 64-bit program, under Wine, against
#               `shred -n 84 -u` and against 84 plain rewrites of the file (below 1: the program is faster)
#   keystream   bytes per second of processor time in blocks of 16 KiB: RC4 as built for the two programs against
#               OpenSSL's (above 1: the program is faster)
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
export SCRUBHAVEN_BITS=64 # runs both programs
source "$ROOT/scripts/seal.sh"

RUNS=${1:-5}
MEGABYTES=16
PASSES=84
KEYSTREAM_MEGABYTES=2048
PREFIX=$SEAL_BUILD/bench-prefix
PLACE=$PREFIX/drive_c/bench

# Also restores the configuration of the programs' builds.
clean_up() {
  stop_prefix "$PREFIX"
  for bits in 32 64; do cmake -S "$ROOT" --preset "win$bits" -DSCRUBHAVEN_BENCH=OFF >/dev/null; done
}
trap clean_up EXIT
make_prefix "$PREFIX" || exit 1
mkdir -p "$PLACE"
for bits in 32 64; do
  cmake -S "$ROOT" --preset "win$bits" -DSCRUBHAVEN_BENCH=ON >/dev/null || exit 1
  "$ROOT/scripts/build.sh" "win$bits" shred_file || exit 1
  cp -- "$SEAL_BUILD/win$bits/shred_file.exe" "$PLACE/shred_file$bits.exe"
done

# run_bits BITS ARGUMENT...: runs that build of shred_file.
run_bits() {
  "$ROOT/scripts/in_prefix.sh" "$PREFIX" "C:\\bench\\shred_file$1.exe" "${@:2}" 2>/dev/null | tr -d '\r'
}
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
summary() {
  sort -g <<<"$2" | awk -v name="$1" '{ v[NR] = $1 }
    END { printf "%-44s min %s  median %s  max %s\n", name, v[1], v[int((NR + 1) / 2)], v[NR] }'
}

run_bits 32 keystream 1 >/dev/null # starts Wine's services before the first measurement
SHRED='' REWRITES='' STREAM32='' STREAM64=''
for ((run = 1; run <= RUNS; ++run)); do
  new_file ours.bin && ours=$(run_bits 64 shred 'C:\bench\ours.bin') || exit 1
  new_file other.bin && other=$(seconds_of shred -n "$PASSES" -u "$PLACE/other.bin")
  new_file plain.bin && plain=$(seconds_of rewrite "$PLACE/plain.bin")
  stream32=$(run_bits 32 keystream "$KEYSTREAM_MEGABYTES") openssl=$(openssl_keystream)
  stream64=$(run_bits 64 keystream "$KEYSTREAM_MEGABYTES")
  echo "run $run: ours $ours s, shred $other s, $PASSES rewrites $plain s;" \
    "keystream 32-bit $((stream32 / 1000000)), 64-bit $((stream64 / 1000000)), OpenSSL $((openssl / 1000000)) MB/s"
  SHRED+=$(ratio "$ours" "$other")$'\n' REWRITES+=$(ratio "$ours" "$plain")$'\n'
  STREAM32+=$(ratio "$stream32" "$openssl")$'\n' STREAM64+=$(ratio "$stream64" "$openssl")$'\n'
done
rm -f "$PLACE/plain.bin"
summary "time, ours / shred -n $PASSES -u" "${SHRED%$'\n'}"
summary "time, ours / $PASSES plain rewrites" "${REWRITES%$'\n'}"
summary 'keystream, 32-bit program / OpenSSL' "${STREAM32%$'\n'}"
summary 'keystream, 64-bit program / OpenSSL' "${STREAM64%$'\n'}"
