// SPDX-License-Identifier: MIT
// The tones: whatever palette a desktop has, what must be told apart can be.
#include "estilo/tonos.h"
#include "platform/paleta.h"

#include <QStyle>
#include <QStyleFactory>
#include <QTest>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

class tst_tonos : public QObject {
    Q_OBJECT
private:
    static QPalette clara()
    {
        return std::unique_ptr<QStyle>(QStyleFactory::create(u"fusion"_s))->standardPalette();
    }

    static QPalette conAcento(QPalette paleta, const QColor &acento,
                              const QColor &sobre = Qt::white)
    {
        paleta.setColor(QPalette::Highlight, acento);
        paleta.setColor(QPalette::HighlightedText, sobre);
        return paleta;
    }

    static QPalette deDosColores(const QColor &letra, const QColor &fondo)
    {
        QPalette paleta(fondo, fondo);
        for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            paleta.setColor(papel, letra);
        paleta.setColor(QPalette::Base, fondo);
        paleta.setColor(QPalette::Highlight, letra);
        paleta.setColor(QPalette::HighlightedText, fondo);
        return paleta;
    }

private Q_SLOTS:
    // Worked out by hand from the guidelines' formula.
    void contraste_esElDeLaNorma_data()
    {
        QTest::addColumn<QColor>("uno");
        QTest::addColumn<QColor>("otro");
        QTest::addColumn<double>("esperado");
        QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
        QTest::newRow("the same") << QColor(Qt::red) << QColor(Qt::red) << 1.0;
        QTest::newRow("grey on white") << QColor(0x77, 0x77, 0x77) << QColor(Qt::white) << 4.48;
        QTest::newRow("white on blue") << QColor(Qt::white) << QColor(0, 0, 255) << 8.59;
        QTest::newRow("yellow on white") << QColor(255, 255, 0) << QColor(Qt::white) << 1.07;
    }
    void contraste_esElDeLaNorma()
    {
        QFETCH(const QColor, uno);
        QFETCH(const QColor, otro);
        QFETCH(const double, esperado);
        QVERIFY(std::abs(tonos::contraste(uno, otro) - esperado) < 0.01);
        QCOMPARE(tonos::contraste(uno, otro), tonos::contraste(otro, uno));
    }

    void colorQueSeDistingue_quedaComoEs()
    {
        const QColor azul(0x1d, 0x4e, 0x79);
        QCOMPARE(tonos::apartado(azul, {Qt::white}, tonos::legible), azul);
    }

    void colorQueNoSeDistingue_seMueveLoPreciso()
    {
        const QColor celeste(0x30, 0x8c, 0xc6);
        const QColor movido = tonos::apartado(celeste, {Qt::white}, tonos::legible);
        QVERIFY(tonos::contraste(celeste, Qt::white) < tonos::legible);
        QVERIFY(tonos::contraste(movido, Qt::white) >= tonos::legible);
        QVERIFY(tonos::contraste(movido, Qt::white) < tonos::legible + 0.5);
        QVERIFY(std::abs(movido.hslHue() - celeste.hslHue()) <= 3); // still the same blue
    }

    void dosFondosContrarios_elMejorExtremo()
    {
        QCOMPARE(tonos::apartado(Qt::gray, {Qt::black, QColor(0x50, 0x50, 0x50)}, 21),
                 QColor(Qt::white));
    }

    void cadaPaleta_seDistingueTodo_data()
    {
        QTest::addColumn<QPalette>("paleta");
        const std::pair<const char *, QPalette> bases[] = {{"light", clara()},
                                                           {"dark", paletaOscura()}};
        const std::pair<const char *, QColor> acentos[] = {{"blue", QColor(0x30, 0x8c, 0xc6)},
                                                           {"orange", QColor(0xe9, 0x54, 0x20)},
                                                           {"green", QColor(0x73, 0xd2, 0x16)}};
        for (const auto &[base, paleta] : bases) {
            QTest::addRow("%s", base) << paleta;
            for (const auto &[nombre, acento] : acentos)
                QTest::addRow("%s, %s", base, nombre) << conAcento(paleta, acento);
        }
        QTest::newRow("yellow with black letters")
            << conAcento(clara(), QColor(0xf2, 0xb6, 0x32), Qt::black);
        QTest::newRow("black on white") << deDosColores(Qt::black, Qt::white);
        QTest::newRow("yellow on black") << deDosColores(Qt::yellow, Qt::black);
        QTest::newRow("pale grey on white")
            << deDosColores(QColor(0xcc, 0xcc, 0xcc), QColor(Qt::white));
    }
    void cadaPaleta_seDistingueTodo()
    {
        QFETCH(const QPalette, paleta);
        for (const auto grupo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const tonos::Tonos t = tonos::de(paleta, grupo);
            QVERIFY(tonos::contraste(t.sobreAcento, t.acento) >= tonos::legible);
            for (const QColor &fondo : {t.ventana, t.base}) {
                QVERIFY(tonos::contraste(t.acento, fondo) >= tonos::visible);
                QVERIFY(tonos::contraste(t.texto, fondo) >= tonos::legible);
                QVERIFY(tonos::contraste(t.apagado, fondo) >= tonos::legible);
                QVERIFY(tonos::contraste(t.marca, fondo) >= tonos::visible);
                QVERIFY(tonos::contraste(t.borde, fondo) >= tonos::visible);
            }
            QVERIFY(tonos::contraste(t.texto, t.tinte) >= tonos::legible);
        }
    }
};

QTEST_MAIN(tst_tonos)
#include "tst_tonos.moc"
