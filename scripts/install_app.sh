#!/bin/bash
# install_app.sh PREFIX: puts the program folder as it was built (build/app, or build/app64 with
# SCRUBHAVEN_BITS=64) into C:\Program Files\Scrubhaven.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/seal.sh"

check_sealed "$1"
TARGET="$1/drive_c/Program Files/Scrubhaven"
if [[ ! -f $SEAL_APP/scrubhaven.exe ]]; then
  echo "${SEAL_APP#"$SEAL_ROOT/"} holds no program yet; build the preset win$SEAL_BITS first" >&2
  exit 1
fi
rm -rf -- "$TARGET"
mkdir -p -- "$TARGET"
cp -a -- "$SEAL_APP/." "$TARGET/"
