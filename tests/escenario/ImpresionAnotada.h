// SPDX-License-Identifier: MIT
// The print panel and what prints as a job's test needs them: the panel keeps a history, and a real
// program notes the documents that it is given.
#pragma once

#include "escenario/Historia.h"
#include "escenario/ObreroAnotado.h"
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
