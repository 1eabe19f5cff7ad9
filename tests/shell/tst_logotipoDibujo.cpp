// SPDX-License-Identifier: MIT
// The mark: what the build has drawn of it is what would be drawn of it at every start.
#include "shell/LogotipoMostrado.h"

#include <QSvgRenderer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace logotipoMostrado;

class tst_logotipoDibujo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cadaEscala_comoElDibujo_data()
    {
        QTest::addColumn<qreal>("escala");
        for (const qreal escala : {1.0, 1.25, 1.5, 2.0})
            QTest::addRow("%g", escala) << escala;
    }

    void cadaEscala_comoElDibujo()
    {
        QFETCH(const qreal, escala);
        QImage dibujada = lienzo(escala);
        QPainter pintor(&dibujada);
        QSvgRenderer(u":/marca.svg"_s).render(&pintor, QRectF(0, 0, alto, alto));
        pintor.end();
        QVERIFY(dibujada != lienzo(escala));
        const QRect marca(QPoint(), (QSizeF(alto, alto) * escala).toSize());
        QCOMPARE(mostrado(escala).copy(marca), dibujada.copy(marca));
    }

    // The sizes that a window asks an icon for.
    void icono_cuadradoComoElDibujo()
    {
        const QIcon dibujo(u":/marca.svg"_s);
        const QIcon icono = Logotipo::icono();
        const QList<int> lados = {16, 24, 32, 48, 64, 128};
        QCOMPARE(icono.availableSizes().size(), lados.size());
        for (const int lado : lados) {
            const QImage dibujada = dibujo.pixmap(QSize(lado, lado)).toImage();
            QCOMPARE(dibujada.size(), QSize(lado, lado));
            QCOMPARE(icono.pixmap(QSize(lado, lado))
                         .toImage()
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied),
                     dibujada.convertToFormat(QImage::Format_ARGB32_Premultiplied));
        }
    }
};

QTEST_MAIN(tst_logotipoDibujo)
#include "tst_logotipoDibujo.moc"
