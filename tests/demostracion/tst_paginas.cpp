// SPDX-License-Identifier: MIT
#include "demostracion/calificaciones.h"
#include "demostracion/paginas.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace demo;

class tst_paginas : public QObject {
    Q_OBJECT

    const Escuela m_escuela = generarEscuela({2010, 3, 8, 15});
    const QString m_base = u"http://127.0.0.1:4000"_s;
    const Contexto m_contexto{m_escuela, m_base};

    QStringList rotulos(const QString &pagina) const
    {
        QStringList hallados;
        static const QRegularExpression uno(
            u"src=\"http://127.0.0.1:4000/imgTXT\\.php\\?txt=([^\"]*)\""_s);
        for (auto it = uno.globalMatch(pagina); it.hasNext();)
            hallados << it.next().captured(1);
        return hallados;
    }

private Q_SLOTS:
    void consolidados_soloTraenRotulosQueSeGuardan();
    void consolidadoFallas_noTraeRotuloDeNota();
    void indice_enlazaCadaSalon();
    void salon_enlazaCadaDocumento();
    void informeFinal_traeUnSoloSello();
    void certificado_traeUnFolioYLaFirma();
    void hojaMatricula_traeFotoOSilueta();
    void infoAlumno_noNombraAlServicio();
    void documentos_dejanDatosAlGuion();
    void boletin_dejaTodoAlGuionYLoTraeDelServicio();
    void direccionesAbsolutas_sonSoloLasQueSeReemplazan();
    void textos_quedanTextos();
    void paginas_salenListasParaEnviar();
};

// What an archive stores: subjects and areas with hyphens as blanks, and the fixed headings; a
// "NOTA:" loses its colon on the way.
void tst_paginas::consolidados_soloTraenRotulosQueSeGuardan()
{
    QSet<QString> guardados = {u"Total Fallas"_s, u"Nro Perdidas"_s, u"Promedio"_s, u"Puesto"_s};
    for (const MateriaDemo &m : m_escuela.materias)
        for (QString nombre : {m.nombre, m.area})
            guardados.insert(nombre.replace(u'-', u' '));
    for (const SalonDemo &salon : m_escuela.salones) {
        QStringList notas = rotulos(consolidadoNotas(m_contexto, salon));
        QVERIFY(notas.contains(u"NOTA:DEFINITIVA"_s));
        notas.replaceInStrings(u"NOTA:"_s, u"NOTA"_s);
        for (const QString &rotulo : notas + rotulos(consolidadoFallas(m_contexto, salon)))
            QVERIFY2(guardados.contains(rotulo), qPrintable(rotulo));
        for (const char *fijo : {"Total Fallas", "Nro Perdidas", "Promedio", "Puesto"})
            QVERIFY(notas.contains(QLatin1String(fijo)));
    }
}

void tst_paginas::consolidadoFallas_noTraeRotuloDeNota()
{
    const QStringList fallas = rotulos(consolidadoFallas(m_contexto, m_escuela.salones.first()));
    QVERIFY(fallas.contains(u"Total Fallas"_s));
    QVERIFY(fallas.contains(u"CIENCIAS NATURALES"_s));
    QVERIFY(fallas.filter(u"NOTA"_s).isEmpty());
}

void tst_paginas::indice_enlazaCadaSalon()
{
    const QString pagina = indiceSalones(m_contexto);
    for (const SalonDemo &salon : m_escuela.salones) {
        QCOMPARE(pagina.count(u"href=\"archivos/salones/"_s + salon.id + u".html\""_s), 1);
        QVERIFY(pagina.contains(u"<h2>"_s + salon.sede + u"</h2>"_s));
    }
    QVERIFY(pagina.contains(m_base + u"/images/colegios/123/logo.png"_s));
}

void tst_paginas::salon_enlazaCadaDocumento()
{
    const SalonDemo &salon = m_escuela.salones.first();
    const QString pagina = listaSalon(m_contexto, salon);
    for (const AlumnoDemo &alumno : alumnosDe(m_escuela, salon.id))
        for (const char *carpeta : {"infoFinal", "certificados", "matriculas", "infoAlumnos"})
            QVERIFY(pagina.contains(
                u"href=\"../%1/%2.html\""_s.arg(QLatin1String(carpeta), alumno.id)));
    for (const QString &enlace :
         {u"../consolidadoN/501.html"_s, u"../consolidadoF/501.html"_s, u"../../index.html"_s,
          u"../jscript/jquery.tools.min.js"_s, u"../jscript/jquery.tablesorter.min.js"_s})
        QVERIFY2(pagina.contains(u'"' + enlace + u'"'), qPrintable(enlace));
    for (const QString &flecha : {u"bg"_s, u"asc"_s, u"desc"_s})
        QVERIFY(pagina.contains(u"url(../images/%1.gif)"_s.arg(flecha)));
}

