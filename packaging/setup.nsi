; The setup. ./package gives: WORK, the folder with what is to be installed (common/, app32/, app64/, app95/) and with the
; lists install.nsh and uninstall.nsh; OUT, the setup's path; VERSION; SIZE_32, SIZE_64, SIZE_95, installed kilobytes.
;
; /S installs or removes without windows, /D=FOLDER (last, without quotation marks) chooses the folder, /DESKTOP adds the
; desktop shortcut. Exit codes: 0 done, 1 and 2 ended by the user or by a failure, and:
!define MISSING_PART 3       ; msvcrt.dll, or newer common controls
!define RUNNING 4            ; the program runs
; 5: the processor is too old, see processor_check.s
!define OLD_VERSION_STAYS 6  ; the earlier version could not be removed
!define NO_RIGHTS 7          ; installed for all users, to be removed by an administrator

Unicode false
Name "Scrubhaven Pro"
OutFile "${OUT}"
RequestExecutionLevel highest
ManifestSupportedOS all
SetCompressor /SOLID lzma
AllowSkipFiles off
BrandingText "Scrubhaven Pro ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
!packhdr "${WORK}/stub.tmp" '"${__FILEDIR__}/add_processor_check.pl" "${WORK}/stub.tmp"'

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh
!include WinVer.nsh
!include x64.nsh

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey CompanyName "Velmatrix"
VIAddVersionKey FileDescription "Scrubhaven Pro Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Copyright (C) 2026 Velmatrix"
VIAddVersionKey ProductName "Scrubhaven Pro"
VIAddVersionKey ProductVersion "${VERSION}"

!define ICON "${__FILEDIR__}/../resources/application.ico"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN "$INSTDIR\scrubhaven.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\scrubhaven.chm"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Read what the program deletes"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\ScrubhavenPro"
!define RUN_ONCE_KEY "Software\Microsoft\Windows\CurrentVersion\RunOnce"
!define START_MENU "$SMPROGRAMS\Scrubhaven Pro"
!define DESKTOP_SHORTCUT "$DESKTOP\Scrubhaven Pro.lnk"
; What the 95 family does with a .cmd file.
!define SCRIPT_TYPE "ScrubhavenScript"

Var Has64Bits
Var Size ; kilobytes
Var IsUpgrade

; ---- Both directions -------------------------------------------------------------------------------------------------

!macro BothDirections UN
; The 64-bit program is for the processor that it was made for; others play the 32-bit one.
Function ${UN}ChooseSystem
  StrCpy $Has64Bits 0
  ${If} ${IsNT}
  ${AndIf} ${IsNativeAMD64}
    StrCpy $Has64Bits 1
    SetRegView 64
  ${EndIf}
FunctionEnd

; Returns on the stack whether this user may write for all users. The 95 family has no rights.
Function ${UN}IsAdministrator
  Push $0
  StrCpy $0 "Admin"
  ${If} ${IsNT}
    UserInfo::GetAccountType
    Pop $0
  ${EndIf}
  ${If} $0 == "Admin"
    StrCpy $0 1
  ${Else}
    StrCpy $0 0
  ${EndIf}
  Exch $0
FunctionEnd

; A program that another user runs has no window here, but its file cannot be written.
Function ${UN}RefuseWhileRunning
  again:
  FindWindow $0 "ScrubhavenForm"
  ${If} $0 = 0
    ${IfNot} ${FileExists} "$INSTDIR\scrubhaven.exe"
      Return
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\scrubhaven.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      Return
    ${EndIf}
  ${EndIf}
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Scrubhaven Pro is running, or its file cannot be written.$\n$\n\
    Close its windows, those of other users too, and press Retry." /SD IDCANCEL IDRETRY again
  SetErrorLevel ${RUNNING}
  Quit
FunctionEnd
!macroend
!insertmacro BothDirections ""
!insertmacro BothDirections "un."

; ---- Installing ------------------------------------------------------------------------------------------------------

