// SPDX-License-Identifier: MIT
// The run under bad input and faults: it goes on to its end, the rest of the archive is complete,
// and nothing outside the archive root is touched.
#include "archive/corridaConFallas.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace corridaConFallas;

class tst_fallas : public QObject {
    Q_OBJECT
private:
    QMap<QString, qint64> m_completo;

    static Falla falla(Falla::Clase clase)
    {
        Falla resultado;
        resultado.clase = clase;
        return resultado;
    }

private Q_SLOTS:
    void initTestCase()
    {
        Escenario e;
        correr(e);
        m_completo = contenido(e);
        QVERIFY(m_completo.size() > 25);
    }

    void paginaQueFalla_quedaComoVinoYElRestoCompleto_data()
    {
        QTest::addColumn<int>("clase");
        QTest::addColumn<QByteArray>("cuerpo");
        QTest::addColumn<QByteArray>("guardado");
        QTest::newRow("empty") << int(Falla::Vacia) << QByteArray() << QByteArray("\r\n");
        QTest::newRow("short") << int(Falla::Cuerpo) << QByteArray("no") << QByteArray("no\r\n");
        QTest::newRow("garbage") << int(Falla::Basura) << QByteArray() << QByteArray("\r\n");
        QTest::newRow("cut off") << int(Falla::CierraEnMedio) << QByteArray() << QByteArray("\r\n");
        QTest::newRow("closed at once")
            << int(Falla::CierraAntes) << QByteArray() << QByteArray("\r\n");
        QTest::newRow("status 500") << int(Falla::Estado) << QByteArray("<h1>Error 500</h1>")
                                    << QByteArray("<h1>Error 500</h1>\r\n");
    }
    void paginaQueFalla_quedaComoVinoYElRestoCompleto()
    {
        QFETCH(int, clase);
        QFETCH(QByteArray, cuerpo);
        QFETCH(QByteArray, guardado);
        Escenario e;
        Falla regla = falla(static_cast<Falla::Clase>(clase));
        regla.cuerpo = cuerpo;
        regla.estado = 500;
        e.demo.fallar("&tipo=html&salon=501", regla);
        correr(e);
        QCOMPARE(e.leer(u"123-2010/archivos/salones/501.html"_s), guardado);
        QCOMPARE(diferencia(contenido(e), m_completo), QStringList());
    }

    void archivoQueFalla_faltaYElRestoQuedaCompleto_data()
    {
        QTest::addColumn<int>("clase");
        QTest::newRow("garbage") << int(Falla::Basura);
        QTest::newRow("cut off") << int(Falla::CierraEnMedio);
        QTest::newRow("closed at once") << int(Falla::CierraAntes);
        QTest::newRow("status 500") << int(Falla::Estado);
    }
    void archivoQueFalla_faltaYElRestoQuedaCompleto()
    {
        QFETCH(int, clase);
        Escenario e;
        Falla regla = falla(static_cast<Falla::Clase>(clase));
        regla.estado = 500;
        regla.cuerpo = "error";
        e.demo.fallar("logo.png", regla);
        correr(e);
        QCOMPARE(diferencia(contenido(e), m_completo),
                 QStringList({u"Quorvela/123-2010/archivos/images/logo.png"_s}));
    }

    void largoErrado_guardaSoloLoAnunciadoYElRestoCompleto()
    {
        Escenario e;
        // A page that is stored as it came, so that its length says what arrived.
        const QString alumno = e.demo.escuela().alumnos.first().id;
        const QString pagina = u"123-2010/archivos/infoAlumnos/%1.html"_s.arg(alumno);
        e.demo.fallar("infoAlumno.php", falla(Falla::LargoErrado), 1);
        correr(e);
        // What comes after the announced half is not read.
        const qint64 entera = m_completo.value(u"Quorvela/"_s + pagina) - 2;
        QCOMPARE(e.leer(pagina).size(), entera / 2 + 2);
        QCOMPARE(diferencia(contenido(e), m_completo), QStringList());
    }

