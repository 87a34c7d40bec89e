; The Windows installer: installs Scrivolt into Program Files, makes
; Start-menu shortcuts to the program and its help, and registers an
; uninstaller. Before installing or uninstalling it asks the user to close
; a running Scrivolt (the program holds the mutex "Scrivolt_Run_Check").
;
;   makensis -DSOURCE=<folder with Scrivolt.exe, Help\, README.md, LICENSE>
;            -DOUTFILE=<installer.exe> scrivolt.nsi
; A 64-bit installer for the 64-bit program.
Target amd64-unicode
!include "MUI2.nsh"

!define PRODUCT "Scrivolt"
!define VERSION "11.3.3"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Scrivolt"

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
RequestExecutionLevel admin
SetCompressor /SOLID lzma

!insertmacro MUI_PAGE_LICENSE "${SOURCE}\LICENSE"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Asks until Scrivolt is closed or the user cancels; a silent run cannot ask
; and gives up at once.
!macro WaitForScrivoltToClose
  check:
    System::Call 'kernel32::OpenMutexW(i 0x00100000, i 0, w "Scrivolt_Run_Check") p .r0'
    IntPtrCmp $0 0 free
    System::Call 'kernel32::CloseHandle(p r0)'
    IfSilent 0 +2
      Abort
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Scrivolt is running. Please close it first, then choose Retry." IDRETRY check
    Abort
  free:
!macroend

; Shortcuts go to the Start menu of all users, like the program itself.
Function .onInit
  SetShellVarContext all
  !insertmacro WaitForScrivoltToClose
FunctionEnd

Function un.onInit
  SetShellVarContext all
  !insertmacro WaitForScrivoltToClose
FunctionEnd

Section "Scrivolt"
  SetOutPath "$INSTDIR"
  File "${SOURCE}\Scrivolt.exe"
  File "${SOURCE}\README.md"
  File "${SOURCE}\LICENSE"
  File /nonfatal "${SOURCE}\Scrivolt_*.dll"
  SetOutPath "$INSTDIR\Help"
  File /nonfatal "${SOURCE}\Help\*.chm"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk" "$INSTDIR\Scrivolt.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT} Help.lnk" "$INSTDIR\Help\Scrivolt_EN.chm"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "The Scrivolt developers"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "URLInfoAbout" "https://www.scrivolt.example/"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Scrivolt.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\Scrivolt.exe"
  Delete "$INSTDIR\README.md"
  Delete "$INSTDIR\LICENSE"
  Delete "$INSTDIR\Scrivolt_*.dll"
  Delete "$INSTDIR\Help\*.chm"
  RMDir "$INSTDIR\Help"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT} Help.lnk"
  RMDir "$SMPROGRAMS\${PRODUCT}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