Function RefuseOldSystem
  ${IfNot} ${FileExists} "$SYSDIR\msvcrt.dll"
    MessageBox MB_OK|MB_ICONEXCLAMATION "Scrubhaven Pro needs the file msvcrt.dll, which this Windows lacks.$\n$\n\
      Internet Explorer 4.0 or later installs it, with all else that the program needs. \
      Please install that first. Nothing has been changed." /SD IDOK
    SetErrorLevel ${MISSING_PART}
    Quit
  ${EndIf}
  ClearErrors
  GetDLLVersion "$SYSDIR\comctl32.dll" $0 $1
  ${IfNot} ${Errors}
  ${AndIf} $0 < 0x00040047 ; 4.71
    MessageBox MB_OK|MB_ICONEXCLAMATION "Scrubhaven Pro needs the common controls (comctl32.dll) 4.71 or later; those of \
      this Windows are older.$\n$\nInternet Explorer 4.0 or later installs newer ones. \
      Please install that first. Nothing has been changed." /SD IDOK
    SetErrorLevel ${MISSING_PART}
    Quit
  ${EndIf}
FunctionEnd

; The folder of the command line, else that of the earlier version, else where programs are.
Function ChooseFolder
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  Call IsAdministrator
  Pop $0
  ${If} $0 = 0
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Scrubhaven"
    ${If} $LOCALAPPDATA == ""
      StrCpy $INSTDIR "$APPDATA\Scrubhaven"
    ${EndIf}
  ${ElseIf} $Has64Bits = 1
    StrCpy $INSTDIR "$PROGRAMFILES64\Scrubhaven"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES\Scrubhaven"
  ${EndIf}
FunctionEnd

Section "Scrubhaven Pro" SEC_PROGRAM
  SectionIn RO
  Call RefuseWhileRunning
  Call RemoveEarlierVersion

  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} $Has64Bits = 1
    File "${WORK}/app64/scrubhaven.exe"
    File "${WORK}/common/delindex.cmd"
  ${ElseIf} ${IsNT}
    File "${WORK}/app32/scrubhaven.exe"
    File "${WORK}/common/delindex.cmd"
  ${Else}
    File "${WORK}/app32/scrubhaven.exe"
    File "${WORK}/app95/delindex.cmd"
    Call RegisterScriptType
  ${EndIf}
  !include "${WORK}/install.nsh"

  SetOutPath "$INSTDIR"
  CreateDirectory "${START_MENU}"
  CreateShortCut "${START_MENU}\Scrubhaven Pro.lnk" "$INSTDIR\scrubhaven.exe"
  CreateShortCut "${START_MENU}\Help.lnk" "$INSTDIR\scrubhaven.chm"
  CreateShortCut "${START_MENU}\Remove Scrubhaven Pro.lnk" "$INSTDIR\uninstall.exe"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Scrubhaven Pro"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Velmatrix"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "URLInfoAbout" "http://www.velmatrix.example/"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\scrubhaven.exe,0"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $Size
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section /o "Desktop shortcut" SEC_DESKTOP
  SetOutPath "$INSTDIR"
  CreateShortCut "${DESKTOP_SHORTCUT}" "$INSTDIR\scrubhaven.exe"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SEC_PROGRAM} "The program, its help, and its entries in the Start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${SEC_DESKTOP} "A shortcut on the desktop."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  Call RefuseOldSystem
  Call ChooseSystem
  Call IsAdministrator
  Pop $0
  ${If} $0 = 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
  Call RefuseWhileRunning
  Call ChooseFolder
  Call ChooseDesktop
  ${If} $Has64Bits = 1
    StrCpy $Size ${SIZE_64}
  ${ElseIf} ${IsNT}
    StrCpy $Size ${SIZE_32}
  ${Else}
    StrCpy $Size ${SIZE_95}
  ${EndIf}
  SectionSetSize ${SEC_PROGRAM} $Size
FunctionEnd

; A shortcut of the earlier version is made again.
Function ChooseDesktop
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/DESKTOP" $1
  ${IfNot} ${Errors}
  ${OrIf} ${FileExists} "${DESKTOP_SHORTCUT}"
    !insertmacro SelectSection ${SEC_DESKTOP}
  ${EndIf}
