#!/bin/bash
# help_test.sh [HELP]: the compiled help is complete and says what the program says: every tool, control and window has
# its topic, every link, picture, entry and message is there, and the same sources give the same bytes. HELP is another
# folder than help/.
set -uo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
cd "$ROOT" || exit 1
HELP=$(realpath -- "${1:-help}")
export SCRUBHAVEN_HELP=$HELP
OUT=$ROOT/build/help-test
FAILED=0

complain() { echo "FAILED: $*"; FAILED=1; }
# names FILE...: the files that links and pictures of topics name, or the entries of the contents or the index.
names() { grep -ohiE '(href|src)="[^"]*"|name="Local" value="[^"]*"' -- "$@" | sed 's/"$//; s/.*"//' | sort -u; }
# The texts of strings in C++ on standard input, one a line.
literals() { grep -oE '"([^"\\]|\\.)*"' | sed 's/^"//; s/"$//; s/\\\\/\\/g'; }

rm -rf -- "$OUT"
for run in first second; do scripts/build_help.sh "$OUT/$run" || exit 1; done
cmp "$OUT/first/scrubhaven.chm" "$OUT/second/scrubhaven.chm" || complain "two builds of the help differ"

# What the viewer finds, from the compiled file itself.
IN_CHM=$(chmls -p -n list "$OUT/first/scrubhaven.chm" 2>/dev/null | sed -n 's|^/||p')
TOPICS=$(grep -E '\.html$' <<<"$IN_CHM")
[[ $TOPICS == "$(cd "$HELP" && ls -- *.html | sort)" ]] || complain "the compiled file has other topics than $HELP"
mkdir -p "$OUT/pages" && (cd "$OUT/pages" && chmls extractall "$OUT/first/scrubhaven.chm" . >/dev/null 2>&1)

while IFS= read -r link; do
  grep -qxF -- "${link%%#*}" <<<"$IN_CHM" ||
    complain "$link is linked and not in the help: $(cd "$OUT/pages" && grep -l "\"$link\"" -- *.h* | xargs)"
done < <(names "$OUT/pages"/*.html "$OUT/pages"/*.hh[ck] | grep -v '^http://')
while IFS= read -r topic; do
  names "$OUT/pages/contents.hhc" | grep -qxF "$topic" || complain "the contents do not lead to $topic"
  names "$OUT/pages/index.hhk" | grep -qxF "$topic" || complain "the index does not lead to $topic"
  [[ $(sed -n 's|<title>\(.*\)</title>|\1|p' "$OUT/pages/$topic") ]] || complain "$topic has no title"
  grep -qi 'charset=windows-1252' "$OUT/pages/$topic" || complain "$topic names no code page"
done <<<"$TOPICS"
grep -lP '[^\x00-\x7F]|@[A-Z]+@|<script' "$OUT/pages"/*.html && complain "only plain text belongs in these topics"

# Every control of the console that can have the keyboard, and every window.
MAP=$(grep -v '^#' "$HELP/topics.txt")
while IFS= read -r name; do
  topic=$(awk -v name="$name" '$1 == name { print $2 }' <<<"$MAP")
  [[ $topic ]] || complain "$name has no topic in topics.txt"
done < <(
  sed -nE '/::(Label|Frame|Box|StatusBar) /d; s/^  controls::.* (\w+);$/\1/p' console/frmFind.h
  grep -hoE '^class frm\w+ final : public' -- */frm*.h | awk '{ print $2 }'
)
while read -r name topic; do
  grep -qxF -- "$topic" <<<"$TOPICS" || complain "$name has the topic $topic, which is not in the help"
done <<<"$MAP"

# Every message box is explained, in its exact words.
TEXT=$(cat "$OUT/pages"/*.html | sed 's/&quot;/"/g; s/&amp;/\&/g' | perl -0777 -pe 's/<[^>]*>//g; s/\s+/ /g')
MESSAGES=$(sed -n '/kWarnTemps =/,/^};/p' tests/unit/UnitTest.h)
[[ $(wc -l <<<"$MESSAGES") -gt 40 ]] || complain "the table of message boxes was not found"
while IFS= read -r text; do
  [[ $TEXT == *"$text"* ]] || complain "no topic explains the message \"$text\""
done < <(literals <<<"$MESSAGES" | grep -vE '^the value$|written To the registry|^Success$' |
  sed 's/\*/\n/g; s/\\r\\n/\n/g; s/\\"/"/g' | sed 's/^ *//; s/ *$//' | grep -v '^"\?$')

# The tables of what is searched for and deleted, in the help and in docs/what-it-deletes.md.
DELETES=$(tr -s ' \n' ' ' <docs/what-it-deletes.md)
# listed WHAT AT_LEAST: each line of standard input is in both; there are at least that many.
listed() {
  local count=0 text
  while IFS= read -r text; do
    count=$((count + 1))
    [[ $TEXT == *"$text"* ]] || complain "no topic names \"$text\" of the $1"
    [[ $DELETES == *"$text"* ]] || complain "docs/what-it-deletes.md does not name \"$text\" of the $1"
  done
  ((count >= $2)) || complain "the sources have only $count $1"
}
sed -n '/kJunkTypes = /,/^}};/p' finder/junk_types.cpp | literals >"$OUT/types"
sed -n '/kProtectedInCapitals = /,/"SYSTEM.INI"/p' finder/junk_types.cpp | literals >"$OUT/names"
sed -n '/kFixedFolders\[\] = /,/^};/p' cleaners/temp_folders.cpp | literals >"$OUT/folders"
# Parents are strings or the names of constants.
perl -0777 -ne '
  s/\\\\/\\/g;
  my %value = /constexpr const char\* (\w+) =\s*"([^"]*)";/g;
  s/"\s*\n\s*"//g;
  while (/^    \{(?:"([^"]*)"|(\w+)), "([^"]*)",/gm) {
    my ($parent, $key) = ($1 // $value{$2}, $3);
    $parent =~ s/^Software\\//; $parent =~ s/\\?$/\\/;
    print "$parent$key\n";
  }' cleaners/mru_lists.cpp >"$OUT/keys"
listed 'file types' 35 <"$OUT/types"
listed 'protected names' 19 <"$OUT/names"
listed 'temporary folders' 6 <"$OUT/folders"
listed 'lists' 20 <"$OUT/keys"

VERSION=$(scripts/version.sh)
grep -q "version $VERSION" "$OUT/pages/about.html" || complain "the help's own version is another than $VERSION"
[[ $(sed -nE 's/^## \[?([0-9.]+).*/\1/p' CHANGELOG.md | head -n 1) == "$VERSION" ]] ||
  complain "CHANGELOG.md does not begin with $VERSION"

((FAILED == 0)) && echo "the help has $(wc -l <<<"$TOPICS") topics, all of them complete"
exit "$FAILED"
