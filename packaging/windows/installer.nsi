; Installs Pirol for the user who runs it, who needs no administrator's rights. Called by packaging/windows/build with
; VERSION, FILES (the folder to install), LIST (the commands that delete its files) and OUTPUT.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user

!include MUI2.nsh
!include FileFunc.nsh

!define TYPE "Pirol.Projekt"
!define CLASSES "Software\Classes"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Pirol"

Name "Pirol"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Pirol"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1031 "ProductName" "Pirol"
VIAddVersionKey /LANG=1031 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "FileDescription" "Pirol installieren"
VIAddVersionKey /LANG=1031 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "LegalCopyright" "GNU General Public License, Version 3 oder neuer"

!define MUI_ICON "..\..\src\resources\icons\pirol.ico"
!define MUI_UNICON "..\..\src\resources\icons\pirol.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Pirol.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

; The shell reads associations once and wants to be told of a change.
!macro TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section
    SetOutPath "$INSTDIR"
    File /r "${FILES}\*"
    WriteUninstaller "$INSTDIR\Deinstallieren.exe"
    CreateShortcut "$SMPROGRAMS\Pirol.lnk" "$INSTDIR\Pirol.exe"

    ; Who opened .prl before gets it back from the uninstaller.
    ReadRegStr $0 HKCU "${CLASSES}\.prl" ""
    ${If} $0 != "${TYPE}"
        WriteRegStr HKCU "${CLASSES}\${TYPE}" "Vorher" "$0"
    ${EndIf}
    WriteRegStr HKCU "${CLASSES}\.prl" "" "${TYPE}"
    WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "Pirol-Projekt"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "$INSTDIR\Pirol.exe,0"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"$INSTDIR\Pirol.exe" "%1"'

    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Pirol"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Pirol.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Pirol"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Deinstallieren.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Deinstallieren.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
    !insertmacro TellShell
SectionEnd

Section Uninstall
    !include "${LIST}"
    Delete "$INSTDIR\Deinstallieren.exe"
    RMDir "$INSTDIR\Beispiele"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"
    RMDir /r "$LOCALAPPDATA\Pirol\Recovery" ; what Pirol keeps in case it is killed
    RMDir "$LOCALAPPDATA\Pirol"
    Delete "$SMPROGRAMS\Pirol.lnk"

    ReadRegStr $0 HKCU "${CLASSES}\.prl" ""
    ${If} $0 == "${TYPE}"
        ReadRegStr $1 HKCU "${CLASSES}\${TYPE}" "Vorher"
        ${If} $1 == ""
            DeleteRegValue HKCU "${CLASSES}\.prl" ""
            DeleteRegKey /ifempty HKCU "${CLASSES}\.prl"
        ${Else}
            WriteRegStr HKCU "${CLASSES}\.prl" "" "$1"
        ${EndIf}
    ${EndIf}
    DeleteRegKey HKCU "${CLASSES}\${TYPE}"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Pirol"
    !insertmacro TellShell
SectionEnd
