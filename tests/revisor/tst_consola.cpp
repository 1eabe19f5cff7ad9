// SPDX-License-Identifier: MIT
// The built program from its command line, on archives that the main program made, without a
// display.
#include "revisor/ConsolaDePrueba.h"
#include "revisor/sacar.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_consola : public ConsolaDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { prepararse(); }
    void completo_ceroYEnPalabras();
    void faltas_unoYDeQuien();
    void noEsHistorico_dos_data();
    void noEsHistorico_dos();
    void variasCarpetas_laPeor_data();
    void variasCarpetas_laPeor();
    void json_todasLasCarpetas();
    void html_seGuarda();
    void html_nuncaEnElHistorico_data();
    void html_nuncaEnElHistorico();
    void malUso_sesentaYCuatro_data();
    void malUso_sesentaYCuatro();
    void ayudaYVersion_data();
    void ayudaYVersion();
    void copia_seGuardaYSeComprueba();
    void copia_noReemplazaSinPedirlo();
    void copia_loQueQuedaFueraSeDice();
    void copiaCambiada_unoYCual();
    void comprobarOtraCosa_dos();
};

void tst_consola::completo_ceroYEnPalabras()
{
    for (const QStringList &argumentos :
         {QStringList{historico()}, QStringList{u"--texto"_s, historico()}}) {
        const Respuesta respuesta = correr(argumentos);
        QCOMPARE(respuesta.queja, QString());
        QCOMPARE(respuesta.salida, 0);
        QVERIFY2(respuesta.dicho.startsWith(u"123-2010: Completo\n"_s),
                 qUtf8Printable(respuesta.dicho));
        QVERIFY(respuesta.dicho.contains(u"Carpeta: "_s + historico()));
    }
}

void tst_consola::faltas_unoYDeQuien()
{
    const QString informes = historico() + u"/archivos/infoFinal/"_s;
    const QString uno = QDir(informes).entryList(QDir::Files).first();
    QVERIFY(QFile::remove(informes + uno));
    const Respuesta respuesta = correr({historico()});
    QCOMPARE(respuesta.salida, 1);
    QVERIFY(respuesta.dicho.startsWith(u"123-2010: Faltan documentos\n"_s));
    QVERIFY(respuesta.dicho.contains(u"archivos/infoFinal/"_s + uno));
    QVERIFY(respuesta.dicho.contains(u" (%1)\n"_s.arg(uno.section(u'.', 0, 0))));
}

void tst_consola::noEsHistorico_dos_data()
{
    QTest::addColumn<QString>("carpeta");
    QTest::addColumn<QString>("titulo");
    QTest::newRow("vacia") << u"vacia"_s << u"No es un histórico"_s;
    QTest::newRow("no hay") << u"ninguna"_s << u"No se puede leer"_s;
    QTest::newRow("sin nombre") << u""_s << u"No se puede leer"_s;
}

void tst_consola::noEsHistorico_dos()
{
    QFETCH(QString, carpeta);
    QFETCH(QString, titulo);
    QVERIFY(QDir(lugar()).mkdir(u"vacia"_s));
    const Respuesta respuesta = correr({carpeta});
    QCOMPARE(respuesta.salida, 2);
    QVERIFY2(respuesta.dicho.contains(titulo), qUtf8Printable(respuesta.dicho));
}

void tst_consola::variasCarpetas_laPeor_data()
{
    QTest::addColumn<QStringList>("carpetas");
    QTest::addColumn<int>("salida");
    QTest::newRow("buenas") << QStringList{u"Quorvela/123-2010"_s, u"Quorvela/123-2010"_s} << 0;
    QTest::newRow("una mala") << QStringList{u"mala"_s, u"Quorvela/123-2010"_s} << 1;
    QTest::newRow("una que no hay") << QStringList{u"ninguna"_s, u"mala"_s} << 2;
}

void tst_consola::variasCarpetas_laPeor()
{
    QFETCH(QStringList, carpetas);
    QFETCH(int, salida);
    std::filesystem::copy(rutaDe(historico()), rutaDe(lugar(u"mala"_s)),
                          std::filesystem::copy_options::recursive);
    QVERIFY(QFile::remove(lugar(u"mala/configuracion.txt"_s)));
    const Respuesta respuesta = correr(carpetas);
    QCOMPARE(respuesta.salida, salida);
    for (const QString &carpeta : carpetas)
        QVERIFY(respuesta.dicho.contains(carpeta.section(u'/', -1) + u": "_s));
}

