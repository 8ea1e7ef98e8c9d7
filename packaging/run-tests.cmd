@echo off
rem Runs all tests beside this file and leaves report.txt here. Waits for a key at the end, so that a window which a
rem double click has opened stays; "run-tests.cmd nowait" does not.
"%~dp0run-tests.exe"
set result=%errorlevel%
if not "%~1"=="nowait" pause
exit /b %result%
