#!/bin/bash
# The sealed Wine prefix. Scrubhaven destroys files at fixed places, so it runs only in a prefix from which no file of the
# host can be reached: no z: drive, no link from the profile or anywhere below drive_c to the outside, and a home and
# data folder of its own (Wine's Recycle Bin is the trash folder in XDG_DATA_HOME).
#
#   seal.sh make DIR     makes a fresh prefix at DIR; what was there before is deleted
#   seal.sh check DIR    succeeds without output when DIR is sealed, otherwise prints why not and fails
#
# Sourced, it defines make_prefix, check_sealed, prefix_environment, keep_wine_running and stop_prefix.
# Environment variables:
#   SCRUBHAVEN_VERSION   the Windows version that Wine reports in a fresh prefix (default winxp): win95, win98, nt40 ...
#   SCRUBHAVEN_DRIVE_D   the only folder that may be drive d:
#   SCRUBHAVEN_BITS      32 (the default) or 64: which Windows a fresh prefix is. A 64-bit one runs programs of both kinds

SEAL_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
SEAL_BUILD=$SEAL_ROOT/build
SEAL_BITS=${SCRUBHAVEN_BITS:-32}
SEAL_TEMPLATE=$SEAL_BUILD/prefix-template${SEAL_BITS#32}
# The program folder for such a Windows.
SEAL_APP=$SEAL_BUILD/app${SEAL_BITS#32}

seal_refuse() {
  printf 'not sealed, not started: %s\n' "$*" >&2
  return 1
}

# Making a prefix deletes what was there, so only paths below build/ are accepted.
inside_build() {
  local path
  path=$(realpath -m -- "$1")
  [[ $path == "$SEAL_BUILD"/?* ]] || seal_refuse "$1 is not below build/"
}

# Prints win32 or win64: what the prefix is, or is to become when Wine has not made it yet.
prefix_architecture() {
  local made
  made=$(sed -n '/^#arch=/{s///p;q}' "$1/system.reg" 2>/dev/null)
  printf '%s' "${made:-win$SEAL_BITS}"
}

# Exports the variables by which Wine finds its files, the host's files and the host's programs.
prefix_environment() {
  local prefix=$1 home=$1/home
  WINEARCH=$(prefix_architecture "$prefix")
  export WINEPREFIX=$prefix WINEARCH WINEDEBUG=${WINEDEBUG:--all}
  export WINEDLLOVERRIDES='winemenubuilder.exe=d;mscoree=;mshtml='
  export HOME=$home XDG_DATA_HOME=$home/.local/share XDG_CONFIG_HOME=$home/.config XDG_CACHE_HOME=$home/.cache
  export XDG_STATE_HOME=$home/.local/state
  # The code page is the western one on every host, and file names on the host are UTF-8.
  export LC_ALL=C.UTF-8
  # Through the message bus Wine would learn of the host's disks and make each of them a drive.
  export DBUS_SYSTEM_BUS_ADDRESS=disabled: DBUS_SESSION_BUS_ADDRESS=disabled:
  # Wine looks here first for the program that opens web addresses.
  export PATH=$home/bin:$PATH
  unset XDG_RUNTIME_DIR WINELOADER WINEDLLPATH WINE
}

# Keeps Wine's services running between the programs of one prefix, for a minute at most; starting them for each program
# takes half a second. To be ended by stop_prefix.
keep_wine_running() { (prefix_environment "$1" && wineserver -p60); }

# Ends all Wine processes of one prefix and waits for their end.
stop_prefix() {
  [[ -d $1/drive_c ]] || return 0
  (
    prefix_environment "$1"
    wineserver -k
    wineserver -w
  ) >/dev/null 2>&1
  return 0
}

# Removes what Wine makes: z:, a link for each serial port, and profile folders that are links to the home folder.
close_ways_out() {
  local prefix=$1 link
  find "$prefix/dosdevices" -mindepth 1 ! -name 'c:' -delete
  while IFS= read -r -d '' link; do
    rm -- "$link" && mkdir -- "$link"
  done < <(find "$prefix/drive_c" -type l -print0)
}

# The settings of every prefix, as a .reg file.
seal_settings() {
  cat <<'REG'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine]
"Version"="winxp"

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Software\Wine\WineBrowser]
"Browsers"="opened-address"
"Mailers"="opened-address"
REG
}

# Replaces the host's browser: appends each opened address as a line to C:\opened-addresses.txt.
install_address_recorder() {
  mkdir -p "$1/home/bin"
  cat >"$1/home/bin/opened-address" <<'SH'
#!/bin/sh
printf '%s\r\n' "$@" >>"$WINEPREFIX/drive_c/opened-addresses.txt"
SH
  chmod +x "$1/home/bin/opened-address"
}

