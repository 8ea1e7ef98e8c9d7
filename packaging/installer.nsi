; The installer. It installs for the user who runs it, without administrator rights, into a folder that this user may
; write to.
; package.sh gives it VERSION, SOURCE (the filled folder), ICON, PICTURE (beside the last page) and OUTPUT.

; 64-bit, because the program runs nowhere else.
Target amd64-unicode
!include "MUI2.nsh"
!include "FileFunc.nsh"

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Plotvane"

Name "Plotvane ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Plotvane"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma
BrandingText " "

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartInItsFolder
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\manual.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Read the manual"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Plotvane will be removed. Your settings, logs and labels stay in this folder: \
  Scaling, LOGS and labels."
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program can be neither replaced nor removed. Its mutex shows that it runs, as it does to a second copy. A
; silent run (/S) then does nothing, and its exit status is 2.
!macro RefuseWhileItRuns
  again:
    System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "Grafell-Running") p .r0'
    StrCmp $0 0 closed
    System::Call 'kernel32::CloseHandle(p r0)'
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "Plotvane is running. Please close it, then press OK." /SD IDCANCEL IDOK again
    SetErrorLevel 2
    Quit
  closed:
!macroend

Function .onInit
  !insertmacro RefuseWhileItRuns
FunctionEnd

Function un.onInit
  !insertmacro RefuseWhileItRuns
FunctionEnd

; The program keeps settings, logs and labels in the folder in which it is started.
Function StartInItsFolder
  SetOutPath "$INSTDIR"
  Exec '"$INSTDIR\plotvane.exe"'
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  SetOverwrite on
  File "${SOURCE}/plotvane.exe"
  File "${SOURCE}/manual.html"
  File "${SOURCE}/CHANGES.txt"

  ; What the user has changed stays as it is. The program makes the folder Scaling itself.
  SetOverwrite off
  SetOutPath "$INSTDIR\LOGS"
  File "${SOURCE}/LOGS/*"
  SetOutPath "$INSTDIR\labels"
  File "${SOURCE}/labels/*"

  ; The entry starts the program in the current output folder.
  SetOutPath "$INSTDIR"
  CreateShortCut "$SMPROGRAMS\Plotvane.lnk" "$INSTDIR\plotvane.exe"
  CreateShortCut "$SMPROGRAMS\Plotvane manual.lnk" "$INSTDIR\manual.html"
  CreateShortCut "$SMPROGRAMS\Plotvane logs.lnk" "$INSTDIR\LOGS"

  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${KEY}" "DisplayName" "Plotvane"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "Publisher" "The Plotvane developers"
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2 ; in KB
  WriteRegDWORD HKCU "${KEY}" "EstimatedSize" $0
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\plotvane.exe"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

; Scaling, LOGS and labels hold the user's work: they stay, and so does the folder around them.
Section "Uninstall"
  Delete "$INSTDIR\plotvane.exe"
  Delete "$INSTDIR\manual.html"
  Delete "$INSTDIR\CHANGES.txt"
  Delete "$INSTDIR\uninstall.exe"
  Delete "$SMPROGRAMS\Plotvane.lnk"
  Delete "$SMPROGRAMS\Plotvane manual.lnk"
  Delete "$SMPROGRAMS\Plotvane logs.lnk"
  DeleteRegKey HKCU "${KEY}"
  RMDir "$INSTDIR"
SectionEnd
