@echo off
rem Registers the control of this folder.
rem   register.cmd         for every user of this machine; needs an administrator
rem   register.cmd user    for the current user alone
setlocal
set tool=%SystemRoot%\System32\regsvr32.exe
if "@BITS@"=="32" if exist %SystemRoot%\SysWOW64\regsvr32.exe set tool=%SystemRoot%\SysWOW64\regsvr32.exe
if /i "%1"=="user" (
    %tool% /s /n /i:user "%~dp0ORVFilter.ocx"
) else (
    %tool% /s "%~dp0ORVFilter.ocx"
)
if errorlevel 1 (
    echo ORVFilter.ocx could not be registered.
    exit /b 1
)
echo ORVFilter.ocx is registered.