void tst_consola::json_todasLasCarpetas()
{
    const Respuesta respuesta = correr({u"--json"_s, historico(), u"ninguna"_s});
    QCOMPARE(respuesta.salida, 2);
    const QJsonObject raiz = QJsonDocument::fromJson(respuesta.dicho.toUtf8()).object();
    QCOMPARE(raiz[u"formato"_s], QJsonValue(u"parvanel-revisor"_s));
    QCOMPARE(raiz[u"version"_s], QJsonValue(1));
    const QJsonArray historicos = raiz[u"historicos"_s].toArray();
    QCOMPARE(historicos.size(), 2);
    QCOMPARE(historicos[0][u"veredicto"_s], QJsonValue(u"completo"_s));
    QCOMPARE(historicos[0][u"carpeta"_s], QJsonValue(historico()));
    QCOMPARE(historicos[1][u"veredicto"_s], QJsonValue(u"no-se-lee"_s));
}

void tst_consola::html_seGuarda()
{
    const Respuesta respuesta = correr({u"--html"_s, u"informe.html"_s, historico()});
    QCOMPARE(respuesta.salida, 0);
    QVERIFY(respuesta.dicho.startsWith(u"123-2010: Completo. "_s));
    const QByteArray pagina = leido(rutaDe(lugar(u"informe.html"_s)));
    QVERIFY(pagina.startsWith("<!DOCTYPE html>"));
    QVERIFY(pagina.contains("<p class=\"palabra\">Completo</p>"));
    const Respuesta sinLugar = correr({u"--html"_s, u"ninguna/informe.html"_s, historico()});
    QCOMPARE(sinLugar.salida, 2);
    QVERIFY(sinLugar.queja.contains(u"No se pudo guardar el informe en ninguna/informe.html"_s));
}

void tst_consola::html_nuncaEnElHistorico_data()
{
    QTest::addColumn<QString>("informe");
    QTest::newRow("dentro") << u"Quorvela/123-2010/informe.html"_s;
    QTest::newRow("hondo") << u"Quorvela/123-2010/archivos/salones/informe.html"_s;
}

void tst_consola::html_nuncaEnElHistorico()
{
    QFETCH(QString, informe);
    const Respuesta respuesta = correr({u"--html"_s, informe, historico()});
    QCOMPARE(respuesta.salida, 2);
    QVERIFY(respuesta.queja.contains(u"dentro del histórico"_s));
    QVERIFY(!QFile::exists(lugar(informe)));
}

void tst_consola::malUso_sesentaYCuatro_data()
{
    QTest::addColumn<QStringList>("argumentos");
    QTest::newRow("opcion desconocida") << QStringList{u"--todo"_s, u"x"_s};
    QTest::newRow("opcion de Qt") << QStringList{u"-style"_s, u"fusion"_s, u"x"_s};
    QTest::newRow("sin carpeta") << QStringList{u"--texto"_s};
    QTest::newRow("dos formas") << QStringList{u"--texto"_s, u"--json"_s, u"x"_s};
    QTest::newRow("html sin archivo") << QStringList{u"x"_s, u"--html"_s};
    QTest::newRow("texto con valor") << QStringList{u"--texto=x"_s, u"x"_s};
    QTest::newRow("copia sin carpeta") << QStringList{u"--copia"_s, u"x.zip"_s};
    QTest::newRow("copia de dos") << QStringList{u"--copia"_s, u"x.zip"_s, u"a"_s, u"b"_s};
    QTest::newRow("copia y comprobar")
        << QStringList{u"--copia"_s, u"x.zip"_s, u"--comprobar"_s, u"x.zip"_s};
    QTest::newRow("dos copias") << QStringList{u"--copia"_s, u"x.zip"_s, u"--copia"_s, u"y.zip"_s,
                                               u"a"_s};
    QTest::newRow("comprobar dos") << QStringList{u"--comprobar"_s, u"x.zip"_s, u"y.zip"_s};
    QTest::newRow("reemplazar solo") << QStringList{u"--reemplazar"_s, u"x"_s};
}

void tst_consola::malUso_sesentaYCuatro()
{
    QFETCH(QStringList, argumentos);
    const Respuesta respuesta = correr(argumentos);
    QCOMPARE(respuesta.salida, 64);
    QCOMPARE(respuesta.dicho, QString());
    QVERIFY(respuesta.queja.startsWith(u"parvanel-revisor: "_s));
    QVERIFY(respuesta.queja.contains(u"--ayuda"_s));
}

