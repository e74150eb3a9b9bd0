@echo off
rem Deletes the restore points of the drive that Windows XP runs from, and nothing else in their folder. Runs once after
rem a restart with System Restore switched off. Says nothing; does nothing where the folder is not there.
rem
rem A found name is read from a loop variable only: between percent signs, in a call and in a command of "for /f" it
rem would be read as commands. Letters of loop variables are none of "adfnpstxz", which are modifiers too.
setlocal enableextensions
setlocal disabledelayedexpansion
set "DIRCMD="
set "DRIVE=%SystemDrive:"=%"
if /i not "%DRIVE%"=="C:" goto :eof
for %%w in ("C:\System Volume Information") do set "LETTERS=x%%~aw"
call :plain
if not defined PLAIN goto :eof

rem The folder lets only the system in; the user who runs this gets in for as long as it takes.
set "CACLS=%SystemRoot:"=%\system32\cacls.exe"
set "WHO=%USERDOMAIN:"=%\%USERNAME:"=%"
set "OPENED=yes"
for /f "eol=: delims=" %%g in ('dir /b /a "C:\System Volume Information" 2^>nul') do set "OPENED="
if defined OPENED "%CACLS%" "C:\System Volume Information" /e /c /g "%WHO%":F >nul 2>&1
set "SVI_PATH=C:\System Volume Information"
set "PATTERN=_restore{*}"
call :enter
if defined ENTERED call :folders
if defined OPENED "%CACLS%" "C:\System Volume Information" /e /c /r "%WHO%" >nul 2>&1
goto :eof

rem Deletes the folders PATTERN of the current folder with all that is in them. A link, and the folders that it lies in,
rem are left: "rd /s" would empty what a link leads to. A name that holds characters outside the code page can be listed
rem as a path, and then differs from its last part.
:folders
for /f "eol=: delims=" %%g in ('dir /b /ad "%PATTERN%" 2^>nul') do (
  set "SVI_PATH=%%~fg"
  set "LETTERS=x%%~ag"
  set "EMPTIED="
  call :plain
  if defined PLAIN if /i "%%~nxg"=="%%g" call :empty
  if defined EMPTIED rd "%%g" >nul 2>&1
)
goto :eof

rem Empties the folder SVI_PATH and sets EMPTIED. What is left of its folders may be a link, which cacls would follow.
:empty
if defined OPENED for /f "tokens=1* delims==" %%i in ('set SVI_PATH') do if "%%i"=="SVI_PATH" "%CACLS%" "%%j" /e /c /g "%WHO%":F >nul 2>&1
call :enter
if not defined ENTERED goto :eof
set "PATTERN=*"
call :folders
set "LEFT="
for /f "eol=: delims=" %%g in ('dir /b /ad 2^>nul') do set "LEFT=yes"
if defined OPENED if not defined LEFT "%CACLS%" * /e /c /g "%WHO%":F >nul 2>&1
del /f /q /a * >nul 2>&1
popd
set "EMPTIED=yes"
goto :eof

rem Makes the folder SVI_PATH the current one, and sets ENTERED when it is. The path is looked at, because not every
rem interpreter gives pushd an exit code.
:enter
set "ENTERED="
for /f "tokens=1* delims==" %%i in ('set SVI_PATH') do if "%%i"=="SVI_PATH" pushd "%%j" 2>nul
for /f "tokens=1* delims==" %%i in ('set SVI_PATH') do for %%w in (.) do if /i "%%~fw"=="%%j" set "ENTERED=yes"
goto :eof

rem Sets PLAIN when LETTERS, an x and the attributes, belong to something that is there and is not a link, which the
rem ninth letter tells.
:plain
set "PLAIN="
if "%LETTERS%"=="x" goto :eof
if not "%LETTERS:~9,1%"=="l" set "PLAIN=yes"
goto :eof
