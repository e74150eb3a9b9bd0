#!/bin/bash
# The companion scripts delete their files, on prepared folders, and nothing else; without their folders they do nothing.
# Neither prints anything.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
source "$ROOT/scripts/seal.sh"
PREFIX=$SEAL_BUILD/test-prefix/companions
C=$PREFIX/drive_c
FAILED=0
trap 'stop_prefix "$PREFIX"' EXIT

complain() { echo "FAILED: $*"; FAILED=1; }
put() { mkdir -p -- "$(dirname -- "$C/$1")" && echo "${2:-content}" >"$C/$1"; }

# Everything on the drive except what Wine itself writes while it runs.
files() { (cd "$C" && find . \( -path ./windows/temp -o -path ./users \) -prune -o -print | sort); }

# run_script SCRIPT: runs it from the program folder, on a system whose profile of all users is $ALL_USERS, and expects
# no output of the script. Wine's own messages are not the script's output.
ALL_USERS='C:\Documents and Settings\All Users'
run_script() {
  put windows/temp/start.cmd "@set \"ALLUSERSPROFILE=$ALL_USERS\""$'\r\n'"@\"C:\\Program Files\\Scrubhaven\\$1\" >C:\\windows\\temp\\said 2>&1"
  rm -f "$C/windows/temp/said"
  "$ROOT/scripts/in_prefix.sh" "$PREFIX" cmd /c 'C:\windows\temp\start.cmd' >/dev/null 2>&1 </dev/null
  [[ -f $C/windows/temp/said && ! -s $C/windows/temp/said ]] ||
    complain "$1 did not run, or said: $(cat "$C/windows/temp/said" 2>&1)"
}

# expect_gone SCRIPT FILE...: after a run exactly these files or folders are deleted.
expect_gone() {
  local script=$1 before after wanted
  shift
  before=$(files)
  run_script "$script"
  after=$(files)
  wanted=$(printf '%s\n' "${@/#/./}" | sort)
  diff <(comm -23 <(echo "$before") <(echo "$after")) <(echo "$wanted") || complain "$script deleted other files than it should"
  [[ -z $(comm -13 <(echo "$before") <(echo "$after")) ]] || complain "$script made files"
}

expect_nothing() {
  local before
  before=$(files)
  run_script "$1"
  diff <(echo "$before") <(files) || complain "$1 changed a system without its folders"
}

make_prefix "$PREFIX" || exit 1
keep_wine_running "$PREFIX"
mkdir -p "$C/Program Files/Scrubhaven"
cp -- "$ROOT"/companions/*.cmd "$C/Program Files/Scrubhaven/"
for script in delindex.cmd svi.cmd; do expect_nothing "$script"; done

INDEXES=()
# put_index PROFILE FOLDER: an index file that must be deleted, and another file beside it that must not.
put_index() {
  put "$1/$2/index.dat"
  put "$1/$2/kept.dat"
  INDEXES+=("$1/$2/index.dat")
}

for folder in 'Cookies' 'Temporary Internet Files/Content.IE5' 'Local Settings/Temporary Internet Files/Content.IE5' \
  'History/History.IE5' 'History/History.IE5/MSHist012003010120030102' 'Local Settings/History/History.IE5' \
  'Local Settings/History/History.IE5/MSHist012003010620030113'; do
  put_index 'Documents and Settings/Ann' "$folder"
done
for profile in 'Documents and Settings/Bo & Co ^(old)' 'Documents and Settings/Default User' 'WINNT/Profiles/carl' \
  'windows/Profiles/dora' 'windows'; do
  put_index "$profile" 'Local Settings/History/History.IE5/MSHist012003010120030102'
done
put 'Documents and Settings/Ann/UserData/index.dat'
put 'Documents and Settings/Ann/My Documents/index.dat'
put 'Documents and Settings/Ann/Cookies/ann@index.dat.txt'
put 'Documents and Settings/Ann/Local Settings/Temporary Internet Files/Content.IE5/ABCD1234/index.dat'
put 'Documents and Settings/index.dat'
put 'index.dat'
put 'Data/Ann/Cookies/index.dat'
put 'Data/Cookies/index.dat'
# Hidden, system and read-only, as the browser makes them; a hidden profile.
"$ROOT/scripts/in_prefix.sh" "$PREFIX" attrib +r +h +s 'C:\Documents and Settings\Ann\Cookies\index.dat' >/dev/null 2>&1
"$ROOT/scripts/in_prefix.sh" "$PREFIX" attrib +h 'C:\Documents and Settings\Default User' >/dev/null 2>&1
expect_nothing svi.cmd
expect_gone delindex.cmd "${INDEXES[@]}"
for ALL_USERS in 'C:\ProgramData' ''; do expect_nothing delindex.cmd; done
ALL_USERS='C:\Data\Alle & jeder'
expect_gone delindex.cmd Data/Ann/Cookies/index.dat
expect_nothing delindex.cmd

SVI='System Volume Information'
POINTS=$SVI/_restore{87BD3667-3246-476B-923F-F86E30B3E7F8}
put "$POINTS/RP1/A0000001.exe"
put "$POINTS/RP1/snapshot/_REGISTRY_MACHINE_SAM"
put "$POINTS/drivetable.txt"
put "$SVI/tracking.log"
put "$SVI/catalog.wci/0001.ci"
put "$SVI/_restored notes.txt"
put "$SVI/_restored/kept.txt"
put '_restore{elsewhere}/RP1/A0000001.exe'
"$ROOT/scripts/in_prefix.sh" "$PREFIX" attrib +h +s "C:\\$SVI" >/dev/null 2>&1
"$ROOT/scripts/in_prefix.sh" "$PREFIX" attrib +r "C:\\${POINTS//\//\\}\\drivetable.txt" >/dev/null 2>&1
expect_nothing delindex.cmd
mapfile -t GONE < <(cd "$C" && find "$POINTS")
expect_gone svi.cmd "${GONE[@]}"
expect_nothing svi.cmd

((FAILED == 0)) && echo 'the companion scripts delete their files and no others'
exit "$FAILED"
