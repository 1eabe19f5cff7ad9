// SPDX-License-Identifier: MIT
#include "platform/nombresNativos.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_nombresNativos : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void candidatos_elMejorPrimero_data();
    void candidatos_elMejorPrimero();
    void enlacePuesto_esOtraEscritura();
    void enlace_esOtraEscritura_data();
    void enlace_esOtraEscritura();
    void desdeRaiz_losNombres_data();
    void desdeRaiz_losNombres();
};

void tst_nombresNativos::candidatos_elMejorPrimero_data()
{
    QTest::addColumn<QStringList>("hay");
    QTest::addColumn<QString>("pedido");
    QTest::addColumn<QStringList>("candidatos");
    const QStringList tres = {u"nOTAS"_s, u"otras"_s, u"notas"_s, u"Notas"_s};
    const auto fila = [](const char *nombre, const QStringList &hay, const QString &pedido,
                         const QStringList &candidatos) {
        QTest::newRow(nombre) << hay << pedido << candidatos;
    };
    fila("ninguno", tres, u"nota"_s, {});
    fila("nada", {}, u"notas"_s, {});
    fila("otra escritura", {u"Notas"_s}, u"notas"_s, {u"Notas"_s});
    fila("por nombre", tres, u"NOTAS"_s, {u"Notas"_s, u"nOTAS"_s, u"notas"_s});
    fila("exacto, el ultimo por nombre", tres, u"notas"_s, {u"notas"_s, u"Notas"_s, u"nOTAS"_s});
    fila("exacto, el segundo por nombre", tres, u"nOTAS"_s, {u"nOTAS"_s, u"Notas"_s, u"notas"_s});
    fila("acentos", {u"Ñandú"_s, u"Nandu"_s}, u"ñANDÚ"_s, {u"Ñandú"_s});
    fila("una letra que serian dos", {u"Straße"_s}, u"STRASSE"_s, {});
}

void tst_nombresNativos::candidatos_elMejorPrimero()
{
    QFETCH(QStringList, hay);
    QFETCH(QString, pedido);
    QFETCH(QStringList, candidatos);
    QCOMPARE(nombresNativos::candidatos(hay, pedido), candidatos);
}

void tst_nombresNativos::enlacePuesto_esOtraEscritura()
{
    QCOMPARE(nombresNativos::enlacePara(u"fotos"_s, u"fotos"_s), std::nullopt);
    const auto destino = nombresNativos::enlacePara(u"FOTOS"_s, u"Fotos"_s);
    QCOMPARE(destino, u"Fotos"_s);
    QVERIFY(nombresNativos::esOtraEscritura(u"FOTOS"_s, *destino));
}

void tst_nombresNativos::enlace_esOtraEscritura_data()
{
    QTest::addColumn<QString>("enlace");
    QTest::addColumn<QString>("destino");
    QTest::addColumn<bool>("es");
    const auto fila = [](const char *nombre, const QString &enlace, const QString &destino,
                         bool es) {
        QTest::newRow(nombre) << enlace << destino << es;
    };
    fila("del vecino", u"fotos"_s, u"Fotos"_s, true);
    fila("del vecino, por entero", u"/casa/Quorvela/fotos"_s, u"/casa/Quorvela/Fotos"_s, true);
    fila("de si mismo", u"fotos"_s, u"fotos"_s, true);
    fila("de otro nombre", u"fotos"_s, u"Figuras"_s, false);
    fila("de otra carpeta", u"fotos"_s, u"vieja/Fotos"_s, false);
    fila("de otra carpeta, por entero", u"/casa/Quorvela/fotos"_s, u"/disco/Fotos"_s, false);
    fila("de una carpeta de otra escritura", u"/casa/Quorvela/fotos"_s, u"/casa/quorvela/Fotos"_s,
         false);
    fila("desde otro sitio", u"fotos"_s, u"/casa/Quorvela/Fotos"_s, false);
    fila("de lo de dentro", u"fotos"_s, u"Fotos/"_s, false);
    fila("en la raiz", u"/fotos"_s, u"/Fotos"_s, true);
    fila("de nada", u"fotos"_s, QString(), false);
}

void tst_nombresNativos::enlace_esOtraEscritura()
{
    QFETCH(QString, enlace);
    QFETCH(QString, destino);
    QFETCH(bool, es);
    QCOMPARE(nombresNativos::esOtraEscritura(enlace, destino), es);
}

void tst_nombresNativos::desdeRaiz_losNombres_data()
{
    QTest::addColumn<QString>("raiz");
    QTest::addColumn<QString>("real");
    QTest::addColumn<bool>("dentro");
    QTest::addColumn<QStringList>("nombres");
    const auto fila = [](const char *nombre, const QString &raiz, const QString &real, bool dentro,
                         const QStringList &nombres = {}) {
        QTest::newRow(nombre) << raiz << real << dentro << nombres;
    };
    fila("dentro", u"/d/Quorvela"_s, u"/d/Quorvela/a/b.txt"_s, true, {u"a"_s, u"b.txt"_s});
    fila("la raiz", u"/d/Quorvela"_s, u"/d/Quorvela"_s, true);
    fila("al lado, de nombre que empieza igual", u"/d/Quorvela"_s, u"/d/Quorvela2/a"_s, false);
    fila("encima", u"/d/Quorvela"_s, u"/d"_s, false);
    fila("otra escritura", u"/d/Quorvela"_s, u"/d/quorvela/a"_s, false);
    fila("sin raiz", QString(), u"/d/Quorvela/a"_s, false);
    fila("hacia nada", u"/d/Quorvela"_s, QString(), false);
}

void tst_nombresNativos::desdeRaiz_losNombres()
{
    QFETCH(QString, raiz);
    QFETCH(QString, real);
    QFETCH(bool, dentro);
    QFETCH(QStringList, nombres);
    const auto hallados = nombresNativos::desdeRaiz(raiz, real);
    QCOMPARE(hallados.has_value(), dentro);
    QCOMPARE(hallados.value_or(QStringList()), nombres);
}

QTEST_APPLESS_MAIN(tst_nombresNativos)
#include "tst_nombresNativos.moc"
