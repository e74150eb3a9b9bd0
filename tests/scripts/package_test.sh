#!/bin/bash
# The package: the same bytes from the same files; setup and uninstaller on Windows 98, on XP and on a 64-bit Windows 10:
# what is installed, that it runs, that nothing else is touched, and that afterwards drive and registry are as before.
# The lists of files and registry entries are in build/package-test/.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
source "$ROOT/scripts/seal.sh"
PACKAGE=$ROOT/build/package
LISTS=$ROOT/build/package-test
SETUP='C:\ScrubhavenSetup.exe'
FOLDER='C:\Program Files\Scrubhaven'
FAILED=0

complain() { echo "FAILED: ${SYSTEM:+$SYSTEM: }$*"; FAILED=1; }
in_prefix() { "$ROOT/scripts/in_prefix.sh" "$PREFIX" "$@" 2>/dev/null </dev/null; }
# The uninstaller goes on as a copy of itself, so the end of its process is not its end.
wait_for_wine() { (prefix_environment "$PREFIX" && wineserver -w); }

# expect_exit CODE PROGRAM [ARGUMENT...]
expect_exit() {
  local expected=$1 status
  shift
  in_prefix "$@"
  status=$?
  wait_for_wine
  ((status == expected)) || complain "$* ended with $status instead of $expected"
}

# list NAME: stores the files of the drive and the entries of the registry, but for what Wine writes at each start, and
# for the uninstaller's order to remove its temporary copy at the next start.
list() {
  wait_for_wine
  (cd "$PREFIX/drive_c" && find . \( -ipath './windows/temp/*' -o -ipath './users/*/Temp/*' \) -prune -o -print | sort) \
    >"$LISTS/$SYSTEM-$1.files"
  awk '/^\[/ { key = $0; sub(/\] [0-9]+$/, "]", key); print key; next } /^["@]/ { print key " " $0 }' \
    "$PREFIX"/{system,user}.reg | grep -vE '^\[[^]]*Fonts\]|"(DriverDateData|PendingFileRenameOperations)"=' >"$LISTS/$SYSTEM-$1.registry"
}
# new_in NAME BEFORE KIND: lines of a list that an earlier one lacks; the other way round with the names exchanged.
new_in() { comm -13 <(sort "$LISTS/$SYSTEM-$2.$3") <(sort "$LISTS/$SYSTEM-$1.$3"); }

expect_same() {
  local kind
  for kind in files registry; do
    diff "$LISTS/$SYSTEM-$1.$kind" "$LISTS/$SYSTEM-$2.$kind" || complain "$kind: $1 and $2 differ"
  done
}

# show_window PROGRAM: starts it and waits for its window. PROGRAM_ID is the process to end.
show_window() {
  local tries
  in_prefix "$1" &
  PROGRAM_ID=$!
  for ((tries = 0; tries < 30; ++tries)); do
    in_prefix winedbg --command 'info wnd' | grep -q 'ScrubhavenForm.*Velmatrix' && return
    sleep 1
  done
  complain "$1 shows no window"
}
end_program() {
  stop_prefix "$PREFIX"
  wait "$PROGRAM_ID"
}

# What must be there after an installation: every file of the program folder, byte for byte.
expect_installed() {
  local file installed=$PREFIX/drive_c/Program\ Files/Scrubhaven
  while IFS= read -r file; do
    [[ $SYSTEM == win98 && $file == delindex.cmd ]] && continue
    cmp "$SEAL_APP/$file" "$installed/$file" || complain "$file is not installed"
  done < <(cd "$SEAL_APP" && find . -type f -printf '%P\n')
  new_in installed before files | sed 's/^/  new file: /'
  new_in installed before registry | sed 's/^/  new entry: /'
}

# The entry that the program makes for the next start runs, and deletes index files only.
expect_script_runs() {
  local run_once='HKLM\Software\Microsoft\Windows\CurrentVersion\RunOnce' path
  local -a index=(Cookies/index.dat History/History.IE5/MSHist012003010120030102/index.dat Profiles/ann/Cookies/INDEX.DAT
    'Profiles/ann/Temporary Internet Files/Content.IE5/index.dat')
  local -a kept=(Cookies/index.dat.txt index.dat Profiles/index.dat Cookies/ann.txt Profiles/bob/Cookies/index.dat/kept)
  for path in "${index[@]}" "${kept[@]}"; do
    mkdir -p "$(dirname "$PREFIX/drive_c/windows/$path")" && echo x >"$PREFIX/drive_c/windows/$path"
  done
  chmod a-w "$PREFIX/drive_c/windows/${index[0]}"
  in_prefix reg add "$run_once" /ve /d "$FOLDER\\delindex.cmd" /f >/dev/null
  expect_exit 0 wineboot
  for path in "${index[@]}"; do
    [[ ! -e $PREFIX/drive_c/windows/$path ]] || complain "the restart script left $path"
  done
  for path in "${kept[@]}"; do
    [[ -f $PREFIX/drive_c/windows/$path ]] || complain "the restart script deleted $path"
  done
  in_prefix reg query "$run_once" /ve 2>&1 | grep -q delindex && complain "the entry for the next start stays"
  rm -rf "$PREFIX"/drive_c/windows/{Cookies,History,Profiles,index.dat}
}


