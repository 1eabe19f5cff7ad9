; SPDX-License-Identifier: MIT
; What installations of Parvanel this computer has, and how one of them goes. Every function is there
; twice, for the installer and (un.) for the uninstaller.
;
; An installation is for all accounts or for one, and is known by its entry: in HKEY_LOCAL_MACHINE or
; among that account's own. An account sees the one for all and its own; an administrator, those of
; everybody who is logged in as well: who chose "Ejecutar como administrador" is often another
; account than the one that the rights are lent by.
!include LogicLib.nsh
!include FileFunc.nsh

!define REGISTRO "Software\Microsoft\Windows\CurrentVersion\Uninstall\Parvanel"
!define CARPETAS "Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders"
!define ABIERTO 2 ; what it ends with when a program runs or the folder cannot be used,
!define SIN_PERMISO 3 ; and when it is another account's to do

Var permisos ; "Admin", or others that do not matter
Var paraTodos ; 1: is about all accounts, "": about this one alone
Var quien ; whose an installation is: "HKLM" for all accounts, "HKCU", or a key of HKEY_USERS
Var carpeta ; where it lies
Var enMenu ; its account's Start menu
Var enEscritorio ; its account's desktop
Var paso ; what is called for each of them
Var indice

!macro instalaciones un
; Calls $paso for each that can be seen, with $quien and $carpeta; the others' only with $paraTodos.
Function ${un}recorrer
    StrCpy $quien "HKLM"
    ReadRegStr $carpeta HKLM "${REGISTRO}" "InstallLocation"
    ${If} $carpeta != ""
        Call $paso
    ${EndIf}
    StrCpy $quien "HKCU"
    ReadRegStr $carpeta HKCU "${REGISTRO}" "InstallLocation"
    ${If} $carpeta != ""
        Call $paso
    ${EndIf}
    ${If} $paraTodos == ""
        Return
    ${EndIf}
    StrCpy $indice 0
    ${Do}
        EnumRegKey $quien HKU "" $indice
        ${If} $quien == ""
            ${Break}
        ${EndIf}
        IntOp $indice $indice + 1
        ReadRegStr $carpeta HKU "$quien\${REGISTRO}" "InstallLocation"
        ${If} $carpeta != ""
            Call $paso
        ${EndIf}
    ${Loop}
FunctionEnd

; Says $enMenu and $enEscritorio of $quien; empty where that cannot be known.
Function ${un}dondeSeAbre
    ${If} $quien == "HKLM"
        SetShellVarContext all
        StrCpy $enMenu $SMPROGRAMS
        StrCpy $enEscritorio $DESKTOP
    ${ElseIf} $quien == "HKCU"
        SetShellVarContext current
        StrCpy $enMenu $SMPROGRAMS
        StrCpy $enEscritorio $DESKTOP
    ${Else}
        ReadRegStr $enMenu HKU "$quien\${CARPETAS}" "Programs"
        ReadRegStr $enEscritorio HKU "$quien\${CARPETAS}" "Desktop"
    ${EndIf}
FunctionEnd

; Takes out the entry of $quien, and what it has in the menu and on the desktop.
Function ${un}quitarEntrada
    Call ${un}dondeSeAbre
    ${If} $quien == "HKLM"
        DeleteRegKey HKLM "${REGISTRO}"
    ${ElseIf} $quien == "HKCU"
        DeleteRegKey HKCU "${REGISTRO}"
    ${Else}
        DeleteRegKey HKU "$quien\${REGISTRO}"
    ${EndIf}
    ${If} $enMenu != ""
        Delete "$enMenu\Parvanel\Parvanel.lnk"
        Delete "$enMenu\Parvanel\Revisor de Históricos.lnk"
        Delete "$enMenu\Parvanel\Parvanel (demostración).lnk"
        Delete "$enMenu\Parvanel\Manual.lnk"
        RMDir "$enMenu\Parvanel"
    ${EndIf}
    ${If} $enEscritorio != ""
        Delete "$enEscritorio\Parvanel.lnk"
    ${EndIf}
FunctionEnd

; What any version has installed goes out of $carpeta, and nothing else: what somebody put beside it
; stays, and the archives in C:\Quorvela are nobody's but the school's.
Function ${un}quitarArchivos
    Delete "$carpeta\parvanel.exe"
    Delete "$carpeta\parvanel-revisor.exe"
    Delete "$carpeta\parvanel-demo.exe"
    Delete "$carpeta\manual.html"
    Delete "$carpeta\licencias.txt"
    Delete "$carpeta\desinstalar.exe"
    RMDir "$carpeta"
FunctionEnd

; A program of $carpeta that runs cannot be replaced: it may be in the middle of a download, and only
; the person who sits there knows.
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
    ${DoWhile} ${FileExists} "$carpeta\$1"
        ClearErrors
        FileOpen $2 "$carpeta\$1" a
        ${IfNot} ${Errors}
            FileClose $2
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "Parvanel está abierto, o su cuenta no puede cambiar esa carpeta ($1). \
Cierre su ventana y vuelva a intentarlo." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel ${ABIERTO}
        Quit
    ${Loop}
FunctionEnd

; For what needs an administrator: on the stack what that is, the program that goes on with it and
; its arguments. With /S, or where nobody gives the rights, it says so; it does not come back.
Function ${un}pedirPermiso
    Pop $0
    Pop $1
    Pop $2
    ${GetParameters} $3
    ClearErrors
    ${GetOptions} $3 "/ConPermiso" $4 ; asked for already
    ${If} ${Errors}
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION \
            "$0 Eso necesita el permiso de un administrador: Windows lo pide ahora." \
            /SD IDCANCEL IDCANCEL cancelado
        ClearErrors
        ExecShell "runas" "$1" "/ConPermiso $2"
        ${IfNot} ${Errors}
            SetErrorLevel 0
            Quit
        ${EndIf}
    ${EndIf}
    MessageBox MB_OK|MB_ICONSTOP "$0 Eso lo puede hacer sólo un administrador: \
pídaselo a quien cuida los computadores." /SD IDOK
    cancelado:
    SetErrorLevel ${SIN_PERMISO}
    Quit
FunctionEnd
!macroend
