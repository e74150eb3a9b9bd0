#!/bin/bash
# The companion scripts delete what they are for, on prepared folders, and nothing else: not through links, not for any
# name of a folder, not for any environment. Where their folders are missing they do nothing. Neither says a word.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
source "$ROOT/scripts/seal.sh"
PREFIX=$SEAL_BUILD/test-prefix/companions
C=$PREFIX/drive_c
FAILED=0
trap 'stop_prefix "$PREFIX"' EXIT

complain() { echo "FAILED: $*"; FAILED=1; }
put() { mkdir -p -- "$(dirname -- "$C/$1")" && echo "${2:-content}" >"$C/$1"; }
in_prefix() { "$ROOT/scripts/in_prefix.sh" "$PREFIX" "$@" >/dev/null 2>&1 </dev/null; }

# link PATH TARGET: both below the drive; relative, as a link out of the prefix would not be sealed.
link() { mkdir -p -- "$(dirname -- "$C/$1")" && ln -sr -- "$C/$2" "$C/$1"; }

# Everything on the drive but what Wine itself writes while it runs.
files() { (cd "$C" && find . \( -path ./windows/temp -o -path ./users \) -prune -o -print | sort); }

# run_script SCRIPT: runs it on a system whose profile of all users is $ALL_USERS and whose variables $HOSTILE hold
# commands, from a current folder with programs of well-known names. What Wine says of itself is not the script's.
ALL_USERS='C:\Documents and Settings\All Users'
HOSTILE=
run_script() {
  local variable start='@set "DIRCMD=/s"'$'\r\n'"@set \"ALLUSERSPROFILE=$ALL_USERS\""$'\r\n'
  for variable in $HOSTILE; do
    start+="@for /f \"delims=\" %%v in (C:\\windows\\temp\\hostile) do @set \"$variable=%%v\""$'\r\n'
  done
  put windows/temp/hostile 'C:" & del kept.txt & rem "'
  put windows/temp/start.cmd "$start@\"C:\\Program Files\\Scrubhaven\\$1\" >C:\\windows\\temp\\said 2>&1"
  rm -f "$C/windows/temp/said"
  in_prefix 'C:\windows\system32\cmd.exe' /v:on /c 'C:\windows\temp\start.cmd'
  [[ -f $C/windows/temp/said && ! -s $C/windows/temp/said ]] ||
    complain "$1 did not run, or said: $(cat "$C/windows/temp/said" 2>&1)"
}

