#!/bin/bash
# check_program.sh EXE: fails unless Windows 95 can load the program: subsystem version 4.0, imports only from
# libraries of Windows 95 and of functions that it has (newer ones are bound at run time).
set -uo pipefail
EXE=$1
HEADERS=$(i686-w64-mingw32-objdump -p "$EXE") || exit 1
LIBRARIES_OF_WINDOWS_95='advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleaut32|shell32|user32'
# Functions of later Windows versions, in particular those that compilers' run-time libraries import.
LATER_FUNCTIONS='AddVectoredExceptionHandler|AttachConsole|FindFirstFileExA|GetFileSizeEx|GetLongPathNameA|GetModuleHandleEx[AW]|GetNativeSystemInfo|GetTickCount64|InitializeSRWLock|InitializeConditionVariable|InitOnceExecuteOnce|SetFilePointerEx|SHEmptyRecycleBinA|SHGetFolderPathA|SHGetSpecialFolderPathA|CoInitializeEx|CreateToolhelp32Snapshot|GlobalMemoryStatusEx|TryEnterCriticalSection|IsDebuggerPresent|GetMonitorInfoA|MonitorFromWindow|GetGuiResources|GetAncestor|TrackMouseEvent|AlphaBlend|TransparentBlt|GetFileAttributesExA|CopyFileExA|MoveFileExW|RegDeleteKeyExA|RegGetValueA'
FAILED=0

field() { awk -v name="$1" '$1 == name { print $2; exit }' <<<"$HEADERS"; }
complain() { echo "$*"; FAILED=1; }

VERSION=$(field MajorSubsystemVersion).$(field MinorSubsystemVersion)
[[ $VERSION == 4.0 ]] || complain "asks for subsystem version $VERSION instead of 4.0"
[[ $(field Subsystem) == 00000002 ]] || complain "is not a program with windows (subsystem $(field Subsystem))"

LIBRARIES=$(awk '/DLL Name:/ { print tolower($3) }' <<<"$HEADERS")
[[ $LIBRARIES ]] || complain "imports nothing at all"
while read -r library; do
  [[ ${library%.dll} =~ ^($LIBRARIES_OF_WINDOWS_95)$ ]] || complain "imports from $library"
done <<<"$LIBRARIES"

IMPORTS=$(awk '/DLL Name:/ { inside = 1; next } NF == 0 { inside = 0 } inside && NF == 3 { print $3 }' <<<"$HEADERS")
while read -r function; do
  complain "imports $function, which Windows 95 lacks"
done < <(grep -xE "$LATER_FUNCTIONS" <<<"$IMPORTS")
exit "$FAILED"
