// SPDX-License-Identifier: MIT
// Reading a Windows path: a plain function of its text, the same on every system.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace rutaWindows {

// The folder and file names of an absolute path on drive C ("C:\Quorvela\1-2010" gives
// "Quorvela", "1-2010"). "\" and "/" both separate and repeated ones count as one; "." and ".."
// are taken away as Windows does, before anything is looked up; trailing blanks and dots of a
// name are dropped. Nothing comes back for a path of another drive, a path that is not absolute
// and a path with a name that Windows refuses.
std::optional<QStringList> nombres(const QString &ruta);

// A path below one folder of drive C: the names of its own folder from there on, and its own name.
struct Lugar {
    QStringList carpeta;
    QString nombre;
    bool esRaiz = false; // the folder itself, with its name as the path has it
};

// Where the path stands below `raiz`, the name of a folder in the drive's top folder, whose letter
// case does not matter. Nothing for a path that leads elsewhere, and for one that `nombres`
// refuses: whoever writes only where this leads writes nowhere else.
std::optional<Lugar> lugarEn(const QString &raiz, const QString &ruta);

// The same of a file. Nothing either for the folder itself, and for a path that ends in a
// separator, as only that of a folder does.
std::optional<Lugar> archivoEn(const QString &raiz, const QString &ruta);

// The lines of a folder's listing: the names in it, sorted without regard to letter case, each with
// the folder's path before it as that was written. The separator is "\", and "/" in a path that
// begins so.
QStringList listado(const QString &carpeta, QStringList nombres);

// A path that begins as a line of a folder's listing does: the folder's name ("Quorvela"), one
// separator, and the name of a folder in it as it stands, up to the first "/". The name may be one
// that Windows refuses, end in a blank or a dot, or hold a "\"; all that it cannot hold is a "/".
struct EnLista {
    QString madre;
    QString carpeta;
    QStringList nombres; // from there on
};

// Reads a path so. Nothing comes back when it cannot be read so.
std::optional<EnLista> comoEnLista(const QString &ruta);

// Whether Windows refuses the name: it holds one of < > : " | ? * or a control character, is
// empty, or is a reserved device name (CON, PRN, AUX, NUL, COM1-9, LPT1-9), with or without an
// extension.
bool nombreRefusado(const QString &nombre);

// An absolute path as Windows takes it at any length: "\\?\C:\Quorvela", "\\?\UNC\servidor\notas".
// One of a device ("\\.\...") has no other form.
QString sinLimite(const QString &ruta);

// The same path as everybody writes it, "C:\Quorvela" or "\\servidor\notas": programs that read it
// know no other form.
QString conLimite(const QString &ruta);

// Whether the path names drive C (with either letter case and either separator after it).
bool enUnidadC(const QString &ruta);

} // namespace rutaWindows
