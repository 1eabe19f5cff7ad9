; SPDX-License-Identifier: MIT
; The installer. Defined from outside: VERSION ("4.0.0"), FUENTE (the folder of what is installed;
; parvanel-revisor.exe may be missing there), TAMANO (of it, in KB), ICONO (a file) and SALIDA (the
; file to write).
;
; Whoever runs it with administrator rights installs for all users, anybody else for himself; it
; never asks for rights. /S asks nothing and shows nothing, /D=FOLDER (the last, without quotes)
; installs there. It ends with 2 when a program of the installation runs, and changes nothing then.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user
AllowSkipFiles off ; a file that cannot be written ends it, without a question with /S
Name "Parvanel"
OutFile "${SALIDA}"
BrandingText "Parvanel ${VERSION}"

!include MUI2.nsh
!include LogicLib.nsh

!define REGISTRO "Software\Microsoft\Windows\CurrentVersion\Uninstall\Parvanel"
!define MUI_ICON "${ICONO}"
!define MUI_UNICON "${ICONO}"
!define MUI_ABORTWARNING
;
; It does not offer to open the program at its end: run as an administrator it would open it, and
; all that it opens, with those rights.

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Parvanel"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Instalador de Parvanel"
VIAddVersionKey "LegalCopyright" "The Parvanel authors, MIT"

; $0: the account's rights.
!macro elegirParaQuien un
Function ${un}elegirParaQuien
    SetRegView 64
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
FunctionEnd

; A program that runs cannot be replaced: it may be in the middle of a download, and only the
; person who sits there knows.
Function ${un}pedirQueSeCierren
    Push "parvanel.exe"
    Call ${un}pedirQueSeCierre
    Push "parvanel-revisor.exe"
    Call ${un}pedirQueSeCierre
    Push "parvanel-demo.exe"
    Call ${un}pedirQueSeCierre
FunctionEnd

; The file's name on the stack.
Function ${un}pedirQueSeCierre
    Pop $1
    ${DoWhile} ${FileExists} "$INSTDIR\$1"
        ClearErrors
        FileOpen $2 "$INSTDIR\$1" a
        ${IfNot} ${Errors}
            FileClose $2
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "Parvanel está abierto, o su cuenta no puede cambiar esa carpeta ($1). \
Cierre su ventana y vuelva a intentarlo." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel 2
        Quit
    ${Loop}
FunctionEnd
!macroend
!insertmacro elegirParaQuien ""
!insertmacro elegirParaQuien "un."

Function .onInit
    Call elegirParaQuien
    ${If} $INSTDIR != "" ; /D=
        Return
    ${EndIf}
    ReadRegStr $INSTDIR SHCTX "${REGISTRO}" "InstallLocation"
    ${If} $INSTDIR == ""
        ${If} $0 == "Admin"
            StrCpy $INSTDIR "$PROGRAMFILES64\Parvanel"
        ${Else}
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Parvanel"
        ${EndIf}
    ${EndIf}
FunctionEnd

Section "Parvanel" parvanel
    SectionIn RO
    Call pedirQueSeCierren
    ; The programs start in this folder as well. It has no folders in it, so that the list of
    ; archives is an empty one where there are none yet.
    SetOutPath "$INSTDIR"
    File "${FUENTE}\parvanel.exe"
    Delete "$INSTDIR\parvanel-revisor.exe" ; an earlier one, where this installer has none
    Delete "$SMPROGRAMS\Parvanel\Revisor de Históricos.lnk"
    File /nonfatal "${FUENTE}\parvanel-revisor.exe"
    File "${FUENTE}\parvanel-demo.exe"
    File "${FUENTE}\manual.html"
    File "${FUENTE}\licencias.txt"
    WriteUninstaller "$INSTDIR\desinstalar.exe"

    CreateDirectory "$SMPROGRAMS\Parvanel"
    CreateShortcut "$SMPROGRAMS\Parvanel\Parvanel.lnk" "$INSTDIR\parvanel.exe" "" "" 0 \
        SW_SHOWNORMAL "" "Guarda e imprime los documentos del año escolar"
    ${If} ${FileExists} "$INSTDIR\parvanel-revisor.exe"
        CreateShortcut "$SMPROGRAMS\Parvanel\Revisor de Históricos.lnk" \
            "$INSTDIR\parvanel-revisor.exe" "" "" 0 SW_SHOWNORMAL "" \
            "Dice si el histórico del colegio se descargó completo, y qué falta de quién"
    ${EndIf}
    CreateShortcut "$SMPROGRAMS\Parvanel\Parvanel (demostración).lnk" \
        "$INSTDIR\parvanel-demo.exe" "" "" 0 SW_SHOWNORMAL "" \
        "Para probarlo todo sin Internet: usuario secretaria, contraseña demo2010"
    CreateShortcut "$SMPROGRAMS\Parvanel\Manual.lnk" "$INSTDIR\manual.html"

    WriteRegStr SHCTX "${REGISTRO}" "DisplayName" "Parvanel"
    WriteRegStr SHCTX "${REGISTRO}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${REGISTRO}" "DisplayIcon" "$INSTDIR\parvanel.exe"
    WriteRegStr SHCTX "${REGISTRO}" "Publisher" "The Parvanel authors"
    WriteRegStr SHCTX "${REGISTRO}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${REGISTRO}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
    WriteRegStr SHCTX "${REGISTRO}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
    WriteRegDWORD SHCTX "${REGISTRO}" "EstimatedSize" ${TAMANO}
    WriteRegDWORD SHCTX "${REGISTRO}" "NoModify" 1
    WriteRegDWORD SHCTX "${REGISTRO}" "NoRepair" 1
SectionEnd

Section /o "Icono en el escritorio" escritorio
    SetOutPath "$INSTDIR"
    CreateShortcut "$DESKTOP\Parvanel.lnk" "$INSTDIR\parvanel.exe"
SectionEnd

Function un.onInit
    Call un.elegirParaQuien
FunctionEnd

; What was installed goes, and nothing else: what somebody put beside it stays, and the archives in
; C:\Quorvela are nobody's but the school's.
Section "Uninstall"
    Call un.pedirQueSeCierren
    Delete "$INSTDIR\parvanel.exe"
    Delete "$INSTDIR\parvanel-revisor.exe"
    Delete "$INSTDIR\parvanel-demo.exe"
    Delete "$INSTDIR\manual.html"
    Delete "$INSTDIR\licencias.txt"
    Delete "$INSTDIR\desinstalar.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Parvanel\Parvanel.lnk"
    Delete "$SMPROGRAMS\Parvanel\Revisor de Históricos.lnk"
    Delete "$SMPROGRAMS\Parvanel\Parvanel (demostración).lnk"
    Delete "$SMPROGRAMS\Parvanel\Manual.lnk"
    RMDir "$SMPROGRAMS\Parvanel"
    Delete "$DESKTOP\Parvanel.lnk"
    DeleteRegKey SHCTX "${REGISTRO}"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
!insertmacro MUI_DESCRIPTION_TEXT ${parvanel} "El programa, el revisor de históricos, la demostración y el manual."
!insertmacro MUI_DESCRIPTION_TEXT ${escritorio} "Parvanel también en el escritorio."
!insertmacro MUI_FUNCTION_DESCRIPTION_END
