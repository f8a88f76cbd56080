; The sample installer that samples/install.vls installs unattended.
;
;   makensis -DHELLO_EXE=<path of velmora-hello.exe> -DOUTFILE=<setup.exe> velmora-sample.nsi
;
; The pages a user clicks through: welcome, licence, install folder,
; components, progress, finish. It installs readme.txt and velmora-hello.exe,
; and the optional component "Extra notes" adds notes.txt. Per-user (no
; administrator rights), 64-bit.
Unicode true
Target amd64-unicode
!include MUI2.nsh

!ifndef HELLO_EXE
  !error "Define HELLO_EXE: the path of velmora-hello.exe"
!endif
!ifndef OUTFILE
  !define OUTFILE "velmora-sample-setup.exe"
!endif

Name "Velmora Sample"
OutFile "${OUTFILE}"
InstallDir "$LOCALAPPDATA\Velmora Sample"
RequestExecutionLevel user
; Same bytes from the same input.
SetDateSave off
SetCompressor /SOLID lzma
BrandingText "Velmora sample installer"

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "license.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_LANGUAGE "English"

Section "Program" SecProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  File "readme.txt"
  File "/oname=velmora-hello.exe" "${HELLO_EXE}"
SectionEnd

Section "Extra notes" SecNotes
  SetOutPath "$INSTDIR"
  File "notes.txt"
SectionEnd
