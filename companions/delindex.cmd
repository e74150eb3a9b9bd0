@echo off
rem Deletes the index files of Internet Explorer's cache, cookies and history of every profile, and nothing else. Runs
rem once after a restart, before anything holds them open. Says nothing; does nothing where the folders are not there.
rem
rem A found name is read from a loop variable only: between percent signs, in a call and in a command of "for /f" it
rem would be read as commands. Letters of loop variables are none of "adfnpstxz", which are modifiers too. Each change of
rem folder is checked by name, because not every interpreter gives pushd an exit code. No program is started. Routines
rem end with "goto :eof", because "exit /b" ends the whole interpreter on NT 4.
setlocal enableextensions
rem NT 4 does not know the word, and has no such expansion.
setlocal disabledelayedexpansion 2>nul
set "DIRCMD="

rem Beside the profile of all users stand the others, whatever the system's drive and language.
if not defined ALLUSERSPROFILE goto :fixed
set "ALLUSERSPROFILE=%ALLUSERSPROFILE:"=%"
for /f "tokens=1* delims==" %%i in ('set ALLUSERSPROFILE') do (
  if /i "%%i"=="ALLUSERSPROFILE" (
    pushd "%%~fj" 2>nul && for %%w in (.) do if /i "%%~fw"=="%%~fj" call :beside
  )
)
:fixed
rem A system that was upgraded from the 95 family keeps that one's folders.
for %%g in ("C:\Documents and Settings" "C:\WINNT\Profiles" "C:\WINDOWS\Profiles") do (
  pushd %%g 2>nul && for %%w in (.) do if /i "%%~fw"=="%%~fg" call :profiles
)
pushd C:\WINDOWS 2>nul && for %%w in (.) do if /i "%%~fw"=="C:\WINDOWS" call :profile
goto :eof

rem Each of these routines works in the current folder and leaves it with popd.
rem A drive's root is no place for profiles.
:beside
cd ..
set "ROOT="
for %%w in (.) do if "%%~nxw"=="" set "ROOT=yes"
if not defined ROOT goto :profiles
popd
goto :eof

rem A name that holds characters outside the code page can be listed as a path.
:profiles
for /f "eol=: delims=" %%g in ('dir /b /ad 2^>nul') do (
  set "LETTERS=x%%~ag"
  call :plain
  if defined PLAIN if /i "%%~nxg"=="%%g" (
    pushd "%%g" 2>nul && for %%w in (.) do if /i "%%~nxw"=="%%g" call :profile
  )
)
popd
goto :eof

:profile
for %%g in ("Cookies" "Temporary Internet Files\Content.IE5" "Local Settings\Temporary Internet Files\Content.IE5") do (
  if exist %%g (
    pushd %%g 2>nul && for %%w in (.) do if /i "%%~nxw"=="%%~nxg" call :folder
  )
)
for %%g in ("History\History.IE5" "Local Settings\History\History.IE5") do (
  if exist %%g (
    pushd %%g 2>nul && for %%w in (.) do if /i "%%~nxw"=="%%~nxg" call :history
  )
)
popd
goto :eof

:history
for /f "eol=: delims=" %%g in ('dir /b /ad MSHist01* 2^>nul') do (
  set "LETTERS=x%%~ag"
  call :plain
  if defined PLAIN if /i "%%~nxg"=="%%g" (
    pushd "%%g" 2>nul && for %%w in (.) do if /i "%%~nxw"=="%%g" call :folder
  )
)

rem Deletes the file index.dat, unless it or a folder on the way to it is a link. "del" would empty a folder of that
rem name, and without the pattern "dir" would list what is in it.
:folder
set "KEPT=yes"
if exist index.dat for /f "delims=" %%g in ('dir /b /a-d index.dat* 2^>nul') do if /i "%%g"=="index.dat" set "KEPT="
for %%w in (index.dat) do set "LETTERS=x%%~aw"
set "STEP=."
:up
call :plain
if not defined PLAIN set "KEPT=yes"
set "ROOT="
for %%w in ("%STEP%") do if "%%~nxw"=="" set "ROOT=yes"
for %%w in ("%STEP%") do set "LETTERS=x%%~aw"
set "STEP=%STEP%\.."
if not defined KEPT if not defined ROOT goto :up
if not defined KEPT del /f /q /a index.dat >nul 2>&1
popd
goto :eof

rem Sets PLAIN when LETTERS, an x and the attributes, belong to something that is there and is not a link, which the
rem ninth letter tells. NT 4 has neither those letters nor links.
:plain
set "PLAIN="
if "%LETTERS%"=="x" goto :eof
if not "%LETTERS:~9,1%"=="l" set "PLAIN=yes"
goto :eof
