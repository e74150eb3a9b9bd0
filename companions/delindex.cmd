@echo off
rem Deletes the index files of Internet Explorer's cache, cookies and history of every profile, and nothing else. Runs
rem once after a restart, before anything holds them open. Says nothing; does nothing where the folders are not there.
rem Names go to the routines in variables: as arguments of a call they would be read a second time. Routines end with
rem "goto :eof", because "exit /b" ends the whole interpreter on NT 4.
setlocal

rem Beside the profile of all users stand the others, whatever the system's drive and language. A drive's root is no
rem place for profiles.
set "PARENT="
if defined ALLUSERSPROFILE for %%d in ("%ALLUSERSPROFILE%\..") do if not "%%~nxd"=="" set "PARENT=%%~fd"
if defined PARENT call :profiles
set "PARENT=C:\Documents and Settings"
call :profiles
set "PARENT=C:\WINNT\Profiles"
call :profiles
rem A system that was upgraded from the 95 family keeps that one's folders.
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
