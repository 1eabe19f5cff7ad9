; SPDX-License-Identifier: MIT
; The installer. Defined from outside: VERSION ("4.0.0"), FUENTE (the folder of what is installed;
; parvanel-revisor.exe may be missing there), TAMANO (of it, in KB), ICONO (a file) and SALIDA (the
; file to write).
;
; Whoever runs it with administrator rights installs for all users, anybody else for himself;
; /AllUsers and /CurrentUser choose. It asks for rights only where they are needed: with /AllUsers,
; and where there is an installation for all already, which it replaces then. Whatever installation
; there was before, in the same folder or another, for all or for one: one is left, this one.
;
; /S asks nothing and shows nothing, /D=FOLDER (the last, without quotes) installs there. It ends with
; 2 when a program of an installation runs or the folder cannot be used, with 3 when it would need
; an administrator; it changes nothing then, unless a file of it cannot be written: that ends with 2
; in the midst.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user
AllowSkipFiles off ; a file that cannot be written ends it, without a question with /S
AllowRootDirInstall true ; it is never installed there: see darCarpetaPropia
Name "Parvanel"
OutFile "${SALIDA}"
BrandingText "Parvanel ${VERSION}"

!include MUI2.nsh
!include Sections.nsh
!include instalaciones.nsh

!define MUI_ICON "${ICONO}"
!define MUI_UNICON "${ICONO}"
!define MUI_ABORTWARNING
;
; It does not offer to open the program at its end: run as an administrator it would open it, and
; all that it opens, with those rights. For the same reason it runs no other uninstaller: an account
; could have put any program there.

!define MUI_PAGE_CUSTOMFUNCTION_LEAVE confirmarCarpeta
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

!insertmacro instalaciones ""
!insertmacro instalaciones "un."

Section "Parvanel" parvanel
    SectionIn RO
    StrCpy $carpeta $INSTDIR
    Call pedirQueSeCierren
    GetFunctionAddress $paso pedirQueSeCierren
    Call recorrer
    ; The programs start in this folder as well. It has no folders in it, so that the list of
    ; archives is an empty one where there are none yet.
    Call ponerContexto
    SetOutPath "$INSTDIR"
    File "${FUENTE}\parvanel.exe"
    Delete "$INSTDIR\parvanel-revisor.exe" ; an earlier one, where this installer has none
    Delete "$SMPROGRAMS\Parvanel\Revisor de Históricos.lnk"
    File /nonfatal "${FUENTE}\parvanel-revisor.exe"
    File "${FUENTE}\parvanel-demo.exe"
    File "${FUENTE}\manual.html"
    File "${FUENTE}\licencias.txt"
    WriteUninstaller "$INSTDIR\desinstalar.exe"
    Call quitarLasDemas

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

; Chosen beforehand where there is one already: with /S it stays as it was.
Section /o "Icono en el escritorio" escritorio
    SetOutPath "$INSTDIR"
    CreateShortcut "$DESKTOP\Parvanel.lnk" "$INSTDIR\parvanel.exe"
SectionEnd

Section "-sin icono"
    ${IfNot} ${SectionIsSelected} ${escritorio}
        Delete "$DESKTOP\Parvanel.lnk"
    ${EndIf}
SectionEnd

Function .onInit
    SetRegView 64
    UserInfo::GetAccountType
    Pop $permisos
    Call elegirParaQuien
    Call elegirCarpeta
    GetFunctionAddress $paso conservarIcono
    Call recorrer
    Call ponerContexto
FunctionEnd

Function elegirParaQuien
    StrCpy $paraTodos ""
    ${If} $permisos == "Admin"
        StrCpy $paraTodos 1
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/CurrentUser" $1
    ${IfNot} ${Errors}
        StrCpy $paraTodos ""
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
        StrCpy $paraTodos 1
    ${EndIf}
    ${If} $paraTodos == 1
        ${If} $permisos != "Admin"
            Push "Parvanel se instalará para todas las cuentas de este computador."
            Call pedirPermisoParaTodos
        ${EndIf}
        Return
    ${EndIf}
    ReadRegStr $carpeta HKLM "${REGISTRO}" "InstallLocation"
    ${If} $carpeta == ""
    ${OrIfNot} ${FileExists} "$carpeta\desinstalar.exe"
        Return
    ${EndIf}
    ${If} $permisos != "Admin"
        Push "Parvanel está instalado para todas las cuentas de este computador, y este se \
instalará en su lugar."
        Call pedirPermisoParaTodos
    ${EndIf}
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "Parvanel está instalado para todas las cuentas \
de este computador. Va a quedar sólo para la suya." /SD IDOK IDOK +3
    SetErrorLevel 1
    Quit
FunctionEnd

; What for, on the stack.
Function pedirPermisoParaTodos
    Exch $0
    ${If} $INSTDIR == ""
        Push "/AllUsers"
    ${Else}
        Push "/AllUsers /D=$INSTDIR"
    ${EndIf}
    Push $EXEPATH
    Push $0
    Call pedirPermiso
FunctionEnd

Function ponerContexto
    ${If} $paraTodos == 1
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
FunctionEnd

; That of /D=, that of the same kind of installation, or the usual one.
Function elegirCarpeta
    Call ponerContexto
    ${If} $INSTDIR == ""
        Call rechazarCarpetaPedida
        ReadRegStr $INSTDIR SHCTX "${REGISTRO}" "InstallLocation"
    ${EndIf}
    ${If} $INSTDIR == ""
        ${If} $paraTodos == 1
            StrCpy $INSTDIR "$PROGRAMFILES64\Parvanel"
        ${Else}
            StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Parvanel"
        ${EndIf}
    ${EndIf}
    Call darCarpetaPropia
