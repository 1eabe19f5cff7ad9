// SPDX-License-Identifier: MIT
#include "demostracion/rutas.h"

#include <QGuiApplication>
#include <QImage>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;
using demo::Respuesta;
using demo::Rutas;

class tst_rutas : public QObject {
    Q_OBJECT

    const Escuela m_escuela = generarEscuela({});
    Rutas m_rutas{m_escuela, u"http://127.0.0.1:4000"_s};

private Q_SLOTS:
    void consulta_respondeExactamente_data();
    void consulta_respondeExactamente();
    void pagina_responde_data();
    void pagina_responde();
    void direccionDesconocida_noEncontrada_data();
    void direccionDesconocida_noEncontrada();
    void imagen_tieneSuFormato_data();
    void imagen_tieneSuFormato();
    void rotulo_tieneTinta();
    void rotuloDeNota_seDibujaSinElPrefijo();
    void fotoQueFalta_noEncontrada();
    void fotos_sonDocePersonas();
    void guion_esElEmpaquetado_data();
    void guion_esElEmpaquetado();
};

void tst_rutas::consulta_respondeExactamente_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::addColumn<QByteArray>("cuerpo");
    const auto fila = [](const char *nombre, const char *destino, const char *cuerpo) {
        QTest::newRow(nombre) << QByteArray("/querys/tessarin/") + destino << QByteArray(cuerpo);
    };
    fila("secretaria", "login.php?azar=1&user=secretaria&pwd=demo2010",
         "123,SECRETARIA,secretaria");
    fila("superadmin", "login.php?azar=1&user=superadmin&pwd=demo2010",
         "123,SUPERADMIN,superadmin");
    fila("docente", "login.php?azar=1&user=docente&pwd=demo2010", "123,DOCENTE,docente");
    fila("clave errada", "login.php?azar=1&user=secretaria&pwd=otra", "ERROR");
    fila("sin usuario", "login.php?azar=1&user=&pwd=", "ERROR");
    fila("anio", "tomarValor.php?azar=1&idcolegio=123&campo=ANOACTUAL", "2010");
    fila("boleta", "tomarValor.php?azar=1&idcolegio=123&campo=USABOLETA2", "1");
    fila("slogan", "tomarValor.php?azar=1&idcolegio=123&campo=SLOGAN&acutes=SI",
         "Educaci\xF3n con coraz\xF3n, raz\xF3n y compa\xF1\xED"
         "a");
    fila("campo desconocido", "tomarValor.php?azar=1&idcolegio=123&campo=NADA", "");
    fila("salones", "salones.php?azar=1&idcolegio=123&tipo=matrix",
         "501,QUINTO A\xAE"
         "601,SEXTO A\xAE"
         "701,S\xC9PTIMO A");
    fila("materias", "materias.php?azar=1&idcolegio=123&tipo=matrix",
         "1,MATEM\xC1TICAS,MATEM\xC1TICAS\xAE"
         "2,CIENCIAS-NATURALES,CIENCIAS NATURALES\xAE"
         "3,ESPA\xD1OL,HUMANIDADES\xAE"
         "4,INGL\xC9S,HUMANIDADES\xAE"
         "5,EDUCACI\xD3N F\xCDSICA,EDUCACI\xD3N F\xCDSICA\xAE"
         "6,GEOMETR\xCD"
         "A,MATEM\xC1TICAS\xAE"
         "7,HISTORIA,CIENCIAS SOCIALES\xAE"
         "8,EDUCACI\xD3N-ART\xCDSTICA,EDUCACI\xD3N-ART\xCDSTICA\xAE"
         "9,NOTADEFINITIVA,VALORACI\xD3N");
    fila("salon sin alumnos", "alumnos.php?azar=1&idcolegio=123&tipo=matrix&salon=999", "");
    fila("foto que hay", "existe.php?azar=1&f=http://127.0.0.1:4000/jup/images/123/1001-alumno.jpg",
         "SI");
    fila("foto de nadie", "existe.php?azar=1&f=http://127.0.0.1:4000/jup/images/123/9-alumno.jpg",
         "NO");
    fila("foto de otro sitio", "existe.php?azar=1&f=http://otro/jup/images/123/1001-alumno.jpg",
         "NO");
}

void tst_rutas::consulta_respondeExactamente()
{
    QFETCH(QByteArray, destino);
    QFETCH(QByteArray, cuerpo);
    const Respuesta respuesta = m_rutas.responder(destino);
    QCOMPARE(respuesta.estado, 200);
    QCOMPARE(respuesta.tipo, QByteArray("text/html; charset=windows-1252"));
    QCOMPARE(respuesta.cuerpo, cuerpo);
}

