; The Velmora installer. tools/package.sh stages the files and runs:
;
;   makensis -DVERSION=1.0.0 -DVERSION4=1.0.0.0 -DPRODUCT=Velmora -DCOMPANY="Velmora Software"
;            -DSTAGE=<staged folder> -DOUTFILE=<setup.exe> velmora.nsi
;
; Pages: welcome, licence, install folder, components, progress, finish.
; /S installs silently, /D=<folder> (last, unquoted) chooses the folder.
; The uninstaller removes the files it installed, the shortcuts, the .vls
; file type (which velmora.exe also writes on every start) and its own
; entry; it asks before removing the stored settings, and keeps them when
; silent.
Unicode true
Target amd64-unicode
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!macro REQUIRE name
  !ifndef ${name}
    !error "Define ${name} (tools/package.sh passes it)"
  !endif
!macroend
!insertmacro REQUIRE VERSION
!insertmacro REQUIRE VERSION4
!insertmacro REQUIRE PRODUCT
!insertmacro REQUIRE COMPANY
!insertmacro REQUIRE STAGE
!insertmacro REQUIRE OUTFILE

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
; Where the editor and the batch editor keep their settings.
!define SETTINGS_KEY "Software\${COMPANY}\${PRODUCT}"
; The file type, named after the program file as velmora.exe names it.
!define PROG_ID "velmora"
!define STARTMENU "$SMPROGRAMS\${PRODUCT}"

Name "${PRODUCT}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
; An update goes where the last installation went.
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
; Program Files, the file type and the uninstall entry are machine-wide.
RequestExecutionLevel admin
SetDateSave off
SetCompressor /SOLID lzma
BrandingText "${PRODUCT} ${VERSION}"

VIProductVersion "${VERSION4}"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey CompanyName "${COMPANY}"
VIAddVersionKey FileDescription "${PRODUCT} ${VERSION} Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Copyright (C) 2026 ${COMPANY}"

!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${STAGE}\LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

Function .onInit
  SetShellVarContext all
FunctionEnd

Function un.onInit
  SetShellVarContext all
FunctionEnd

Section "${PRODUCT}" SecProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  File "${STAGE}\velmora.exe"
  File "${STAGE}\velmora-check.exe"
  File "${STAGE}\wintree.exe"
  File "${STAGE}\LICENSE.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  WriteRegStr HKCR ".vls" "" "${PROG_ID}"
  WriteRegStr HKCR "${PROG_ID}" "" "${PRODUCT} Script file"
  WriteRegStr HKCR "${PROG_ID}\shell\open\command" "" '"$INSTDIR\velmora.exe" "%1"'
  WriteRegStr HKCR "${PROG_ID}\DefaultIcon" "" "$INSTDIR\velmora.exe,0"

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${COMPANY}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\velmora.exe,0"
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Help" SecHelp
  SetOutPath "$INSTDIR"
  File "${STAGE}\Velmora.chm"
SectionEnd

Section "Samples" SecSamples
  ; Beside velmora.exe, where install.vls looks for the sample setup first.
  SetOutPath "$INSTDIR"
  File "${STAGE}\install.vls"
  File "${STAGE}\install.bat"
  File "${STAGE}\velmora-sample-setup.exe"
SectionEnd

Section "User guide" SecGuide
  SetOutPath "$INSTDIR\Docs"
  File "${STAGE}\Docs\*.md"
  File "${STAGE}\Docs\*.png"
SectionEnd

Section "Start menu shortcuts" SecShortcuts
  CreateDirectory "${STARTMENU}"
  CreateShortcut "${STARTMENU}\${PRODUCT}.lnk" "$INSTDIR\velmora.exe"
  ${If} ${FileExists} "$INSTDIR\Velmora.chm"
    CreateShortcut "${STARTMENU}\${PRODUCT} Help.lnk" "$INSTDIR\Velmora.chm"
  ${EndIf}
  CreateShortcut "${STARTMENU}\Uninstall ${PRODUCT}.lnk" "$INSTDIR\uninstall.exe"
SectionEnd

; Last, when every chosen file is in place.
Section "-Size"
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
  ; Explorer shows the new file type's icon at once.
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "velmora.exe (player and script editor), velmora-check.exe (script checker) and wintree.exe (window tree)."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecHelp} "The help file, Velmora.chm, that F1 and the Velmora menu open."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecSamples} "A sample script, its batch file and the sample setup program it installs."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecGuide} "The user guide, the script reference and the guide to deploying, as text (Markdown) in the Docs folder."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecShortcuts} "Velmora, its help and its uninstaller in the Start menu."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Only what the installer put there: files of the user's own in the folder
; keep it (and themselves).
Section "Uninstall"
  ; A running velmora.exe cannot be deleted: nothing is removed until it is closed.
  retry:
  ClearErrors
  Delete "$INSTDIR\velmora.exe"
  ${If} ${Errors}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Velmora is running ($INSTDIR\velmora.exe). Close it, then choose Retry." /SD IDCANCEL IDRETRY retry
    Abort "Velmora is running; nothing was uninstalled."
  ${EndIf}
  Delete "$INSTDIR\velmora-check.exe"
  Delete "$INSTDIR\wintree.exe"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\Velmora.chm"
  Delete "$INSTDIR\install.vls"
  Delete "$INSTDIR\install.bat"
  Delete "$INSTDIR\velmora-sample-setup.exe"
  Delete "$INSTDIR\Docs\*.md"
  Delete "$INSTDIR\Docs\*.png"
  RMDir "$INSTDIR\Docs"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"

  Delete "${STARTMENU}\${PRODUCT}.lnk"
  Delete "${STARTMENU}\${PRODUCT} Help.lnk"
  Delete "${STARTMENU}\Uninstall ${PRODUCT}.lnk"
  RMDir "${STARTMENU}"

  ; .vls may have been given to another program since.
  ReadRegStr $0 HKCR ".vls" ""
  ${If} $0 == "${PROG_ID}"
    DeleteRegKey HKCR ".vls"
  ${EndIf}
  DeleteRegKey HKCR "${PROG_ID}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

  MessageBox MB_YESNO|MB_ICONQUESTION "Remove your ${PRODUCT} settings as well (the editor's and the batch editor's last files and window places)?" /SD IDNO IDNO keep_settings
    DeleteRegKey HKCU "${SETTINGS_KEY}"
    DeleteRegKey /ifempty HKCU "Software\${COMPANY}"
  keep_settings:
SectionEnd
