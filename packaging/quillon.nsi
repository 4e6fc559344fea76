; Quillon's installer: for one user, without an administrator. ./package passes
;   VERSION, TARGET (which of NSIS' stubs), STAGE (folder with all that is installed), OUTPUT, SOURCE (ours),
;   KILOBYTES, and WORK (folder with the side picture and remove.nsh, which removes just what is installed).
Unicode true
Target ${TARGET}
SetCompressor /SOLID lzma
Name "Quillon"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Quillon"
InstallDirRegKey HKCU "Software\Quillon" "InstallDir"
ManifestSupportedOS all
ManifestDPIAware true
BrandingText "Quillon ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Quillon"
VIAddVersionKey "FileDescription" "Quillon Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT License"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon"
!define USER_DATA "$APPDATA\Quillon"

!include MUI2.nsh
!define MUI_ICON "${SOURCE}/src/win32/Quillon.ico"
!define MUI_UNICON "${SOURCE}/src/win32/Quillon.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Quillon.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Quillon now"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${WORK}/side.bmp"
!define MUI_UNTEXT_COMPONENTS_SUBTITLE "Your own files are kept unless you choose otherwise."
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_PAGE_CUSTOMFUNCTION_SHOW un.HideSpaceNeeded
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; The uninstaller's page would claim to need 0 KB.
Function un.HideSpaceNeeded
  !define SPACE_NEEDED_ID 1023
  FindWindow $0 "#32770" "" $HWNDPARENT
  GetDlgItem $0 $0 ${SPACE_NEEDED_ID}
  ShowWindow $0 ${SW_HIDE}
FunctionEnd

; A running program's file cannot be opened for writing. A silent run then exits with code 2.
!macro StopWhileQuillonRuns
  tryAgain:
  IfFileExists "$INSTDIR\Quillon.exe" 0 free
  ClearErrors
  FileOpen $0 "$INSTDIR\Quillon.exe" a
  IfErrors 0 closeIt
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
    "Quillon is running, so its files cannot be replaced or removed.$\n$\nClose it, then choose Retry." \
    /SD IDCANCEL IDRETRY tryAgain
  SetErrorLevel 2
  Abort "Quillon is running."
  closeIt:
  FileClose $0
  free:
!macroend

Section "Quillon"
  SetShellVarContext current
  !insertmacro StopWhileQuillonRuns

  ; First remove an older version: everything but the user's data.
  IfFileExists "$INSTDIR\uninstall.exe" 0 +2
  ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'

  ; What the user has deleted stays deleted; Quillon itself offers to create what it needs.
  IfFileExists "${USER_DATA}\*.*" hasData
  SetOutPath "${USER_DATA}"
  File /r "${STAGE}/starter/*"
  hasData:
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Quillon.lnk" "$INSTDIR\Quillon.exe" "" "" "" SW_SHOWNORMAL "" \
    "Air traffic control feeds for your simulator's radio"
  CreateShortcut "$SMPROGRAMS\Quillon Help.lnk" "$INSTDIR\help\index.html"

  WriteRegStr HKCU "Software\Quillon" "InstallDir" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quillon"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Quillon developers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Quillon.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "un.Quillon" un_program
  SectionIn RO
  SetShellVarContext current
  !insertmacro StopWhileQuillonRuns
  !include "${WORK}/remove.nsh"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP" ; the folder to be removed must not be the current one
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Quillon.lnk"
  Delete "$SMPROGRAMS\Quillon Help.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\Quillon"
SectionEnd

Section /o "un.My feeds, recordings and settings" un_data
  RMDir /r "${USER_DATA}"
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${un_program} "The program and its help pages."
  !insertmacro MUI_DESCRIPTION_TEXT ${un_data} "Everything in ${USER_DATA}. This cannot be undone."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
