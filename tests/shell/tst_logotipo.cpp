// SPDX-License-Identifier: MIT
// The logo: what the build has drawn of it is what would be drawn of it at every start.
#include "VentanaDePrueba.h"
#include "shell/Logotipo.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_logotipo : public QObject {
    Q_OBJECT

private:
    static QImage lienzo(qreal escala)
    {
        QImage imagen((QSizeF(180, 48) * escala).toSize(), QImage::Format_RGB32);
        imagen.setDevicePixelRatio(escala);
        imagen.fill(QColor(0xef, 0xe1, 0xd3)); // so that a corner that is see-through shows
        return imagen;
    }

private Q_SLOTS:
    // First: nothing in this process has read the drawing as an icon before.
    void ventanaALaVista_iconoSinLeerElDibujo()
    {
        QGuiApplication::setWindowIcon(Logotipo::icono());
        const VentanaDePrueba v;
        QVERIFY(!v.form.windowIcon().isNull());
        QFile mapas(u"/proc/self/maps"_s);
        QVERIFY(mapas.open(QIODevice::ReadOnly));
        QVERIFY(!mapas.readAll().contains("libqsvgicon"));
    }

    void cadaEscala_comoElDibujo_data()
    {
        QTest::addColumn<qreal>("escala");
        for (const qreal escala : {1.0, 1.25, 1.5, 2.0})
            QTest::addRow("%g", escala) << escala;
    }

    void cadaEscala_comoElDibujo()
    {
        QFETCH(const qreal, escala);
        Logotipo logotipo;
        logotipo.resize(180, 48);
        QImage mostrada = lienzo(escala);
        logotipo.render(&mostrada, {}, {}, {});

        QImage dibujada = lienzo(escala);
        QPainter pintor(&dibujada);
        QSvgRenderer(u":/logo.svg"_s).render(&pintor, QRectF(0, 0, 180, 48));
        pintor.end();
        QVERIFY(dibujada != lienzo(escala));
        QCOMPARE(mostrada, dibujada);
    }

    // The sizes that a window asks an icon for that can be drawn in any.
    void icono_comoElDibujo()
    {
        const QIcon dibujo(u":/logo.svg"_s);
        const QIcon icono = Logotipo::icono();
        QCOMPARE(icono.availableSizes().size(), 4);
        const QList<QSize> pedidas = {QSize(16, 16), QSize(32, 32), QSize(64, 64), QSize(128, 128)};
        for (qsizetype i = 0; i < pedidas.size(); ++i) {
            const QImage dibujada = dibujo.pixmap(pedidas[i]).toImage();
            QVERIFY(!dibujada.isNull());
            const QImage lista = icono.pixmap(icono.availableSizes()[i]).toImage();
            QCOMPARE(lista.convertToFormat(QImage::Format_ARGB32),
                     dibujada.convertToFormat(QImage::Format_ARGB32));
        }
    }
};

QTEST_MAIN(tst_logotipo)
#include "tst_logotipo.moc"
