// SPDX-License-Identifier: MIT
// By Windows' own calls: the compiler's library takes a link for what it leads to, lists no folder
// whose path is a long one, and knows a file's time to the second.
#include "recorrido_windows.h"
#include "platform/rutaWindows.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <chrono>
#include <cwchar>
#include <memory>
#include <ratio>
#include <string>

namespace fs = std::filesystem;

namespace recorrido {

namespace {

struct Cerrar {
    using pointer = HANDLE;
    void operator()(HANDLE hallada) const { FindClose(hallada); }
};

quint64 junto(DWORD alto, DWORD bajo)
{
    return (quint64{alto} << 32) | bajo;
}

fs::file_time_type momento(const FILETIME &cuando)
{
    // Windows counts from the year 1601.
    constexpr auto hasta1970 = std::chrono::seconds(11'644'473'600);
    using Decimas = std::chrono::duration<qint64, std::ratio<1, 10'000'000>>;
    const Decimas desde1601(
        static_cast<qint64>(junto(cuando.dwHighDateTime, cuando.dwLowDateTime)));
    return fs::file_time_type::clock::from_sys(
        std::chrono::time_point<std::chrono::system_clock, Decimas>(desde1601 - hasta1970));
}

bool esDePuntos(const WIN32_FIND_DATAW &datos)
{
    return std::wcscmp(datos.cFileName, L".") == 0 || std::wcscmp(datos.cFileName, L"..") == 0;
}

Entrada leida(const WIN32_FIND_DATAW &datos)
{
    Entrada entrada;
    entrada.nombre = datos.cFileName;
    entrada.clase = claseDe(datos.dwFileAttributes, datos.dwReserved0);
    if (entrada.clase == Clase::Archivo)
        entrada.bytes = static_cast<qint64>(junto(datos.nFileSizeHigh, datos.nFileSizeLow));
    entrada.escrito = momento(datos.ftLastWriteTime);
    return entrada;
}

std::wstring completa(const std::wstring &ruta)
{
    std::wstring entera;
    DWORD largo = GetFullPathNameW(ruta.c_str(), 0, nullptr, nullptr);
    while (largo > entera.size()) {
        entera.resize(largo);
        largo = GetFullPathNameW(ruta.c_str(), largo, entera.data(), nullptr);
    }
    entera.resize(largo);
    return entera;
}

} // namespace

Clase claseDe(quint32 atributos, quint32 etiqueta)
{
    if ((atributos & FILE_ATTRIBUTE_REPARSE_POINT) != 0
        && (etiqueta == IO_REPARSE_TAG_SYMLINK || etiqueta == IO_REPARSE_TAG_MOUNT_POINT))
        return Clase::Enlace;
    if ((atributos & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return Clase::Carpeta;
    return (atributos & FILE_ATTRIBUTE_DEVICE) != 0 ? Clase::Otra : Clase::Archivo;
}

bool porCarpeta(const fs::path &carpeta, const std::function<bool(const Entrada &)> &cada)
{
    WIN32_FIND_DATAW datos = {};
    const HANDLE primera =
        FindFirstFileExW(paraAbrir(carpeta / L"*").c_str(), FindExInfoBasic, &datos,
                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (primera == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_FILE_NOT_FOUND; // a disk's own folder, with nothing in it
    const std::unique_ptr<HANDLE, Cerrar> hallada(primera);
    do {
        if (!esDePuntos(datos) && !cada(leida(datos)))
            return true;
    } while (FindNextFileW(hallada.get(), &datos) != 0);
    return GetLastError() == ERROR_NO_MORE_FILES;
}

fs::path paraAbrir(const fs::path &ruta)
{
    constexpr std::size_t corta = 240; // some calls want room for a short name after it
    const std::wstring entera = completa(ruta.native());
    return entera.size() < corta
               ? ruta
               : fs::path(rutaWindows::sinLimite(QString::fromStdWString(entera)).toStdWString());
}

} // namespace recorrido