void tst_paginas::informeFinal_traeUnSoloSello()
{
    for (const AlumnoDemo &alumno : m_escuela.alumnos)
        for (const int clase : {1, 2}) {
            const QString pagina = informeFinal(m_contexto, alumno, clase);
            const qsizetype si = pagina.count(m_base + u"/images/promovido.png"_s);
            const qsizetype no = pagina.count(m_base + u"/images/reprobado.png"_s);
            QCOMPARE(si + no, 1);
            QCOMPARE(si == 1, promovido(alumno));
        }
}

void tst_paginas::certificado_traeUnFolioYLaFirma()
{
    for (const int clase : {1, 2, 3}) {
        const QString pagina = certificado(m_contexto, m_escuela.alumnos.first(), clase);
        QCOMPARE(pagina.count(u"Folio: ®folio®"_s), 1);
        QCOMPARE(pagina.count(u'®'), 2);
        QVERIFY(pagina.contains(m_base + u"/images/colegios/123/rector.png"_s));
    }
}

void tst_paginas::hojaMatricula_traeFotoOSilueta()
{
    for (const AlumnoDemo &alumno : m_escuela.alumnos) {
        const QString pagina = hojaMatricula(m_contexto, alumno);
        QCOMPARE(pagina.contains(m_base + u"/jup/images/123/"_s + alumno.id + u"-alumno.jpg"_s),
                 alumno.conFoto);
        QCOMPARE(pagina.contains(m_base + u"/images/default-avatar.png"_s), !alumno.conFoto);
    }
}

void tst_paginas::infoAlumno_noNombraAlServicio()
{
    for (const AlumnoDemo &alumno : m_escuela.alumnos)
        QVERIFY(!infoAlumno(m_contexto, alumno).contains(u"http"_s));
}

void tst_paginas::documentos_dejanDatosAlGuion()
{
    const AlumnoDemo &alumno = m_escuela.alumnos.first();
    for (const QString &pagina :
         {informeFinal(m_contexto, alumno, 1), informeFinal(m_contexto, alumno, 2),
          certificado(m_contexto, alumno, 1), certificado(m_contexto, alumno, 2),
          certificado(m_contexto, alumno, 3), hojaMatricula(m_contexto, alumno)}) {
        for (const char *campo : {"CDANE", "DIRECCION", "TELEFONO", "SECRETARIA", "RECTOR"}) {
            QCOMPARE(pagina.count(u"id=\"cfg%1\"></"_s.arg(QLatin1String(campo))), 1);
            QVERIFY(
                !pagina.contains(m_escuela.ajustes.value(QLatin1String(campo)).toHtmlEscaped()));
        }
        QVERIFY(pagina.contains(u"<div class=\"colegio\" id=\"cfgMICOLEGIO\">Institución"_s));
        QVERIFY(pagina.contains(u"<div class=\"lema\" id=\"cfgSLOGAN\">Educación"_s));
    }
}

void tst_paginas::boletin_dejaTodoAlGuionYLoTraeDelServicio()
{
    for (const int clase : {1, 2}) {
        const QString pagina = boletin(m_contexto, m_escuela.alumnos.first(), 2, clase);
        for (const char *campo : {"MICOLEGIO", "SLOGAN", "CDANE", "DIRECCION", "TELEFONO"})
            QCOMPARE(pagina.count(u"id=\"cfg%1\"></"_s.arg(QLatin1String(campo))), 1);
        const qsizetype biblioteca =
            pagina.indexOf(u"<script src=\""_s + m_base + u"/jscript/jquery.tools.min.js\">"_s);
        QVERIFY(biblioteca > 0 && biblioteca < pagina.indexOf(u"</head>"_s));
        QVERIFY(!pagina.contains(u"configuracion.txt"_s));
        for (const auto &[variable, campo] : {std::pair{u"micolegio"_s, u"MICOLEGIO"_s},
                                              {u"slogan"_s, u"SLOGAN"_s},
                                              {u"cdane"_s, u"CDANE"_s},
                                              {u"direccion"_s, u"DIRECCION"_s},
                                              {u"telefono"_s, u"TELEFONO"_s}}) {
            const QString valor = m_escuela.ajustes.value(campo);
            QVERIFY(!valor.isEmpty());
            QVERIFY2(pagina.contains(u"var %1 = \"%2\";"_s.arg(variable, valor.toHtmlEscaped())),
                     qPrintable(variable));
        }
    }
}