FunctionEnd

; Its own uninstaller removes what it has installed, and no other file.
Function RemoveEarlierVersion
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == ""
  ${OrIfNot} ${FileExists} "$0\uninstall.exe"
    Return
  ${EndIf}
  ClearErrors
  ExecWait '"$0\uninstall.exe" /S /UPGRADE _?=$0' $1
  ${If} ${Errors}
  ${OrIf} $1 <> 0
    MessageBox MB_OK|MB_ICONEXCLAMATION "The earlier version in $0 could not be removed.$\n$\n\
      Remove it by hand, then start this setup again." /SD IDOK
    SetErrorLevel ${OLD_VERSION_STAYS}
    Quit
  ${EndIf}
  Delete "$0\uninstall.exe"
  RMDir "$0"
FunctionEnd

; Windows runs the program's entry for the next start as it would open the file, and the 95 family knows no .cmd files.
Function RegisterScriptType
  ReadRegStr $1 HKCR ".cmd" ""
  ${If} $1 == ""
    WriteRegStr HKCR ".cmd" "" "${SCRIPT_TYPE}"
    WriteRegStr HKCR "${SCRIPT_TYPE}" "" "Scrubhaven Pro restart script"
    WriteRegStr HKCR "${SCRIPT_TYPE}\shell\open\command" "" '"%1" %*'
  ${EndIf}
FunctionEnd

; ---- Removing --------------------------------------------------------------------------------------------------------

Function un.onInit
  Call un.ChooseSystem
  ${un.GetParameters} $0
  ClearErrors
  StrCpy $IsUpgrade 0
  ${un.GetOptions} $0 "/UPGRADE" $1
  ${IfNot} ${Errors}
    StrCpy $IsUpgrade 1
  ${EndIf}

  SetShellVarContext current
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != $INSTDIR
    SetShellVarContext all
    Call un.IsAdministrator
    Pop $0
    ${If} $0 = 0
      MessageBox MB_OK|MB_ICONEXCLAMATION "Scrubhaven Pro is installed for all users. Only an administrator can remove \
        it." /SD IDOK
      SetErrorLevel ${NO_RIGHTS}
      Quit
    ${EndIf}
  ${EndIf}
  Call un.RefuseWhileRunning
FunctionEnd

; Each file is removed by its name, and a folder only when nothing else is in it.
Section "Uninstall"
  ${If} $IsUpgrade = 0
    Call un.RemoveScheduledScripts
  ${EndIf}
  Call un.RemoveScriptType
  !include "${WORK}/uninstall.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"

  Delete "${START_MENU}\Scrubhaven Pro.lnk"
  Delete "${START_MENU}\Help.lnk"
  Delete "${START_MENU}\Remove Scrubhaven Pro.lnk"
  RMDir "${START_MENU}"
  Delete "${DESKTOP_SHORTCUT}"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd

; An entry for the next start whose script is no longer there would be reported as a failure.
Function un.RemoveScheduledScripts
  ReadRegStr $0 HKLM "${RUN_ONCE_KEY}" ""
  ${If} $0 == "$INSTDIR\delindex.cmd"
    DeleteRegValue HKLM "${RUN_ONCE_KEY}" ""
  ${EndIf}
  ReadRegStr $0 HKLM "${RUN_ONCE_KEY}" "Delete SVI"
  ${If} $0 == "$INSTDIR\svi.cmd"
    DeleteRegValue HKLM "${RUN_ONCE_KEY}" "Delete SVI"
  ${EndIf}
FunctionEnd

Function un.RemoveScriptType
  ReadRegStr $0 HKCR ".cmd" ""
  ${If} $0 == "${SCRIPT_TYPE}"
    DeleteRegValue HKCR ".cmd" ""
    DeleteRegKey /ifempty HKCR ".cmd"
    DeleteRegKey HKCR "${SCRIPT_TYPE}"
  ${EndIf}
FunctionEnd
