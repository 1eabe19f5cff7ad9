// SPDX-License-Identifier: MIT
// What a progress bar looks like.
#include "BarraProgreso.h"
#include "estilo/tonos.h"

#include <QImage>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_barra : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cadaEscala_marcoEntero_data()
    {
        QTest::addColumn<qreal>("escala");
        for (const qreal escala : {1.0, 1.25, 1.5, 1.75, 2.0})
            QTest::addRow("%g", escala) << escala;
    }

    void cadaEscala_marcoEntero()
    {
        QFETCH(const qreal, escala);
        BarraProgreso barra;
        barra.resize(200, 20);
        barra.ponerMaximo(2);
        barra.ponerValor(1);
        QImage imagen((QSizeF(barra.size()) * escala).toSize(), QImage::Format_RGB32);
        imagen.setDevicePixelRatio(escala);
        barra.render(&imagen);

        const QRgb marco = tonos::de(barra.palette()).borde.rgb();
        const QRect orilla = imagen.rect();
        // Off the middle, where one area ends and the other begins.
        const int x = orilla.width() / 4;
        const int y = orilla.height() / 2;
        for (const QPoint punto :
             {QPoint(x, 0), QPoint(x, orilla.bottom()), QPoint(orilla.width() - x, 0),
              QPoint(orilla.width() - x, orilla.bottom()), QPoint(0, y), QPoint(orilla.right(), y)})
            QVERIFY2(imagen.pixel(punto) == marco,
                     qPrintable(u"%1,%2"_s.arg(punto.x()).arg(punto.y())));
    }
};

QTEST_MAIN(tst_barra)
#include "tst_barra.moc"
