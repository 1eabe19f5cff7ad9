// SPDX-License-Identifier: MIT
// The drawings in a program that has no library to draw them: out of what the build has drawn,
// which for this test are 16, 20, 32, 48 and 128 pixels a side.
#include "estilo/dibujo.h"

#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_dibujo : public QObject {
    Q_OBJECT

private:
    static constexpr auto nombre = ":/prueba/marca"_L1;

    // As the file has it.
    static QImage hecha(int lado)
    {
        QFile archivo(u":/prueba/marca-%1x%1.argb"_s.arg(lado));
        if (!archivo.open(QIODevice::ReadOnly))
            return {};
        const QByteArray bytes = archivo.readAll();
        return QImage(reinterpret_cast<const uchar *>(bytes.constData()), lado, lado,
                      QImage::Format_ARGB32_Premultiplied)
            .copy();
    }

    static QImage pintada(int lado, qreal escala, QLatin1StringView cual = nombre)
    {
        QImage lienzo((QSizeF(lado, lado) * escala).toSize(), QImage::Format_ARGB32_Premultiplied);
        lienzo.setDevicePixelRatio(escala);
        lienzo.fill(Qt::transparent);
        QPainter pintor(&lienzo);
        dibujo::pintar(pintor, QString(cual), QRectF(0, 0, lado, lado));
        pintor.end();
        lienzo.setDevicePixelRatio(1);
        return lienzo;
    }

private Q_SLOTS:
    void tamanoHecho_pixelPorPixel_data()
    {
        QTest::addColumn<int>("lado");
        QTest::addColumn<qreal>("escala");
        QTest::addColumn<int>("pixeles");
        QTest::newRow("16") << 16 << 1.0 << 16;
        QTest::newRow("16 al 125 %") << 16 << 1.25 << 20;
        QTest::newRow("16 al 200 %") << 16 << 2.0 << 32;
        QTest::newRow("32 al 150 %") << 32 << 1.5 << 48;
    }

    void tamanoHecho_pixelPorPixel()
    {
        QFETCH(const int, lado);
        QFETCH(const qreal, escala);
        QFETCH(const int, pixeles);
        const QImage esperada = hecha(pixeles);
        QCOMPARE(esperada.size(), QSize(pixeles, pixeles));
        QCOMPARE(pintada(lado, escala), esperada);
    }

    void tamanoIntermedio_elSiguienteReducido()
    {
        const QImage reducida =
            hecha(32).scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY(reducida != hecha(32).scaled(24, 24)); // smoothly, which makes a difference
        QCOMPARE(pintada(24, 1), reducida);
        QCOMPARE(pintada(12, 2), reducida);
    }

    void masGrandeQueTodos_elMayorAmpliado()
    {
        QCOMPARE(pintada(200, 1),
                 hecha(128).scaled(200, 200, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

    void fueraDelOrigen_enSuLugar()
    {
        QImage lienzo(40, 40, QImage::Format_ARGB32_Premultiplied);
        lienzo.fill(Qt::transparent);
        QPainter pintor(&lienzo);
        dibujo::pintar(pintor, QString(nombre), QRectF(8, 11, 16, 16));
        pintor.end();
        QCOMPARE(lienzo.copy(8, 11, 16, 16), hecha(16));
        QImage alrededor = lienzo;
        QPainter borrador(&alrededor);
        borrador.setCompositionMode(QPainter::CompositionMode_Clear);
        borrador.fillRect(8, 11, 16, 16, Qt::transparent);
        borrador.end();
        lienzo.fill(Qt::transparent);
        QCOMPARE(alrededor, lienzo);
    }

    void sinDibujo_nada()
    {
        QImage lienzo(16, 16, QImage::Format_ARGB32_Premultiplied);
        lienzo.fill(Qt::transparent);
        QCOMPARE(pintada(16, 1, ":/prueba/otra"_L1), lienzo);
        QVERIFY(dibujo::icono(u":/prueba/otra"_s).isNull());
    }

    void icono_todosLosTamanos()
    {
        const QIcon icono = dibujo::icono(QString(nombre));
        QCOMPARE(icono.availableSizes().size(), 5);
        for (const int lado : {16, 20, 32, 48, 128}) {
            QCOMPARE(icono.pixmap(QSize(lado, lado))
                         .toImage()
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied),
                     hecha(lado));
        }
    }
};

QTEST_MAIN(tst_dibujo)
#include "tst_dibujo.moc"
