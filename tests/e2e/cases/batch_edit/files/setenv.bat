@echo off
rem Velmora sample: the variables a deployment script tests
set TARGETDIR=C:\Program Files\Sample
    SET Path = C:\DOS
setup=yes
echo done
