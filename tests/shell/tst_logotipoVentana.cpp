// SPDX-License-Identifier: MIT
// A window's start brings in nothing that reads drawings. By itself: whatever else looks at a
// drawing in this process would have brought it in.
#include "estilo/Logotipo.h"
#include "shell/VentanaDePrueba.h"

#include <QFile>

using namespace Qt::StringLiterals;

class tst_logotipoVentana : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ventanaALaVista_iconoSinLeerElDibujo()
    {
        QGuiApplication::setWindowIcon(Logotipo::icono());
        const VentanaDePrueba v;
        QVERIFY(!v.form.windowIcon().isNull());
        QFile mapas(u"/proc/self/maps"_s);
        QVERIFY(mapas.open(QIODevice::ReadOnly));
        QVERIFY(!mapas.readAll().contains("libqsvgicon"));
    }
};

QTEST_MAIN(tst_logotipoVentana)
#include "tst_logotipoVentana.moc"
