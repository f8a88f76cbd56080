@echo off
  SET A = 1
setup=1set =x
SET B=
set C=a=b