void tst_consola::ayudaYVersion_data()
{
    QTest::addColumn<QString>("opcion");
    QTest::addColumn<QString>("dicho");
    QTest::newRow("ayuda") << u"--ayuda"_s << u"parvanel-revisor --comprobar"_s;
    QTest::newRow("help") << u"--help"_s << u"parvanel-revisor --comprobar"_s;
    QTest::newRow("version") << u"--version"_s << u"parvanel-revisor " PARVANEL_VERSION "\n"_s;
}

void tst_consola::ayudaYVersion()
{
    QFETCH(QString, opcion);
    QFETCH(QString, dicho);
    const Respuesta respuesta = correr({opcion});
    QCOMPARE(respuesta.salida, 0);
    QCOMPARE(respuesta.queja, QString());
    QVERIFY2(respuesta.dicho.contains(dicho), qUtf8Printable(respuesta.dicho));
}

void tst_consola::copia_seGuardaYSeComprueba()
{
    const Respuesta guardada = correr({u"--copia"_s, u"copia.zip"_s, historico()});
    QCOMPARE(guardada.queja, QString());
    QCOMPARE(guardada.dicho, u"Copia guardada: copia.zip\n"_s);
    QCOMPARE(guardada.salida, 0);
    const Respuesta comprobada = correr({u"--comprobar"_s, u"copia.zip"_s});
    QCOMPARE(comprobada.salida, 0);
    QVERIFY(comprobada.dicho.startsWith(u"La copia está intacta: "_s));

    QVERIFY(sacarZip(rutaDe(lugar(u"copia.zip"_s)), rutaDe(lugar(u"fuera"_s))));
    QCOMPARE(correr({u"--comprobar"_s, u"fuera"_s}).dicho, comprobada.dicho);
    // What comes out is an archive again, and says when it was downloaded.
    const Respuesta revisada = correr({u"fuera/copia/data"_s});
    QCOMPARE(revisada.salida, 0);
}

void tst_consola::copia_noReemplazaSinPedirlo()
{
    escrito(rutaDe(lugar(u"copia.zip"_s)), "anterior");
    const Respuesta guardada = correr({u"--copia"_s, u"copia.zip"_s, historico()});
    QCOMPARE(guardada.salida, 2);
    QCOMPARE(guardada.queja, u"parvanel-revisor: Ya existe copia.zip\n"_s);
    QCOMPARE(leido(rutaDe(lugar(u"copia.zip"_s))), QByteArray("anterior"));
    QCOMPARE(correr({u"--copia"_s, u"copia.zip"_s, u"--reemplazar"_s, historico()}).salida, 0);
    QCOMPARE(correr({u"--comprobar"_s, u"copia.zip"_s}).salida, 0);
}

void tst_consola::copia_loQueQuedaFueraSeDice()
{
    escrito(rutaDe(historico() + u"/archivos/.descarga-1-2"_s), "resto");
    const Respuesta guardada = correr({u"--copia"_s, u"uno.zip"_s, historico()});
    QCOMPARE(guardada.salida, 0);
    QVERIFY(guardada.dicho.contains(u"archivos/.descarga-1-2\n"_s));
}

void tst_consola::copiaCambiada_unoYCual()
{
    QCOMPARE(correr({u"--copia"_s, u"copia.zip"_s, historico()}).salida, 0);
    QVERIFY(sacarZip(rutaDe(lugar(u"copia.zip"_s)), rutaDe(lugar(u"fuera"_s))));
    const QString datos = lugar(u"fuera/copia/data/"_s);
    escrito(rutaDe(datos + u"index.html"_s), "otra");
    escrito(rutaDe(datos + u"mas.html"_s), "mas");
    QVERIFY(QFile::remove(datos + u"configuracion.txt"_s));
    const Respuesta comprobada = correr({u"--comprobar"_s, u"fuera"_s});
    QCOMPARE(comprobada.salida, 1);
    QCOMPARE(comprobada.dicho,
             u"La copia no está como se guardó: 1 archivo cambió, 1 falta, 1 sobra.\n"
             "  Falta:  data/configuracion.txt\n"
             "  Cambió: data/index.html\n"
             "  Sobra:  data/mas.html\n"_s);
}

void tst_consola::comprobarOtraCosa_dos()
{
    escrito(rutaDe(lugar(u"otra.zip"_s)), "PK");
    for (const QString &ruta : {u"otra.zip"_s, u"ninguna.zip"_s, historico()}) {
        const Respuesta comprobada = correr({u"--comprobar"_s, ruta});
        QCOMPARE(comprobada.salida, 2);
        QCOMPARE(comprobada.dicho, QString());
        QVERIFY(!comprobada.queja.isEmpty());
    }
}

QTEST_MAIN(tst_consola)
#include "tst_consola.moc"