# A processor that cannot run the program is refused, and nothing is installed.
expect_old_processor_refused() {
  # The check asks for another feature, which no processor has.
  perl -0777 -pe 's/\xF7\xC2\x00\x80\x00\x00/\xF7\xC2\x00\x00\x00\x40/ or die "no check\n"' \
    <"$PACKAGE/ScrubhavenSetup.exe" >"$PREFIX/drive_c/OldProcessor.exe" || complain "the setup does not look at the processor"
  expect_exit 5 'C:\OldProcessor.exe' /S
  rm "$PREFIX/drive_c/OldProcessor.exe"
  list refused
  expect_same before refused
}

# scenario SYSTEM: SCRUBHAVEN_BITS and SCRUBHAVEN_VERSION say what it is.
scenario() {
  SYSTEM=$1
  PREFIX=$SEAL_BUILD/test-prefix/package_$SYSTEM
  make_prefix "$PREFIX" || exit 1
  trap 'stop_prefix "$PREFIX"' EXIT
  cp -- "$PACKAGE/ScrubhavenSetup.exe" "$PREFIX/drive_c/"
  mkdir "$PREFIX/drive_c/Portable"
  cp -a -- "$SEAL_APP/." "$PREFIX/drive_c/Portable/"
  # What Wine writes when a first window opens.
  show_window 'C:\Portable\scrubhaven.exe'
  end_program
  list before

  [[ $SYSTEM != winxp ]] || expect_old_processor_refused
  expect_exit 0 "$SETUP" /S
  list installed
  expect_installed
  [[ $SYSTEM != win98 ]] || expect_script_runs
  show_window "$FOLDER\\scrubhaven.exe"
  end_program

  # No installing and no removing over a running program, wherever it runs.
  show_window 'C:\Portable\scrubhaven.exe'
  in_prefix "$SETUP" /S
  (($? == 4)) || complain 'the setup installs while the program runs'
  in_prefix "$FOLDER\\uninstall.exe" /S
  while in_prefix winedbg --command 'info proc' | grep -q 'Un\.exe'; do sleep 0.5; done
  end_program
  list again
  expect_same installed again

  # Installed once more, with another folder: the earlier one goes, but for what others have put there.
  local old=$PREFIX/drive_c/Program\ Files/Scrubhaven path
  local -a foreign=(notes.txt resources/mine.wav backup/letter.txt)
  for path in "${foreign[@]}"; do mkdir -p "$(dirname "$old/$path")" && echo x >"$old/$path"; done
  expect_exit 0 "$SETUP" /S /DESKTOP '/D=C:\Elsewhere\Scrubhaven'
  diff <(cd "$old" && find . -type f -printf '%P\n' | sort) <(printf '%s\n' "${foreign[@]}" | sort) ||
    complain "the earlier version stays, or a foreign file does not"
  cmp "$SEAL_APP/scrubhaven.exe" "$PREFIX/drive_c/Elsewhere/Scrubhaven/scrubhaven.exe" || complain "/D= does not hold"
  [[ -n $(find "$PREFIX/drive_c/users" -name 'Scrubhaven Pro.lnk' -path '*Desktop*') ]] || complain "no desktop shortcut"
  echo x >"$PREFIX/drive_c/Elsewhere/Scrubhaven/mine.txt"
  in_prefix reg add 'HKLM\Software\Microsoft\Windows\CurrentVersion\RunOnce' /v 'Delete SVI' \
    /d 'C:\Elsewhere\Scrubhaven\svi.cmd' /f "/reg:$SEAL_BITS" >/dev/null
  expect_exit 0 'C:\Elsewhere\Scrubhaven\uninstall.exe' /S
  list removed
  new_in removed before files | sed 's/^/  still there: /'
  rm -r "$PREFIX/drive_c/Elsewhere/Scrubhaven/mine.txt" "${foreign[@]/#/$old/}"
  rmdir "$PREFIX/drive_c/Elsewhere/Scrubhaven" "$PREFIX/drive_c/Elsewhere" "$old"/{resources,backup,} ||
    complain "more than the foreign files stays"
  list cleared
  expect_same before cleared
  ((FAILED == 0)) && echo "$SYSTEM: installs, runs, and leaves nothing behind"
  exit "$FAILED"
}

if [[ ${1:-} == --scenario ]]; then scenario "$2"; fi

"$ROOT/package" || exit 1
FIRST=$(<"$PACKAGE/SHA256SUMS")
find "$ROOT/build/app" "$ROOT/build/app64" -exec touch {} +
"$ROOT/package" >/dev/null || exit 1
[[ $FIRST == "$(<"$PACKAGE/SHA256SUMS")" ]] || complain "a second run makes other bytes"

mkdir -p "$LISTS"
while read -r system bits; do
  SCRUBHAVEN_VERSION=$system SCRUBHAVEN_BITS=$bits \
    "$ROOT/scripts/with_display.sh" "${BASH_SOURCE[0]}" --scenario "$system" </dev/null || FAILED=1
done <<'SYSTEMS'
win98 32
winxp 32
win10 64
SYSTEMS
exit "$FAILED"
