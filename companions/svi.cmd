@echo off
rem Deletes the restore points of the drive that Windows XP runs from, and nothing else in their folder. Runs once after
rem a restart with System Restore switched off. Says nothing; does nothing where the folder is not there.
setlocal
if /i not "%SystemDrive%"=="C:" exit /b 0
if not exist "C:\System Volume Information" exit /b 0

rem The folder lets only the system in; the user who runs this gets in for as long as it takes.
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
