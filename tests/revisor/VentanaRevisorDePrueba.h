// SPDX-License-Identifier: MIT
// The reviewer's real window over an archive of the test's own, its elements found by their names
// and worked with real clicks and keys.
#pragma once

#include "HistoricoDePrueba.h"
#include "Ventana.h"
#include "platform/DriveC.h"
#include "platform/Verbos.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

// A folder that passes for an archive and lacks nearly everything.
class HistoricoRoto : public HistoricoDePrueba {
public:
    QString donde() const { return texto("123-2010"); }
};

class VentanaRevisorDePrueba {
public:
    VentanaRevisorDePrueba() : disco(personal.path()), ventana(disco, verbos, [this] { ++cierres; })
    {
        ventana.show();
        ventana.activateWindow();
        [[maybe_unused]] const bool visible = QTest::qWaitForWindowExposed(&ventana);
    }

    template <typename Elemento = QWidget>
    Elemento *elemento(const char *nombre, const char *en = nullptr) const
    {
        const QWidget *donde =
            en == nullptr ? &ventana : ventana.findChild<QWidget *>(QString::fromLatin1(en));
        auto *hallado =
            donde == nullptr ? nullptr : donde->findChild<Elemento *>(QString::fromLatin1(nombre));
        if (!hallado)
            qFatal("no element %s of that kind", nombre);
        return hallado;
    }
    QString texto(const char *rotulo) const { return elemento<QLabel>(rotulo)->text(); }
    bool visible(const char *nombre) const { return elemento(nombre)->isVisible(); }
    bool activo(const char *nombre) const { return elemento(nombre)->isEnabled(); }
    void clic(const char *nombre) const { QTest::mouseClick(elemento(nombre), Qt::LeftButton); }

    // Waits for the end of what is under way.
    bool enReposo() const
    {
        return QTest::qWaitFor([this] { return !visible("botonDetener"); }, 60000);
    }
    void revisar(const QString &carpeta)
    {
        ventana.agregarCarpeta(carpeta);
        clic("botonRevisar");
        QVERIFY(enReposo());
    }

    QTemporaryDir personal;
    DriveC disco;
    Verbos verbos;
    int cierres = 0;
    Ventana ventana;
};
