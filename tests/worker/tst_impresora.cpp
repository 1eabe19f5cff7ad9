#include "worker/impresora.h"

#include <QtTest>

class TstImpresora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printer_survivesTheTrip();
    void reason_isNoPrinter();
    void garbage_isNoPrinter_data();
    void garbage_isNoPrinter();
    void jobNumber_andReason_areTold();
};

void TstImpresora::printer_survivesTheTrip()
{
    const Impresora enviada{"lote con blancos", "borrador", {21590, 27940, 1000, 1001, 1002, 1003}};
    const auto recibida = impresora::deTexto(impresora::aTexto(enviada, {}));
    QVERIFY(recibida);
    QCOMPARE(recibida->nombre, enviada.nombre);
    QCOMPARE(recibida->instancia, enviada.instancia);
    QVERIFY(recibida->papel == enviada.papel);
}

void TstImpresora::reason_isNoPrinter()
{
    const std::string texto = impresora::aTexto(std::nullopt, "no hay");
    QCOMPARE(texto, std::string("-no hay"));
    QVERIFY(!impresora::deTexto(texto));
}

void TstImpresora::garbage_isNoPrinter_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("nothing") << "";
    QTest::newRow("a sign") << "+";
    QTest::newRow("no numbers") << "+lote\n";
    QTest::newRow("cut off") << "+21000 29700 1000";
}

void TstImpresora::garbage_isNoPrinter()
{
    QFETCH(QString, texto);
    QVERIFY(!impresora::deTexto(texto.toStdString()));
}

void TstImpresora::jobNumber_andReason_areTold()
{
    QCOMPARE(impresora::aTexto(12, ""), std::string("+12"));
    QCOMPARE(impresora::aTexto(0, "apagada"), std::string("-apagada"));
}

QTEST_GUILESS_MAIN(TstImpresora)
#include "tst_impresora.moc"
