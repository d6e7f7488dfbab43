; The setup of Wellharrower, made by scripts/package.sh:
;   makensis -DVERSION=1.0.0 -DVERSION4=1.0.0.0 -DSTAGE=<folder> -DOUTFILE=<setup.exe>
;            -DICON=<the program's icon>
;            [-DPLUGINS_NSH=<the plug-in pack's lines>] [-DPLUGINS_DOC] wellharrower.nsi
; STAGE holds what the portable zip holds. Per machine, under Program Files;
; /S installs silently, /DESKTOP adds the desktop shortcut then. PLUGINS_NSH,
; written by package.sh, holds the macros INSTALL_PLUGINS (a File and a
; RegDLL line for each plug-in of the pack) and UNINSTALL_PLUGINS (UnRegDLL
; and Delete for each).

Unicode true
; The program is 64-bit: a 64-bit setup writes the registry and Program
; Files the program reads, with no 32-bit redirection in between.
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define PRODUCT "Wellharrower"
!define PUBLISHER "Wellharrower"
!define UNINST_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Wellharrower"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define PLUGINS_DIR "JunkHarrower Plugins"
!ifdef PLUGINS_NSH
  !include "${PLUGINS_NSH}"
!endif

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
InstallDirRegKey HKLM "${UNINST_KEY}" "InstallLocation"
BrandingText "${PRODUCT} ${VERSION}"

VIProductVersion "${VERSION4}"
VIFileVersion "${VERSION4}"
VIAddVersionKey /LANG=1033 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "FileDescription" "${PRODUCT} setup"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION4}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION4}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "${PUBLISHER}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
; The language chosen is kept in the product's own entry, which goes with it.
!define MUI_LANGDLL_REGISTRY_ROOT HKLM
!define MUI_LANGDLL_REGISTRY_KEY "${UNINST_KEY}"
!define MUI_LANGDLL_REGISTRY_VALUENAME "Language"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Wellharrower.exe"

!insertmacro MUI_PAGE_LICENSE "${STAGE}/licence.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Romanian"
!insertmacro MUI_RESERVEFILE_LANGDLL

LangString SecProgram ${LANG_ENGLISH} "Wellharrower"
LangString SecProgram ${LANG_ROMANIAN} "Wellharrower"
LangString SecDesktopName ${LANG_ENGLISH} "Desktop shortcut"
LangString SecDesktopName ${LANG_ROMANIAN} "Scurtatura pe desktop"
LangString CloseFirst ${LANG_ENGLISH} "Wellharrower is running. Close it, then press Retry."
LangString CloseFirst ${LANG_ROMANIAN} "Wellharrower este pornit. Inchideti-l, apoi apasati Reincercare."
LangString AskTraces ${LANG_ENGLISH} "Remove Wellharrower's own settings too?$\r$\n$\r$\nIts start with Windows, its Explorer menu entries (Wellharrow, Wellshred) and its stored options."
LangString AskTraces ${LANG_ROMANIAN} "Stergeti si setarile proprii ale Wellharrower?$\r$\n$\r$\nPornirea odata cu Windows, comenzile din meniul Explorer (Wellharrow, Wellshred) si optiunile salvate."

; The program's main window is of class "Wellharrower", hidden in the tray
; too: its exe can be neither replaced nor deleted while it runs. Started
; from its own uninstall section, the program ends by itself: it is given
; five seconds before the question.
!macro CLOSED_PROGRAM_CHECK un
Function ${un}WaitForClosedProgram
  StrCpy $1 0
  retry:
  FindWindow $0 "Wellharrower"
  ${If} $0 <> 0
    ${If} $1 < 10
      IntOp $1 $1 + 1
      Sleep 500
      Goto retry
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(CloseFirst)" /SD IDCANCEL IDRETRY retry
    Abort
  ${EndIf}
FunctionEnd
!macroend
!insertmacro CLOSED_PROGRAM_CHECK ""
!insertmacro CLOSED_PROGRAM_CHECK "un."

Section "!$(SecProgram)" SecMain
  SectionIn RO
  Call WaitForClosedProgram
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  File "${STAGE}/Wellharrower.exe"
  File "${STAGE}/readme.txt"
  File "${STAGE}/licence.txt"
!ifdef PLUGINS_DOC
  File "${STAGE}/PLUGINS.md"
!endif
!ifdef PLUGINS_NSH
  ; Registered here, so that every plug-in is there at the program's first
  ; start, which would register only one of them.
  SetOutPath "$INSTDIR\${PLUGINS_DIR}"
  !insertmacro INSTALL_PLUGINS
  SetOutPath "$INSTDIR"
!endif
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Wellharrower.lnk" "$INSTDIR\Wellharrower.exe"

  WriteRegStr HKLM "${UNINST_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINST_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINST_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKLM "${UNINST_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINST_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINST_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegStr HKLM "${UNINST_KEY}" "DisplayIcon" "$INSTDIR\Wellharrower.exe,0"
  ; The page of the files saves it too, but a silent setup shows no page.
  WriteRegStr HKLM "${UNINST_KEY}" "Language" $LANGUAGE
  WriteRegDWORD HKLM "${UNINST_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINST_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${UNINST_KEY}" "EstimatedSize" $0
SectionEnd

Section /o "$(SecDesktopName)" SecDesktop
  SetShellVarContext all
  CreateShortcut "$DESKTOP\Wellharrower.lnk" "$INSTDIR\Wellharrower.exe"
SectionEnd

Function .onInit
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/DESKTOP" $R1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SecDesktop}
  ${EndIf}
  !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

; Exactly what the setup put there; a file the user added to the folder
; keeps it, and the folder with it.
Section "Uninstall"
  Call un.WaitForClosedProgram
  ; A process's current folder cannot be removed. The uninstaller's starts
  ; as $INSTDIR, and under Wine a desktop process it starts (for the
  ; shortcuts) keeps that folder as its own.
  SetOutPath "$TEMP"
  SetShellVarContext all
  Delete "$INSTDIR\Wellharrower.exe"
  Delete "$INSTDIR\readme.txt"
  Delete "$INSTDIR\licence.txt"
!ifdef PLUGINS_DOC
  Delete "$INSTDIR\PLUGINS.md"
!endif
!ifdef PLUGINS_NSH
  ; A registration must not outlive its file.
  !insertmacro UNINSTALL_PLUGINS
  RMDir "$INSTDIR\${PLUGINS_DIR}"
!endif
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Wellharrower.lnk"
  Delete "$DESKTOP\Wellharrower.lnk"

  ; What the program writes itself: the Run value of "start with Windows",
  ; the two Explorer verbs and its key store.
  MessageBox MB_YESNO|MB_ICONQUESTION "$(AskTraces)" /SD IDYES IDNO keep_traces
    DeleteRegValue HKLM "${RUN_KEY}" "Wellharrower"
    DeleteRegKey HKCR "*\shell\Wellharrow"
    DeleteRegKey HKCR "Folder\shell\Wellshred"
    DeleteRegKey HKCU "Software\Wellharrower"
  keep_traces:
  DeleteRegKey HKLM "${UNINST_KEY}"
SectionEnd

Function un.onInit
  !insertmacro MUI_UNGETLANGUAGE
FunctionEnd
