// SPDX-License-Identifier: MIT
// The archive root as an open folder, and the folders in it. Everything that the program creates,
// changes or deletes is named from a folder opened here, whose real place is asked of the open
// folder itself: a junction or a link on the way to it may lead through the archive only.
#pragma once

#include "Manija_windows.h"
#include "Paciencia.h"
#include "aperturas_windows.h"
#include "temporales.h"

#include <QString>
#include <QStringList>

#include <optional>

// A folder of the root, held open: it cannot be moved meanwhile.
struct CarpetaAbierta {
    Manija manija;
    QString ruta; // where it and the root really stand, as aperturas::Datos tells it
    QString raiz;

    explicit operator bool() const { return bool(manija); }
    // Whether something stands in the root, however deep.
    bool enLaRaiz(const QString &otra) const;
};

class RaizArchivo {
public:
    // `personal` is the absolute native folder that C:\ stands for; any other means that there is
    // no drive C: then every operation fails. `nombre` is the one folder in it that the program may
    // write to.
    RaizArchivo(const QString &personal, const QString &nombre);

    const QString &nombre() const { return m_nombre; }
    bool hayUnidad() const { return !m_personal.isEmpty(); }
    // Whether a name in the drive's top folder means the archive root.
    bool esRaiz(const QString &nombre) const;

    // The folder of C:\. What stands in it is looked at, and the root made; no more.
    Manija abrirPersonal(Paciencia &paciencia) const;
    // A folder below the root by its names (none: the root itself). The root may be a junction or a
    // link to a folder anywhere; it is opened for each operation anew: one kept open would keep its
    // disk from being taken out. Links below it are followed as long as they stay in the root; one
    // that leads out of it opens nothing.
    CarpetaAbierta abrirCarpeta(const QStringList &nombres, Paciencia &paciencia) const;

    // The native path, with "/", of an entry by its names from C:\ on. It is for reading.
    QString ruta(const QStringList &nombres) const;
    // The native path of an entry for the shell: existing spellings, and those asked for from the
    // first one on that does not exist; with "\", and in the form for long paths where it is one.
    QString rutaNativa(const QStringList &pedidos) const;
    // The same for what stands in a folder of the root that has exactly that name, when it is one
    // that Windows reads otherwise in a path; nothing when there is no such folder.
    std::optional<QString> rutaNativa(const QString &carpeta, const QStringList &pedidos) const;

    temporales::Nombres recibidos; // of files that are being received

private:
    QString m_personal; // with "/", without one at its end
    QString m_nombre;
};
