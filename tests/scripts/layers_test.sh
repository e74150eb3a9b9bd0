#!/bin/bash
# layers_test.sh [TREE]: prints which source folder includes which others, and fails when a file of the program includes
# something that its layer must not know (docs/architecture.md). TREE is another source tree than this one.
set -uo pipefail
cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../..}" || exit 1

# What each layer may include. `windows` stands for every header that is neither in the tree nor a C++ standard header.
declare -A MAY_INCLUDE=(
  [console]='console finder cleaners settings shredder controls platform'
  [finder]='finder controls platform'
  [cleaners]='cleaners controls platform'
  [settings]='settings controls platform'
  [shredder]='shredder controls platform'
  [controls]='controls platform'
  [platform]='platform'
  [platform/memory]='platform/memory platform controls'
  [platform/win32]='platform/win32 platform windows'
  [platform/win32/ui]='platform/win32/ui platform/win32 platform controls windows'
)

layer_of() {
  case $1 in
    platform/*/*) echo "${1%/*}" ;;
    \<*.* | \<*\(*) echo windows ;;
    \<*) echo standard ;;
    *) echo "${1%%/*}" ;;
  esac
}

# Includes that single files may have beyond their layer's.
is_named_crossing() {
  case "$1 $2" in
    'console/main.cpp platform/win32/'*) ;;
    cleaners/*' settings/modRegistry.h' | cleaners/*' finder/tree_walk.h' | cleaners/*' finder/deletion.h') ;;
    # The console's methods are in the folder of the tool that they serve.
    */frmFind_*.cpp' console/frmFind.h' | */frmFind_*.cpp' console/modOS.h')
      [[ $1 =~ ^(finder|cleaners|settings|shredder)/[^/]*$ ]]
      ;;
    *) false ;;
  esac
}

# The tools' files without a window are all but the forms and what two of them share.
has_window() {
  case $1 in
    finder/frm* | cleaners/frm* | settings/frm* | shredder/frm* | settings/toggle_window.*) ;;
    finder/* | cleaners/* | settings/* | shredder/*) false ;;
  esac
}

# Prints "FILE TARGET" for each include of the files on standard input. TARGET is a path in the tree, <NAME> for another
# header, or <(TEXT)> for a name that only the preprocessor knows. Comments and raw strings are removed before.
includes() {
  xargs -0 perl -0777 -ne '
    s/\\\r?\n//g;
    s{R"([^()\\\s]*)\(.*?\)\1"|("(?:\\.|[^"\\\n])*"|(?<!\w)\x27(?:\\.|[^\x27\\\n])+\x27)|//[^\n]*|/\*.*?\*/}{$2 // " "}gse;
    (my $folder = $ARGV) =~ s{[^/]*$}{};
    while (/^\s*(?:\#|%:)\s*(?:include|include_next|import)\b[ \t]*(?:"([^"\n]*)"|<([^>\n]*)>|([^\n]*))/gm) {
      my @places = defined $1 ? ("$folder$1", $1) : defined $2 ? ($2) : ();
      my ($path) = grep { -e } @places;
      $path //= "<" . ($1 // $2 // "($3)") . ">";
      1 while $path =~ s{(^|/)(?:\./|(?!\.\.?/)[^/]+/\.\./)}{$1};
      $path =~ s/\s//g;
      print "$ARGV $path\n";
    }'
}

FAILED=0
declare -A ARROWS=()
while read -r file target; do
  from=$(layer_of "$file") to=$(layer_of "$target")
  [[ $to != standard ]] || continue
  [[ $from == "$to" || " ${ARROWS[$from]:-} " == *" $to "* ]] || ARROWS[$from]+=" $to"
  if is_named_crossing "$file" "$target"; then continue; fi
  if [[ " ${MAY_INCLUDE[$from]:-} " != *" $to "* ]]; then
    echo "FAILED: $file includes $target"
    FAILED=1
  elif [[ $to == controls ]] && ! has_window "$file"; then
    echo "FAILED: $file includes $target, but is no window"
    FAILED=1
  fi
done < <(find console finder cleaners settings shredder controls platform -type f -print0 | includes)

((${#ARROWS[@]} > 0)) || { echo "FAILED: no include was found"; exit 1; }
for from in "${!ARROWS[@]}"; do echo "$from ->${ARROWS[$from]}"; done | sort
exit "$FAILED"
