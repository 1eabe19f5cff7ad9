// SPDX-License-Identifier: MIT
// The six downloading jobs, for the tests that go through all of them.
#pragma once

#include "escenario/Escenario.h"
#include "escenario/ImpresionAnotada.h"
#include "pages/guiones.h"
#include "printing/trabajos.h"

#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;

namespace casosTrabajo {

struct Caso {
    QString nombre;
    QString lista;     // the list query's page
    QString carpeta;   // below the document folder
    QString destino;   // for the code 77
    QByteArray pagina; // of paginaCompleta, with @ for the service's address, without the script
    QByteArray guion;
    QStringList imagenes; // targets, in order
};

inline const QStringList soloLogo = {u"/images/colegios/123/logo.png"_s};
inline const QStringList deFinales =
    soloLogo
    + QStringList{u"/images/promovido.png"_s, u"/images/reprobado.png"_s,
                  u"/images/colegios/123/rector.png"_s, u"/images/colegios/123/coordinacion.png"_s};
inline const QStringList delObservador =
    soloLogo
    + QStringList{u"/images/apersonal.png"_s, u"/images/aconvivencia.png"_s,
                  u"/images/aacademico.png"_s};

// Everything that any row of the table rewrites, the prefix of the school in capitals.
inline const QByteArray sellos = "<b @/images/promovido.png><b2 @/images/promovido.png>"
                                 "<c @/images/reprobado.png><c2 @/images/reprobado.png>";
inline const QByteArray folio = "<d Folio: \xAE"
                                "folio\xAE>";
inline const QByteArray iconos = "<e @/images/apersonal.png><e2 @/IMAGES/apersonal.png>"
                                 "<f @/images/aconvivencia.png><g @/images/aacademico.png>\xF1\x81";
inline const QByteArray pagina =
    "<a %/IMAGES/COLEGIOS/123/logo.png><a2 @/images/colegios/123/x.png>" + sellos + folio + iconos;

inline QByteArray escuela(const QByteArray &prefijo)
{
    return "<a " + prefijo + "logo.png><a2 " + prefijo + "x.png>";
}

inline const QByteArray porLaRaiz = "../../../123-2010/archivos\\images\\";

inline QList<Caso> casos()
{
    const QByteArray documento = guiones::documento.toLatin1();
    return {
        {u"Boletines"_s, u"alumnos"_s, u"boletines/P2"_s,
         u"/salones/123/2010/boletin/77/2/tessarin/#"_s,
         escuela("../../../archivos\\images\\") + sellos + folio + iconos,
         guiones::boletin.toLatin1(), soloLogo},
        {u"Informe Final"_s, u"alumnos"_s, u"infofinal"_s,
         u"/salones/123/2010/infoFinal/77/tessarin/#"_s,
         escuela("..\\images\\")
             + "<b ..\\images\\promovido.png><b2 @/images/promovido.png>"
               "<c ..\\images\\reprobado.png><c2 @/images/reprobado.png>"
             + folio + iconos,
         documento, deFinales},
        {u"Certificado Final"_s, u"alumnos"_s, u"certificados"_s,
         u"/salones/123/2010/certificado/77/tessarin/#"_s,
         escuela("..\\images\\") + sellos + "<d Folio: _______>" + iconos, documento, deFinales},
        {u"Paz Y Salvos"_s,
         u"alumnos"_s,
         u"pazysalvos"_s,
         u"/alumnos/123/2010/pazYsalvo/77/tessarin/#"_s,
         escuela("..\\images\\") + sellos + folio + iconos,
         {},
         soloLogo},
        {u"Observador"_s,
         u"alumnos"_s,
         u"observador"_s,
         u"/anotador/123/2010/reporte/77//-1/tessarin/#"_s,
         escuela(porLaRaiz) + sellos + folio + "<e " + porLaRaiz + "apersonal.png><e2 " + porLaRaiz
             + "apersonal.png><f " + porLaRaiz + "aconvivencia.png><g " + porLaRaiz
             + "aacademico.png>\xF1\x81",
         {},
         delObservador},
        {u"Planilla Trabajo"_s,
         u"asignaturas"_s,
         u"planillaT"_s,
         u"/notas/123/2010/planillaAsignatura/77/tessarin/#"_s,
         escuela(porLaRaiz) + sellos + folio + iconos,
         {},
         soloLogo},
    };
}

// A data row for each of them.
inline void casosComoDatos()
{
    QTest::addColumn<int>("indice");
    const auto todos = casos();
    for (int indice = 0; indice < todos.size(); ++indice)
        QTest::newRow(todos[indice].nombre.toLatin1().constData()) << indice;
}

// Runs the job of that name to its end, its shell verbs' included.
inline void correr(const QString &nombre, Escenario &e, PanelAnotado &panel)
{
    Verbos verbos;
    correrTrabajo(nombre, e.entorno, panel, verbos);
}

} // namespace casosTrabajo
