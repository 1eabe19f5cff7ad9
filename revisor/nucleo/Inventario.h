// SPDX-License-Identifier: MIT
// What stands in an archive's folder: its files, and how a browser comes by them.
#pragma once

#include "familias.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <filesystem>
#include <stop_token>
#include <vector>

// A regular file.
struct Entrada {
    enum Clase { Pagina, Imagen, Biblioteca, Configuracion, Estilo, Resto, Otra };

    std::filesystem::path ruta; // from the archive on
    QString texto;              // the same as text, with "/"
    qint64 largo = 0;
    qint64 fecha = 0; // milliseconds since 1970, UTC
    Clase clase = Otra;
    int familia = -1; // of a document: familias::Cual
    QString id;       // of a document, as its name has it
};

// Where an address leads.
struct Hallado {
    enum Clase { Ninguno, Archivo, Carpeta };
    Clase clase = Ninguno;
    int entrada = -1;   // of a file
    bool exacto = true; // a system that regards every letter finds it too
};

class Inventario {
public:
    // Goes through the folder, which must be one. Links are followed to where they lead inside the
    // folder; a link that is another spelling of its neighbour is that neighbour. Stops early when
    // asked to.
    Inventario(const std::filesystem::path &carpeta, const std::stop_token &parar);

    // Sorted by their text.
    std::vector<Entrada> archivos;

    QStringList ilegibles;  // folders that cannot be listed, files that cannot be looked at
    QStringList haciaFuera; // links that lead out of the folder
    QStringList sinDestino; // links that lead nowhere
    bool raizLegible = true;

    // The file or folder of that path, given by its names from the archive on.
    Hallado buscar(const QStringList &nombres) const;
    Hallado buscar(const QString &ruta) const;

private:
    class Recorrido;

    void apartarCopias();
    bool estaExacta(const QString &ruta) const;

    QHash<QString, int> m_exactos;
    QHash<QString, int> m_claves;
    QSet<QString> m_carpetas; // by their keys
    QSet<QString> m_carpetasExactas;
    QHash<QString, QString> m_otrasEscrituras; // a link of another spelling: what it stands for
};
