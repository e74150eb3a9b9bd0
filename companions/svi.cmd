@echo off
rem Deletes the restore points of drive C, if Windows XP is installed on it, and nothing else in their folder. Runs once
rem after a restart with System Restore switched off. Prints nothing; does nothing where the folder does not exist.
setlocal
if /i not "%SystemDrive%"=="C:" exit /b 0
if not exist "C:\System Volume Information" exit /b 0

rem Only the system account has access to the folder; the current user is granted access until the end of the script.
set OPENED=
dir /b /a "C:\System Volume Information" >nul 2>&1
if errorlevel 1 set OPENED=yes
if defined OPENED cacls "C:\System Volume Information" /e /c /g "%USERDOMAIN%\%USERNAME%":F >nul 2>&1
for /f "delims=" %%d in ('dir /b /ad "C:\System Volume Information\_restore{*}" 2^>nul') do (
  if defined OPENED cacls "C:\System Volume Information\%%d" /e /t /c /g "%USERDOMAIN%\%USERNAME%":F >nul 2>&1
  rd /s /q "C:\System Volume Information\%%d" >nul 2>&1
)
if defined OPENED cacls "C:\System Volume Information" /e /c /r "%USERDOMAIN%\%USERNAME%" >nul 2>&1
exit /b 0
