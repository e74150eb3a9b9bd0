#!/bin/bash
# version_matrix.sh [BITS:VERSION...]: runs desktop tests with Wine in the role of one Windows version after the other
# (4 minutes), and writes the table of docs/versions.md. With arguments it runs those only and changes nothing, for example
# version_matrix.sh 32:win95. Prints each line; fails when a test failed, whose output is in build/versions-BITS-VERSION.log.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cd "$ROOT" || exit 1
PAGE=docs/versions.md
VERSIONS=(32:win95 32:win98 32:winme 32:nt40 32:win2k 32:winxp 32:win2003 32:vista 32:win7 32:win81 32:win10
  64:win7 64:win10)
# Columns of the table, and the test that fills each.
COLUMNS_OF_TABLE=('junk scan, Recycle Bin' 'empty files, wiping' 'shredder' 'typed addresses, lists' 'settings' 'help')
TESTS=(ConsoleTest.JunkIsFoundAndStaysWhileItIsReadOnlyOrInUse NamesTest.OnlyTheTickedTwinIsDeletedOrWiped
  ShredderTest.AFileOfTheDialogIsShreddedAndCancelEndsARun ConsoleTest.ListsOfTheUserAreCleared
  SettingsTest.AreShownAndSwitched ConsoleTest.CanBeUsedByTheKeyboardAlone)
declare -A NAMES=([win95]='Windows 95' [win98]='Windows 98' [winme]='Windows Me' [nt40]='Windows NT 4.0'
  [win2k]='Windows 2000' [winxp]='Windows XP' [win2003]='Windows Server 2003' [vista]='Windows Vista'
  [win7]='Windows 7' [win81]='Windows 8.1' [win10]='Windows 10')

# line BITS VERSION: runs the tests and prints the line of the table.
line() {
  local bits=$1 version=$2 test result text filter
  local log=build/test-prefix/versions/test.log
  filter=$(IFS=:; echo "${TESTS[*]}")
  rm -f "$log"
  SCRUBHAVEN_BITS=$bits SCRUBHAVEN_VERSION=$version SCRUBHAVEN_SCREEN=1600x1200 \
    scripts/wine_test.sh 240 versions "build/win$bits-tests/desktop_tests.exe" "--gtest_filter=$filter" \
    >"build/versions-$bits-$version.log" 2>&1 </dev/null
  text="| ${NAMES[$version]} | $bits-bit"
  for test in "${TESTS[@]}"; do
    result=FAILED
    grep -qF "[       OK ] $test" "$log" && result=passed
    [[ $test != SettingsTest.* || $result != passed || ! $version =~ ^win9[58]$ ]] || result='passed (refused)'
    text+=" | $result"
  done
  echo "$text |"
}

for preset in win32 win32-tests win64 win64-tests; do scripts/build.sh "$preset" >&2 || exit 1; done

ALL=("${VERSIONS[@]}")
(($# == 0)) || ALL=("$@")
TABLE=$(
  printf '| Windows | program'; printf ' | %s' "${COLUMNS_OF_TABLE[@]}"; echo ' |'
  printf '|---|---'; printf '|---%.0s' "${COLUMNS_OF_TABLE[@]}"; echo '|'
  for one in "${ALL[@]}"; do
    made=$(line "${one%:*}" "${one#*:}")
    echo "$made"
    echo "$made" >&2
  done
)
if (($# == 0)); then
  awk -v table="$TABLE" '/^<!-- end of the table -->/ { inside = 0 } !inside { print }
    /^<!-- made by scripts\/version_matrix.sh -->/ { print table; inside = 1 }' "$PAGE" >"$PAGE.new" && mv "$PAGE.new" "$PAGE"
fi
! grep -q FAILED <<<"$TABLE"
