; The installer for all users of a machine. The folder of a program that may run as a service must not be writable to
; everybody: whoever could replace its files there would own the machine. So it is Program Files and needs an
; administrator; without one, the zip does as well.
; VERSION, ICON, LISTS (what bundle.py has gathered) and OUTPUT are given on the command line. "/S" asks nothing,
; "/D=FOLDER" as the last word names the folder. "Uninstall.exe /FILES" removes the files only, for a newer version.

Unicode true
Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh
!include "${LISTS}"

!define PRODUCT "Kalvenor Pro"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}" ; the program looks there as well
!define SERVICE_KEY "SYSTEM\CurrentControlSet\Services\KalvenorPro"
!define EVENT_KEY "SYSTEM\CurrentControlSet\Services\EventLog\Application\KalvenorPro"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"

Name "${PRODUCT}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ManifestDPIAware true
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English" ; of two the one of the system; the first where it is neither
!insertmacro MUI_LANGUAGE "German"

LangString TooOld ${LANG_ENGLISH} "${PRODUCT} needs Windows 10 or later."
LangString TooOld ${LANG_GERMAN} "${PRODUCT} benötigt Windows 10 oder neuer."
LangString StillRuns ${LANG_ENGLISH} "${PRODUCT} is running, or its service is. Please end it first, then try again."
LangString StillRuns ${LANG_GERMAN} "${PRODUCT} läuft noch, als Programm oder als Dienst. Bitte beenden Sie es zuerst und versuchen Sie es dann noch einmal."
LangString OldStays ${LANG_ENGLISH} "The installed version could not be removed. Nothing was changed."
LangString OldStays ${LANG_GERMAN} "Die vorhandene Version konnte nicht entfernt werden. Es wurde nichts geändert."
LangString ServiceStays ${LANG_ENGLISH} "The service could not be removed. Try again?"
LangString ServiceStays ${LANG_GERMAN} "Der Dienst konnte nicht entfernt werden. Noch einmal versuchen?"

; A running program's file cannot be opened for writing. Nothing has been changed when this ends the installation.
!macro RefuseWhileRuns UN
Function ${UN}refuseWhileRuns
    ${For} $R0 1 2
        StrCpy $R1 "$INSTDIR\Kalvenor.exe"
        ${If} $R0 = 2
            StrCpy $R1 "$INSTDIR\kalvenor-run.exe"
        ${EndIf}
        ${DoWhile} ${FileExists} "$R1"
            ClearErrors
            FileOpen $R2 "$R1" a
            ${IfNot} ${Errors}
                FileClose $R2
                ${ExitDo}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(StillRuns)" /SD IDCANCEL IDCANCEL`
                Abort
            ${EndIf}
        ${Loop}
    ${Next}
FunctionEnd
!macroend
!insertmacro RefuseWhileRuns ""
!insertmacro RefuseWhileRuns "un."

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "$(TooOld)" /SD IDOK
        Quit
    ${EndIf}
FunctionEnd

; Another version's files, by that version's own list. What belongs to the place (service, autostart) stays when the new
; one takes the same place.
Function removeInstalled
    ReadRegStr $R0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${IfNot} ${FileExists} "$R0\Uninstall.exe"
        Return
    ${EndIf}
    StrCpy $R1 "/FILES"
    ${If} $R0 != $INSTDIR
        StrCpy $R1 ""
    ${EndIf}
    ClearErrors
    ExecWait '"$R0\Uninstall.exe" /S $R1 _?=$R0' $R2 ; with the last word it runs where it is, and can be waited for
    ${If} ${Errors}
    ${OrIf} $R2 <> 0
        MessageBox MB_OK|MB_ICONSTOP "$(OldStays)" /SD IDOK
        Abort
    ${EndIf}
    Delete "$R0\Uninstall.exe"
    RMDir "$R0"
FunctionEnd

Section
    SetShellVarContext all
    Call refuseWhileRuns
    Call removeInstalled
    !insertmacro PutFiles
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\Kalvenor.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Kalvenor.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize 0 $R0
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $R0
SectionEnd

