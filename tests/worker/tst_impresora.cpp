// SPDX-License-Identifier: MIT
#include "worker/impresora.h"

#include <QtTest>

using Clase = impresora::Contestacion::Clase;

class TstImpresora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printer_survivesTheTrip();
    void garbage_isNoPrinter_data();
    void garbage_isNoPrinter();
    void answers_areReadBack_data();
    void answers_areReadBack();
};

Q_DECLARE_METATYPE(std::string)
Q_DECLARE_METATYPE(Clase)

void TstImpresora::printer_survivesTheTrip()
{
    const Impresora enviada{"lote con blancos", "borrador", {21590, 27940, 1000, 1001, 1002, 1003}};
    const auto dicho = impresora::leer(impresora::aTexto(enviada, {}));
    QCOMPARE(dicho.clase, Clase::Hecho);
    const auto recibida = impresora::deTexto(dicho.contenido);
    QVERIFY(recibida);
    QCOMPARE(recibida->nombre, enviada.nombre);
    QCOMPARE(recibida->instancia, enviada.instancia);
    QVERIFY(recibida->papel == enviada.papel);
}

void TstImpresora::garbage_isNoPrinter_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("nothing") << "";
    QTest::newRow("no numbers") << "lote\n";
    QTest::newRow("cut off") << "21000 29700 1000";
}

void TstImpresora::garbage_isNoPrinter()
{
    QFETCH(QString, texto);
    QVERIFY(!impresora::deTexto(texto.toStdString()));
}

void TstImpresora::answers_areReadBack_data()
{
    using impresora::aTexto;
    QTest::addColumn<std::string>("texto");
    QTest::addColumn<Clase>("clase");
    QTest::addColumn<std::string>("contenido");
    QTest::addColumn<int>("empezado");
    const auto fila = [](const char *nombre, const std::string &texto, Clase clase,
                         const std::string &contenido, int empezado) {
        QTest::newRow(nombre) << texto << clase << contenido << empezado;
    };
    const std::string empezado = impresora::empezadoATexto(12);
    fila("job", aTexto(12, {}), Clase::Hecho, "12", 0);
    fila("job that was begun", empezado + aTexto(12, {}), Clase::Hecho, "12", 12);
    fila("no printer", aTexto(std::nullopt, {"no hay"}), Clase::Negado, "no hay", 0);
    fila("refused", empezado + aTexto(0, {"apagada"}), Clase::Negado, "apagada", 12);
    fila("away", aTexto(0, {"no está", true}), Clase::Ausente, "no está", 0);
    fila("away in between", empezado + aTexto(0, {"se fue", true}), Clase::Ausente, "se fue", 12);
    fila("begun and no more", empezado, Clase::Ausente, "", 12);
    fila("begun twice", empezado + impresora::empezadoATexto(13), Clase::Ausente, "", 13);
    fila("cut off", "#1", Clase::Ausente, "", 0);
    fila("nothing", "", Clase::Ausente, "", 0);
}

void TstImpresora::answers_areReadBack()
{
    QFETCH(std::string, texto);
    QFETCH(Clase, clase);
    QFETCH(std::string, contenido);
    QFETCH(int, empezado);
    const auto leida = impresora::leer(texto);
    QCOMPARE(leida.clase, clase);
    QCOMPARE(leida.contenido, contenido);
    QCOMPARE(leida.empezado, empezado);
}

QTEST_GUILESS_MAIN(TstImpresora)
#include "tst_impresora.moc"