# expect_gone SCRIPT FILE...: after a run exactly these files or folders are gone.
expect_gone() {
  local script=$1 before
  shift
  before=$(files)
  run_script "$script"
  diff <(comm -23 <(echo "$before") <(files)) <((($#)) && printf '%s\n' "${@/#/./}" | sort) ||
    complain "$script deleted other files than it should (${HOSTILE:-$ALL_USERS})"
  [[ -z $(comm -13 <(echo "$before") <(files)) ]] ||
    complain "$script made files, or started what lies in the current folder"
}

make_prefix "$PREFIX" || exit 1
mkdir -p "$C/Program Files/Scrubhaven"
cp -- "$ROOT"/companions/*.cmd "$C/Program Files/Scrubhaven/"
for name in attrib cacls cmd; do put "$name.cmd" '@echo started >planted.txt'; done
put kept.txt
for path in index.dat Data/index.dat Data/Cookies/index.dat Data/Ann/Cookies/index.dat Elsewhere/Ann/Cookies/index.dat \
  'Elsewhere/Ann/Local Settings/History/History.IE5/index.dat'; do put "$path"; done
mkdir -p "$C/Data/Alle & jeder" "$C/Elsewhere/All Users"
link Linked Elsewhere

expect_gone svi.cmd
for ALL_USERS in 'C:\ProgramData' '' 'C:\Linked\All Users'; do expect_gone delindex.cmd; done
HOSTILE='ALLUSERSPROFILE SystemRoot SystemDrive USERNAME USERDOMAIN' expect_gone delindex.cmd

ALL_USERS='C:\Data\Alle & jeder'
INDEXES=(Data/Ann/Cookies/index.dat)
for profile in 'Documents and Settings/Ann' 'Documents and Settings/Default User' 'WINNT/Profiles/carl' \
  'windows/Profiles/dora' 'windows'; do
  for folder in 'Cookies' 'Temporary Internet Files/Content.IE5' 'Local Settings/Temporary Internet Files/Content.IE5' \
    'History/History.IE5' 'History/History.IE5/MSHist012003010120030102' 'Local Settings/History/History.IE5' \
    'Local Settings/History/History.IE5/MSHist012003010620030113'; do
    put "$profile/$folder/attrib.cmd" "@echo started >planted.txt"
    INDEXES+=("$profile/$folder/index.dat")
  done
  put "$profile/UserData/index.dat"
  put "$profile/My Documents/index.dat"
  put "$profile/Cookies/ann@index.dat.txt"
  put "$profile/Local Settings/Temporary Internet Files/Content.IE5/ABCD1234/index.dat"
done
for name in '%TEMP%' 'a%PATH%b' 'x & del kept.txt' '!TEMP!' '^' '(x)' "'x'" 'a;b' ';c' 'a=b,c' 'Bo & Co ^(old)'; do
  INDEXES+=("Documents and Settings/$name/Cookies/index.dat")
  INDEXES+=("Documents and Settings/Ann/History/History.IE5/MSHist01$name/index.dat")
done
for index in "${INDEXES[@]}"; do put "$index"; done

# What stays. The code page has no wide signs: they are listed as a plain quotation mark and backslash.
for path in 'Documents and Settings/index.dat' 'Documents and Settings/Eve/History/History.IE5/index.dat/kept.txt' \
  'Documents and Settings/..＼..＼Data/kept.txt' \
  'Documents and Settings/ʺ & del kept.txt & rem ʺ/kept.txt' \
  'Documents and Settings/Ann/History/History.IE5/MSHist01ʺ & del kept.txt & rem ʺ/kept.txt' \
  'Documents and Settings/Ann/History/History.IE5/MSHist01＼..＼..＼..＼..＼..＼Data/kept.txt'; do put "$path"; done
link 'Documents and Settings/Link' Elsewhere/Ann
link 'Documents and Settings/Eve/Cookies' Elsewhere/Ann/Cookies
link 'Documents and Settings/Eve/Local Settings' 'Elsewhere/Ann/Local Settings'
link 'Documents and Settings/Eve/History/History.IE5/MSHist01' Elsewhere/Ann/Cookies
# Hidden, of the system, read-only, as the browser leaves them; a hidden profile.
in_prefix 'C:\windows\system32\attrib.exe' +r +h +s 'C:\Documents and Settings\Ann\Cookies\index.dat'
in_prefix 'C:\windows\system32\attrib.exe' +h 'C:\Documents and Settings\Default User'
expect_gone delindex.cmd "${INDEXES[@]}"

SVI='System Volume Information'
POINTS=$SVI/_restore{87BD3667-3246-476B-923F-F86E30B3E7F8}
mkdir "$C/$SVI"
# An empty folder looks like one that lets nobody in.
for HOSTILE in '' 'SystemRoot USERNAME USERDOMAIN' SystemDrive; do expect_gone svi.cmd; done
HOSTILE=
for file in RP1/A0000001.exe 'RP1/%TEMP% & del kept.txt/^/!x!/x' RP1/snapshot/_REGISTRY_MACHINE_SAM drivetable.txt; do
  put "$POINTS/$file"
done
put "$SVI/_restore{%TEMP% & del kept.txt}/x"
mapfile -t GONE < <(cd "$C" && find "$SVI" -mindepth 1)
for path in tracking.log catalog.wci/0001.ci '_restored notes.txt' _restored/kept.txt '../Data}/kept.txt' \
  '../_restore{elsewhere}/RP1/A0000001.exe' '_restore{＼..＼..＼Data}/kept.txt' \
  '_restore{ʺ & del kept.txt & rem ʺ}/kept.txt'; do put "$SVI/$path"; done
link "$SVI/_restore{link}" Elsewhere
link "$SVI/_restore{deep}/RP1/link" Elsewhere
in_prefix 'C:\windows\system32\attrib.exe' +h +s "C:\\$SVI"
in_prefix 'C:\windows\system32\attrib.exe' +r "C:\\${POINTS//\//\\}\\drivetable.txt"
expect_gone svi.cmd "${GONE[@]}"
mv "$C/$SVI" "$C/Moved" && put 'Moved/_restore{1}/kept.txt' && link "$SVI" Moved
expect_gone svi.cmd

((FAILED == 0)) && echo 'the companion scripts delete what they are for'
exit "$FAILED"
