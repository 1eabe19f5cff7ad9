// SPDX-License-Identifier: MIT
// The mark and the name beside it, and the window's icon.
#include "shell/LogotipoMostrado.h"

#include <QSet>
#include <QTest>

using namespace logotipoMostrado;

class tst_logotipo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nombre_enElColorDeLasLetras()
    {
        QPalette paleta;
        paleta.setColor(QPalette::WindowText, QColor(1, 2, 3));
        const QImage imagen = mostrado(1, paleta);
        int pixeles = 0;
        for (int x = alto; x < ancho; ++x) {
            for (int y = 0; y < alto; ++y)
                pixeles += imagen.pixelColor(x, y) == QColor(1, 2, 3);
        }
        QVERIFY2(pixeles > 100, qPrintable(QString::number(pixeles)));
    }

    void icono_enCadaTamano()
    {
        const QIcon icono = Logotipo::icono();
        for (const int lado : {16, 24, 32, 48, 64, 128}) {
            QVERIFY(icono.availableSizes().contains(QSize(lado, lado)));
            const QImage imagen = icono.pixmap(QSize(lado, lado)).toImage();
            QCOMPARE(imagen.size(), QSize(lado, lado));
            QSet<QRgb> colores;
            for (int x = 0; x < lado; ++x)
                colores.insert(imagen.pixel(x, lado / 2));
            QVERIFY2(colores.size() > 2, qPrintable(QString::number(lado)));
        }
    }
};

QTEST_MAIN(tst_logotipo)
#include "tst_logotipo.moc"
