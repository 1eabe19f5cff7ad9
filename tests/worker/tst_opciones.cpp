// SPDX-License-Identifier: MIT
#include "worker/opciones.h"

#include <QtTest>

using Argumentos = std::vector<std::string>;
using namespace std::chrono_literals;

class tst_opciones : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sinArgumentos_plazosUsuales();
    void plazos_seToman();
    void sinSentido_seRechaza_data();
    void sinSentido_seRechaza();
};

Q_DECLARE_METATYPE(Argumentos)

void tst_opciones::sinArgumentos_plazosUsuales()
{
    QCOMPARE(leerOpciones({})->plazoDibujo, std::chrono::seconds(20));
    QCOMPARE(leerOpciones({})->plazoServidor, std::chrono::seconds(15));
    QCOMPARE(leerOpciones({})->plazoAusencia, std::chrono::seconds(300));
}

void tst_opciones::plazos_seToman()
{
    const auto opciones =
        leerOpciones({"--plazo-servidor", "7", "--plazo-ausencia", "60", "--plazo-dibujo", "3"});
    QVERIFY(opciones);
    QVERIFY(*opciones == (Opciones{3s, 7s, 60s}));
}

void tst_opciones::sinSentido_seRechaza_data()
{
    QTest::addColumn<Argumentos>("argumentos");
    QTest::newRow("no value") << Argumentos{"--plazo-dibujo"};
    QTest::newRow("no number") << Argumentos{"--plazo-dibujo", "tres"};
    QTest::newRow("trailing text") << Argumentos{"--plazo-dibujo", "3s"};
    QTest::newRow("zero") << Argumentos{"--plazo-dibujo", "0"};
    QTest::newRow("negative") << Argumentos{"--plazo-dibujo", "-1"};
    QTest::newRow("unknown") << Argumentos{"--rapido", "1"};
    QTest::newRow("a path") << Argumentos{"/a.html"};
}

void tst_opciones::sinSentido_seRechaza()
{
    QFETCH(Argumentos, argumentos);
    QVERIFY(!leerOpciones(argumentos));
}

QTEST_GUILESS_MAIN(tst_opciones)
#include "tst_opciones.moc"
