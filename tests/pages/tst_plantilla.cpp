// SPDX-License-Identifier: MIT
#include "pages/plantilla.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_plantilla : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void lugares_seLlenanUnaSolaVez_data()
    {
        QTest::addColumn<Plantilla>("plantilla");
        QTest::addColumn<QString>("texto");
        QTest::newRow("two places") << Plantilla(u"{base}/x/{id}") << u"https://s.co/x/{base}"_s;
        QTest::newRow("the same twice")
            << Plantilla(u"{base}{base}") << u"https://s.cohttps://s.co"_s;
        QTest::newRow("text around") << Plantilla(u"a{base}b") << u"ahttps://s.cob"_s;
        QTest::newRow("no place") << Plantilla(u"texto") << u"texto"_s;
        QTest::newRow("empty") << Plantilla(u"") << QString();
        QTest::newRow("none at all") << Plantilla() << QString();
    }
    void lugares_seLlenanUnaSolaVez()
    {
        QFETCH(Plantilla, plantilla);
        QFETCH(QString, texto);
        Valores valores;
        valores.poner(Lugar::Base, u"https://s.co"_s);
        valores.poner(Lugar::Id, u"{base}"_s);
        QCOMPARE(completar(plantilla, valores), texto);
    }

    void cadaLugar_tieneSuNombre_data()
    {
        QTest::addColumn<Plantilla>("plantilla");
        QTest::addColumn<Lugar>("lugar");
        QTest::newRow("base") << Plantilla(u"{base}") << Lugar::Base;
        QTest::newRow("colegio") << Plantilla(u"{colegio}") << Lugar::Colegio;
        QTest::newRow("anio") << Plantilla(u"{anio}") << Lugar::Anio;
        QTest::newRow("raiz") << Plantilla(u"{raiz}") << Lugar::Raiz;
        QTest::newRow("archivo") << Plantilla(u"{archivo}") << Lugar::Archivo;
        QTest::newRow("recortado") << Plantilla(u"{recortado}") << Lugar::Recortado;
        QTest::newRow("documentos") << Plantilla(u"{documentos}") << Lugar::Documentos;
        QTest::newRow("imagenes") << Plantilla(u"{imagenes}") << Lugar::Imagenes;
        QTest::newRow("salida") << Plantilla(u"{salida}") << Lugar::Salida;
        QTest::newRow("tipo") << Plantilla(u"{tipo}") << Lugar::Tipo;
        QTest::newRow("id") << Plantilla(u"{id}") << Lugar::Id;
        QTest::newRow("periodo") << Plantilla(u"{periodo}") << Lugar::Periodo;
        QTest::newRow("azar") << Plantilla(u"{azar}") << Lugar::Azar;
        QTest::newRow("foto") << Plantilla(u"{foto}") << Lugar::Foto;
    }
    void cadaLugar_tieneSuNombre()
    {
        QFETCH(Plantilla, plantilla);
        QFETCH(Lugar, lugar);
        Valores valores; // none but this one: reading another ends the test
        valores.poner(lugar, u"valor"_s);
        QCOMPARE(completar(plantilla, valores), u"valor"_s);
    }
};

QTEST_GUILESS_MAIN(tst_plantilla)
#include "tst_plantilla.moc"
