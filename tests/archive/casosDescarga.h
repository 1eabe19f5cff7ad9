// SPDX-License-Identifier: MIT
// The seven download methods that store pages, for the tests that go through all of them.
#pragma once

#include "escenario/Escenario.h"
#include "records/tcAlumnos.h"
#include "records/tcSalones.h"
#include "service/archivos.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

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

inline const QString otras = u"123-2010"_s;

inline const QList<QPair<QByteArray, Caso>> casos = {
    {"downSalones",
     {[](tcSalones &s, tcAlumnos &) { s.downSalones(); },
      false,
      u"Descargando Salones"_s,
      u"Descargando Salon (14): 6A - 2 de 2"_s,
      u"salones"_s,
      u"/querys/tessarin/alumnos.php?azar=#&idcolegio=123&tipo=html&salon=14"_s,
      false,
      {otras}}},
    {"downConsolidadoN",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoN(); },
      false,
      u"Descargando Consolidado Notas"_s,
      u"Descargando Consolidado Notas (14): 6A - 2 de 2"_s,
      u"consolidadoN"_s,
      u"/notas/123/2010/consolidado/14/4/tessarin/?azar=#&"_s,
      false,
      {}}},
    {"downConsolidadoF",
     {[](tcSalones &s, tcAlumnos &) { s.downConsolidadoF(); },
      false,
      u"Descargando Consolidado Fallas"_s,
      u"Descargando Consolidado Fallas (14): 6A - 2 de 2"_s,
      u"consolidadoF"_s,
      u"/notas/123/2010/consolidadof/14/4/tessarin/?azar=#&"_s,
      false,
      {}}},
    {"downInfoFinal",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoFinal(); },
      true,
      u"Descargando Informes Finales"_s,
      u"Informe Final (14): 6A - 2 de 2"_s,
      u"infoFinal"_s,
      u"/salones/123/2010/infoFinal/14/tessarin/?azar=#&"_s,
      true,
      {otras}}},
    {"downCertificado",
     {[](tcSalones &, tcAlumnos &a) { a.downCertificado(); },
      true,
      u"Descargando Certificados Finales"_s,
      u"Certificado (14): 6A - 2 de 2"_s,
      u"certificados"_s,
      u"/salones/123/2010/certificado/14/tessarin/?azar=#&"_s,
      true,
      {otras}}},
    {"downHojaMat",
     {[](tcSalones &, tcAlumnos &a) { a.downHojaMat(); },
      true,
      u"Descargando Hojas de Matricula"_s,
      u"Hoja Matricula (14): 6A - 2 de 2"_s,
      u"matriculas"_s,
      u"/alumnos/123/2010/hojaMatricula/14/tessarin/?azar=#&"_s,
      true,
      {otras}}},
    {"downInfoAlumno",
     {[](tcSalones &, tcAlumnos &a) { a.downInfoAlumno(); },
      true,
      u"Descargando Informacion de Alumnos"_s,
      u"InfoAlumno (14): 6A - 2 de 2"_s,
      u"infoAlumnos"_s,
      u"/querys/tessarin/infoAlumno.php?azar=#&idcolegio=123&idalumno=14"_s,
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
    crearCarpeta(e.entorno, u"C:\\Quorvela"_s);
    crearCarpeta(e.entorno, u"c:\\Quorvela\\123-2010\\"_s);
}

} // namespace casosDescarga
