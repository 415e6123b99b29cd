; The set-up of the add-in for Word: for the user who runs it, or with /ALLUSERS for everybody, which takes an
; administrator. makensis is told X64 and X86, folders of the two builds' files, HELP, VERSION and OUTPUT.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "x64.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelvarin"
!define ADDIN_KEY "Software\Microsoft\Office\Word\Addins\KVXDLLCOM.Connect"

Name "Kelvarin"
OutFile "${OUTPUT}"
BrandingText "Kelvarin ${VERSION}"
RequestExecutionLevel user
ShowInstDetails nevershow
ShowUninstDetails nevershow

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Var AllUsers

!macro ChooseScope
  StrCpy $AllUsers 0
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/ALLUSERS" $R1
  ${IfNot} ${Errors}
    StrCpy $AllUsers 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
!macroend

Function .onInit
  !insertmacro ChooseScope
  ${If} $INSTDIR == ""
    ${If} $AllUsers == 1
      StrCpy $INSTDIR "$PROGRAMFILES64\Kelvarin"
    ${Else}
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Kelvarin"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function un.onInit
  !insertmacro ChooseScope
  ${If} ${FileExists} "$INSTDIR\allusers"
    StrCpy $AllUsers 1
    SetShellVarContext all
  ${EndIf}
FunctionEnd

; A library registers itself through the program of its own kind; where Windows has no 32-bit part there is no 32-bit Word.
!macro Register PROGRAM FILE SWITCHES
  ${If} ${FileExists} "${PROGRAM}"
    StrCpy $R1 "user"
    StrCmp $AllUsers 1 0 +2
    StrCpy $R1 "machine"
    ExecWait '"${PROGRAM}" /s ${SWITCHES} /n /i:$R1 "${FILE}"' $R0
    ${If} $R0 != 0
      DetailPrint "${FILE}: $R0"
      SetErrorLevel 2
    ${EndIf}
  ${EndIf}
!macroend

!macro RegisterAll SWITCHES
  !insertmacro Register "$WINDIR\System32\regsvr32.exe" "$INSTDIR\x64\KVXDLLCOM.dll" "${SWITCHES}"
  !insertmacro Register "$WINDIR\System32\regsvr32.exe" "$INSTDIR\x64\TermMarker.dll" "${SWITCHES}"
  !insertmacro Register "$WINDIR\SysWOW64\regsvr32.exe" "$INSTDIR\x86\KVXDLLCOM.dll" "${SWITCHES}"
  !insertmacro Register "$WINDIR\SysWOW64\regsvr32.exe" "$INSTDIR\x86\TermMarker.dll" "${SWITCHES}"
!macroend

!macro WriteAddIn
  WriteRegStr SHCTX "${ADDIN_KEY}" "FriendlyName" "Kelvarin"
  WriteRegStr SHCTX "${ADDIN_KEY}" "Description" "Builds the index of the defined terms of a contract"
  WriteRegDWORD SHCTX "${ADDIN_KEY}" "LoadBehavior" 3
!macroend

; The add-in looks for its help beside itself.
!macro InstallFor FOLDER FILES
  SetOutPath "$INSTDIR\${FOLDER}"
  File "${FILES}/KVXDLLCOM.dll"
  File "${FILES}/TermMarker.dll"
  File "${HELP}/Kelvarin3Help.chm"
  File "${HELP}/KVX Instructions A4.pdf"
  File "${HELP}/KVX Instructions LTR.pdf"
  File "${HELP}/kvxfaq.htm"
!macroend

Section
  !insertmacro InstallFor x64 "${X64}"
  !insertmacro InstallFor x86 "${X86}"
  SetOutPath "$INSTDIR"
  ${If} $AllUsers == 1
    FileOpen $R0 "$INSTDIR\allusers" w
    FileClose $R0
  ${EndIf}
  !insertmacro RegisterAll ""
  !insertmacro WriteAddIn
  ; A 32-bit Word looks for add-ins of all users in a view of its own.
  ${If} $AllUsers == 1
    SetRegView 32
    !insertmacro WriteAddIn
    SetRegView 64
  ${EndIf}
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Kelvarin"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

!macro RemoveFor FOLDER
  Delete "$INSTDIR\${FOLDER}\KVXDLLCOM.dll"
  Delete "$INSTDIR\${FOLDER}\TermMarker.dll"
  Delete "$INSTDIR\${FOLDER}\Kelvarin3Help.chm"
  Delete "$INSTDIR\${FOLDER}\KVX Instructions A4.pdf"
  Delete "$INSTDIR\${FOLDER}\KVX Instructions LTR.pdf"
  Delete "$INSTDIR\${FOLDER}\kvxfaq.htm"
  RMDir "$INSTDIR\${FOLDER}"
!macroend

Section "Uninstall"
  !insertmacro RegisterAll "/u"
  DeleteRegKey SHCTX "${ADDIN_KEY}"
  ${If} $AllUsers == 1
    SetRegView 32
    DeleteRegKey SHCTX "${ADDIN_KEY}"
    SetRegView 64
  ${EndIf}
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  !insertmacro RemoveFor x64
  !insertmacro RemoveFor x86
  Delete "$INSTDIR\allusers"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
