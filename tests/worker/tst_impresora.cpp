// SPDX-License-Identifier: MIT
#include "worker/impresora.h"

#include <QtTest>

using Clase = impresora::Contestacion::Clase;

class tst_impresora : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void impresora_llegaEnteraAlOtroLado();
    void basura_noEsImpresora_data();
    void basura_noEsImpresora();
    void respuestas_seLeenComoSeEscribieron_data();
    void respuestas_seLeenComoSeEscribieron();
};

Q_DECLARE_METATYPE(std::string)
Q_DECLARE_METATYPE(Clase)

void tst_impresora::impresora_llegaEnteraAlOtroLado()
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

void tst_impresora::basura_noEsImpresora_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("nothing") << "";
    QTest::newRow("no numbers") << "lote\n";
    QTest::newRow("cut off") << "21000 29700 1000";
}

void tst_impresora::basura_noEsImpresora()
{
    QFETCH(QString, texto);
    QVERIFY(!impresora::deTexto(texto.toStdString()));
}

void tst_impresora::respuestas_seLeenComoSeEscribieron_data()
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

void tst_impresora::respuestas_seLeenComoSeEscribieron()
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

QTEST_GUILESS_MAIN(tst_impresora)
#include "tst_impresora.moc"
