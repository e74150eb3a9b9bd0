; The program that is installed as delindex.cmd on Windows 95, 98 and Me, whose COMMAND.COM cannot list folders and does
; not run .cmd files: deletes what companions/delindex.cmd deletes, in the places where these versions have it, and is
; silent. Does nothing on the NT line. OUT is its path.
Unicode false
Name "Scrubhaven Pro"
OutFile "${OUT}"
RequestExecutionLevel user
SilentInstall silent
SetCompressor /SOLID lzma
Icon "${__FILEDIR__}/../resources/application.ico"

!include LogicLib.nsh
!include WinVer.nsh

; DeleteIndex FOLDER: the pattern also matches longer names, and a folder of that name must stay.
!macro DeleteIndex FOLDER
  ${If} ${FileExists} "${FOLDER}\index.dat"
  ${AndIfNot} ${FileExists} "${FOLDER}\index.dat\*.*"
    Delete "${FOLDER}\index.dat"
  ${EndIf}
!macroend

; Takes a profile's folder from the stack.
Function CleanProfile
  Exch $0
  Push $1
  Push $2
  !insertmacro DeleteIndex "$0\Cookies"
  !insertmacro DeleteIndex "$0\Temporary Internet Files\Content.IE5"
  !insertmacro DeleteIndex "$0\Local Settings\Temporary Internet Files\Content.IE5"
  !insertmacro DeleteIndex "$0\History\History.IE5"
  !insertmacro DeleteIndex "$0\Local Settings\History\History.IE5"
  ; The subfolders of the history, one for each day or week.
  FindFirst $1 $2 "$0\History\History.IE5\MSHist01*"
  ${DoWhile} $2 != ""
    !insertmacro DeleteIndex "$0\History\History.IE5\$2"
    FindNext $1 $2
  ${Loop}
  FindClose $1
  Pop $2
  Pop $1
  Pop $0
FunctionEnd

Section
  ${If} ${IsNT}
    Return
  ${EndIf}
  Push $WINDIR
  Call CleanProfile
  FindFirst $1 $2 "$WINDIR\Profiles\*.*"
  ${DoWhile} $2 != ""
    ${If} $2 != "."
    ${AndIf} $2 != ".."
      Push "$WINDIR\Profiles\$2"
      Call CleanProfile
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
SectionEnd