; Stops the service and waits up to 30 seconds until its process has gone, as it finishes the present file first. If that
; takes longer, refuseWhileRuns asks for another try.
Function un.stopService
    ReadRegStr $R0 HKLM "${SERVICE_KEY}" "ImagePath"
    ${If} $R0 == '"$INSTDIR\Kalvenor.exe" STARTSERVICE'
        nsExec::Exec '"$SYSDIR\net.exe" stop KalvenorPro'
        Pop $R0
        ${For} $R0 1 60
            ClearErrors
            FileOpen $R1 "$INSTDIR\Kalvenor.exe" a
            ${IfNot} ${Errors}
                FileClose $R1
                ${ExitFor}
            ${EndIf}
            Sleep 500
        ${Next}
    ${EndIf}
FunctionEnd

; Without a window the program asks nothing.
Function un.removeService
    ${Do}
        ReadRegStr $R0 HKLM "${SERVICE_KEY}" "ImagePath"
        ${If} $R0 != '"$INSTDIR\Kalvenor.exe" STARTSERVICE'
            Return
        ${EndIf}
        ClearErrors
        ExecWait '"$INSTDIR\Kalvenor.exe" -platform offscreen uninstall' $R1
        ${If} $R1 = 3 ; this account has never accepted the program's notice
            nsExec::Exec '"$SYSDIR\sc.exe" delete KalvenorPro'
            Pop $R1
            DeleteRegKey HKLM "Software\Kalvenor"
            DeleteRegKey HKLM "${EVENT_KEY}"
        ${EndIf}
        ${IfNot} ${Errors}
        ${AndIf} $R1 = 0
            Return
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(ServiceStays)" /SD IDCANCEL IDCANCEL`
            Abort
        ${EndIf}
    ${Loop}
FunctionEnd

; What the program has entered for the user with the key $R0 below HKEY_USERS, as far as it leads here. The mark "Done"
; goes with the file type: another copy of the program enters itself again.
Function un.removeUserEntries
    ReadRegStr $R1 HKU "$R0\${RUN_KEY}" "Kalvenor"
    ${If} $R1 == '"$INSTDIR\Kalvenor.exe"'
        DeleteRegValue HKU "$R0\${RUN_KEY}" "Kalvenor"
    ${EndIf}
    GetFullPathName /SHORT $R2 "$INSTDIR\Kalvenor.exe"
    ReadRegStr $R1 HKU "$R0\Software\Classes\kvdfile\Shell\open\Command" ""
    ${If} $R1 == "$INSTDIR\Kalvenor.exe %1"
    ${OrIf} $R1 == "$R2 %1"
        DeleteRegKey HKU "$R0\Software\Classes\kvdfile"
        DeleteRegValue HKU "$R0\Software\Kalvenor\Options" "Done"
        ReadRegStr $R1 HKU "$R0\Software\Classes\.kvd" ""
        ${If} $R1 == "kvdfile"
            DeleteRegValue HKU "$R0\Software\Classes\.kvd" ""
            DeleteRegKey /ifempty HKU "$R0\Software\Classes\.kvd"
        ${EndIf}
    ${EndIf}
FunctionEnd

; The users who are logged on; the keys of the others are not loaded.
Function un.removeEntries
    StrCpy $R9 0
    ${Do}
        EnumRegKey $R0 HKU "" $R9
        ${If} $R0 == ""
            ${ExitDo}
        ${EndIf}
        Call un.removeUserEntries
        IntOp $R9 $R9 + 1
    ${Loop}
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
FunctionEnd

Section "un.all"
    SetShellVarContext all
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/FILES" $R1
    ${If} ${Errors}
        Call un.stopService
        Call un.refuseWhileRuns
        Call un.removeService
        Call un.removeEntries
    ${Else}
        Call un.refuseWhileRuns
    ${EndIf}
    !insertmacro RemoveFiles
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    RMDir "$INSTDIR" ; only when nothing else is in it
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
