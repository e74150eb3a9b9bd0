#!/bin/bash
# build_help.sh [FOLDER]: compiles help/ with the pictures that it shows to FOLDER/scrubhaven.chm (default build/help),
# the same bytes from the same sources. FOLDER/source has what the compiler read.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
# A copy of the tree may be given, for tests.
HELP=${SCRUBHAVEN_HELP:-$ROOT/help}
SCREENSHOTS=$ROOT/docs/screenshots
OUT=$(realpath -m -- "${1:-$ROOT/build/help}")
SOURCE=$OUT/source

fail() { echo "help: $*" >&2; exit 1; }

# The compiler writes the time of day into two places. A number made of the contents takes its place, so that the viewer
# still sees a new file as new.
#   offset 16 of the file: the header's time;  the first entry of /#SYSTEM: code 10, length 4, the time
replace_times() {
  local file=$1 system number
  system=$(chmls -p list "$file" 2>/dev/null | awk '$4 == "/#SYSTEM" && $1 == 0 { print $2 }')
  [[ $system ]] || fail "the compiled file has no /#SYSTEM"
  SYSTEM=$system perl -e '
    my ($file) = @ARGV;
    open(my $in, "+<:raw", $file) or die "$file: $!";
    read($in, my $bytes, -s $file);
    my $place = unpack("V", substr($bytes, 0x58, 4)) + $ENV{SYSTEM} + 4;
    my ($code, $length) = unpack("v2", substr($bytes, $place, 4));
    substr($bytes, 0, 4) eq "ITSF" && $code == 10 && $length == 4 or die "$file: the time is not in its place\n";
    substr($bytes, $_, 4) = "\0" x 4 for 16, $place + 4;
    my $number = 0;
    $number = ($number * 31 + $_) % 0xFFFFFFFB for unpack("C*", $bytes);
    substr($bytes, $_, 4) = pack("V", $number) for 16, $place + 4;
    seek($in, 0, 0) and print $in $bytes;' "$file"
}

command -v chmcmd >/dev/null || fail "chmcmd is missing (package fp-utils)"
VERSION=$("$ROOT/scripts/version.sh")
rm -rf -- "$SOURCE" "$OUT/scrubhaven.chm"
mkdir -p -- "$SOURCE"
for topic in "$HELP"/*.html; do sed "s/@VERSION@/$VERSION/g" "$topic" >"$SOURCE/${topic##*/}"; done
cp -- "$HELP"/*.css "$HELP"/*.hhc "$HELP"/*.hhk "$HELP"/*.hhp "$SOURCE/"

while IFS= read -r picture; do
  [[ -f $SCREENSHOTS/$picture ]] ||
    fail "docs/screenshots/$picture is missing, which $(cd "$HELP" && grep -l "src=\"$picture\"" -- *.html | xargs) shows"
  cp -- "$SCREENSHOTS/$picture" "$SOURCE/"
done < <(cat "$HELP"/*.html | grep -o 'src="[^"]*"' | sed 's/^src="//; s/"$//' | sort -u)

cd "$SOURCE"
{ echo '[FILES]' && LC_ALL=C ls -- *.html *.css *.png; } >>scrubhaven.hhp
# A missing file is only a warning for the compiler.
chmcmd --no-html-scan scrubhaven.hhp >"$OUT/chmcmd.log" 2>&1 || { cat "$OUT/chmcmd.log" >&2; fail "chmcmd failed"; }
if grep -iE 'warning|error' "$OUT/chmcmd.log" >&2; then fail "see above"; fi
[[ -s scrubhaven.chm ]] || fail "chmcmd wrote nothing (see $OUT/chmcmd.log)"
replace_times scrubhaven.chm
mv -- scrubhaven.chm "$OUT/"