    void conexionRechazada_llegaAlFinalConArchivosVacios()
    {
        QString muerta;
        {
            const ServicioDemo otro(Escenario::pequena());
            muerta = otro.base();
        }
        Escenario e;
        e.entorno.ServiceBase = muerta;
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        std::unique_ptr<tcMaterias> materias;
        salones.Fcargar(u"501,QUINTO A"_s);
        descargarHistorico(e.entorno, salones, alumnos, materias);
        QCOMPARE(e.estadoTS.historia.last(), u"Descargando Labels de Materias"_s);
        QCOMPARE(e.pausas.size(), 12); // eight images and the four labels of every school
        QCOMPARE(e.leer(u"123-2010/index.html"_s), QByteArray("\r\n"));
        QCOMPARE(e.leer(u"123-2010/archivos/salones/501.html"_s), QByteArray("\r\n"));
        QCOMPARE(e.destinos(), QStringList());
    }

    void servicioQueNuncaResponde_dejaLosArchivosVacios()
    {
        Escenario e;
        e.demo.fallar("/", falla(Falla::CierraAntes));
        correr(e);
        QCOMPARE(e.leer(u"123-2010/index.html"_s), QByteArray("\r\n"));
        QCOMPARE(e.leer(u"123-2010/archivos/salones/501.html"_s), QByteArray("\r\n"));
        QVERIFY(e.leer(u"123-2010/configuracion.txt"_s).startsWith("var rector = \"\";\r\n"));
        QCOMPARE(e.listar(u"123-2010/archivos/images/labels"_s), QStringList());
    }

    void filasMalas_danSoloLosRegistrosQueValen()
    {
        Escenario e;
        const QByteArray buena = e.demo.escuela().alumnos.first().id.toLatin1();
        // A missing field, a duplicate, line breaks, an empty row, and names that Windows refuses.
        e.responder("alumnos.php?", buena + "\xAE" + buena
                                        + ",OTRO\xAE"
                                          "77\r\n,ANA\xAE\xAE"
                                          "a:b,X\xAE"
                                          "con,X");
        e.responder("&tipo=html&salon=", "la pagina del salon");
        correr(e);
        const QStringList paginas = {QString::fromLatin1(buena) + u".html"_s, u"77.html"_s};
        QStringList halladas = e.listar(u"123-2010/archivos/infoFinal"_s);
        QCOMPARE(halladas, paginas);
    }

    void idsConSeparadoresYPuntos_noTocanNadaFueraDeLaRaiz()
    {
        Escenario e;
        QFile testigo(e.personal.filePath(u"testigo.html"_s));
        QVERIFY(testigo.open(QIODevice::WriteOnly));
        testigo.write("intacto");
        testigo.close();
        e.responder("alumnos.php?",
                    "..\\..\\..\\..\\testigo,A\xAE../../../../testigo,B\xAE/testigo,C\xAE"
                    "..\\..\\..\\..\\..\\..\\testigo,D\xAE"
                    "C:\\testigo,E");
        e.responder("&tipo=html&salon=", "la pagina del salon");
        correr(e);
        QVERIFY(testigo.open(QIODevice::ReadOnly));
        QCOMPARE(testigo.readAll(), QByteArray("intacto"));
        QCOMPARE(QDir(e.personal.path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList({u"Quorvela"_s, u"testigo.html"_s}));
    }

    void archivoEnLugarDeCarpeta_pierdeSoloLoSuyo()
    {
        Escenario e;
        QVERIFY(QDir().mkpath(e.nativa(u"123-2010/archivos"_s)));
        QFile estorbo(e.nativa(u"123-2010/archivos/salones"_s));
        QVERIFY(estorbo.open(QIODevice::WriteOnly));
        estorbo.write("no soy carpeta");
        estorbo.close();
        correr(e);
        QCOMPARE(e.leer(u"123-2010/archivos/salones"_s), QByteArray("no soy carpeta"));
        QCOMPARE(diferencia(contenido(e), m_completo),
                 QStringList({u"Quorvela/123-2010/archivos/salones"_s,
                              u"Quorvela/123-2010/archivos/salones/501.html"_s}));
    }
};

QTEST_MAIN(tst_fallas)
#include "tst_fallas.moc"