# Wine only checks that its libraries exist in the prefix and loads its own; without debug information a prefix has a
# third of the size and is copied several times faster. Old 16-bit files have another format and stay as they are.
strip_libraries() {
  find "$1/drive_c/windows" -type f \( -name '*.dll' -o -name '*.exe' -o -name '*.drv' -o -name '*.ocx' \) -print0 |
    xargs -0 -n 50 x86_64-w64-mingw32-strip
}

# The prefix that all others are copied from; made once for each version of Wine and of this script.
make_template() {
  local wanted made=$SEAL_TEMPLATE.new
  wanted="$(wine --version 2>/dev/null) $(cksum <"${BASH_SOURCE[0]}")"
  [[ -f $SEAL_TEMPLATE/made-by && $(<"$SEAL_TEMPLATE/made-by") == "$wanted" ]] && return 0

  rm -rf -- "$SEAL_TEMPLATE" "$made"
  mkdir -p "$made/home/.local/share" "$made/home/.config" "$made/home/.cache"
  install_address_recorder "$made"
  (
    prefix_environment "$made"
    unset DISPLAY WAYLAND_DISPLAY
    cd "$made" && wineboot -i && wineserver -w
    seal_settings >"$made/drive_c/settings.reg"
    wine regedit /S 'C:\settings.reg'
    wineserver -w
    rm -f "$made/drive_c/settings.reg"
    # Debian's Wine does not find its own fonts in their folder, among them Tahoma and the window buttons' symbols.
    cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$made/drive_c/windows/Fonts/"
    strip_libraries "$made"
  ) >"$SEAL_BUILD/prefix.log" 2>&1 </dev/null
  close_ways_out "$made"
  # Without it a newer Wine would update the prefix at its next start and make its links again.
  echo disable >"$made/.update-timestamp"
  check_sealed "$made" || return 1
  if ! grep -q '"Managed"="N"' "$made/user.reg"; then
    echo "Wine could not make a prefix; see build/prefix.log" >&2
    return 1
  fi
  printf '%s' "$wanted" >"$made/made-by"
  mv -- "$made" "$SEAL_TEMPLATE"
}

make_prefix() {
  local prefix=$1
  inside_build "$prefix" || return 1
  mkdir -p "$SEAL_BUILD" "$(dirname "$prefix")"
  (
    flock 9
    make_template
  ) 9>"$SEAL_TEMPLATE.lock" || return 1
  if [[ -e $prefix ]]; then
    stop_prefix "$prefix"
    rm -rf -- "$prefix"
  fi
  cp -a -- "$SEAL_TEMPLATE" "$prefix" || return 1
  sed -i "s/^\"Version\"=\"winxp\"/\"Version\"=\"${SCRUBHAVEN_VERSION:-winxp}\"/" "$prefix/user.reg"
  check_sealed "$prefix"
}

check_dos_devices() {
  local prefix=$1 link name
  for link in "$prefix"/dosdevices/*; do
    name=${link##*/}
    case $name in
      c:) [[ $(readlink -f -- "$link") == "$prefix/drive_c" ]] || { seal_refuse "c: is not drive_c"; return 1; } ;;
      d:)
        [[ -n ${SCRUBHAVEN_DRIVE_D:-} && $(readlink -- "$link") == "$SCRUBHAVEN_DRIVE_D" ]] ||
          { seal_refuse "drive d: leads to $(readlink -- "$link"), which was not named"; return 1; }
        ;;
      # Wine makes these links at every start; a port gives access to no files.
      com[0-9]*|lpt[0-9]*) [[ -L $link && ! -d $link && ! -f $link ]] || { seal_refuse "$name is no port"; return 1; } ;;
      *) seal_refuse "drive or device $name leads out of the prefix"; return 1 ;;
    esac
  done
}

check_links() {
  local prefix=$1 link target
  while IFS= read -r -d '' link; do
    target=$(realpath -m -- "$link")
    [[ $target == "$prefix"/* ]] || { seal_refuse "${link#"$prefix"/} leads to $target"; return 1; }
  done < <(find "$prefix" -path "$prefix/dosdevices" -prune -o -type l -print0)
}

check_sealed() {
  local prefix folder
  inside_build "$1" || return 1
  prefix=$(realpath -m -- "$1")
  for folder in dosdevices drive_c home home/.local/share; do
    [[ -d $prefix/$folder && ! -L $prefix/$folder ]] || { seal_refuse "$1 has no folder $folder of its own"; return 1; }
  done
  [[ $(cat "$prefix/.update-timestamp" 2>/dev/null) == disable ]] ||
    { seal_refuse "Wine would update $1 and open it"; return 1; }
  check_dos_devices "$prefix" && check_links "$prefix"
}

if [[ ${BASH_SOURCE[0]} == "$0" ]]; then
  set -u
  case ${1:-} in
    make) make_prefix "$2" ;;
    check) check_sealed "$2" ;;
    *) echo "usage: seal.sh make|check DIR" >&2; exit 2 ;;
  esac
fi
