#!/bin/bash
# version.sh: prints the version of the product, which CMakeLists.txt has.
set -euo pipefail
VERSION=$(sed -n 's/^project(Scrubhaven VERSION \([0-9.]*\) .*/\1/p' "$(dirname "${BASH_SOURCE[0]}")/../CMakeLists.txt")
[[ $VERSION ]] || { echo "CMakeLists.txt names no version" >&2; exit 1; }
echo "$VERSION"
