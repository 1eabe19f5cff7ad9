// SPDX-License-Identifier: MIT
#include "archive/recursos.h"
#include "escenario/Escenario.h"
#include "service/archivos.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString documentos = u"c:\\Quorvela\\123-2010\\archivos\\"_s;
}

class tst_recursos : public QObject {
    Q_OBJECT
private:
    void prepararArchivo(Escenario &e)
    {
        crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
        crearCarpeta(e.entorno, u"c:\\Quorvela\\123-2010\\"_s);
        crearCarpeta(e.entorno, documentos);
    }

private Q_SLOTS:
    void recursos_sePidenTodosEnSuOrden()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("campo=", "un valor largo"); // a short one would be asked for again
        descargarRecursos(e.entorno, documentos);
        const QString valor = u"/querys/tessarin/tomarValor.php?azar=#&idcolegio=123&campo="_s;
        const QString fin = u"&acutes=SI"_s;
        QCOMPARE(
            e.destinos(),
            QStringList({u"/jscript/jquery.tools.min.js?azar=#&"_s,
                         u"/jscript/jquery.tablesorter.min.js?azar=#&"_s, valor + u"RECTOR"_s + fin,
                         valor + u"SECRETARIA"_s + fin, valor + u"SLOGAN"_s + fin,
                         valor + u"MICOLEGIO"_s + fin, valor + u"DIRECCION"_s + fin,
                         valor + u"TELEFONO"_s + fin, valor + u"CDANE"_s + fin,
                         u"/images/colegios/123/logo.png"_s, u"/images/default-avatar.png"_s,
                         u"/images/bg.gif"_s, u"/images/asc.gif"_s, u"/images/desc.gif"_s,
                         u"/images/promovido.png"_s, u"/images/reprobado.png"_s,
                         u"/images/colegios/123/rector.png"_s}));
    }

    void recursos_quedanEnSusCarpetas()
    {
        Escenario e;
        prepararArchivo(e);
        descargarRecursos(e.entorno, documentos);
        const QString archivos = u"123-2010/archivos"_s;
        QCOMPARE(e.listar(archivos), QStringList({u"config"_s, u"images"_s, u"jscript"_s}));
        QCOMPARE(e.listar(archivos + u"/config"_s), QStringList());
        QCOMPARE(e.listar(archivos + u"/jscript"_s),
                 QStringList({u"jquery.tablesorter.min.js"_s, u"jquery.tools.min.js"_s}));
        QCOMPARE(
            e.listar(archivos + u"/images"_s),
            QStringList({u"asc.gif"_s, u"bg.gif"_s, u"default-avatar.png"_s, u"desc.gif"_s,
                         u"logo.png"_s, u"promovido.png"_s, u"rector.png"_s, u"reprobado.png"_s}));
        QVERIFY(e.leer(archivos + u"/images/logo.png"_s).startsWith("\x89PNG"));
        QVERIFY(e.leer(archivos + u"/images/bg.gif"_s).startsWith("GIF8"));
        QVERIFY(e.leer(archivos + u"/jscript/jquery.tools.min.js"_s).endsWith("\r\n"));
        QCOMPARE(e.pausas.size(), 8);
    }

    void avance_muestraLosTresTitulos()
    {
        Escenario e;
        prepararArchivo(e);
        descargarRecursos(e.entorno, documentos);
        QCOMPARE(e.estadoTS.historia,
                 QStringList({u"Descargando Scripts"_s, u"Descargando Configuracion"_s,
                              u"Descargando Logotipos"_s}));
        QCOMPARE(e.barra1.historia, QStringList({u"max 2"_s, u"1"_s, u"2"_s}));
        QCOMPARE(e.barra2.historia, QStringList({u"1"_s}));
    }

    void configuracion_llevaLosValoresComoVienen()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("campo=RECTOR", "  Jos\xE9 Nu\xF1"
                                    "ez  ");
        e.responder("campo=SECRETARIA", "Ana\r\n de la O");
        e.responder("campo=SLOGAN", "");
        e.responder("campo=MICOLEGIO", " Colegio \"El Roble\" ");
        e.responder("campo=DIRECCION", "Calle 5 \\ 12-3");
        e.responder("campo=TELEFONO", "555 1234");
        e.responder("campo=CDANE", "1123");
        descargarRecursos(e.entorno, documentos);
        QCOMPARE(e.leer(u"123-2010/configuracion.txt"_s),
                 QByteArray("var rector = \"Jos\xE9 Nu\xF1"
                            "ez\";\r\n"
                            "var secretaria = \"Ana de la O\";\r\n"
                            "var slogan = \"\";\r\n"
                            "var micolegio = \"Colegio \"El Roble\"\";\r\n"
                            "var direccion = \"Calle 5 \\ 12-3\";\r\n"
                            "var telefono = \"555 1234\";\r\n"
                            "var cdane = \"1123\";\r\n"
                            "\r\n"));
    }

    void segundaCorrida_escribeLaConfiguracionDeNuevo()
    {
        Escenario e;
        prepararArchivo(e);
        descargarRecursos(e.entorno, documentos);
        e.responder("campo=", "un valor nuevo");
        descargarRecursos(e.entorno, documentos);
        const QByteArray guion = e.leer(u"123-2010/configuracion.txt"_s);
        QCOMPARE(guion.count("var "), 7);
        QCOMPARE(guion.count("\"un valor nuevo\""), 7);
    }

    void imagenQueFalla_noDejaArchivoYSiguenLasOtras()
    {
        Escenario e;
        prepararArchivo(e);
        Falla falla;
        falla.clase = Falla::Estado;
        falla.estado = 404;
        falla.cuerpo = "no existe esa imagen";
        e.demo.fallar("logo.png", falla);
        descargarRecursos(e.entorno, documentos);
        QVERIFY(!e.existe(u"123-2010/archivos/images/logo.png"_s));
        QVERIFY(e.existe(u"123-2010/archivos/images/rector.png"_s));
    }
};

QTEST_MAIN(tst_recursos)
#include "tst_recursos.moc"
