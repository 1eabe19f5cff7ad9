// SPDX-License-Identifier: MIT
#pragma once

#include "revisor/EscuelaDePrueba.h"
#include "revisor/Revision.h"

#include <QTemporaryDir>

// An archive with room for one bad thing: a front page, settings and one student's pages.
class Pequeno {
public:
    Pequeno()
    {
        for (const char *carpeta : {"archivos/infoAlumnos", "archivos/fotos", "archivos/salones"})
            std::filesystem::create_directories(carpetaDe() / carpeta);
        escrito(carpetaDe() / "index.html", "<html><body><a href='#'>x</a></body></html>\r\n");
    }
    ~Pequeno() { std::filesystem::remove_all(carpetaDe()); }
    Pequeno(const Pequeno &) = delete;
    Pequeno &operator=(const Pequeno &) = delete;

    std::filesystem::path carpetaDe() const { return rutaDe(m_personal.path()) / "123-2010"; }
    void pagina(const QByteArray &bytes) const
    {
        escrito(carpetaDe() / "archivos/infoAlumnos/1.html", bytes);
    }
    QStringList reglasDe(const QString &archivo) const
    {
        QStringList reglas;
        const Resultado resultado = revisar(carpetaDe());
        for (const Hallazgo &h : resultado.hallazgos) {
            if (h.archivo == archivo)
                reglas.append(h.regla->nombre.toString());
        }
        return reglas;
    }

private:
    QTemporaryDir m_personal;
};
