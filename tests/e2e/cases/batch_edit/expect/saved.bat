@echo off
rem Velmora sample: the variables a deployment script tests
set TARGETDIR=C:\Program Files\Sample
set Path=C:\BIN
setup=yes
echo done
