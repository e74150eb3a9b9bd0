#!/bin/bash
# install.sh [package]: installs what building, running and testing need on a Debian 12 machine, and only what is missing;
# with `package` what ./package needs as well.
# With nothing missing it queries dpkg once and returns. Output of apt goes to build/install.log.
set -uo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
LOG=$ROOT/build/install.log
PIN=$ROOT/build/apt-same-suite.pref

PACKAGES=(
  g++ cmake ninja-build
  g++-mingw-w64-i686-win32 g++-mingw-w64-i686-posix
  g++-mingw-w64-x86-64-win32 g++-mingw-w64-x86-64-posix
  googletest libbenchmark-dev
  clang-format clang-tidy-19
  wine wine32:i386 wine64 fonts-wine
  xvfb imagemagick # virtual screen, screenshots
  openssl          # bench/compare_shred.sh
  attr             # setfattr, in fill_sample_drive.sh
  fp-utils         # chmcmd and chmls, in build_help.sh
)
[[ ${1:-} != package ]] || PACKAGES+=(nsis zip)

say() { printf 'install: %s\n' "$*"; }

missing_packages() {
  command -v dpkg-query >/dev/null || { printf '%s\n' "${PACKAGES[@]}"; return; }
  local installed name architecture state
  declare -A installed=()
  while read -r name architecture state; do
    [[ $state == installed ]] || continue
    installed[$name]=1
    installed[$name:$architecture]=1
  done < <(dpkg-query -W -f '${Package} ${Architecture} ${db:Status-Status}\n' "${PACKAGES[@]}" 2>/dev/null)
  for name in "${PACKAGES[@]}"; do
    [[ ${installed[$name]:-} ]] || printf '%s\n' "$name"
  done
}

apt_quietly() { DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" </dev/null >>"$LOG" 2>&1; }

# Fresh images have no package lists, and an old list names files that the server no longer has.
update_lists() {
  local attempt
  for attempt in 1 2 3; do
    apt_quietly -o Acquire::Retries=3 update && return 0
    sleep 2
  done
  return 1
}

# An i386 package must have exactly the version of its amd64 counterpart. When the security suite's i386 index cannot be
# read, amd64 libraries would come from that suite and i386 ones would not; without the suite both come from the main one.
# Libraries that are already newer are downgraded, hence --allow-downgrades.
install_from_one_suite() {
  printf 'Package: *\nPin: release n=bookworm-security\nPin-Priority: -1\n' >"$PIN"
  apt_quietly -o Acquire::Retries=3 -o "Dir::Etc::Preferences=$PIN" install --yes --no-install-recommends \
    --allow-downgrades "$@"
}

main() {
  local missing
  mapfile -t missing < <(missing_packages)
  if ((${#missing[@]} == 0)); then return 0; fi

  if ((EUID != 0)); then
    say "missing: ${missing[*]}" >&2
    say "run this once as root: $ROOT/scripts/install.sh" >&2
    return 1
  fi
  if ! command -v apt-get >/dev/null; then
    say "this is not a Debian machine; install by hand: ${missing[*]}" >&2
    return 1
  fi

  mkdir -p "$ROOT/build"
  : >"$LOG"
  say "${#missing[@]} packages are missing (details in build/install.log)"
  if ! dpkg --print-foreign-architectures | grep -qx i386; then
    say "adding the i386 architecture, for the 32-bit Wine"
    dpkg --add-architecture i386 >>"$LOG" 2>&1 || { say "dpkg refused i386" >&2; return 1; }
  fi
  say "reading the package lists"
  update_lists || say "the package lists are incomplete; installing with those that could be read"
  say "installing ${missing[*]}"
  if ! apt_quietly -o Acquire::Retries=3 install --yes --no-install-recommends "${missing[@]}"; then
    say "the installation failed; once more without the security suite"
    install_from_one_suite "${missing[@]}"
  fi

  mapfile -t missing < <(missing_packages)
  if ((${#missing[@]} > 0)); then
    say "could not install: ${missing[*]}" >&2
    tail -n 15 "$LOG" >&2
    return 1
  fi
  say "done"
}

main
