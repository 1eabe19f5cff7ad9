// SPDX-License-Identifier: MIT
// The archive root as an open folder, and the folders in it. Everything that the program creates,
// changes or deletes is named from a folder opened here, so that it stands in the root also when
// somebody puts a link in a folder's place meanwhile.
#pragma once

#include "Descriptor_linux.h"
#include "NombresDeCarpeta_linux.h"
#include "temporales.h"

#include <QString>
#include <QStringList>

#include <optional>

class RaizArchivo {
public:
    // `personal` is the absolute native folder that C:\ stands for, empty for none: then every
    // operation fails. `nombre` is the one folder in it that the program may write to.
    RaizArchivo(const QString &personal, const QString &nombre);

    const QString &nombre() const { return m_nombre; }
    bool hayUnidad() const { return !m_personal.isEmpty(); }
    // Whether a name in the drive's top folder means the archive root.
    bool esRaiz(const QString &nombre) const;

    // The folder of C:\. What stands in it is looked at, and the root made; no more.
    Descriptor abrirPersonal() const;
    // The archive root, which may be a link to a folder anywhere. It is opened for each operation
    // anew: one kept open would keep its disk from being taken out.
    Descriptor abrirRaiz();

    // A folder below the root by its names (none: the root itself). Links on the way are followed
    // as long as they stay in the root; one that leads out of it opens nothing.
    Descriptor abrirCarpeta(const QStringList &nombres);

    // The entry of a folder of the root that holds a file: itself, or what it leads to if it is a
    // link that stays in the root. Nothing when that is anything but a regular file.
    struct Archivo {
        Descriptor carpeta; // where a link led to; none for an entry that is the file itself
        NombresDeCarpeta::Entrada entrada;
    };
    std::optional<Archivo> archivo(const Descriptor &carpeta,
                                   const NombresDeCarpeta::Entrada &entrada);

    // The native path of an entry by its names from C:\ on: existing spellings, and those asked
    // for from the first one on that does not exist. It is for reading: it may lead anywhere.
    QString rutaNativa(const QStringList &pedidos);
    // The same for what stands in a folder of the root that has exactly that name, which may be one
    // that Windows refuses; nothing when there is no such folder.
    std::optional<QString> rutaNativa(const QString &carpeta, const QStringList &pedidos);

    NombresDeCarpeta nombres;
    temporales::Nombres recibidos; // of files that are being received

private:
    // Where a link in the root leads to, by names from the root on.
    std::optional<QStringList> destino(const Descriptor &carpeta, const QString &enlace);
    // From the root on, name by name.
    Descriptor andar(Descriptor carpeta, QStringList pendientes);
    // A native folder's path, and the entries below it in their existing spellings.
    QString seguir(QString ruta, const QStringList &pedidos);

    QString m_personal;
    QString m_nombre;
};
