// SPDX-License-Identifier: MIT
// The built program, run from its command line without a display, beside an archive that the main
// program made.
#pragma once

#include "revisor/EscuelaDePrueba.h"

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class ConsolaDePrueba : public QObject {
protected:
    struct Respuesta {
        int salida = -1;
        QString dicho;
        QString queja;
    };

    // A new folder, and a whole archive in it.
    void prepararse()
    {
        m_lugar = std::make_unique<QTemporaryDir>();
        EscuelaDePrueba escuela(generarEscuela({2010, 1, 3, 2}));
        QCOMPARE(textoDe(escuela.descargar(m_lugar->path())), historico());
    }

    // In that folder.
    Respuesta correr(const QStringList &argumentos) const
    {
        QProcess proceso;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        for (const char *pantalla : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            entorno.remove(QString::fromLatin1(pantalla));
        proceso.setProcessEnvironment(entorno);
        proceso.setWorkingDirectory(m_lugar->path());
        proceso.start(QStringLiteral(PARVANEL_REVISOR), argumentos);
        if (!proceso.waitForFinished(60000) || proceso.exitStatus() != QProcess::NormalExit)
            return {};
        return {.salida = proceso.exitCode(),
                .dicho = QString::fromUtf8(proceso.readAllStandardOutput()),
                .queja = QString::fromUtf8(proceso.readAllStandardError())};
    }

    QString lugar() const { return m_lugar->path(); }
    QString lugar(const QString &dentro) const { return m_lugar->filePath(dentro); }
    QString historico() const { return lugar(QStringLiteral("Quorvela/123-2010")); }

private:
    std::unique_ptr<QTemporaryDir> m_lugar;
};
