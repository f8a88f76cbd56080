@echo off
rem Installs the sample unattended; install.vls reads TARGETDIR.
set TARGETDIR=C:\Velmora Sample
set SPEED_FACTOR=1
velmora.exe "install.vls" install.vld