void tst_rutas::pagina_responde_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::addColumn<QByteArray>("titulo");
    const auto fila = [](const char *destino, const char *titulo) {
        QTest::newRow(destino) << QByteArray(destino) << QByteArray(titulo);
    };
    fila("/querys/tessarin/salones.php?azar=5&idcolegio=123&tipo=html",
         "Archivo hist\xF3rico del a\xF1o lectivo 2010");
    fila("/querys/tessarin/alumnos.php?azar=5&idcolegio=123&tipo=html&salon=501",
         "Estudiantes de QUINTO A");
    fila("/querys/tessarin/infoAlumno.php?azar=5&idcolegio=123&idalumno=1001",
         "Informaci\xF3n del estudiante");
    fila("/notas/123/2010/consolidado/501/4/tessarin/?azar=5&", "Consolidado de calificaciones");
    fila("/notas/123/2010/consolidadof/501/4/tessarin/?azar=5&", "Consolidado de inasistencias");
    fila("/salones/123/2010/infoFinal/1001/tessarin/?azar=5&", "Informe final de calificaciones");
    fila("/salones/123/2010/infoFinal2/1001/tessarin/77",
         "Informe final de desempe\xF1o por \xE1reas");
    fila("/salones/123/2010/certificado/1001/tessarin/?azar=5&",
         "Certificado final de calificaciones");
    fila("/salones/123/2010/certificado2/1001/tessarin/77", "Certificado final por \xE1reas");
    fila("/salones/123/2010/certificado3/1001/tessarin/77", "Constancia final de estudios");
    fila("/salones/123/2010/boletin/1001/2/tessarin/77", "Informe acad\xE9mico - Periodo 2");
    fila("/salones/123/2010/boletin2/1001/4/tessarin/77", "Informe acad\xE9mico - Periodo 4");
    fila("/alumnos/123/2010/hojaMatricula/1001/tessarin/?azar=5&", "Hoja de matr\xED"
                                                                   "cula");
    fila("/alumnos/123/2010/pazYsalvo/1001/tessarin/77", "Certificado de paz y salvo");
    fila("/notas/123/2010/planillaAsignatura/501-2/tessarin/77",
         "Planilla de trabajo - CIENCIAS-NATURALES");
    fila("/anotador/123/2010/reporte/1001//-1/tessarin/77", "Observador del estudiante");
}

void tst_rutas::pagina_responde()
{
    QFETCH(QByteArray, destino);
    QFETCH(QByteArray, titulo);
    const Respuesta respuesta = m_rutas.responder(destino);
    QCOMPARE(respuesta.estado, 200);
    QCOMPARE(respuesta.tipo, QByteArray("text/html; charset=windows-1252"));
    QVERIFY(respuesta.cuerpo.contains("<h1>" + titulo + "</h1>"));
    QVERIFY(respuesta.cuerpo.contains("<meta charset=\"windows-1252\">"));
}

void tst_rutas::direccionDesconocida_noEncontrada_data()
{
    QTest::addColumn<QByteArray>("destino");
    for (const char *destino : {"/",
                                "/nada",
                                "/salones/123/2010/infoFinal/9999/tessarin/",
                                "/salones/123/2009/infoFinal/1001/tessarin/",
                                "/salones/321/2010/infoFinal/1001/tessarin/",
                                "/alumnos/123/2010/infoFinal/1001/tessarin/",
                                "/salones/123/2010/boletin/1001/5/tessarin/1",
                                "/notas/123/2010/consolidado/999/4/tessarin/",
                                "/notas/123/2010/planillaAsignatura/501-99/tessarin/1",
                                "/querys/tessarin/otra.php?idcolegio=123",
                                "/querys/tessarin/salones.php?idcolegio=9&tipo=matrix",
                                "/images/../rutas.cpp",
                                "/images/nada.png",
                                "/jscript/nada.js",
                                "/jscript/bg.gif",
                                "/images//bg.gif",
                                "/images/logo.png",
                                "/images/../../retratos/alumna1.jpg",
                                "/images/",
                                "/images/colegios/9/logo.png"})
        QTest::newRow(destino) << QByteArray(destino);
}

void tst_rutas::direccionDesconocida_noEncontrada()
{
    QFETCH(QByteArray, destino);
    const Respuesta respuesta = m_rutas.responder(destino);
    QCOMPARE(respuesta.estado, 404);
    QVERIFY(respuesta.cuerpo.contains("P\xE1gina no encontrada"));
}

void tst_rutas::imagen_tieneSuFormato_data()
{
    QTest::addColumn<QByteArray>("destino");
    QTest::addColumn<QByteArray>("tipo");
    QTest::addColumn<QByteArray>("inicio");
    const QByteArray png("\x89PNG\r\n\x1A\n", 8);
    for (const char *destino :
         {"/images/default-avatar.png", "/images/promovido.png", "/images/reprobado.png",
          "/images/apersonal.png", "/images/aconvivencia.png", "/images/aacademico.png",
          "/images/colegios/123/logo.png", "/images/colegios/123/rector.png",
          "/images/colegios/123/coordinacion.png", "/imgTXT.php?txt=Nro%20Perdidas",
          "/imgTXT.php?txt=MATEM%C1TICAS"})
        QTest::newRow(destino) << QByteArray(destino) << QByteArray("image/png") << png;
    for (const char *destino : {"/images/bg.gif", "/images/asc.gif", "/images/desc.gif"})
        QTest::newRow(destino) << QByteArray(destino) << QByteArray("image/gif")
                               << QByteArray("GIF89a");
    QTest::newRow("foto") << QByteArray("/jup/images/123/1001-alumno.jpg")
                          << QByteArray("image/jpeg") << QByteArray("\xFF\xD8\xFF");
}

