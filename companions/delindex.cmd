@echo off
rem Deletes the index files of Internet Explorer's cache, cookies and history in every profile, and nothing else. Runs
rem once after a restart, before any program has opened them. Prints nothing; skips folders that do not exist.
rem Routines get names in variables, because "call" would expand percent signs in arguments a second time. They end
rem with "goto :eof", because "exit /b" ends the whole interpreter on NT 4.
setlocal

rem All profiles are in the folder that contains ALLUSERSPROFILE, whatever the system drive and language. A drive's
rem root is skipped.
set "PARENT="
if defined ALLUSERSPROFILE for %%d in ("%ALLUSERSPROFILE%\..") do if not "%%~nxd"=="" set "PARENT=%%~fd"
if defined PARENT call :profiles
set "PARENT=C:\Documents and Settings"
call :profiles
set "PARENT=C:\WINNT\Profiles"
call :profiles
rem A system upgraded from Windows 95, 98 or Me may still have these folders.
set "PARENT=C:\WINDOWS\Profiles"
call :profiles
set "PROFILE=C:\WINDOWS"
call :profile
goto :eof

:profiles
for /f "delims=" %%p in ('dir /b /ad "%PARENT%" 2^>nul') do (
  set "PROFILE=%PARENT%\%%p"
  call :profile
)
goto :eof

:profile
set "FOLDER=%PROFILE%\Cookies"
call :index
set "FOLDER=%PROFILE%\Temporary Internet Files\Content.IE5"
call :index
set "FOLDER=%PROFILE%\Local Settings\Temporary Internet Files\Content.IE5"
call :index
set "HISTORY=%PROFILE%\History\History.IE5"
call :history
set "HISTORY=%PROFILE%\Local Settings\History\History.IE5"
call :history
goto :eof

:history
set "FOLDER=%HISTORY%"
call :index
for /f "delims=" %%h in ('dir /b /ad "%HISTORY%\MSHist01*" 2^>nul') do (
  set "FOLDER=%HISTORY%\%%h"
  call :index
)
goto :eof

:index
if not exist "%FOLDER%\index.dat" goto :eof
attrib -r -h -s "%FOLDER%\index.dat" >nul 2>&1
del /f /q "%FOLDER%\index.dat" >nul 2>&1
goto :eof
