; Installs the server and its tools for all users of the machine. Built by "make installer".
;
;   quorvane-server-setup.exe [/S] [/SERVICE] [/FIREWALL] [/NOMENU] [/D=folder]
;   uninstall.exe             [/S] [/PURGE]
;
; /S asks nothing; the others choose then what the page of components offers. An installation over
; another one stops the server, replaces its programs, and starts it again if it was a running service.
; Pages and settings are nobody's but the user's once they are there.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define NAME "Quorvane Server"
!define PROGRAM "quorvane-server.exe"
!define SETTINGS "Software\Ardenfell\Quorvane"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define SERVICE "SYSTEM\CurrentControlSet\Services\${NAME}"
; The pages that were laid out, in two lines each: the path, and the time of the last change.
!define PAGE_LIST "$INSTDIR\pages.txt"

Name "${NAME}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\${NAME}"
InstallDirRegKey HKLM "${ENTRY}" "InstallLocation"
BrandingText "${NAME} ${VERSION}"
RequestExecutionLevel admin
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "FileDescription" "${NAME} Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "The Quorvane Server developers"

Var WasRunning  ; the service, before its programs were replaced

!define MUI_ICON "${SOURCE}/src/platform/windows/resources/quorvane.ico"
!define MUI_UNICON "${MUI_ICON}"
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${SOURCE}\LICENSE"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Runs a command line without a window of its own; what it says goes to the list of what was done.
; Its exit status, or a text when it did not run, is then in $0.
!macro Run COMMAND
  nsExec::ExecToLog '${COMMAND}'
  Pop $0
!macroend

; Stops the server whose programs are in $INSTDIR: as a service, or as a program. In $0 is then whether
; its file may be replaced. A program may take some seconds to end.
!macro StopServer
  !insertmacro Run '"$INSTDIR\${PROGRAM}" /stop'
  StrCpy $1 0
  ${Do}
    ClearErrors
    FileOpen $2 "$INSTDIR\${PROGRAM}" a
    ${IfNot} ${Errors}
      FileClose $2
      StrCpy $0 1
      ${ExitDo}
    ${EndIf}
    StrCpy $0 0
    ${If} $1 = 0
      ReadRegStr $3 HKLM "${SETTINGS}\Server" "ControlPort"
      ${If} $3 != ""
        StrCpy $3 "--port $3"
      ${EndIf}
      !insertmacro Run '"$INSTDIR\qvsctl.exe" quit $3'
      StrCpy $0 0
    ${EndIf}
    Sleep 500
    IntOp $1 $1 + 1
  ${LoopUntil} $1 = 30
!macroend

!macro RefuseWhileRunning
  ${If} $0 = 0
    MessageBox MB_OK|MB_ICONSTOP "The server is running and did not stop. Please end it and try again." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
!macroend

Section "-Stop"
  StrCpy $WasRunning 0
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    nsExec::Exec 'cmd.exe /c sc.exe query "${NAME}" | find.exe "RUNNING"'
    Pop $0
    ${If} $0 == 0
      StrCpy $WasRunning 1
    ${EndIf}
    !insertmacro StopServer
    !insertmacro RefuseWhileRunning
  ${EndIf}
SectionEnd

Section "Server and tools" SecProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  File "${TREE}\*.exe"
  File /oname=LICENSE.txt "${SOURCE}\LICENSE"
  SetOutPath "$INSTDIR\Lang"
  File "${TREE}\Lang\*.lng"
  ; The sample pages are for a new installation: what is there is a site already, whatever it lacks.
  ${IfNot} ${FileExists} "$INSTDIR\Server\Scripts\*"
    SetOutPath "$INSTDIR\Server\Scripts"
    File /r "${TREE}\Server\Scripts\*"
    FileOpen $9 "${PAGE_LIST}" w
    Push ""
    Call ListPages
    FileClose $9
  ${EndIf}
  CreateDirectory "$INSTDIR\Server\Logs"
  CreateDirectory "$INSTDIR\Server\Cache"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${ENTRY}" "DisplayName" "${NAME}"
  WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
  WriteRegStr HKLM "${ENTRY}" "Publisher" "The Quorvane Server developers"
  WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $0
SectionEnd

Section "Start menu" SecMenu
  SetShellVarContext all
  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortcut "$SMPROGRAMS\${NAME}\${NAME}.lnk" "$INSTDIR\${PROGRAM}" "/debug"
  CreateShortcut "$SMPROGRAMS\${NAME}\Pages.lnk" "$INSTDIR\Server\Scripts"
  CreateShortcut "$SMPROGRAMS\${NAME}\Remove ${NAME}.lnk" "$INSTDIR\uninstall.exe"
SectionEnd

Section /o "Service" SecService
  !insertmacro Run '"$INSTDIR\${PROGRAM}" /install'
  StrCpy $WasRunning 1
SectionEnd

Section /o "Firewall rule" SecFirewall
  !insertmacro Run 'netsh.exe advfirewall firewall delete rule name="${NAME}"'
  !insertmacro Run 'netsh.exe advfirewall firewall add rule name="${NAME}" dir=in action=allow program="$INSTDIR\${PROGRAM}" protocol=TCP'
  WriteRegDWORD HKLM "${ENTRY}" "Firewall" 1