void tst_rutas::imagen_tieneSuFormato()
{
    QFETCH(QByteArray, destino);
    QFETCH(QByteArray, tipo);
    QFETCH(QByteArray, inicio);
    const Respuesta respuesta = m_rutas.responder(destino);
    QCOMPARE(respuesta.estado, 200);
    QCOMPARE(respuesta.tipo, tipo);
    QCOMPARE(respuesta.cuerpo.left(inicio.size()), inicio);
    QVERIFY(!QImage::fromData(respuesta.cuerpo).isNull());
    QCOMPARE(m_rutas.responder(destino).cuerpo, respuesta.cuerpo);
}

void tst_rutas::rotulo_tieneTinta()
{
    const QImage imagen = QImage::fromData(m_rutas.responder("/imgTXT.php?txt=ESPA%D1OL").cuerpo);
    int oscuros = 0;
    for (int y = 0; y < imagen.height(); ++y)
        for (int x = 0; x < imagen.width(); ++x)
            oscuros +=
                imagen.pixelColor(x, y).alpha() > 128 && imagen.pixelColor(x, y).lightness() < 90
                    ? 1
                    : 0;
    QVERIFY(oscuros > 200);
    QVERIFY(m_rutas.responder("/imgTXT.php?txt=ESPA%D1OL").cuerpo
            != m_rutas.responder("/imgTXT.php?txt=ESPANOL").cuerpo);
}

void tst_rutas::rotuloDeNota_seDibujaSinElPrefijo()
{
    const QByteArray solo = m_rutas.responder("/imgTXT.php?txt=DEFINITIVA").cuerpo;
    QCOMPARE(m_rutas.responder("/imgTXT.php?txt=NOTA:DEFINITIVA").cuerpo, solo);
    QCOMPARE(m_rutas.responder("/imgTXT.php?txt=NOTADEFINITIVA").cuerpo, solo);
}

void tst_rutas::fotoQueFalta_noEncontrada()
{
    for (const AlumnoDemo &alumno : m_escuela.alumnos) {
        const QByteArray foto = "/jup/images/123/" + alumno.id.toLatin1() + "-alumno.jpg";
        QCOMPARE(m_rutas.responder(foto).estado, alumno.conFoto ? 200 : 404);
        QCOMPARE(
            m_rutas.responder("/querys/tessarin/existe.php?azar=1&f=http://127.0.0.1:4000" + foto)
                .cuerpo,
            QByteArray(alumno.conFoto ? "SI" : "NO"));
    }
}

void tst_rutas::fotos_sonDocePersonas()
{
    const Escuela grande = generarEscuela({2010, 10, 20, 1});
    Rutas suyas(grande, u"http://127.0.0.1:4000"_s);
    QSet<QByteArray> alumnas;
    QSet<QByteArray> alumnos;
    for (const AlumnoDemo &alumno : grande.alumnos) {
        if (!alumno.conFoto)
            continue;
        const Respuesta foto =
            suyas.responder("/jup/images/123/" + alumno.id.toLatin1() + "-alumno.jpg");
        QCOMPARE(QImage::fromData(foto.cuerpo, "JPEG").size(), QSize(300, 375));
        (alumno.mujer ? alumnas : alumnos).insert(foto.cuerpo);
    }
    QCOMPARE(alumnas.size(), 6);
    QCOMPARE(alumnos.size(), 6);
    QVERIFY(!alumnas.intersects(alumnos));
}

void tst_rutas::guion_esElEmpaquetado_data()
{
    QTest::addColumn<QByteArray>("nombre");
    QTest::addColumn<QByteArray>("contiene");
    QTest::newRow("jquery") << QByteArray("jquery.tools.min.js") << QByteArray("jQuery v3");
    QTest::newRow("tablesorter") << QByteArray("jquery.tablesorter.min.js")
                                 << QByteArray("tablesorter");
}

void tst_rutas::guion_esElEmpaquetado()
{
    QFETCH(QByteArray, nombre);
    QFETCH(QByteArray, contiene);
    const Respuesta respuesta = m_rutas.responder("/jscript/" + nombre + "?azar=123456&");
    QCOMPARE(respuesta.estado, 200);
    QVERIFY(respuesta.cuerpo.size() > 10000);
    QVERIFY(respuesta.cuerpo.contains(contiene));
}

QTEST_MAIN(tst_rutas)
#include "tst_rutas.moc"
