// SPDX-License-Identifier: MIT
// Windows opens and prints by the verbs of the document's kind. There is no print worker: whoever
// prints is the program that the user has for such documents, with the user's own sign-in and
// printer, so that what Verbos is told of the service and its limits of time have no use here.
//
// The verb is asked for in the calling thread, which comes back as soon as Windows has started that
// program (or has none), and does not wait for it to print. A thread with a queue of its own would
// come back sooner still, at a price: the window is closed at once when a job says that it is
// done, and what stood in the queue then would be lost without a word. So a job goes at the pace at
// which Windows takes its documents, in order, and each one that it has counted is in its hands.
#include "platform/Verbos.h"
#include "platform/rutaWindows.h"

#include <QFileInfo>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <shellapi.h>

#include <string>

namespace {

// The path as the verbs take it: they know neither the form of long paths nor, most of them, a long
// path. Such a one goes by its short names, where the disk keeps them.
QString paraElVerbo(const QString &documento)
{
    const QString ruta = rutaWindows::conLimite(documento);
    if (ruta.size() < MAX_PATH)
        return ruta;
    std::wstring breve(MAX_PATH, L'\0');
    const DWORD largo = GetShortPathNameW(rutaWindows::sinLimite(ruta).toStdWString().c_str(),
                                          breve.data(), static_cast<DWORD>(breve.size()));
    if (largo == 0 || largo >= breve.size())
        return ruta;
    return rutaWindows::conLimite(
        QString::fromWCharArray(breve.data(), static_cast<qsizetype>(largo)));
}

// Where the started program begins: it keeps its working folder from being removed or renamed, and
// an archive, or a stick that this program runs from, is not to be kept so.
std::wstring carpetaDelSistema()
{
    std::wstring carpeta(MAX_PATH, L'\0');
    carpeta.resize(GetSystemDirectoryW(carpeta.data(), static_cast<UINT>(carpeta.size())));
    return carpeta;
}

void hacer(const wchar_t *verbo, const QString &documento)
{
    const std::wstring ruta = paraElVerbo(documento).toStdWString();
    const std::wstring carpeta = carpetaDelSistema();
    SHELLEXECUTEINFOW orden = {};
    orden.cbSize = sizeof orden;
    // No message of the system's when it cannot be done. It is done, and not merely taken note of,
    // when the call returns: this process may end right after.
    orden.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    orden.lpVerb = verbo;
    orden.lpFile = ruta.c_str();
    orden.lpDirectory = carpeta.c_str();
    orden.nShow = SW_SHOWNORMAL;
    // A kind of document that nothing opens or prints is not this program's affair.
    static_cast<void>(ShellExecuteExW(&orden));
}

} // namespace

class Verbos::Interno {};

Verbos::Verbos(const EntornoImpresion & /*entorno*/, PlazosImpresion /*plazos*/) {}

Verbos::~Verbos() = default;

void Verbos::abrir(const QString &documento)
{
    hacer(L"open", documento);
}

void Verbos::imprimir(const QString &documento)
{
    if (QFileInfo(documento).isFile())
        hacer(L"print", documento);
}
