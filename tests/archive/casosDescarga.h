// SPDX-License-Identifier: MIT
// The seven download methods that store pages, for the tests that go through all of them.
#pragma once

#include "escenario/Escenario.h"
#include "records/tcAlumnos.h"
#include "records/tcSalones.h"
#include "service/archivos.h"

#include <QTest>

#include <functional>

namespace casosDescarga {

using Metodo = std::function<void(tcSalones &, tcAlumnos &)>;

struct Caso {
    Metodo metodo;
    bool deAlumnos;
    QString titulo;
    QString texto; // for the record 14 named "6A", 2 of 2
    QString carpeta;
    QString destino; // for the record 14
    bool conGuion;
    QStringList sinCarpetaDelArchivo; // what stands below the root afterwards, nothing before
};

inline const QString otras = QStringLiteral("123-2010");

inline const QList<QPair<QByteArray, Caso>> casos = {
    {"downSalones",
     {[](tcSalones &s, tcAlumnos &) { s.downSalones(); },
      false,
      QStringLiteral("Descargando Salones"),
      QStringLiteral("Descargando Salon (14): 6A - 2 de 2"),
      QStringLiteral("salones"),
      QStringLiteral("/querys/tessarin/alumnos.php?azar=#&idcolegio=123&tipo=html&salon=14"),
      false,
      {otras}}},
    {"downConsolidadoN",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoN(); },
      false,
      QStringLiteral("Descargando Consolidado Notas"),
      QStringLiteral("Descargando Consolidado Notas (14): 6A - 2 de 2"),
      QStringLiteral("consolidadoN"),
      QStringLiteral("/notas/123/2010/consolidado/14/4/tessarin/?azar=#&"),
      false,
      {}}},
    {"downConsolidadoF",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoF(); },
      false,
      QStringLiteral("Descargando Consolidado Fallas"),
      QStringLiteral("Descargando Consolidado Fallas (14): 6A - 2 de 2"),
      QStringLiteral("consolidadoF"),
      QStringLiteral("/notas/123/2010/consolidadof/14/4/tessarin/?azar=#&"),
      false,
      {}}},
    {"downInfoFinal",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoFinal(); },
      true,
      QStringLiteral("Descargando Informes Finales"),
      QStringLiteral("Informe Final (14): 6A - 2 de 2"),
      QStringLiteral("infoFinal"),
      QStringLiteral("/salones/123/2010/infoFinal/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downCertificado",
     {[](tcSalones &, tcAlumnos &a) { a.downCertificado(); },
      true,
      QStringLiteral("Descargando Certificados Finales"),
      QStringLiteral("Certificado (14): 6A - 2 de 2"),
      QStringLiteral("certificados"),
      QStringLiteral("/salones/123/2010/certificado/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downHojaMat",
     {[](tcSalones &, tcAlumnos &a) { a.downHojaMat(); },
      true,
      QStringLiteral("Descargando Hojas de Matricula"),
      QStringLiteral("Hoja Matricula (14): 6A - 2 de 2"),
      QStringLiteral("matriculas"),
      QStringLiteral("/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&"),
      true,
      {otras}}},
    {"downInfoAlumno",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoAlumno(); },
      true,
      QStringLiteral("Descargando Informacion de Alumnos"),
      QStringLiteral("InfoAlumno (14): 6A - 2 de 2"),
      QStringLiteral("infoAlumnos"),
      QStringLiteral("/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=14"),
      false,
      {otras}}},
};

// A data row for each of them.
inline void casosComoDatos()
{
    QTest::addColumn<int>("indice");
    for (int indice = 0; indice < casos.size(); ++indice)
        QTest::newRow(casos[indice].first.constData()) << indice;
}

// The folders that the consolidated reports rely on.
inline void prepararArchivo(Escenario &e)
{
    crearCarpeta(e.entorno, QStringLiteral("C:\\Quorvela"));
    crearCarpeta(e.entorno, QStringLiteral("c:\\Quorvela\\123-2010\\"));
}

} // namespace casosDescarga