// Any other address of the service would still lead there from a stored page.
void tst_paginas::direccionesAbsolutas_sonSoloLasQueSeReemplazan()
{
    const AlumnoDemo &alumno = m_escuela.alumnos.first();
    const SalonDemo &salon = m_escuela.salones.first();
    const QString colegio = u"/images/colegios/123/"_s;
    const QList<QPair<QString, QStringList>> casos = {
        {indiceSalones(m_contexto), {colegio}},
        {listaSalon(m_contexto, salon), {colegio}},
        {consolidadoNotas(m_contexto, salon), {colegio, u"/imgTXT.php?txt="_s}},
        {consolidadoFallas(m_contexto, salon), {colegio, u"/imgTXT.php?txt="_s}},
        {informeFinal(m_contexto, alumno, 2),
         {colegio, u"/images/promovido.png"_s, u"/images/reprobado.png"_s}},
        {certificado(m_contexto, alumno, 2), {colegio}},
        {hojaMatricula(m_contexto, alumno),
         {colegio, u"/jup/images/123/"_s, u"/images/default-avatar.png"_s}},
        {boletin(m_contexto, alumno, 1, 2), {colegio, u"/jscript/jquery.tools.min.js"_s}},
        {pazYsalvo(m_contexto, alumno), {colegio}},
        {planillaAsignatura(m_contexto, salon, 0), {colegio}},
        {observador(m_contexto, alumno),
         {colegio, u"/images/apersonal.png"_s, u"/images/aconvivencia.png"_s,
          u"/images/aacademico.png"_s}}};
    for (auto [pagina, prefijos] : casos) {
        QVERIFY(pagina.contains(m_base));
        for (const QString &prefijo : prefijos)
            pagina.remove(m_base + prefijo);
        QVERIFY2(!pagina.contains(u"http"_s),
                 qPrintable(pagina.mid(pagina.indexOf(u"http"_s), 80)));
    }
}

void tst_paginas::textos_quedanTextos()
{
    AlumnoDemo alumno = m_escuela.alumnos.first();
    alumno.nombre = u"<i>Ñ \"A\" & {{anio}} {{#salon}} {{{base}}} %1"_s;
    const QString escrito =
        u"<b>&lt;i&gt;Ñ &quot;A&quot; &amp; {{anio}} {{#salon}} {{{base}}} %1</b>"_s;
    QCOMPARE(pazYsalvo(m_contexto, alumno).count(escrito), 1);
}

// The files are written for an editor and a browser: UTF-8, bare line feeds, an imported style.
void tst_paginas::paginas_salenListasParaEnviar()
{
    for (const QString &pagina : {paginaAusente(), indiceSalones(m_contexto),
                                  listaSalon(m_contexto, m_escuela.salones.first()),
                                  consolidadoNotas(m_contexto, m_escuela.salones.first()),
                                  consolidadoFallas(m_contexto, m_escuela.salones.first()),
                                  infoAlumno(m_contexto, m_escuela.alumnos.first()),
                                  hojaMatricula(m_contexto, m_escuela.alumnos.first()),
                                  informeFinal(m_contexto, m_escuela.alumnos.first(), 1),
                                  informeFinal(m_contexto, m_escuela.alumnos.first(), 2),
                                  certificado(m_contexto, m_escuela.alumnos.first(), 1),
                                  boletin(m_contexto, m_escuela.alumnos.first(), 2, 1),
                                  planillaAsignatura(m_contexto, m_escuela.salones.first(), 0),
                                  observador(m_contexto, m_escuela.alumnos.first())}) {
        QVERIFY(pagina.startsWith(u"<!DOCTYPE html>\r\n"_s));
        QVERIFY(pagina.endsWith(u"</html>\r\n"_s));
        QCOMPARE(pagina.count(u'\n'), pagina.count(u"\r\n"_s));
        QCOMPARE(pagina.count(u"<meta charset=\"windows-1252\">"_s), 1);
        QVERIFY(!pagina.contains(u"utf-8"_s, Qt::CaseInsensitive));
        QVERIFY(!pagina.contains(u"@import"_s));
        QVERIFY(pagina.contains(u".hoja { max-width: 820px;"_s));
        QVERIFY(!pagina.contains(u"{{"_s));
    }
}

QTEST_GUILESS_MAIN(tst_paginas)
#include "tst_paginas.moc"
