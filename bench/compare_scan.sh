#!/bin/bash
# compare_scan.sh [RUNS]: compares the scans in the program's real window with other ways to read the same tree under
# Wine. Each run times all of them in turn, so that a ratio compares times under the same load. RUNS is 5 by default.
#
#   half    20,000 files in 520 folders, half of them junk of all types
#   few     102,600 files in 2,700 folders, 1 % of them junk
#
#   real    with SCRUBHAVEN_TREE=FOLDER: the names and folders of that folder of the host, with one byte in each file
#           that is not empty there
#
# Printed for each tree: min / median / max of the junk scan against `cmd /c dir /s /b` with the same patterns and
# against one bare enumeration of every folder, and of the zero-byte scan against the bare enumeration; where BleachBit
# is installed, the seconds of its preview (on the host, not under Wine) for backup and temporary files. On the tree
# "few" also the time from a click on the abort button to its message box.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$ROOT/scripts/seal.sh"

RUNS=${1:-5}
PREFIX=$SEAL_BUILD/bench-prefix

"$ROOT/scripts/build.sh" win32 || exit 1
cmake -S "$ROOT" --preset win32-tests -DSCRUBHAVEN_BENCH=ON >/dev/null || exit 1
"$ROOT/scripts/build.sh" win32-tests scan_window || exit 1
make_prefix "$PREFIX" || exit 1
"$ROOT/scripts/install_app.sh" "$PREFIX" || exit 1
# Also restores the configuration of the tests' build.
clean_up() {
  stop_prefix "$PREFIX"
  cmake -S "$ROOT" --preset win32-tests -DSCRUBHAVEN_BENCH=OFF >/dev/null
}
trap clean_up EXIT
cp -- "$SEAL_BUILD/win32-tests/scan_window.exe" "$PREFIX/drive_c/"

# make_tree FOLDERS FILES_EACH JUNK_EVERY: every JUNK_EVERY-th file is junk of one of the types in turn.
make_tree() {
  local tree=$PREFIX/drive_c/tree
  rm -rf -- "$tree"
  mkdir -p "$tree"
  (
    cd "$tree" || exit 1
    seq 0 $(($1 - 1)) | awk '{ print $1 % 20 "/" $1 }' | xargs mkdir -p
    awk -v folders="$1" -v each="$2" -v every="$3" 'BEGIN {
      types = split("wbk bak gid tmp temp _mp --- syd nav old cpy db$ prv chk nu3 err", type)
      for (n = 0; n < folders * each; ++n) {
        folder = int(n / each)
        path = folder % 20 "/" folder "/file " n "." (n % every == 0 ? type[int(n / every) % types + 1] : "txt")
        print "content" > path
        close(path)
      }
    }'
  )
}

ratios() {
  awk -v a="$2" -v b="$3" '{ print $a / $b }' <<<"$4" | sort -g |
    awk -v what="$1" '{ v[NR] = $1 } END { printf "  %-44s %.3f / %.3f / %.3f\n", what, v[1], v[int((NR + 1) / 2)], v[NR] }'
}

# copy_shape FOLDER
copy_shape() {
  rm -rf -- "$PREFIX/drive_c/tree"
  mkdir -p "$PREFIX/drive_c/tree"
  (cd "$1" && find . -xdev -type d -print0) | (cd "$PREFIX/drive_c/tree" && xargs -0 mkdir -p)
  (cd "$1" && find . -xdev -type f -printf '%s %p\n') |
    (cd "$PREFIX/drive_c/tree" && awk '{ path = substr($0, index($0, " ") + 1); printf "%s", $1 ? "x" : "" > path; close(path) }')
}

preview() {
  local run start
  command -v bleachbit >/dev/null || return
  for ((run = 0; run < RUNS; ++run)); do
    start=$(date +%s.%N)
    HOME=$PREFIX/drive_c/tree bleachbit --preview deepscan.backup deepscan.tmp deepscan.thumbs_db >/dev/null 2>&1
    awk -v start="$start" -v end="$(date +%s.%N)" 'BEGIN { print end - start, 1 }'
  done | ratios "BleachBit's preview, seconds" 1 2 "$(cat)"
}

compare() {
  local name=$1 times
  shift
  "$@"
  times=$("$ROOT/scripts/with_display.sh" "$ROOT/scripts/in_prefix.sh" "$PREFIX" 'C:\scan_window.exe' "$RUNS" | tr -d '\r')
  echo "$name: $(head -n 1 <<<"$times"); seconds of junk scan, zero-byte scan, dir, bare enumeration:"
  times=$(tail -n +2 <<<"$times")
  sed 's/^/  /' <<<"$times"
  ratios 'junk scan / dir' 1 3 "$times"
  ratios 'junk scan / bare enumeration' 1 4 "$times"
  ratios 'zero-byte scan / bare enumeration' 2 4 "$times"
  preview
}

[[ -z ${SCRUBHAVEN_TREE:-} ]] || compare real copy_shape "$SCRUBHAVEN_TREE"
compare half make_tree 520 38 2
compare few make_tree 2700 38 100
"$ROOT/scripts/with_display.sh" "$ROOT/scripts/in_prefix.sh" "$PREFIX" 'C:\scan_window.exe' "$RUNS" abort | tr -d '\r' |
  sort -g | awk '{ v[NR] = $1 } END { printf "few, from the click on Abort to the box: %s / %s / %s s\n", v[1], v[int((NR + 1) / 2)], v[NR] }'
