#!/bin/bash
# install_app.sh PREFIX: puts the program folder as it was built (build/app) into C:\Program Files\Scrubhaven.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/seal.sh"

check_sealed "$1"
TARGET="$1/drive_c/Program Files/Scrubhaven"
if [[ ! -f $SEAL_BUILD/app/scrubhaven.exe ]]; then
  echo "build/app holds no program yet; build the preset win32 first" >&2
  exit 1
fi
rm -rf -- "$TARGET"
mkdir -p -- "$TARGET"
cp -a -- "$SEAL_BUILD/app/." "$TARGET/"
