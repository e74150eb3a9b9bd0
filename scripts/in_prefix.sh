#!/bin/bash
# in_prefix.sh PREFIX PROGRAM [ARGUMENT...]: the only way in which this project starts a Windows program.
# PROGRAM is a path inside the prefix (C:\...) or a name that Wine knows. Nothing starts unless the prefix is sealed.
# SCRUBHAVEN_LOCALE (such as ja_JP) is the locale whose ANSI code page Wine gives the program; without it 1252.
set -uo pipefail
SCRIPTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd -P)
source "$SCRIPTS/seal.sh"

if (($# < 2)); then
  echo "usage: in_prefix.sh PREFIX PROGRAM [ARGUMENT...]" >&2
  exit 2
fi
check_sealed "$1" || exit 3
PREFIX=$(realpath -- "$1")
shift
prefix_environment "$PREFIX"
cd "$PREFIX/drive_c" || exit 3
if [[ ${SCRUBHAVEN_LOCALE:-} ]]; then
  # Wine looks at the locale's name only, so the one locale that every host has can stand behind it.
  mkdir -p "$SEAL_BUILD/locale"
  ln -sfn /usr/lib/locale/C.utf8 "$SEAL_BUILD/locale/$SCRUBHAVEN_LOCALE.utf8"
  exec env LOCPATH="$SEAL_BUILD/locale" LC_ALL="$SCRUBHAVEN_LOCALE.UTF-8" wine "$@"
fi
exec wine "$@"
