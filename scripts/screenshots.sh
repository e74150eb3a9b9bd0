#!/bin/bash
# screenshots.sh [FOLDER [SIZE [DPI [SCHEME]]]]: takes a picture of every window in its states into FOLDER
# (docs/screenshots), on a virtual screen of SIZE (1024x768) at DPI dots per inch (96). SCHEME "contrast" is white on
# black.
set -uo pipefail
SCRIPTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$SCRIPTS/seal.sh"
source "$SCRIPTS/play.sh"
SECONDS_AT_MOST=180

if [[ ${1:-} == --on-screen ]]; then
  play_program "$SECONDS_AT_MOST" "$3" "$2" 'C:\demo\screenshots.exe'
  exit
fi

FOLDER=${1:-$SEAL_ROOT/docs/screenshots}
SIZE=${2:-1024x768}
DPI=${3:-96}
SCHEME=${4:-}
PREFIX=$SEAL_BUILD/screenshots-prefix
WORK=$SEAL_BUILD/screenshots

"$SCRIPTS/build.sh" win32 || exit 1
"$SCRIPTS/build.sh" win32-tests screenshots || exit 1
make_prefix "$PREFIX" || exit 1
trap 'stop_prefix "$PREFIX"' EXIT
"$SCRIPTS/fill_sample_drive.sh" "$PREFIX" || exit 1
"$SCRIPTS/install_app.sh" "$PREFIX" || exit 1
mkdir -p "$PREFIX/drive_c/demo" "$FOLDER" "$WORK"
cp -- "$SEAL_BUILD/win32-tests/screenshots.exe" "$PREFIX/drive_c/demo/" || exit 1

{
  printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"LogPixels"=dword:%08x\n' "$DPI"
  if [[ $SCHEME == contrast ]]; then
    printf '\n[HKEY_CURRENT_USER\\Control Panel\\Colors]\n'
    for colour in ActiveTitle:'0 0 128' Background:'0 0 0' ButtonFace:'0 0 0' ButtonHilight:'192 192 192' \
      ButtonLight:'0 0 0' ButtonShadow:'255 255 255' ButtonDkShadow:'255 255 255' ButtonText:'255 255 255' \
      ButtonAlternateFace:'0 0 0' GrayText:'0 255 0' Hilight:'0 128 128' HilightText:'255 255 255' \
      HotTrackingColor:'255 255 0' InfoText:'255 255 255' InfoWindow:'0 0 0' InactiveTitle:'0 0 0' Menu:'0 0 0' \
      MenuText:'255 255 255' Scrollbar:'0 0 0' TitleText:'255 255 255' Window:'0 0 0' WindowFrame:'255 255 255' \
      WindowText:'255 255 255'; do
      printf '"%s"="%s"\n' "${colour%%:*}" "${colour#*:}"
    done
  fi
} >"$PREFIX/drive_c/demo/screen.reg"
"$SCRIPTS/in_prefix.sh" "$PREFIX" regedit /S 'C:\demo\screen.reg' >/dev/null 2>&1
stop_prefix "$PREFIX"

SCRUBHAVEN_SCREEN=$SIZE "$SCRIPTS/with_display.sh" "$SCRIPTS/screenshots.sh" --on-screen "$PREFIX" "$WORK" \
  >"$WORK/log" || { cat "$WORK/log"; exit 1; }
while read -r _ name place; do
  convert "$WORK/$name.png" -crop "$place" +repage -colors 256 -strip -define png:exclude-chunks=date,time "$FOLDER/$name.png"
done < <(grep '^@place' "$WORK/log")
echo "screenshots: $(grep -c '^@place' "$WORK/log") pictures in ${FOLDER#"$SEAL_ROOT"/}"
