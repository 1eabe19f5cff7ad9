// SPDX-License-Identifier: MIT
// The six downloading jobs, for the tests that go through all of them.
#pragma once

#include "pages/guiones.h"

#include <QStringList>
#include <QTest>

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

inline const QStringList soloLogo = {QStringLiteral("/images/colegios/123/logo.png")};
inline const QStringList deFinales =
    soloLogo
    + QStringList{QStringLiteral("/images/promovido.png"), QStringLiteral("/images/reprobado.png"),
                  QStringLiteral("/images/colegios/123/rector.png"),
                  QStringLiteral("/images/colegios/123/coordinacion.png")};
inline const QStringList delObservador = soloLogo
                                         + QStringList{QStringLiteral("/images/apersonal.png"),
                                                       QStringLiteral("/images/aconvivencia.png"),
                                                       QStringLiteral("/images/aacademico.png")};

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
        {QStringLiteral("Boletines"), QStringLiteral("alumnos"), QStringLiteral("boletines/P2"),
         QStringLiteral("/salones/123/2010/boletin/77/2/tessarin/#"),
         escuela("../../../archivos\\images\\") + sellos + folio + iconos,
         guiones::boletin.toLatin1(), soloLogo},
        {QStringLiteral("Informe Final"), QStringLiteral("alumnos"), QStringLiteral("infofinal"),
         QStringLiteral("/salones/123/2010/infoFinal/77/tessarin/#"),
         escuela("..\\images\\")
             + "<b ..\\images\\promovido.png><b2 @/images/promovido.png>"
               "<c ..\\images\\reprobado.png><c2 @/images/reprobado.png>"
             + folio + iconos,
         documento, deFinales},
        {QStringLiteral("Certificado Final"), QStringLiteral("alumnos"),
         QStringLiteral("certificados"),
         QStringLiteral("/salones/123/2010/certificado/77/tessarin/#"),
         escuela("..\\images\\") + sellos + "<d Folio: _______>" + iconos, documento, deFinales},
        {QStringLiteral("Paz Y Salvos"),
         QStringLiteral("alumnos"),
         QStringLiteral("pazysalvos"),
         QStringLiteral("/alumnos/123/2010/pazYsalvo/77/tessarin/#"),
         escuela("..\\images\\") + sellos + folio + iconos,
         {},
         soloLogo},
        {QStringLiteral("Observador"),
         QStringLiteral("alumnos"),
         QStringLiteral("observador"),
         QStringLiteral("/anotador/123/2010/reporte/77//-1/tessarin/#"),
         escuela(porLaRaiz) + sellos + folio + "<e " + porLaRaiz + "apersonal.png><e2 " + porLaRaiz
             + "apersonal.png><f " + porLaRaiz + "aconvivencia.png><g " + porLaRaiz
             + "aacademico.png>\xF1\x81",
         {},
         delObservador},
        {QStringLiteral("Planilla Trabajo"),
         QStringLiteral("asignaturas"),
         QStringLiteral("planillaT"),
         QStringLiteral("/notas/123/2010/planillaAsignatura/77/tessarin/#"),
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

} // namespace casosTrabajo
