// SPDX-License-Identifier: MIT
// Entries of an open folder, named from that folder and not by a path: what is opened, made,
// deleted or renamed so stands in that very folder, whatever somebody puts in the place of one on
// the way to it. Nothing is ever handed on to a started program.
#pragma once

#include "Manija_windows.h"
#include "Paciencia.h"

#include <QString>

#include <optional>

namespace aperturas {

enum class Fin {
    Hecho,
    Falta,   // there is no such entry, or what a link leads to is missing
    Existe,  // there is one already
    Ocupado, // another program holds it; it may let go of it any moment
    Fallo
};

struct Apertura {
    Manija manija;
    Fin fin = Fin::Fallo;

    explicit operator bool() const { return fin == Fin::Hecho; }
};

// A folder by its absolute path ("\\?\C:\Quorvela"), links followed. While it is open it cannot be
// moved or deleted, nor can any of the folders that it stands in.
Apertura abrirCarpeta(const QString &ruta);
// The same for one below an open folder, by names with "\" between; an empty name fails.
Apertura abrirCarpeta(const Manija &carpeta, const QString &dentro);
// Makes a folder.
Fin crearCarpeta(const Manija &carpeta, const QString &nombre);

// What stands under a name, to be looked at only: nobody who holds it is in the way.
enum class Enlace { ElMismo, Seguido };
Apertura mirar(const Manija &carpeta, const QString &nombre, Enlace enlace);
// A file that is there, links followed, to add to its end. Others may read it meanwhile.
Apertura abrirParaAgregar(const Manija &carpeta, const QString &nombre);
// A new file to add to, never one that is there nor what a link leads to.
Apertura crearParaAgregar(const Manija &carpeta, const QString &nombre);
// A new file, which can be renamed and deleted through its handle as well.
Apertura crearParaRecibir(const Manija &carpeta, const QString &nombre);
// An entry that is no folder, to be deleted through its handle: a link itself.
Apertura abrirParaBorrar(const Manija &carpeta, const QString &nombre);

struct Datos {
    // Where it really stands: links resolved, names in full and as they are spelled on the disk,
    // without a "\" at its end.
    QString ruta;
    bool esCarpeta = false;
    bool esEnlace = false; // it leads to another entry
    bool soloLectura = false;
    bool enDisco = false; // no pipe, no device
    qint64 largo = 0;
    unsigned long nombres = 0; // hard links
    qint64 escrito = 0;        // last written to, seconds since 1970

    bool esArchivo() const { return enDisco && !esCarpeta && !esEnlace; }
    QString carpeta() const { return ruta.left(ruta.lastIndexOf(u'\\')); }
    QString nombre() const { return ruta.mid(ruta.lastIndexOf(u'\\') + 1); }
};
// Nothing when the system does not tell all of it.
std::optional<Datos> datosDe(const Manija &manija);

// A moment of the system's in seconds since 1970.
qint64 segundosDe(const FILETIME &momento);

// Deletes what abrirParaBorrar() or crearParaRecibir() opened. A file that is marked as read-only
// is deleted like any other, as its folder decides that on the other systems; its mark is taken off
// on disks that ask for it, but for a file with a second name, which would lose it there as well.
Fin borrar(const Manija &archivo);
// Gives what crearParaRecibir() opened its name in the folder, in place of an entry that has it,
// which is no folder; one that is marked as read-only is replaced as it is deleted.
Fin renombrar(const Manija &archivo, const Manija &carpeta, const QString &nombre);

// Adds all of the bytes; false when not all went in.
bool escribirTodo(const Manija &archivo, const char *bytes, qint64 cuantos);

inline Fin finDe(Fin fin)
{
    return fin;
}
inline Fin finDe(const Apertura &apertura)
{
    return apertura.fin;
}

// Does something that comes to a Fin or an Apertura, again while another program is in its way.
template <typename Hacer>
auto insistir(Paciencia &paciencia, Hacer hacer)
{
    auto resultado = hacer();
    while (finDe(resultado) == Fin::Ocupado && paciencia.esperar())
        resultado = hacer();
    return resultado;
}

} // namespace aperturas
