// SPDX-License-Identifier: MIT
// The names that stand in folders, looked up without regard to letter case. Folders are given by
// open descriptors, so that a name is looked up in that very folder, whatever becomes of its path;
// they are borrowed for the call.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

#include <sys/stat.h>

// Names as they stand on the disk: UTF-8, whatever the locale.
inline QByteArray enDisco(const QString &nombre)
{
    return nombre.toUtf8();
}

class NombresDeCarpeta {
public:
    // An entry of a folder: its spelling on the disk, and what it is (a link is a link).
    struct Entrada {
        QString nombre;
        struct stat datos = {};
    };

    // The entry that a name stands for, as nombresNativos::candidatos says. Nothing when there is
    // none.
    std::optional<Entrada> hallar(int carpeta, const QString &nombre);

    // The entries of a folder with the name of a temporary file, as downloads are written to.
    QStringList temporales(int carpeta);

    // Says that the file which `pedido` stood for has been deleted. From then on the name stands
    // for no entry of another spelling: what is written to a path after it was deleted is a file
    // of its own, and is never added to another one.
    void anotarBorrado(int carpeta, const QString &pedido);

    enum class Queda { Anotado, Olvidado, Igual };

    // Changes a folder through `hacer` and takes the change over into the remembered listing, so
    // that a folder of many files is not read again for each of them. A listing that somebody
    // else has overtaken stays out of date and is read again at its next use; one overtaken
    // within the file system's clock tick may be believed until the folder's next change. Names
    // in their exact spelling are always looked up on the disk. `hacer` itself looks none up: the
    // listing of one more folder may move the one at hand.
    template <typename Hacer>
    bool cambiar(int carpeta, const QString &nombre, Queda queda, Hacer hacer)
    {
        Listado *listado = alDia(carpeta);
        if (!hacer())
            return false;
        if (listado)
            tomarCambio(*listado, carpeta, nombre, queda);
        return true;
    }

private:
    // When a folder last changed: a listing counts for as long as this stays the same.
    struct Momento {
        qint64 segundos = -1;
        qint64 nanosegundos = -1;
        bool operator==(const Momento &) const = default;
    };
    struct Listado {
        Momento cambio;
        bool leido = false; // its names could be read
        // Folded name -> spellings on the disk, but for the one that is the folded name itself.
        QHash<QString, QStringList> escrituras;
        QStringList temporales;
        QSet<QString> borrados; // see anotarBorrado; outlives the listing
    };
    using Identidad = std::pair<dev_t, ino_t>;

    static std::optional<struct stat> datosDe(int carpeta);
    static Momento momentoDe(const struct stat &datos);
    static void leer(Listado &listado, int carpeta);
    static void tomarCambio(Listado &listado, int carpeta, const QString &nombre, Queda queda);

    // All spellings of a folded name, the one that is the folded name itself included.
    static QStringList escriturasDe(const Listado &listado, int carpeta, const QString &comun);

    // Both are good until the next listing is made.
    // The remembered listing if it is up to date; else null.
    Listado *alDia(int carpeta);
    // The listing, read again if needed; null when the folder is gone.
    Listado *listadoDe(int carpeta);

    QHash<Identidad, Listado> m_listados;
};
