#!/bin/bash
# in_prefix.sh PREFIX PROGRAM [ARGUMENT...]: the only way in which this project starts a Windows program.
# PROGRAM is a path inside the prefix (C:\...) or a name that Wine knows. Nothing starts unless the prefix is sealed.
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
exec wine "$@"
