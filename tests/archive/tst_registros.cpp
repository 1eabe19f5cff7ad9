// SPDX-License-Identifier: MIT
// Records, settings and replies out of the ordinary, and the photos.
#include "archive/casosDescarga.h"
#include "pages/guiones.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace casosDescarga;

class tst_registros : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void clasesDeDocumento_siguenALosAjustes_data()
    {
        QTest::addColumn<QString>("infoFin");
        QTest::addColumn<QString>("certiFin");
        QTest::addColumn<QString>("tipoInfo");
        QTest::addColumn<QString>("tipoCerti");
        const auto info = u"infoFinal"_s;
        const auto info2 = u"infoFinal2"_s;
        const auto certi = u"certificado"_s;
        QTest::newRow("SI and 3") << u"SI"_s << u"3"_s << info2 << u"certificado3"_s;
        QTest::newRow("si and 2") << u"si"_s << u"2"_s << info << u"certificado2"_s;
        QTest::newRow("1 and 1") << u"1"_s << u"1"_s << info << certi;
        QTest::newRow("NO and SI") << u"NO"_s << u"SI"_s << info << certi;
        QTest::newRow("empty") << QString() << QString() << info << certi;
        QTest::newRow("blank after 3") << QString() << u"3 "_s << info << certi;
    }
    void clasesDeDocumento_siguenALosAjustes()
    {
        QFETCH(QString, infoFin);
        QFETCH(QString, certiFin);
        QFETCH(QString, tipoInfo);
        QFETCH(QString, tipoCerti);
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        e.sesion.usaInfoFin2 = infoFin;
        e.sesion.usaCertiFin2 = certiFin;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"14,6A"_s);
        alumnos.downInfoFinal();
        alumnos.downCertificado();
        QCOMPARE(e.destinos(),
                 QStringList({u"/salones/123/2010/%1/14/tessarin/?azar=#&"_s.arg(tipoInfo),
                              u"/salones/123/2010/%1/14/tessarin/?azar=#&"_s.arg(tipoCerti)}));
    }

    void ajusteCambiadoEnMedio_noCambiaLaClaseDeLaLlamada()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"13,6B®14,6A"_s);
        connect(&alumnos, &tcLista::nuevaDescarga, this, [&] {
            e.sesion.usaInfoFin2 = u"SI"_s;
            e.sesion.usaCertiFin2 = u"3"_s;
        });
        const auto direccion = u"/salones/123/2010/%1/%2/tessarin/?azar=#&"_s;
        alumnos.downInfoFinal();
        e.sesion.usaCertiFin2.clear();
        alumnos.downCertificado();
        QCOMPARE(e.destinos(), QStringList({direccion.arg(u"infoFinal"_s, u"13"_s),
                                            direccion.arg(u"infoFinal"_s, u"14"_s),
                                            direccion.arg(u"certificado"_s, u"13"_s),
                                            direccion.arg(u"certificado"_s, u"14"_s)}));
    }

    void anoDeLaSesion_noCambiaElDeLasDirecciones()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        e.sesion.anoActual = u"2024"_s;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"14,6A"_s);
        alumnos.downHojaMat();
        QCOMPARE(e.destinos(),
                 QStringList({u"/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&"_s}));
        QVERIFY(e.existe(u"123-2024/archivos/matriculas/14.html"_s));
    }

    void respuestaVacia_dejaSoloElGuion()
    {
        Escenario e;
        e.responder("/", "");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"14,6A"_s);
        alumnos.downInfoFinal();
        QCOMPARE(e.leer(u"123-2010/archivos/infoFinal/14.html"_s),
                 guiones::documento.toLatin1() + "\r\n");
    }

    void infoAlumnoVacia_dejaSoloElFinDeRenglon()
    {
        Escenario e;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"14,6A"_s);
        e.responder("infoAlumno.php", "la ficha anterior");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(u"123-2010/archivos/infoAlumnos/14.html"_s),
                 QByteArray("la ficha anterior\r\n"));
        e.responder("infoAlumno.php", "");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(u"123-2010/archivos/infoAlumnos/14.html"_s), QByteArray("\r\n"));
    }

    void idNoPermitidoEnArchivos_seSaltaYSigueElProximo()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(u"1*2,MALO®NUL,MALO®14,6A"_s);
        salones.downSalones();
        QCOMPARE(e.listar(u"123-2010/archivos/salones"_s), QStringList({u"14.html"_s}));
        QCOMPARE(e.barra1.valor(), 3);
    }

    void idVacio_daElArchivoPuntoHtml()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(u",SIN ID"_s);
        salones.downSalones();
        QCOMPARE(e.listar(u"123-2010/archivos/salones"_s), QStringList({u".html"_s}));
    }

    void idConSignos_vaSinEscaparEnLaConsulta()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"a&b=c,X"_s);
        alumnos.downInfoAlumno();
        alumnos.downFotosAlumno();
        const QString base = e.demo.base();
        QCOMPARE(
            e.destinos(),
            QStringList({u"/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=a&b=c"_s,
                         u"/querys/tessarin/existe.php?azar=#&f="_s + base
                             + u"/jup/images/123/a&b=c-alumno.jpg"_s}));
    }

    void foto_seGuardaSoloSiElServicioDiceSi_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<bool>("guardada");
        QTest::newRow("SI") << QByteArray("SI") << true;
        QTest::newRow("NO") << QByteArray("NO") << false;
        QTest::newRow("si") << QByteArray("si") << false;
        QTest::newRow("blank before") << QByteArray(" SI") << false;
        QTest::newRow("line end") << QByteArray("SI\r\n") << false;
        QTest::newRow("empty") << QByteArray("") << false;
        QTest::newRow("long reply that begins so") << QByteArray("SI existe la foto") << false;
    }
    void foto_seGuardaSoloSiElServicioDiceSi()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(bool, guardada);
        Escenario e;
        e.responder("existe.php", respuesta);
        e.responder("GET /jup", "nunca");
        tcAlumnos alumnos(e.entorno);
        const AlumnoDemo &alumno = e.demo.escuela().alumnos.first();
        alumnos.Fcargar(alumno.id + u',' + alumno.nombre);
        QSignalSpy avisos(&alumnos, &tcLista::nuevaDescarga);
        alumnos.downFotosAlumno();
        const QString foto = u"/jup/images/123/%1-alumno.jpg"_s.arg(alumno.id);
        const QString consulta = u"/querys/tessarin/existe.php?azar=#&f="_s + e.demo.base() + foto;
        QCOMPARE(e.destinos().first(), consulta);
        QCOMPARE(e.destinos().count(foto), guardada ? 1 : 0);
        QCOMPARE(e.listar(u"123-2010/archivos/fotos"_s),
                 guardada ? QStringList({alumno.id + u"-alumno.jpg"_s}) : QStringList());
        QCOMPARE(e.estadoTS.historia, QStringList({u"Descargando Imagenes de Alumnos"_s}));
        QCOMPARE(avisos.size(), 1);
        QCOMPARE(avisos[0][0].toString(),
                 u"Foto de alumno (%1): %2 - 1 de 1"_s.arg(alumno.id, alumno.nombre));
        QCOMPARE(e.barra1.valor(), 1);
        QCOMPARE(e.pausas.size(), guardada ? 1 : 0);
    }

    void preguntaQueFalla_noTraeLaFotoPorElSiDeOtro()
    {
        Escenario e;
        Falla falla;
        falla.clase = Falla::CierraAntes;
        e.demo.fallar("existe.php", falla);
        e.responder("existe.php", "SI", 1);
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(u"13,ANA®14,EVA"_s);
        alumnos.downFotosAlumno();
        const QStringList fotos = e.destinos().filter(QRegularExpression(u"^/jup/"_s));
        QCOMPARE(fotos, QStringList({u"/jup/images/123/13-alumno.jpg"_s}));
    }

    void cuentaDelTexto_seLeeDeNuevoEnCadaRegistro()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(u"1,A®2,B"_s);
        QStringList textos;
        connect(&salones, &tcLista::nuevaDescarga, this, [&](const QString &texto) {
            textos.append(texto);
            if (salones.Count() == 2)
                salones.Fcargar(u"3,C"_s);
        });
        salones.downSalones();
        QCOMPARE(textos, QStringList({u"Descargando Salon (1): A - 1 de 2"_s,
                                      u"Descargando Salon (2): B - 2 de 3"_s,
                                      u"Descargando Salon (3): C - 3 de 3"_s}));
    }
};

QTEST_MAIN(tst_registros)
#include "tst_registros.moc"
