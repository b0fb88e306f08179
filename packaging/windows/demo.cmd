@echo off
rem A company of its own, thrown away in the end, and the component at work on it.
chcp 65001 >nul
"%~dp0cuvexa.exe" demo %*
pause
