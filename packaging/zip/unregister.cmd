@echo off
rem Takes the registration of the control of this folder away again.
rem   unregister.cmd         that of the machine; needs an administrator
rem   unregister.cmd user    that of the current user
setlocal
set tool=%SystemRoot%\System32\regsvr32.exe
if "@BITS@"=="32" if exist %SystemRoot%\SysWOW64\regsvr32.exe set tool=%SystemRoot%\SysWOW64\regsvr32.exe
if /i "%1"=="user" (
    %tool% /s /u /n /i:user "%~dp0ORVFilter.ocx"
) else (
    %tool% /s /u "%~dp0ORVFilter.ocx"
)
if errorlevel 1 (
    echo ORVFilter.ocx could not be unregistered.
    exit /b 1
)
echo ORVFilter.ocx is not registered any more.