SectionEnd

Section "-Start"
  ${If} $WasRunning = 1
    !insertmacro Run '"$INSTDIR\${PROGRAM}" /start'
  ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "The programs, their languages, and pages to begin with."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecMenu} "Entries for the server with its window, the folder of its pages, and its removal."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecService} "The server starts with Windows and runs without anybody logged on. Without this it is a program that you start."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecFirewall} "A rule of the system's firewall, so that other machines may connect to the server."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/SERVICE" $R1
  ${IfNot} ${Errors}
    SectionSetFlags ${SecService} ${SF_SELECTED}
  ${EndIf}
  ClearErrors
  ${GetOptions} $R0 "/FIREWALL" $R1
  ${IfNot} ${Errors}
    SectionSetFlags ${SecFirewall} ${SF_SELECTED}
  ${EndIf}
  ClearErrors
  ${GetOptions} $R0 "/NOMENU" $R1
  ${IfNot} ${Errors}
    SectionSetFlags ${SecMenu} 0
  ${EndIf}
FunctionEnd

; Writes the list of the pages below a folder, which is on the stack: empty, or with a backslash at its
; end.
Function ListPages
  Exch $0
  Push $1
  Push $2
  FindFirst $1 $2 "$INSTDIR\Server\Scripts\$0*"
  ${DoWhile} $2 != ""
    ${If} ${FileExists} "$INSTDIR\Server\Scripts\$0$2\*"
      ${If} $2 != "."
      ${AndIf} $2 != ".."
        Push "$0$2\"
        Call ListPages
      ${EndIf}
    ${Else}
      GetFileTime "$INSTDIR\Server\Scripts\$0$2" $3 $4
      FileWriteUTF16LE $9 "$0$2$\r$\n$3 $4$\r$\n"
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
  Pop $2
  Pop $1
  Pop $0
FunctionEnd

Section "un.Server and tools" SecUnProgram
  SectionIn RO
  SetShellVarContext all
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    !insertmacro StopServer
    !insertmacro RefuseWhileRunning
    ReadRegStr $0 HKLM "${SERVICE}" "ImagePath"
    ${If} $0 != ""
      !insertmacro Run '"$INSTDIR\${PROGRAM}" /uninstall'
    ${EndIf}
  ${EndIf}
  ReadRegDWORD $0 HKLM "${ENTRY}" "Firewall"
  ${If} $0 = 1
    !insertmacro Run 'netsh.exe advfirewall firewall delete rule name="${NAME}"'
  ${EndIf}
  Call un.RemoveUnchangedPages
  Push "$INSTDIR\Server\Scripts"
  Call un.RemoveEmptyFolders
  RMDir /r "$INSTDIR\Server\Cache"
  RMDir "$INSTDIR\Server\Logs"
  RMDir "$INSTDIR\Server"
  Delete "$INSTDIR\${PROGRAM}"
  Delete "$INSTDIR\qv*.exe"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\Lang\*.lng"
  RMDir "$INSTDIR\Lang"
  Delete "$SMPROGRAMS\${NAME}\*.lnk"
  RMDir "$SMPROGRAMS\${NAME}"
  DeleteRegKey HKLM "${ENTRY}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd

Section /o "un.Pages, logs, settings" SecUnOwn
  RMDir /r "$INSTDIR\Server"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${SETTINGS}"
  DeleteRegKey /ifempty HKLM "Software\Ardenfell"
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecUnProgram} "What was installed, and sample pages that nobody has changed."
  !insertmacro MUI_DESCRIPTION_TEXT ${SecUnOwn} "All in the folder Server, and what was set in the registry."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END

Function un.onInit
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/PURGE" $R1
  ${IfNot} ${Errors}
    SectionSetFlags ${SecUnOwn} ${SF_SELECTED}
  ${EndIf}
FunctionEnd

; A page that has been changed since it was laid out is its changer's.
Function un.RemoveUnchangedPages
  ClearErrors
  FileOpen $9 "${PAGE_LIST}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    FileReadUTF16LE $9 $0
    FileReadUTF16LE $9 $1
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    StrCpy $0 "$INSTDIR\Server\Scripts\$0" -2  ; without the end of the line
    StrCpy $1 $1 -2
    GetFileTime $0 $2 $3
    ${If} $1 == "$2 $3"
      Delete $0
    ${EndIf}
    ClearErrors
  ${Loop}
  FileClose $9
  Delete "${PAGE_LIST}"
FunctionEnd

; Of a folder, which is on the stack, and those below it.
Function un.RemoveEmptyFolders
  Exch $0
  Push $1
  Push $2
  FindFirst $1 $2 "$0\*"
  ${DoWhile} $2 != ""
    ${If} $2 != "."
    ${AndIf} $2 != ".."
    ${AndIf} ${FileExists} "$0\$2\*"
      Push "$0\$2"
      Call un.RemoveEmptyFolders
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
  RMDir "$0"
  Pop $2
  Pop $1
  Pop $0
FunctionEnd
