; Installs Pirol for the user who runs it, who needs no administrator's rights. Called by packaging/windows/build with
; VERSION, FILES (the folder to install), LIST (the commands that delete its files) and OUTPUT.
;
; Pirol itself starts a newer setup with the one argument "/UPDATE=PROJECT". Then nobody is asked anything: the setup waits
; for Pirol's end, installs over it, and starts it again with the project, if there is one.
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
!define MUI_PAGE_CUSTOMFUNCTION_PRE NotWhenUpdating
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_PRE NotWhenUpdating
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

; The shell reads associations once and wants to be told of a change.
!macro TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Var Updating
Var Project

; An argument in quotes is one of Pirol's; it never ends in a backslash, because it is a file.
Function .onInit
    StrCpy $Updating 0
    ${GetParameters} $0
    StrCpy $1 $0 9
    ${If} $1 == '"/UPDATE='
        StrCpy $Updating 1
        StrCpy $Project $0 "" 9
        StrCpy $Project $Project -1
        SetAutoClose true
    ${EndIf}
FunctionEnd

Function NotWhenUpdating
    ${If} $Updating == 1
        Abort
    ${EndIf}
FunctionEnd

; Whatever came of it, the user gets Pirol back, the new one or the old one.
Function StartAgain
    ${If} $Updating == 1
    ${AndIf} ${FileExists} "$INSTDIR\Pirol.exe"
        SetOutPath "$PROFILE"
        ${If} $Project == ""
            Exec '"$INSTDIR\Pirol.exe"'
        ${Else}
            Exec '"$INSTDIR\Pirol.exe" "$Project"'
        ${EndIf}
    ${EndIf}
FunctionEnd

Function .onInstSuccess
    Call StartAgain
FunctionEnd

Function .onInstFailed
    Call StartAgain
FunctionEnd

; A running program cannot be written to. Half a minute is long enough for one that is ending.
Function WaitForPirol
    StrCpy $0 0
    ${DoWhile} ${FileExists} "$INSTDIR\Pirol.exe"
        ClearErrors
        FileOpen $1 "$INSTDIR\Pirol.exe" a
        ${IfNot} ${Errors}
            FileClose $1
            ${ExitDo}
        ${EndIf}
        IntOp $0 $0 + 1
        ${If} $0 > 120
            MessageBox MB_OK|MB_ICONEXCLAMATION "Pirol läuft noch und lässt sich nicht ersetzen. Beenden Sie alle Fenster von \
Pirol, und suchen Sie noch einmal nach der neuen Version." /SD IDOK
            Abort
        ${EndIf}
        Sleep 250
    ${Loop}
FunctionEnd

Section
    ${If} $Updating == 1
        Call WaitForPirol
    ${EndIf}
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
    RMDir /r "$LOCALAPPDATA\Pirol\update" ; what was loaded of newer versions
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