FunctionEnd

; A folder of /D= that is no whole path, or of a disk that is not there, arrives here as none: it
; must not go elsewhere then.
Function rechazarCarpetaPedida
    System::Call 'kernel32::GetCommandLineW() w .r0'
    ClearErrors
    ${GetOptionsS} $0 "/D=" $1
    ${If} ${Errors}
        Return
    ${EndIf}
    MessageBox MB_OK|MB_ICONSTOP "No se puede instalar en esa carpeta: $1" /SD IDOK
    SetErrorLevel ${ABIERTO}
    Quit
FunctionEnd

; Nothing is installed between other people's files: what is chosen is where its own folder goes, but
; for an empty one, one of this name, and one that it is installed in already.
Function darCarpetaPropia
    StrCpy $0 $INSTDIR "" -1
    ${If} $0 == "\"
        StrCpy $INSTDIR $INSTDIR -1
    ${EndIf}
    StrLen $0 $INSTDIR
    ${If} $0 > 2 ; "D:"
        ${DirState} $INSTDIR $0
        ${GetFileName} $INSTDIR $1
        ${If} $0 != 1
        ${OrIf} $1 == "Parvanel"
        ${OrIf} ${FileExists} "$INSTDIR\desinstalar.exe"
            Return
        ${EndIf}
    ${EndIf}
    StrCpy $INSTDIR "$INSTDIR\Parvanel"
FunctionEnd

; When the page of the folder is left.
Function confirmarCarpeta
    StrCpy $3 $INSTDIR
    Call darCarpetaPropia
    ${If} $3 != $INSTDIR
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
            "Parvanel va a quedar en una carpeta propia:$\r$\n$\r$\n$INSTDIR" IDOK aceptada
        StrCpy $INSTDIR $3
        Abort
        aceptada:
        ; The page reads its box once more when it goes.
        SendMessage $mui.DirectoryPage.Directory ${WM_SETTEXT} 0 "STR:$INSTDIR"
    ${EndIf}
FunctionEnd

; For each installation.
Function conservarIcono
    Call dondeSeAbre
    ${If} $enEscritorio != ""
    ${AndIf} ${FileExists} "$enEscritorio\Parvanel.lnk"
        !insertmacro SelectSection ${escritorio}
    ${EndIf}
FunctionEnd

; When everything lies in its folder: what there was elsewhere or for others goes. This very folder
; may have other paths, too: what is just made shows in all of them.
Function quitarLasDemas
    GetTempFileName $R0 "$INSTDIR"
    ${If} $R0 == "" ; this folder cannot be told from another: what there is elsewhere stays
        Return
    ${EndIf}
    ${GetFileName} $R0 $R1
    GetFunctionAddress $paso quitarSiEsOtra
    Call recorrer
    Delete $R0
    Call ponerContexto
FunctionEnd

; For each installation; $R1 is a file that only this one has.
Function quitarSiEsOtra
    ${IfNot} ${FileExists} "$carpeta\$R1"
        Call quitarArchivos
    ${EndIf}
    ${If} $quien == "HKLM"
    ${AndIf} $paraTodos == 1
        Return
    ${EndIf}
    ${If} $quien == "HKCU"
    ${AndIf} $paraTodos == ""
        Return
    ${EndIf}
    Call quitarEntrada
FunctionEnd

Function un.onInit
    SetRegView 64
    UserInfo::GetAccountType
    Pop $permisos
    StrCpy $paraTodos 1 ; the account's own is one of all that there are
    StrCpy $R0 ""
    GetFunctionAddress $paso un.reconocer
    Call un.recorrer
    ${If} $R0 == ""
        MessageBox MB_OK|MB_ICONSTOP "Parvanel no está instalado en esta carpeta para su cuenta \
ni para todas. Quítelo desde la cuenta que lo instaló." /SD IDOK
        SetErrorLevel ${SIN_PERMISO}
        Quit
    ${EndIf}
    ${If} $R0 == "HKLM"
    ${AndIf} $permisos != "Admin"
        Push ""
        Push "$INSTDIR\desinstalar.exe"
        Push "Parvanel está instalado para todas las cuentas de este computador, y se quitará de \
todas."
        Call un.pedirPermiso
    ${EndIf}
FunctionEnd

; For each installation; $R0: the first that lies here, in all accounts' name before any other.
Function un.reconocer
    Call un.esEsta
    ${If} $0 == 1
    ${AndIf} $R0 == ""
        StrCpy $R0 $quien
    ${EndIf}
FunctionEnd

; $0: 1 when $carpeta is where the uninstaller lies, however it is written.
Function un.esEsta
    GetFullPathName /SHORT $1 "$carpeta\."
    GetFullPathName /SHORT $2 "$INSTDIR\."
    StrCpy $0 0
    ${If} $1 != ""
    ${AndIf} $1 == $2
        StrCpy $0 1
    ${EndIf}
FunctionEnd

Function un.quitarSiEsEsta
    Call un.esEsta
    ${If} $0 == 1
        Call un.quitarEntrada
    ${EndIf}
FunctionEnd

Section "Uninstall"
    StrCpy $carpeta $INSTDIR
    Call un.pedirQueSeCierren
    GetFunctionAddress $paso un.quitarSiEsEsta
    Call un.recorrer
    SetOutPath "$TEMP"
    StrCpy $carpeta $INSTDIR
    Call un.quitarArchivos
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
!insertmacro MUI_DESCRIPTION_TEXT ${parvanel} "El programa, el revisor de históricos, la demostración y el manual."
!insertmacro MUI_DESCRIPTION_TEXT ${escritorio} "Parvanel también en el escritorio."
!insertmacro MUI_FUNCTION_DESCRIPTION_END
