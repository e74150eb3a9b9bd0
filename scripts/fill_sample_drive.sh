#!/bin/bash
# fill_sample_drive.sh PREFIX: makes C:\Sample with junk files of each of the twenty types and the special cases: sizes
# around a kilobyte, protected names, names that only resemble them, a read-only file, a hidden system folder, an empty
# file. The content is the same at every run.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/seal.sh"

check_sealed "$1"
SAMPLE=$(realpath -- "$1")/drive_c/Sample
# Windows attributes as Wine stores them in an extended attribute: hidden 2 and system 4.
HIDDEN_SYSTEM=0x6

# put FILE BYTES: a file of that size, below C:\Sample.
put() {
  mkdir -p -- "$(dirname -- "$SAMPLE/$1")"
  yes "Sample content of ${1##*/}, safe to delete." | head -c "$2" >"$SAMPLE/$1" || true
}

rm -rf -- "$SAMPLE"

put 'Documents/letter to the bank.wbk' 19456
put 'Documents/letter to the bank.txt' 2048
put 'Documents/budget.bak' 1536
put 'Documents/budget 2002.bak' 2560
put 'Documents/~letter.doc' 162
put 'Documents/invoices.cpy' 4096
put 'Documents/minutes.old' 700

put 'Help/manual.gid' 8628
put 'Help/manual.hlp' 3000

put 'Setup/setup1.tmp' 1024
put 'Setup/setup2.tmp' 12
put 'Setup/unpacked.temp' 5120
put 'Setup/archive._mp' 3333
put 'Setup/mscreate.dir' 0
put 'Setup/driver.---' 1023
put 'Setup/system.syd' 1025
put 'Setup/config.prv' 890
put 'Setup/readme.txt' 640

put 'Tools/protect.nav' 2047
put 'Tools/undo.nu3' 2049
put 'Tools/setup.err' 431
put 'Tools/file0000.chk' 32768
put 'Tools/customers.db$' 6144
put 'Tools/customers.db' 65536
put 'Tools/TwainScan.mtx' 156
put 'Tools/other.mtx' 156

put 'Pictures/Thumbs.db' 15360
put 'Pictures/holiday.jpg' 20480
put 'Pictures/album.db' 9216

# Names that a scan skips, and names that only resemble them.
put 'Protected/ntuser.bak' 1200
put 'Protected/Registry/SAM.bak' 1200
put 'Protected/sam.BAK' 1200
put 'Protected/MYOB.bak' 1200

put 'Read only/keep me.bak' 900
chmod a-w "$SAMPLE/Read only/keep me.bak"

put 'Empty/nothing.tmp' 0

# Only a custom extension finds these.
put 'Custom/disk.001' 1440
put 'Custom/disk.002' 1440

put 'Deep/one/two/three/four/buried.tmp' 77

put 'Hidden system/not to be found.bak' 512
if ! setfattr -n user.DOSATTRIB -v "\"$HIDDEN_SYSTEM\"" "$SAMPLE/Hidden system" 2>/dev/null; then
  echo 'sample drive: this file system has no extended attributes; "Hidden system" is an ordinary folder here'
fi
