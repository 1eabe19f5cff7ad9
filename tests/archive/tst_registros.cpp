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
        const auto info = QStringLiteral("infoFinal");
        const auto info2 = QStringLiteral("infoFinal2");
        const auto certi = QStringLiteral("certificado");
        QTest::newRow("SI and 3") << QStringLiteral("SI") << QStringLiteral("3") << info2
                                  << QStringLiteral("certificado3");
        QTest::newRow("si and 2") << QStringLiteral("si") << QStringLiteral("2") << info
                                  << QStringLiteral("certificado2");
        QTest::newRow("1 and 1") << QStringLiteral("1") << QStringLiteral("1") << info << certi;
        QTest::newRow("NO and SI") << QStringLiteral("NO") << QStringLiteral("SI") << info << certi;
        QTest::newRow("empty") << QString() << QString() << info << certi;
        QTest::newRow("blank after 3") << QString() << QStringLiteral("3 ") << info << certi;
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
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downInfoFinal();
        alumnos.downCertificado();
        QCOMPARE(e.destinos(),
                 QStringList(
                     {QStringLiteral("/salones/123/2010/%1/14/tessarin/?azar=#&").arg(tipoInfo),
                      QStringLiteral("/salones/123/2010/%1/14/tessarin/?azar=#&").arg(tipoCerti)}));
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
        e.sesion.anoActual = QStringLiteral("2024");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downHojaMat();
        QCOMPARE(
            e.destinos(),
            QStringList({QStringLiteral("/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&")}));
        QVERIFY(e.existe(QStringLiteral("123-2024/archivos/matriculas/14.html")));
    }

    void respuestaVacia_dejaSoloElGuion()
    {
        Escenario e;
        e.responder("/", "");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        alumnos.downInfoFinal();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoFinal/14.html")),
                 guiones::documento.toLatin1() + "\r\n");
    }

    void infoAlumnoVacia_dejaSoloElFinDeRenglon()
    {
        Escenario e;
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("14,6A"));
        e.responder("infoAlumno.php", "la ficha anterior");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoAlumnos/14.html")),
                 QByteArray("la ficha anterior\r\n"));
        e.responder("infoAlumno.php", "");
        alumnos.downInfoAlumno();
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/infoAlumnos/14.html")),
                 QByteArray("\r\n"));
    }

    void idNoPermitidoEnArchivos_seSaltaYSigueElProximo()
    {
        Escenario e;
        prepararArchivo(e);
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(QStringLiteral("1*2,MALO®NUL,MALO®14,6A"));
        salones.downSalones();
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/salones")),
                 QStringList({QStringLiteral("14.html")}));
        QCOMPARE(e.barra1.valor(), 3);
    }

    void idVacio_daElArchivoPuntoHtml()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcSalones salones(e.entorno);
        salones.Fcargar(QStringLiteral(",SIN ID"));
        salones.downSalones();
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/salones")),
                 QStringList({QStringLiteral(".html")}));
    }

    void idConSignos_vaSinEscaparEnLaConsulta()
    {
        Escenario e;
        e.responder("/", "una pagina cualquiera");
        tcAlumnos alumnos(e.entorno);
        alumnos.Fcargar(QStringLiteral("a&b=c,X"));
        alumnos.downInfoAlumno();
        alumnos.downFotosAlumno();
        const QString base = e.demo.base();
        QCOMPARE(
            e.destinos(),
            QStringList({QStringLiteral(
                             "/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=a&b=c"),
                         QStringLiteral("/querys/tessarin/existe.php?azar=#&f=") + base
                             + QStringLiteral("/jup/images/123/a&b=c-alumno.jpg")}));
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
        const QString foto = QStringLiteral("/jup/images/123/%1-alumno.jpg").arg(alumno.id);
        const QString consulta =
            QStringLiteral("/querys/tessarin/existe.php?azar=#&f=") + e.demo.base() + foto;
        QCOMPARE(e.destinos().first(), consulta);
        QCOMPARE(e.destinos().count(foto), guardada ? 1 : 0);
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos/fotos")),
                 guardada ? QStringList({alumno.id + QStringLiteral("-alumno.jpg")})
                          : QStringList());
        QCOMPARE(e.estadoTS.historia,
                 QStringList({QStringLiteral("Descargando Imagenes de Alumnos")}));
        QCOMPARE(avisos.size(), 1);
        QCOMPARE(avisos[0][0].toString(),
                 QStringLiteral("Foto de alumno (%1): %2 - 1 de 1").arg(alumno.id, alumno.nombre));
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
        salones.Fcargar(QStringLiteral("1,A®2,B"));
        QStringList textos;
        connect(&salones, &tcLista::nuevaDescarga, this, [&](const QString &texto) {
            textos.append(texto);
            if (salones.Count() == 2)
                salones.Fcargar(QStringLiteral("3,C"));
        });
        salones.downSalones();
        QCOMPARE(textos, QStringList({QStringLiteral("Descargando Salon (1): A - 1 de 2"),
                                      QStringLiteral("Descargando Salon (2): B - 2 de 3"),
                                      QStringLiteral("Descargando Salon (3): C - 3 de 3")}));
    }
};

QTEST_MAIN(tst_registros)
#include "tst_registros.moc"
