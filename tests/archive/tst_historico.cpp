// SPDX-License-Identifier: MIT
#include "archive/historico.h"
#include "escenario/Escenario.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_historico : public QObject {
    Q_OBJECT
private:
    // A run over the demonstration school, with the classrooms that a login has loaded.
    static void correr(Escenario &e, const QString &rtaSalones = QStringLiteral("501,QUINTO A"))
    {
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        std::unique_ptr<tcMaterias> materias;
        salones.Fcargar(rtaSalones);
        descargarHistorico(e.entorno, salones, alumnos, materias);
        QVERIFY(materias);
    }

private Q_SLOTS:
    void corrida_pideTodoEnSuOrden()
    {
        Escenario e;
        e.responder("campo=", "un valor largo");
        e.responder("existe.php", "NO");
        e.responder("alumnos.php", "1001,ANA PEÑA\xAE"
                                   "1002,LUIS DÍAZ");
        e.responder("tipo=html&salon=", "la pagina del salon");
        e.responder("materias.php", "1,ARTE,ARTES");
        correr(e);
        const QString q = QStringLiteral("/querys/tessarin/");
        const QString azar = QStringLiteral("?azar=#&");
        const QString colegio = azar + QStringLiteral("idcolegio=123");
        const QString foto = q + QStringLiteral("existe.php") + azar + QStringLiteral("f=")
                             + e.demo.base() + QStringLiteral("/jup/images/123/");
        const QStringList destinos = e.destinos();
        QCOMPARE(
            destinos.mid(17), // after the shared assets
            QStringList({
                q + QStringLiteral("salones.php") + colegio + QStringLiteral("&tipo=html"),
                q + QStringLiteral("alumnos.php") + colegio
                    + QStringLiteral("&tipo=html&salon=501"),
                QStringLiteral("/notas/123/2010/consolidado/501/4/tessarin/") + azar,
                QStringLiteral("/notas/123/2010/consolidadof/501/4/tessarin/") + azar,
                q + QStringLiteral("alumnos.php") + colegio + QStringLiteral("&tipo=matrix"),
                QStringLiteral("/salones/123/2010/infoFinal/1001/tessarin/") + azar,
                QStringLiteral("/salones/123/2010/infoFinal/1002/tessarin/") + azar,
                QStringLiteral("/salones/123/2010/certificado/1001/tessarin/") + azar,
                QStringLiteral("/salones/123/2010/certificado/1002/tessarin/") + azar,
                QStringLiteral("/alumnos/123/2010/hojaMatricula/1001/tessarin/") + azar,
                QStringLiteral("/alumnos/123/2010/hojaMatricula/1002/tessarin/") + azar,
                q + QStringLiteral("infoAlumno.php") + colegio + QStringLiteral("&idalumno=1001"),
                q + QStringLiteral("infoAlumno.php") + colegio + QStringLiteral("&idalumno=1002"),
                foto + QStringLiteral("1001-alumno.jpg"),
                foto + QStringLiteral("1002-alumno.jpg"),
                q + QStringLiteral("materias.php") + colegio + QStringLiteral("&tipo=matrix"),
                QStringLiteral("/imgTXT.php?txt=ARTE"),
                QStringLiteral("/imgTXT.php?txt=ARTES"),
                QStringLiteral("/imgTXT.php?txt=Total%20Fallas"),
                QStringLiteral("/imgTXT.php?txt=Nro%20Perdidas"),
                QStringLiteral("/imgTXT.php?txt=Promedio"),
                QStringLiteral("/imgTXT.php?txt=Puesto"),
            }));
        QVERIFY(destinos.first().startsWith(QStringLiteral("/jscript/")));
    }

    void corrida_dejaElArchivoCompleto()
    {
        Escenario e;
        correr(e);
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("123-2010")}));
        QCOMPARE(e.listar(QStringLiteral("123-2010")),
                 QStringList({QStringLiteral("archivos"), QStringLiteral("configuracion.txt"),
                              QStringLiteral("index.html")}));
        QCOMPARE(e.listar(QStringLiteral("123-2010/archivos")),
                 QStringList({QStringLiteral("certificados"), QStringLiteral("config"),
                              QStringLiteral("consolidadoF"), QStringLiteral("consolidadoN"),
                              QStringLiteral("fotos"), QStringLiteral("images"),
                              QStringLiteral("infoAlumnos"), QStringLiteral("infoFinal"),
                              QStringLiteral("jscript"), QStringLiteral("matriculas"),
                              QStringLiteral("salones")}));
        for (const AlumnoDemo &alumno : e.demo.escuela().alumnos) {
            for (const auto &carpeta :
                 {QStringLiteral("infoFinal"), QStringLiteral("certificados"),
                  QStringLiteral("matriculas"), QStringLiteral("infoAlumnos")}) {
                QVERIFY(
                    e.leer(QStringLiteral("123-2010/archivos/%1/%2.html").arg(carpeta, alumno.id))
                        .size()
                    > 200);
            }
            QCOMPARE(
                e.existe(QStringLiteral("123-2010/archivos/fotos/%1-alumno.jpg").arg(alumno.id)),
                alumno.conFoto);
        }
        QVERIFY(!e.leer(QStringLiteral("123-2010/index.html")).contains(e.demo.base().toLatin1()));
    }

    void avance_sumaDiezPasosEnUnaBarraDeOcho()
    {
        Escenario e;
        correr(e);
        QCOMPARE(e.barra2.historia,
                 QStringList({QStringLiteral("max 8"), QStringLiteral("1"), QStringLiteral("2"),
                              QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5"),
                              QStringLiteral("6"), QStringLiteral("7"), QStringLiteral("8")}));
        QCOMPARE(e.estadoTS.historia,
                 QStringList({QStringLiteral("Descargando Scripts"),
                              QStringLiteral("Descargando Configuracion"),
                              QStringLiteral("Descargando Logotipos"),
                              QStringLiteral("Descargando Salones"),
                              QStringLiteral("Descargando Consolidado Notas"),
                              QStringLiteral("Descargando Consolidado Fallas"),
                              QStringLiteral("Descargando Informes Finales"),
                              QStringLiteral("Descargando Certificados Finales"),
                              QStringLiteral("Descargando Hojas de Matricula"),
                              QStringLiteral("Descargando Informacion de Alumnos"),
                              QStringLiteral("Descargando Imagenes de Alumnos"),
                              QStringLiteral("Descargando Labels de Materias")}));
    }

    void portada_localizaElLogoConCualquierLetra()
    {
        Escenario e;
        const QByteArray base = e.demo.base().toLatin1();
        e.responder("tipo=html", "<img src=" + base.toUpper()
                                     + "/IMAGES/Colegios/123/logo.png><img src=" + base
                                     + "/images/colegios/123/rector.png>");
        correr(e);
        QCOMPARE(
            e.leer(QStringLiteral("123-2010/index.html")),
            QByteArray(
                "<img src=archivos\\images\\logo.png><img src=archivos\\images\\rector.png>\r\n"));
    }

    void corridaSinIngreso_daLaCarpetaDeError()
    {
        Escenario e;
        e.sesion.idColegio = QStringLiteral("ERROR");
        e.sesion.anoActual.clear();
        correr(e, QString());
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("ERROR-")}));
    }

    void idYAnoConSaltos_danCarpetaLimpia()
    {
        Escenario e;
        e.sesion.idColegio = QStringLiteral("123\r\n");
        e.sesion.anoActual = QStringLiteral("2010\r\n");
        correr(e);
        QCOMPARE(e.listar(QString()), QStringList({QStringLiteral("123-2010")}));
        QVERIFY(e.existe(u"123-2010/index.html"_s));
        QVERIFY(e.existe(u"123-2010/archivos/salones/501.html"_s));
        QVERIFY(e.existe(u"123-2010/archivos/images/labels/Puesto"_s));
    }

    void materiasQueYaHay_noSeHacenDeNuevo()
    {
        Escenario e;
        e.responder("materias.php", "1,ARTE,ARTES");
        tcSalones salones(e.entorno);
        tcAlumnos alumnos(e.entorno);
        auto materias = std::make_unique<tcMaterias>(e.entorno);
        const tcMaterias *antes = materias.get();
        materias->Fcargar(u"9,LATÍN,LENGUAS"_s);
        descargarHistorico(e.entorno, salones, alumnos, materias);
        QVERIFY(materias.get() == antes);
        QCOMPARE(materias->Count(), 2);
        QCOMPARE(materias->Item(1)->nombre, u"LATÍN"_s);
    }

    void segundaCorrida_reescribeYDejaLoQueNoTrae()
    {
        Escenario e;
        correr(e);
        QFile ajeno(e.nativa(QStringLiteral("123-2010/archivos/salones/999.html")));
        QVERIFY(ajeno.open(QIODevice::WriteOnly));
        ajeno.write("de otra corrida");
        ajeno.close();
        e.responder("tipo=html", "la portada nueva");
        correr(e);
        QCOMPARE(e.leer(QStringLiteral("123-2010/index.html")), QByteArray("la portada nueva\r\n"));
        QCOMPARE(e.leer(QStringLiteral("123-2010/archivos/salones/999.html")),
                 QByteArray("de otra corrida"));
        QVERIFY(e.existe(QStringLiteral("123-2010/archivos/salones/501.html")));
    }
};

QTEST_MAIN(tst_historico)
#include "tst_historico.moc"
