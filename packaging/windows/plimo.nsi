; The installer: for one user, without the rights of an administrator. Run by scripts/package-windows, which defines
; VERSION, SOURCE (the folder of the files to be installed) and OUTPUT.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include FileFunc.nsh

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Plimo"
!define APPLICATION "Software\Classes\Applications\plimo.exe"
; The program's files, which are the user's: never touched.
!define DATA "$APPDATA\Plimo"

Name "Plimo!"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Plimo"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation
BrandingText "Plimo! ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Plimo!"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Plimo! setup"
VIAddVersionKey CompanyName "The Plimo! team"
VIAddVersionKey LegalCopyright "The Plimo! team. GNU General Public License, version 3."

!define MUI_ICON "${SOURCE}\plimo.ico"
!define MUI_UNICON "${SOURCE}\plimo.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\plimo.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS '--folder $\"${DATA}$\"'
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; The lists of programs and their icons have changed.
!macro NotifyShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section "Plimo!"
  SetOutPath "$INSTDIR"
  File "${SOURCE}\plimo.exe"
  File "${SOURCE}\LICENSE.txt"
  File "${SOURCE}\README.txt"
  File "${SOURCE}\CHANGELOG.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  ; The folder that a shortcut starts in is the one that is current when it is created.
  SetOutPath "${DATA}"
  CreateShortcut "$SMPROGRAMS\Plimo!.lnk" "$INSTDIR\plimo.exe" '--folder "${DATA}"' "$INSTDIR\plimo.exe" 0 SW_SHOWNORMAL \
    "" "Sort MP3 files by artist, build playlists and play them"
  SetOutPath "$INSTDIR"

  ; "Open with" for playlists. What opens them by default stays the user's choice.
  WriteRegStr HKCU "${APPLICATION}" FriendlyAppName "Plimo!"
  WriteRegStr HKCU "${APPLICATION}\DefaultIcon" "" '"$INSTDIR\plimo.exe",0'
  WriteRegStr HKCU "${APPLICATION}\SupportedTypes" ".m3u" ""
  WriteRegStr HKCU "${APPLICATION}\shell\open\command" "" '"$INSTDIR\plimo.exe" --folder "${DATA}" "%1"'
  WriteRegStr HKCU "Software\Classes\.m3u\OpenWithList\plimo.exe" "" ""

  WriteRegStr HKCU "${UNINSTALL}" DisplayName "Plimo!"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\plimo.exe"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "The Plimo! team"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL}" EstimatedSize $0
  !insertmacro NotifyShell
SectionEnd

Section "Uninstall"
  Delete "$INSTDIR\plimo.exe"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\CHANGELOG.txt"
  Delete "$INSTDIR\uninstall.exe"
  ; Only if they are empty: what is in them else is the user's.
  RMDir "$INSTDIR"
  RMDir "${DATA}"
  Delete "$SMPROGRAMS\Plimo!.lnk"
  DeleteRegKey HKCU "${APPLICATION}"
  DeleteRegKey HKCU "Software\Classes\.m3u\OpenWithList\plimo.exe"
  DeleteRegKey /ifempty HKCU "Software\Classes\.m3u\OpenWithList"
  DeleteRegKey /ifempty HKCU "Software\Classes\.m3u"
  DeleteRegKey HKCU "${UNINSTALL}"
  !insertmacro NotifyShell
SectionEnd
