// SPDX-License-Identifier: MIT
// The print panel and the print worker as a job's test needs them: the panel keeps a history,
// and the worker is a real program, found on PATH, that notes the lines it is given.
#pragma once

#include "escenario/Historia.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

class PanelAnotado : public PanelImpresion {
public:
    QString lineaSalon() const override { return salon; }
    int periodo() const override { return elegido; }
    bool descargarEImprimir() const override { return imprimir; }
    void mensaje(const QString &texto) override { anotar(QStringLiteral("mensaje: ") + texto); }
    void empezar(int maximo) override { anotar(QStringLiteral("empezar %1").arg(maximo)); }
    void avanzar() override
    {
        anotar(QStringLiteral("avanzar"));
        if (alAvanzar)
            alAvanzar();
    }
    void terminar() override { anotar(QStringLiteral("terminar")); }

    QString salon = QStringLiteral("501   : QUINTO A");
    int elegido = 2;
    bool imprimir = true;
    QStringList historia;
    Historia *comun = nullptr; // notes the same, among the requests
    std::function<void()> alAvanzar;

private:
    void anotar(const QString &suceso)
    {
        historia.append(suceso);
        if (comun)
            comun->anotar(suceso);
    }
};

// While it lives, "parvanel-print" on PATH is this one. Its notes are complete when the Verbos
// that started it is gone and ended() says so.
class ObreroAnotado {
public:
    ObreroAnotado() : m_antes(qgetenv("PATH"))
    {
        QFile guion(m_carpeta.filePath(QStringLiteral("parvanel-print")));
        [[maybe_unused]] const bool abierto = guion.open(QIODevice::WriteOnly);
        guion.write("#!/bin/sh\necho >> '" + ruta("arranques") + "'\ncat >> '" + ruta("lineas")
                    + "'\necho >> '" + ruta("fin") + "'\n");
        guion.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        guion.close();
        qputenv("PATH", m_carpeta.path().toUtf8() + ':' + m_antes);
    }
    ~ObreroAnotado() { qputenv("PATH", m_antes); }

    bool arrancado() const { return QFile::exists(QString::fromUtf8(ruta("arranques"))); }
    bool terminado() const { return QFile::exists(QString::fromUtf8(ruta("fin"))); }
    qsizetype arranques() const { return leer("arranques").size(); }
    QStringList documentos() const
    {
        return QString::fromUtf8(leer("lineas")).split(u'\n', Qt::SkipEmptyParts);
    }

private:
    QByteArray ruta(const char *nombre) const
    {
        return m_carpeta.filePath(QString::fromLatin1(nombre)).toUtf8();
    }
    QByteArray leer(const char *nombre) const
    {
        QFile archivo(QString::fromUtf8(ruta(nombre)));
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }

    QByteArray m_antes;
    QTemporaryDir m_carpeta;
};
