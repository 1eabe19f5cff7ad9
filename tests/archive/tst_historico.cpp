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
    static void correr(Escenario &e, const QString &rtaSalones = u"501,QUINTO A"_s)
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
        const QString q = u"/querys/tessarin/"_s;
        const QString azar = u"?azar=#&"_s;
        const QString colegio = azar + u"idcolegio=123"_s;
        const QString foto =
            q + u"existe.php"_s + azar + u"f="_s + e.demo.base() + u"/jup/images/123/"_s;
        const QStringList destinos = e.destinos();
        QCOMPARE(destinos.mid(17), // after the shared assets
                 QStringList({
                     q + u"salones.php"_s + colegio + u"&tipo=html"_s,
                     q + u"alumnos.php"_s + colegio + u"&tipo=html&salon=501"_s,
                     u"/notas/123/2010/consolidado/501/4/tessarin/"_s + azar,
                     u"/notas/123/2010/consolidadof/501/4/tessarin/"_s + azar,
                     q + u"alumnos.php"_s + colegio + u"&tipo=matrix"_s,
                     u"/salones/123/2010/infoFinal/1001/tessarin/"_s + azar,
                     u"/salones/123/2010/infoFinal/1002/tessarin/"_s + azar,
                     u"/salones/123/2010/certificado/1001/tessarin/"_s + azar,
                     u"/salones/123/2010/certificado/1002/tessarin/"_s + azar,
                     u"/alumnos/123/2010/hojaMatricula/1001/tessarin/"_s + azar,
                     u"/alumnos/123/2010/hojaMatricula/1002/tessarin/"_s + azar,
                     q + u"infoAlumno.php"_s + colegio + u"&idalumno=1001"_s,
                     q + u"infoAlumno.php"_s + colegio + u"&idalumno=1002"_s,
                     foto + u"1001-alumno.jpg"_s,
                     foto + u"1002-alumno.jpg"_s,
                     q + u"materias.php"_s + colegio + u"&tipo=matrix"_s,
                     u"/imgTXT.php?txt=ARTE"_s,
                     u"/imgTXT.php?txt=ARTES"_s,
                     u"/imgTXT.php?txt=Total%20Fallas"_s,
                     u"/imgTXT.php?txt=Nro%20Perdidas"_s,
                     u"/imgTXT.php?txt=Promedio"_s,
                     u"/imgTXT.php?txt=Puesto"_s,
                 }));
        QVERIFY(destinos.first().startsWith(u"/jscript/"_s));
    }

    void corrida_dejaElArchivoCompleto()
    {
        Escenario e;
        correr(e);
        QCOMPARE(e.listar(QString()), QStringList({u"123-2010"_s}));
        QCOMPARE(e.listar(u"123-2010"_s),
                 QStringList({u"archivos"_s, u"configuracion.txt"_s, u"index.html"_s}));
        QCOMPARE(e.listar(u"123-2010/archivos"_s),
                 QStringList({u"certificados"_s, u"config"_s, u"consolidadoF"_s, u"consolidadoN"_s,
                              u"fotos"_s, u"images"_s, u"infoAlumnos"_s, u"infoFinal"_s,
                              u"jscript"_s, u"matriculas"_s, u"salones"_s}));
        for (const AlumnoDemo &alumno : e.demo.escuela().alumnos) {
            for (const auto &carpeta :
                 {u"infoFinal"_s, u"certificados"_s, u"matriculas"_s, u"infoAlumnos"_s}) {
                QVERIFY(e.leer(u"123-2010/archivos/%1/%2.html"_s.arg(carpeta, alumno.id)).size()
                        > 200);
            }
            QCOMPARE(e.existe(u"123-2010/archivos/fotos/%1-alumno.jpg"_s.arg(alumno.id)),
                     alumno.conFoto);
        }
        QVERIFY(!e.leer(u"123-2010/index.html"_s).contains(e.demo.base().toLatin1()));
    }

    void avance_sumaDiezPasosEnUnaBarraDeOcho()
    {
        Escenario e;
        correr(e);
        QCOMPARE(e.barra2.historia, QStringList({u"max 8"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s,
                                                 u"6"_s, u"7"_s, u"8"_s}));
        QCOMPARE(e.estadoTS.historia,
                 QStringList(
                     {u"Descargando Scripts"_s, u"Descargando Configuracion"_s,
                      u"Descargando Logotipos"_s, u"Descargando Salones"_s,
                      u"Descargando Consolidado Notas"_s, u"Descargando Consolidado Fallas"_s,
                      u"Descargando Informes Finales"_s, u"Descargando Certificados Finales"_s,
                      u"Descargando Hojas de Matricula"_s, u"Descargando Informacion de Alumnos"_s,
                      u"Descargando Imagenes de Alumnos"_s, u"Descargando Labels de Materias"_s}));
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
            e.leer(u"123-2010/index.html"_s),
            QByteArray(
                "<img src=archivos\\images\\logo.png><img src=archivos\\images\\rector.png>\r\n"));
    }

    void corridaSinIngreso_daLaCarpetaDeError()
    {
        Escenario e;
        e.sesion.idColegio = u"ERROR"_s;
        e.sesion.anoActual.clear();
        correr(e, QString());
        QCOMPARE(e.listar(QString()), QStringList({u"ERROR-"_s}));
    }

    void idYAnoConSaltos_danCarpetaLimpia()
    {
        Escenario e;
        e.sesion.idColegio = u"123\r\n"_s;
        e.sesion.anoActual = u"2010\r\n"_s;
        correr(e);
        QCOMPARE(e.listar(QString()), QStringList({u"123-2010"_s}));
        QVERIFY(e.existe(u"123-2010/index.html"_s));
        QVERIFY(e.existe(u"123-2010/archivos/salones/501.html"_s));
        QVERIFY(e.existe(u"123-2010/archivos/images/labels/Puesto"_s));
    }

    // Unlike three of the print jobs, whose second folder is trimmed.
    void idYAnoConBlancos_nadaSeRecorta()
    {
        Escenario e;
        e.sesion.idColegio = u"123 "_s;
        e.sesion.anoActual = u" 2010"_s;
        correr(e);
        QCOMPARE(e.listar(QString()), QStringList({u"123 - 2010"_s}));
        QVERIFY(e.existe(u"123 - 2010/configuracion.txt"_s));
        QVERIFY(e.existe(u"123 - 2010/archivos/salones/501.html"_s));
        QVERIFY(e.existe(u"123 - 2010/archivos/images/labels/Puesto"_s));
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
        QFile ajeno(e.nativa(u"123-2010/archivos/salones/999.html"_s));
        QVERIFY(ajeno.open(QIODevice::WriteOnly));
        ajeno.write("de otra corrida");
        ajeno.close();
        e.responder("tipo=html", "la portada nueva");
        correr(e);
        QCOMPARE(e.leer(u"123-2010/index.html"_s), QByteArray("la portada nueva\r\n"));
        QCOMPARE(e.leer(u"123-2010/archivos/salones/999.html"_s), QByteArray("de otra corrida"));
        QVERIFY(e.existe(u"123-2010/archivos/salones/501.html"_s));
    }
};

QTEST_MAIN(tst_historico)
#include "tst_historico.moc"
