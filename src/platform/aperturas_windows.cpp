// SPDX-License-Identifier: MIT
#include "aperturas_windows.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

#include <ntdef.h>
#include <winternl.h>

using namespace Qt::StringLiterals;

namespace aperturas {
namespace {

// The system's own answers, by their numbers: its two headers with them exclude each other.
enum Respuesta : unsigned long {
    objetoSinNombre = 0xC0000034, // there is no such entry
    caminoSinNombre = 0xC000003A, // nor a folder on the way to it
    archivoNinguno = 0xC000000F,
    yaExiste = 0xC0000035,
    compartidoNo = 0xC0000043,
    conCandado = 0xC0000054,
    porBorrarse = 0xC0000056,
    accesoNegado = 0xC0000022,
    claseDesconocida = 0xC0000003,
    claseSinHacer = 0xC0000002,
    pedidoInvalido = 0xC000000D,
    noAdmitido = 0xC00000BB,
    llamadaInvalida = 0xC0000010,
};

Fin finDeRespuesta(NTSTATUS estado)
{
    if (estado >= 0)
        return Fin::Hecho;
    switch (static_cast<unsigned long>(estado)) {
    case objetoSinNombre:
    case caminoSinNombre:
    case archivoNinguno:
        return Fin::Falta;
    case yaExiste:
        return Fin::Existe;
    // The last one is a file that was deleted while somebody had it open.
    case compartidoNo:
    case conCandado:
    case porBorrarse:
        return Fin::Ocupado;
    default:
        return Fin::Fallo;
    }
}

// A disk or a system that does not know the newer way.
bool noLoConoce(NTSTATUS estado)
{
    switch (static_cast<unsigned long>(estado)) {
    case claseDesconocida:
    case claseSinHacer:
    case pedidoInvalido:
    case noAdmitido:
    case llamadaInvalida:
        return true;
    default:
        return false;
    }
}

struct Pedido {
    ACCESS_MASK acceso;
    ULONG comparte;
    ULONG disposicion;
    ULONG opciones;
};

constexpr ULONG todos = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr ULONG sinMoverse = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr ACCESS_MASK paraLaCarpeta = FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | SYNCHRONIZE;

Apertura abrir(const Manija &carpeta, const QString &nombre, const Pedido &pedido)
{
    constexpr qsizetype maximo = std::numeric_limits<USHORT>::max() / sizeof(wchar_t);
    if (!carpeta || nombre.isEmpty() || nombre.size() > maximo)
        return {};
    std::wstring letras = nombre.toStdWString();
    UNICODE_STRING texto = {};
    texto.Buffer = letras.data();
    texto.Length = static_cast<USHORT>(letras.size() * sizeof(wchar_t));
    texto.MaximumLength = texto.Length;
    OBJECT_ATTRIBUTES cual = {};
    cual.Length = sizeof cual;
    cual.RootDirectory = carpeta.valor();
    cual.ObjectName = &texto;
    cual.Attributes = OBJ_CASE_INSENSITIVE;
    IO_STATUS_BLOCK resultado = {};
    HANDLE manija = nullptr;
    const NTSTATUS estado = ::NtCreateFile(
        &manija, pedido.acceso | SYNCHRONIZE | FILE_READ_ATTRIBUTES, &cual, &resultado, nullptr,
        FILE_ATTRIBUTE_NORMAL, pedido.comparte, pedido.disposicion,
        pedido.opciones | FILE_SYNCHRONOUS_IO_NONALERT, nullptr, 0);
    const Fin fin = finDeRespuesta(estado);
    return {Manija(fin == Fin::Hecho ? manija : nullptr), fin};
}

qint64 entero(DWORD alto, DWORD bajo)
{
    return static_cast<qint64>(static_cast<quint64>(alto) << 32U | bajo);
}

// Where the system cannot tell the path in its usual form (a volume without a letter, a disk that
// does not know the question): the name under which it has the entry open, links resolved all the
// same. A path in one form is never that of a folder in the other, so that a mixture is refused.
QString rutaAbierta(const Manija &manija)
{
    constexpr auto nombreDeObjeto = static_cast<OBJECT_INFORMATION_CLASS>(1);
    std::vector<char> lugar(sizeof(UNICODE_STRING) + 2U * std::numeric_limits<USHORT>::max());
    ULONG largo = 0;
    if (::NtQueryObject(manija.valor(), nombreDeObjeto, lugar.data(),
                        static_cast<ULONG>(lugar.size()), &largo)
        < 0)
        return {};
    UNICODE_STRING nombre = {};
    std::memcpy(&nombre, lugar.data(), sizeof nombre);
    const QString ruta = QString::fromWCharArray(
        nombre.Buffer, static_cast<qsizetype>(nombre.Length / sizeof(wchar_t)));
    return ruta.startsWith(u"\\??\\"_s) ? u"\\\\?\\"_s + ruta.mid(4) : ruta;
}

QString rutaFinal(const Manija &manija)
{
    std::vector<wchar_t> lugar(512);
    for (;;) {
        const DWORD largo = ::GetFinalPathNameByHandleW(
            manija.valor(), lugar.data(), static_cast<DWORD>(lugar.size()), FILE_NAME_NORMALIZED);
        if (largo == 0)
            return rutaAbierta(manija);
        if (largo < lugar.size())
            return QString::fromWCharArray(lugar.data(), static_cast<qsizetype>(largo));
        lugar.resize(largo + 1);
    }
}

// Some entries are only stored otherwise (compressed, or kept by a service until they are asked
// for) and stand for themselves. What cannot be told is taken for a link.
bool llevaAOtra(const Manija &manija, DWORD atributos)
{
    if ((atributos & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    FILE_ATTRIBUTE_TAG_INFO marca = {};
    return ::GetFileInformationByHandleEx(manija.valor(), FileAttributeTagInfo, &marca,
                                          sizeof marca)
               == FALSE
           || IsReparseTagNameSurrogate(marca.ReparseTag) != 0;
}

NTSTATUS cambiar(const Manija &archivo, void *que, std::size_t largo, int clase)
{
    IO_STATUS_BLOCK resultado = {};
    return ::NtSetInformationFile(archivo.valor(), &resultado, que, static_cast<ULONG>(largo),
                                  static_cast<FILE_INFORMATION_CLASS>(clase));
}

// The older classes are in every header, the newer ones in none.
constexpr int claseBorrar = 13;
constexpr int claseBorrarNueva = 64;
constexpr int claseRenombrar = 10;
constexpr int claseRenombrarNueva = 65;

struct Renombrado {
    ULONG como;
    HANDLE carpeta;
    ULONG largo; // of the name, in bytes
};

NTSTATUS renombrar(const Manija &archivo, const Manija &carpeta, const QString &nombre, int clase,
                   ULONG como)
{
    const std::wstring letras = nombre.toStdWString();
    const std::size_t largo = letras.size() * sizeof(wchar_t);
    // The name begins where the last member ends; its room may not be less than the whole struct.
    constexpr std::size_t hasta = offsetof(Renombrado, largo) + sizeof(ULONG);
    const Renombrado cabeza = {como, carpeta.valor(), static_cast<ULONG>(largo)};
    std::vector<char> pedido(std::max(hasta + largo, sizeof(Renombrado)) + sizeof(wchar_t));
    std::memcpy(pedido.data(), &cabeza, hasta);
    std::memcpy(pedido.data() + hasta, letras.data(), largo);
    return cambiar(archivo, pedido.data(), pedido.size(), clase);
}

// Changes the mark of a file as read-only. False when that could not be done.
bool marcar(const Manija &archivo, bool soloLectura)
{
    const Manija propia(::ReOpenFile(archivo.valor(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                                     todos, FILE_FLAG_OPEN_REPARSE_POINT));
    FILE_BASIC_INFO sabido = {};
    if (!propia
        || ::GetFileInformationByHandleEx(propia.valor(), FileBasicInfo, &sabido, sizeof sabido)
               == FALSE)
        return false;
    constexpr DWORD marca = FILE_ATTRIBUTE_READONLY;
    FILE_BASIC_INFO nuevo = {}; // its times stay as they are
    nuevo.FileAttributes =
        soloLectura ? sabido.FileAttributes | marca : sabido.FileAttributes & ~marca;
    if (nuevo.FileAttributes == 0)
        nuevo.FileAttributes = FILE_ATTRIBUTE_NORMAL; // zero would change nothing
    return ::SetFileInformationByHandle(propia.valor(), FileBasicInfo, &nuevo, sizeof nuevo)
           != FALSE;
}

// Takes the mark off a file that has it and no other name. False when nothing was changed.
bool quitarMarca(const Manija &archivo)
{
    const auto datos = datosDe(archivo);
    return datos && datos->soloLectura && datos->nombres <= 1 && marcar(archivo, false);
}

// On a disk that does not know the newer way. One that did not go keeps its mark.
NTSTATUS borrarComoAntes(const Manija &archivo)
{
    const bool marcado = quitarMarca(archivo);
    BOOLEAN borrado = TRUE;
    const NTSTATUS estado = cambiar(archivo, &borrado, sizeof borrado, claseBorrar);
    if (estado < 0 && marcado) [[maybe_unused]]
        const bool repuesto = marcar(archivo, true);
    return estado;
}

// The earlier file must be closed again when it is replaced.
NTSTATUS renombrarComoAntes(const Manija &archivo, const Manija &carpeta, const QString &nombre)
{
    const auto anterior = [&] {
        return mirar(carpeta, nombre, Enlace::ElMismo).manija;
    };
    const bool marcado = quitarMarca(anterior());
    const NTSTATUS estado = renombrar(archivo, carpeta, nombre, claseRenombrar, TRUE);
    if (estado < 0 && marcado) [[maybe_unused]]
        const bool repuesto = marcar(anterior(), true);
    return estado;
}

} // namespace

Apertura abrirCarpeta(const QString &ruta)
{
    const std::wstring letras = ruta.toStdWString();
    Manija manija(::CreateFileW(letras.c_str(), paraLaCarpeta, sinMoverse, nullptr, OPEN_EXISTING,
                                FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!manija) {
        const DWORD error = ::GetLastError();
        return {{}, error == ERROR_SHARING_VIOLATION ? Fin::Ocupado : Fin::Fallo};
    }
    const auto datos = datosDe(manija);
    if (!datos || !datos->esCarpeta)
        return {};
    return {std::move(manija), Fin::Hecho};
}

Apertura abrirCarpeta(const Manija &carpeta, const QString &dentro)
{
    return abrir(carpeta, dentro, {paraLaCarpeta, sinMoverse, FILE_OPEN, FILE_DIRECTORY_FILE});
}

Fin crearCarpeta(const Manija &carpeta, const QString &nombre)
{
    return abrir(carpeta, nombre,
                 {paraLaCarpeta, todos, FILE_CREATE, FILE_DIRECTORY_FILE | FILE_OPEN_REPARSE_POINT})
        .fin;
}

Apertura mirar(const Manija &carpeta, const QString &nombre, Enlace enlace)
{
    return abrir(carpeta, nombre,
                 {FILE_READ_ATTRIBUTES, todos, FILE_OPEN,
                  enlace == Enlace::ElMismo ? ULONG(FILE_OPEN_REPARSE_POINT) : 0});
}

Apertura abrirParaAgregar(const Manija &carpeta, const QString &nombre)
{
    return abrir(carpeta, nombre,
                 {FILE_APPEND_DATA, FILE_SHARE_READ, FILE_OPEN, FILE_NON_DIRECTORY_FILE});
}

Apertura crearParaAgregar(const Manija &carpeta, const QString &nombre)
{
    return abrir(carpeta, nombre,
                 {FILE_APPEND_DATA, FILE_SHARE_READ, FILE_CREATE,
                  FILE_NON_DIRECTORY_FILE | FILE_OPEN_REPARSE_POINT});
}

Apertura crearParaRecibir(const Manija &carpeta, const QString &nombre)
{
    return abrir(carpeta, nombre,
                 {FILE_APPEND_DATA | DELETE, FILE_SHARE_READ, FILE_CREATE,
                  FILE_NON_DIRECTORY_FILE | FILE_OPEN_REPARSE_POINT});
}

Apertura abrirParaBorrar(const Manija &carpeta, const QString &nombre)
{
    return abrir(carpeta, nombre,
                 {DELETE, todos, FILE_OPEN, FILE_NON_DIRECTORY_FILE | FILE_OPEN_REPARSE_POINT});
}

qint64 segundosDe(const FILETIME &momento)
{
    constexpr qint64 cienNanosegundos = 10'000'000; // in a second
    constexpr qint64 de1601a1970 = 11'644'473'600;
    return entero(momento.dwHighDateTime, momento.dwLowDateTime) / cienNanosegundos - de1601a1970;
}

std::optional<Datos> datosDe(const Manija &manija)
{
    BY_HANDLE_FILE_INFORMATION sabido = {};
    if (!manija || ::GetFileInformationByHandle(manija.valor(), &sabido) == FALSE)
        return std::nullopt;
    Datos datos;
    datos.ruta = rutaFinal(manija);
    // That of a disk's top folder ends in one, which may be the archive root's.
    if (datos.ruta.endsWith(u'\\'))
        datos.ruta.chop(1);
    datos.esCarpeta = (sabido.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    datos.esEnlace = llevaAOtra(manija, sabido.dwFileAttributes);
    datos.soloLectura = (sabido.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    datos.enDisco = ::GetFileType(manija.valor()) == FILE_TYPE_DISK;
    datos.largo = entero(sabido.nFileSizeHigh, sabido.nFileSizeLow);
    datos.nombres = sabido.nNumberOfLinks;
    datos.escrito = segundosDe(sabido.ftLastWriteTime);
    return datos.ruta.isEmpty() ? std::nullopt : std::optional(datos);
}

Fin borrar(const Manija &archivo)
{
    // Its name is free at once, also while somebody still has it open.
    ULONG como = FILE_DISPOSITION_FLAG_DELETE | FILE_DISPOSITION_FLAG_POSIX_SEMANTICS
                 | FILE_DISPOSITION_FLAG_IGNORE_READONLY_ATTRIBUTE;
    NTSTATUS estado = cambiar(archivo, &como, sizeof como, claseBorrarNueva);
    if (noLoConoce(estado))
        estado = borrarComoAntes(archivo);
    return finDeRespuesta(estado);
}

Fin renombrar(const Manija &archivo, const Manija &carpeta, const QString &nombre)
{
    constexpr ULONG sinMirarSoloLectura = 0x40;
    NTSTATUS estado = renombrar(archivo, carpeta, nombre, claseRenombrarNueva,
                                FILE_RENAME_FLAG_REPLACE_IF_EXISTS
                                    | FILE_RENAME_FLAG_POSIX_SEMANTICS | sinMirarSoloLectura);
    if (noLoConoce(estado))
        estado = renombrarComoAntes(archivo, carpeta, nombre);
    // So the system answers for an earlier file that somebody has open. That new files may not be
    // made in the folder would have shown before.
    if (static_cast<unsigned long>(estado) == accesoNegado)
        return Fin::Ocupado;
    return finDeRespuesta(estado);
}

bool escribirTodo(const Manija &archivo, const char *bytes, qint64 cuantos)
{
    constexpr qint64 deUnaVez = 1 << 24;
    while (cuantos > 0) {
        DWORD escritos = 0;
        if (::WriteFile(archivo.valor(), bytes, static_cast<DWORD>(std::min(cuantos, deUnaVez)),
                        &escritos, nullptr)
                == FALSE
            || escritos == 0)
            return false;
        bytes += escritos;
        cuantos -= escritos;
    }
    return true;
}

} // namespace aperturas
