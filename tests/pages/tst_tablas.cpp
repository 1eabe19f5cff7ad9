// SPDX-License-Identifier: MIT
// Every row of every table, completed: no place without a value, nothing left out of a row that
// every row has, no kind twice.
#include "archive/descargas.h"
#include "escenario/Escenario.h"
#include "pages/rutasArchivo.h"
#include "printing/trabajos.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_tablas : public QObject {
    Q_OBJECT
private:
    static constexpr auto carpeta =
        "^c:\\\\Quorvela\\\\123-2010\\\\archivos\\\\[A-Za-z0-9\\\\]+\\\\$";
    static constexpr auto direccion =
        "^http://127\\.0\\.0\\.1:\\d+/(querys|notas|salones|alumnos|anotador)/";

    static void revisar(const FilaDocumento &fila, Valores valores, const Module1 &sesion)
    {
        static const QRegularExpression esCarpeta(QString::fromLatin1(carpeta));
        static const QRegularExpression esDireccion(QString::fromLatin1(direccion));
        ponerValores(fila, sesion, valores);
        QVERIFY(esCarpeta.match(valores.valor(Lugar::Salida)).hasMatch());
        QVERIFY(!fila.carpetas.empty());
        for (const Plantilla &una : fila.carpetas)
            QVERIFY(completar(una, valores).startsWith(u"c:\\Quorvela"_s, Qt::CaseInsensitive));
        QCOMPARE(completar(fila.carpetas.back(), valores), valores.valor(Lugar::Salida));
        QVERIFY(esDireccion.match(completar(fila.url, valores)).hasMatch());
        QVERIFY(!completar(fila.parametros, valores).contains(u'{'));
        for (const Reemplazo &una : fila.reemplazos) {
            QVERIFY(!completar(una.buscar, valores).isEmpty());
            QVERIFY(!completar(una.poner, valores).isEmpty());
        }
        QVERIFY(fila.guion.isEmpty() || fila.guion.endsWith(u"</script>"));
    }

private Q_SLOTS:
    void filasDeDescarga_estanEnteras()
    {
        const Escenario e;
        QSet<QString> salidas;
        for (const FilaDescarga &fila : filasDescarga::todas) {
            Valores valores = rutasArchivo::valores(e.entorno);
            valores.poner(Lugar::Id, u"14"_s);
            valores.poner(Lugar::Foto, completar(filasDescarga::direccionDeFoto, valores));
            revisar(fila.documento, valores, e.sesion);
            QVERIFY(fila.titulo.startsWith(u"Descargando "));
            QVERIFY(fila.prefijo.endsWith(u" ("));
            salidas.insert(completar(fila.documento.salida, valores));
        }
        QCOMPARE(salidas.size(), qsizetype(filasDescarga::Cuantas));
    }

    void filasDeTrabajo_estanEnteras()
    {
        const Escenario e;
        QSet<QString> nombres = {nombreMatriculas.toString()};
        for (const FilaTrabajo &fila : filasTrabajo) {
            Valores valores = rutasArchivo::valores(e.entorno);
            valores.poner(Lugar::Id, u"14"_s);
            valores.poner(Lugar::Periodo, u"2"_s);
            valores.poner(Lugar::Azar, u"5000"_s);
            revisar(fila.documento, valores, e.sesion);
            QVERIFY(fila.lista.endsWith(u".php") && !fila.separador.isEmpty());
            QVERIFY(!fila.imagenes.empty());
            for (const Imagen &imagen : fila.imagenes)
                QVERIFY(imagen.archivo.endsWith(u".png"));
            nombres.insert(fila.nombre.toString());
        }
        QCOMPARE(nombres.size(), qsizetype(filasTrabajo.size() + 1));
    }
};

QTEST_MAIN(tst_tablas)
#include "tst_tablas.moc"
