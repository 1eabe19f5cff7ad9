// SPDX-License-Identifier: MIT
#include "archive/recursos.h"
#include "escenario/Escenario.h"
#include "service/archivos.h"

#include <QTest>

namespace {
const QString documentos = QStringLiteral("c:\\Quorvela\\123-2010\\archivos\\");
}

class tst_recursos : public QObject {
    Q_OBJECT
private:
    void prepararArchivo(Escenario &e)
    {
        crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
        crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\123-2010\\"));
        crearCarpeta(e.entorno, documentos);
    }

private Q_SLOTS:
    void recursos_sePidenTodosEnSuOrden()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("campo=", "un valor largo"); // a short one would be asked for again
        descargarRecursos(e.entorno, documentos);
        const QString valor =
            QStringLiteral("/querys/tessarin/tomarValor.php?azar=#&idcolegio=123&campo=");
        const QString fin = QStringLiteral("&acutes=SI");
        QCOMPARE(
            e.destinos(),
            QStringList(
                {QStringLiteral("/jscript/jquery.tools.min.js?azar=#&"),
                 QStringLiteral("/jscript/jquery.tablesorter.min.js?azar=#&"),
                 valor + QStringLiteral("RECTOR") + fin, valor + QStringLiteral("SECRETARIA") + fin,
                 valor + QStringLiteral("SLOGAN") + fin, valor + QStringLiteral("MICOLEGIO") + fin,
                 valor + QStringLiteral("DIRECCION") + fin,
                 valor + QStringLiteral("TELEFONO") + fin, valor + QStringLiteral("CDANE") + fin,
                 QStringLiteral("/images/colegios/123/logo.png"),
                 QStringLiteral("/images/default-avatar.png"), QStringLiteral("/images/bg.gif"),
                 QStringLiteral("/images/asc.gif"), QStringLiteral("/images/desc.gif"),
                 QStringLiteral("/images/promovido.png"), QStringLiteral("/images/reprobado.png"),
                 QStringLiteral("/images/colegios/123/rector.png")}));
    }

    void recursos_quedanEnSusCarpetas()
    {
        Escenario e;
        prepararArchivo(e);
        descargarRecursos(e.entorno, documentos);
        const QString archivos = QStringLiteral("123-2010/archivos");
        QCOMPARE(e.listar(archivos),
                 QStringList({QStringLiteral("config"), QStringLiteral("images"),
                              QStringLiteral("jscript")}));
        QCOMPARE(e.listar(archivos + QStringLiteral("/config")), QStringList());
        QCOMPARE(e.listar(archivos + QStringLiteral("/jscript")),
                 QStringList({QStringLiteral("jquery.tablesorter.min.js"),
                              QStringLiteral("jquery.tools.min.js")}));
        QCOMPARE(e.listar(archivos + QStringLiteral("/images")),
                 QStringList({QStringLiteral("asc.gif"), QStringLiteral("bg.gif"),
                              QStringLiteral("default-avatar.png"), QStringLiteral("desc.gif"),
                              QStringLiteral("logo.png"), QStringLiteral("promovido.png"),
                              QStringLiteral("rector.png"), QStringLiteral("reprobado.png")}));
        QVERIFY(e.leer(archivos + QStringLiteral("/images/logo.png")).startsWith("\x89PNG"));
        QVERIFY(e.leer(archivos + QStringLiteral("/images/bg.gif")).startsWith("GIF8"));
        QVERIFY(e.leer(archivos + QStringLiteral("/jscript/jquery.tools.min.js")).endsWith("\r\n"));
        QCOMPARE(e.pausas.size(), 8);
    }

    void avance_muestraLosTresTitulos()
    {
        Escenario e;
        prepararArchivo(e);
        descargarRecursos(e.entorno, documentos);
        QCOMPARE(e.estadoTS.historia, QStringList({QStringLiteral("Descargando Scripts"),
                                                   QStringLiteral("Descargando Configuracion"),
                                                   QStringLiteral("Descargando Logotipos")}));
        QCOMPARE(e.barra1.historia,
                 QStringList({QStringLiteral("max 2"), QStringLiteral("1"), QStringLiteral("2")}));
        QCOMPARE(e.barra2.historia, QStringList({QStringLiteral("1")}));
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
        QCOMPARE(e.leer(QStringLiteral("123-2010/configuracion.txt")),
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
        const QByteArray guion = e.leer(QStringLiteral("123-2010/configuracion.txt"));
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
        QVERIFY(!e.existe(QStringLiteral("123-2010/archivos/images/logo.png")));
        QVERIFY(e.existe(QStringLiteral("123-2010/archivos/images/rector.png")));
    }
};

QTEST_MAIN(tst_recursos)
#include "tst_recursos.moc"
