// SPDX-License-Identifier: MIT
// What only a disk of Windows has: marks, junctions, and entries that somebody holds open.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTest>

#include <winioctl.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

namespace entradasDeWindows {

// A native path as the system takes it letter by letter.
inline std::wstring ancha(const QString &ruta)
{
    return (QStringLiteral("\\\\?\\") + QDir::toNativeSeparators(ruta)).toStdWString();
}

inline DWORD marcas(const QString &ruta)
{
    return ::GetFileAttributesW(ancha(ruta).c_str());
}

inline bool soloLectura(const QString &ruta)
{
    return (marcas(ruta) & FILE_ATTRIBUTE_READONLY) != 0;
}

inline bool marcar(const QString &ruta, DWORD cuales)
{
    return ::SetFileAttributesW(ancha(ruta).c_str(), cuales) != FALSE;
}

inline bool otroNombre(const QString &archivo, const QString &nuevo)
{
    return ::CreateHardLinkW(ancha(nuevo).c_str(), ancha(archivo).c_str(), nullptr) != FALSE;
}

// What other programs' opens come to; closed with its holder.
class Abierto {
public:
    Abierto(const QString &ruta, DWORD acceso, DWORD comparte)
        : m_manija(::CreateFileW(ancha(ruta).c_str(), acceso, comparte, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS, nullptr))
    {
    }
    ~Abierto() { soltar(); }
    Abierto(const Abierto &) = delete;
    Abierto &operator=(const Abierto &) = delete;

    explicit operator bool() const { return m_manija != INVALID_HANDLE_VALUE; }
    HANDLE manija() const { return m_manija; }
    void soltar()
    {
        if (m_manija != INVALID_HANDLE_VALUE)
            ::CloseHandle(std::exchange(m_manija, INVALID_HANDLE_VALUE));
    }

private:
    HANDLE m_manija;
};

// A junction, as any account may make it.
inline bool hacerJuntura(const QString &destino, const QString &lugar)
{
    struct Cabeza {
        DWORD clase;
        WORD largo, reserva, desde, largoDestino, desdeMostrado, largoMostrado;
    };
    const std::wstring nombre =
        (QStringLiteral("\\??\\") + QDir::toNativeSeparators(destino)).toStdWString();
    const auto bytes = static_cast<WORD>(nombre.size() * sizeof(wchar_t));
    constexpr WORD cero = sizeof(wchar_t); // both names end in one
    Cabeza cabeza = {};
    cabeza.clase = IO_REPARSE_TAG_MOUNT_POINT;
    cabeza.largo = static_cast<WORD>(4 * sizeof(WORD) + bytes + 2U * cero);
    cabeza.largoDestino = bytes;
    cabeza.desdeMostrado = static_cast<WORD>(bytes + cero);
    std::vector<char> pedido(sizeof cabeza + bytes + 2U * cero);
    std::memcpy(pedido.data(), &cabeza, sizeof cabeza);
    std::memcpy(pedido.data() + sizeof cabeza, nombre.data(), bytes);
    if (!QDir().mkdir(lugar))
        return false;
    const HANDLE carpeta =
        ::CreateFileW(ancha(lugar).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                      FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    DWORD devueltos = 0;
    const bool hecha =
        ::DeviceIoControl(carpeta, FSCTL_SET_REPARSE_POINT, pedido.data(),
                          static_cast<DWORD>(pedido.size()), nullptr, 0, &devueltos, nullptr)
        != FALSE;
    ::CloseHandle(carpeta);
    if (!hecha || (marcas(lugar) & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        QDir().rmdir(lugar);
        return false;
    }
    return true;
}

// Where these programs run on a system that stands in for Windows and knows no junctions, its own
// links do instead: to a program of Windows they are as transparent.
inline bool hayProgramasDeFuera()
{
    return QFileInfo::exists(QStringLiteral("Z:\\bin\\ln"));
}

inline QString deFuera(const QString &ruta)
{
    using Traductor = char *(CDECL *)(const wchar_t *);
    const auto traducir = reinterpret_cast<Traductor>(reinterpret_cast<void *>(
        ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char *const suya = traducir ? traducir(ancha(ruta).c_str()) : nullptr;
    const QString hallada = QString::fromUtf8(suya);
    ::HeapFree(::GetProcessHeap(), 0, suya);
    return hallada;
}

// The folder is there already, whose name stands outside for what the entry is to be in.
inline void programaDeFuera(const QString &programa, const QStringList &argumentos,
                            const QString &lugar)
{
    [[maybe_unused]] const int fin = QProcess::execute(
        QStringLiteral("start"),
        QStringList{QStringLiteral("/wait"), QStringLiteral("/unix"), programa} + argumentos
            + QStringList{deFuera(QFileInfo(lugar).absolutePath()) + u'/'
                          + QFileInfo(lugar).fileName()});
}

// A junction, or a link to a file, or a link of that other system's; taken away with its holder.
class Enlace {
public:
    Enlace(const QString &destino, const QString &lugar) : m_lugar(lugar)
    {
        m_hecho =
            QFileInfo(destino).isDir() ? hacerJuntura(destino, lugar) : hacerAArchivo(destino);
        if (m_hecho || !hayProgramasDeFuera())
            return;
        programaDeFuera(QStringLiteral("/bin/ln"), {QStringLiteral("-s"), deFuera(destino)}, lugar);
        m_hecho = m_deFuera = QTest::qWaitFor([this] { return esta(); }, 20'000);
    }
    ~Enlace() { quitar(); }
    Enlace(const Enlace &) = delete;
    Enlace &operator=(const Enlace &) = delete;

    explicit operator bool() const { return m_hecho; }
    // Such a one cannot be opened itself: all that is asked of it is answered by where it leads.
    bool esDeFuera() const { return m_deFuera; }
    bool quitar()
    {
        if (m_deFuera)
            programaDeFuera(QStringLiteral("/bin/rm"), {}, m_lugar);
        else if (m_hecho && ::RemoveDirectoryW(ancha(m_lugar).c_str()) == FALSE)
            ::DeleteFileW(ancha(m_lugar).c_str());
        m_hecho = m_deFuera = false;
        return QTest::qWaitFor([this] { return !esta(); }, 20'000);
    }

private:
    // The account must be allowed to, or the system be set up for developers.
    bool hacerAArchivo(const QString &destino) const
    {
        return ::CreateSymbolicLinkW(ancha(m_lugar).c_str(), ancha(destino).c_str(),
                                     SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE)
                   != FALSE
               && esta();
    }
    bool esta() const { return marcas(m_lugar) != INVALID_FILE_ATTRIBUTES; }

    QString m_lugar;
    bool m_hecho = false;
    bool m_deFuera = false;
};

} // namespace entradasDeWindows
