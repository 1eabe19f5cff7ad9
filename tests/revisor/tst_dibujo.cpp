// SPDX-License-Identifier: MIT
// The pictures of the verdicts look as the library's own element for drawings shows them.
#include "DibujoVeredicto.h"

#include <QImage>
#include <QSvgWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_dibujo : public QObject {
    Q_OBJECT

private:
    static QImage lienzo(qreal escala)
    {
        QImage imagen((QSizeF(48, 48) * escala).toSize(), QImage::Format_RGB32);
        imagen.setDevicePixelRatio(escala);
        imagen.fill(QColor(0xef, 0xe1, 0xd3));
        return imagen;
    }

    static QImage de(QWidget &elemento, qreal escala)
    {
        elemento.resize(48, 48);
        QImage imagen = lienzo(escala);
        elemento.render(&imagen, {}, {}, {});
        return imagen;
    }

private Q_SLOTS:
    void cadaVeredicto_comoElDibujo_data()
    {
        QTest::addColumn<QString>("cual");
        QTest::addColumn<qreal>("escala");
        for (const QString &cual : {u"ajeno"_s, u"completo"_s, u"faltan"_s, u"pregunta"_s}) {
            for (const qreal escala : {1.0, 1.25, 1.5, 2.0})
                QTest::addRow("%s %g", qPrintable(cual), escala) << cual << escala;
        }
    }

    void cadaVeredicto_comoElDibujo()
    {
        QFETCH(const QString, cual);
        QFETCH(const qreal, escala);
        const QString nombre = u":/revisor/iconos/"_s + cual;
        QSvgWidget dibujo(nombre + u".svg"_s);
        const QImage esperada = de(dibujo, escala);
        QVERIFY(esperada != lienzo(escala));
        DibujoVeredicto veredicto;
        QCOMPARE(de(veredicto, escala), lienzo(escala));
        veredicto.poner(nombre);
        QCOMPARE(de(veredicto, escala), esperada);
    }
};

QTEST_MAIN(tst_dibujo)
#include "tst_dibujo.moc"
