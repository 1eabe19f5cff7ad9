// SPDX-License-Identifier: MIT
#include "temporales.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_temporales : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nombre_diceDeQuienEs();
    void proceso_delNombre_data();
    void proceso_delNombre();
    void escritor_segunElProceso_data();
    void escritor_segunElProceso();
};

void tst_temporales::nombre_diceDeQuienEs()
{
    QCOMPARE(temporales::nombre(4321, 7), u".descarga-4321-7"_s);
    QCOMPARE(temporales::procesoDe(temporales::nombre(4321, 7)), 4321);
}

void tst_temporales::proceso_delNombre_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<qint64>("proceso"); // 0: it is no such name
    const auto fila = [](const char *titulo, const QString &nombre, qint64 proceso) {
        QTest::newRow(titulo) << nombre << proceso;
    };
    fila("corriente", u".descarga-1-1"_s, 1);
    fila("diez cifras", u".descarga-9999999999-12345678901"_s, 9999999999);
    fila("once cifras", u".descarga-12345678901-1"_s, 0);
    fila("cero", u".descarga-0-1"_s, 0);
    fila("cero delante", u".descarga-01-1"_s, 0);
    fila("negativo", u".descarga--1-1"_s, 0);
    fila("sin numero", u".descarga-1-"_s, 0);
    fila("sin proceso", u".descarga--1"_s, 0);
    fila("letras", u".descarga-1a-1"_s, 0);
    fila("cifras de otra escritura", u".descarga-١-1"_s, 0);
    fila("algo detras", u".descarga-1-1.html"_s, 0);
    fila("linea detras", u".descarga-1-1\n"_s, 0);
    fila("algo delante", u"a.descarga-1-1"_s, 0);
    fila("sin punto", u"descarga-1-1"_s, 0);
    fila("mayusculas", u".Descarga-1-1"_s, 0);
    fila("vacio", QString(), 0);
}

void tst_temporales::proceso_delNombre()
{
    QFETCH(QString, nombre);
    QFETCH(qint64, proceso);
    QCOMPARE(temporales::procesoDe(nombre), proceso ? std::optional(proceso) : std::nullopt);
}

void tst_temporales::escritor_segunElProceso_data()
{
    QTest::addColumn<bool>("vive");
    QTest::addColumn<std::optional<qint64>>("comienzo"); // of the process; written at 1000
    QTest::addColumn<bool>("puede");
    using Comienzo = std::optional<qint64>;
    QTest::newRow("vive desde antes") << true << Comienzo(900) << true;
    QTest::newRow("vive desde entonces") << true << Comienzo(1000) << true;
    QTest::newRow("vive desde entonces, por redondeo") << true << Comienzo(1002) << true;
    QTest::newRow("vive desde despues") << true << Comienzo(1003) << false;
    QTest::newRow("vive desde quien sabe cuando") << true << Comienzo() << true;
    QTest::newRow("no vive") << false << Comienzo() << false;
    QTest::newRow("ha terminado") << false << Comienzo(900) << false;
}

void tst_temporales::escritor_segunElProceso()
{
    QFETCH(bool, vive);
    QFETCH(std::optional<qint64>, comienzo);
    QFETCH(bool, puede);
    QCOMPARE(temporales::puedeSerElEscritor({vive, comienzo}, 1000), puede);
}

QTEST_APPLESS_MAIN(tst_temporales)
#include "tst_temporales.moc"
