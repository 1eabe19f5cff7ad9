// SPDX-License-Identifier: MIT
// The print panel and the print worker as a job's test needs them: the panel keeps a history,
// and the worker is a real program, found on PATH, that notes the lines it is given.
#pragma once

#include "escenario/Historia.h"
#include "escenario/ProgramasEnPath.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"

#include <QStringList>

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
// that started it is gone and terminado() says so.
class ObreroAnotado {
public:
    ObreroAnotado()
    {
        m_programas.poner(QStringLiteral("parvanel-print"),
                          "#!/bin/sh\necho >> '" + nota("arranques") + "'\ncat >> '"
                              + nota("lineas") + "'\necho >> '" + nota("fin") + "'\n");
    }

    bool arrancado() const { return !leer("arranques").isEmpty(); }
    bool terminado() const { return !leer("fin").isEmpty(); }
    qsizetype arranques() const { return leer("arranques").size(); }
    QStringList documentos() const
    {
        return QString::fromUtf8(leer("lineas")).split(u'\n', Qt::SkipEmptyParts);
    }

private:
    QByteArray nota(const char *nombre) const
    {
        return m_programas.ruta(QString::fromLatin1(nombre)).toUtf8();
    }
    QByteArray leer(const char *nombre) const
    {
        return m_programas.leer(QString::fromLatin1(nombre));
    }

    ProgramasEnPath m_programas;
};
