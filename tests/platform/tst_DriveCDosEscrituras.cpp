// SPDX-License-Identifier: MIT
// Two entries of one folder that differ in letter case only, as another program may make them.
#include "UnidadDePrueba.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_DriveCDosEscrituras : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { acabar(); }

    void cadaOperacion_elMismoArchivo_data();
    void cadaOperacion_elMismoArchivo();
    void carpetas_laMisma_data();
    void carpetas_laMisma();
    void trasBorrar_unArchivoPropio_data();
    void trasBorrar_unArchivoPropio();
    void trasBorrar_elOtroSigueSiendoElOtro();
};

void tst_DriveCDosEscrituras::init()
{
    empezar();
    for (const auto &nombre : {u"notas.html"_s, u"Notas.html"_s, u"nOTAS.html"_s})
        QVERIFY(m_casa->escribir(u"Quorvela/"_s + nombre, nombre.toLatin1()));
}

void tst_DriveCDosEscrituras::cadaOperacion_elMismoArchivo_data()
{
    QTest::addColumn<QString>("pedido");
    QTest::addColumn<QString>("elegido");
    QTest::newRow("exacta, la primera") << u"Notas.html"_s << u"Notas.html"_s;
    QTest::newRow("exacta, la segunda") << u"nOTAS.html"_s << u"nOTAS.html"_s;
    QTest::newRow("exacta, la tercera") << u"notas.html"_s << u"notas.html"_s;
    QTest::newRow("ninguna") << u"NOTAS.html"_s << u"Notas.html"_s;
}

void tst_DriveCDosEscrituras::cadaOperacion_elMismoArchivo()
{
    QFETCH(QString, pedido);
    QFETCH(QString, elegido);
    const QString ruta = u"C:\\Quorvela\\"_s + pedido;
    const QString enDisco = u"Quorvela/"_s + elegido;
    const auto losOtros = [&] {
        for (const auto &nombre : {u"notas.html"_s, u"Notas.html"_s, u"nOTAS.html"_s}) {
            if (nombre != elegido && m_casa->leer(u"Quorvela/"_s + nombre) != nombre.toLatin1())
                return false;
        }
        return true;
    };
    QCOMPARE(m_disco->rutaNativa(ruta), m_casa->ruta(enDisco));
    QVERIFY(m_disco->agregar(ruta, "+"));
    QCOMPARE(m_casa->leer(enDisco), elegido.toLatin1() + '+');
    QCOMPARE(m_disco->largo(ruta), elegido.size() + 1);
    auto entrante = m_disco->recibir(ruta);
    QVERIFY(entrante);
    entrante->dispositivo().write("nuevo");
    QVERIFY(entrante->publicar());
    entrante.reset();
    QCOMPARE(m_casa->leer(enDisco), QByteArray("nuevo"));
    QVERIFY(losOtros());
    QVERIFY(m_disco->borrar(ruta));
    QVERIFY(!m_casa->leer(enDisco));
    QVERIFY(losOtros());
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 2);
}

void tst_DriveCDosEscrituras::carpetas_laMisma_data()
{
    QTest::addColumn<QString>("pedida");
    QTest::addColumn<QString>("elegida");
    QTest::newRow("exacta, la primera") << u"Fotos"_s << u"Fotos"_s;
    QTest::newRow("exacta, la segunda") << u"fotos"_s << u"fotos"_s;
    QTest::newRow("ninguna") << u"FOTOS"_s << u"Fotos"_s;
}

void tst_DriveCDosEscrituras::carpetas_laMisma()
{
    QFETCH(QString, pedida);
    QFETCH(QString, elegida);
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/Fotos/de Fotos"_s));
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/fotos/de fotos"_s));
    const QString ruta = u"C:\\Quorvela\\"_s + pedida;
    QCOMPARE(m_disco->carpetas(ruta), QStringList{ruta + u"\\de "_s + elegida});
    QVERIFY(m_disco->crearCarpeta(ruta + u"\\nueva"_s));
    QVERIFY(m_disco->agregar(ruta + u"\\a.txt"_s, "a"));
    QCOMPARE(m_casa->entradas(u"Quorvela/"_s + elegida),
             (QStringList{u"a.txt"_s, u"de "_s + elegida, u"nueva"_s}));
    QVERIFY(!m_disco->crearCarpeta(ruta));
    QCOMPARE(m_casa->enlace(u"Quorvela/"_s + pedida),
             pedida == elegida ? QByteArray() : elegida.toUtf8());
}

void tst_DriveCDosEscrituras::trasBorrar_unArchivoPropio_data()
{
    cadaOperacion_elMismoArchivo_data();
}

// What was deleted is gone: nothing of another entry is taken for it, and nothing joined to one.
void tst_DriveCDosEscrituras::trasBorrar_unArchivoPropio()
{
    QFETCH(QString, pedido);
    QFETCH(QString, elegido);
    const QString ruta = u"C:\\Quorvela\\"_s + pedido;
    const auto quedan = [&] {
        QStringList nombres = {u"Notas.html"_s, u"nOTAS.html"_s, u"notas.html"_s};
        nombres.removeOne(elegido);
        return nombres;
    };
    for (const bool recibido : {false, true}) {
        const QString borrado = recibido ? pedido : elegido; // the second time it is its own
        QVERIFY(m_disco->borrar(ruta));
        QVERIFY(!m_casa->leer(u"Quorvela/"_s + borrado));
        QVERIFY(!m_disco->largo(ruta));
        QVERIFY(!m_disco->borrar(ruta));
        if (recibido) {
            const auto entrante = m_disco->recibir(ruta);
            QVERIFY(entrante);
            entrante->dispositivo().write("nuevo");
            QVERIFY(entrante->publicar());
        } else {
            QVERIFY(m_disco->agregar(ruta, "nuevo"));
        }
        QCOMPARE(m_casa->leer(u"Quorvela/"_s + pedido), QByteArray("nuevo"));
        for (const QString &nombre : quedan())
            QCOMPARE(m_casa->leer(u"Quorvela/"_s + nombre), nombre.toLatin1());
        QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), 3);
    }
}

void tst_DriveCDosEscrituras::trasBorrar_elOtroSigueSiendoElOtro()
{
    // Also when the folder's names are already known.
    QVERIFY(!m_disco->largo(u"C:\\Quorvela\\ninguno.html"_s));
    QVERIFY(m_disco->borrar(u"C:\\Quorvela\\notas.html"_s));
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\Notas.html"_s), 10);
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\NOTAS.html"_s), 10);
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\Notas.html"_s, "+"));
    QCOMPARE(m_casa->leer(u"Quorvela/Notas.html"_s), QByteArray("Notas.html+"));
}

QTEST_GUILESS_MAIN(tst_DriveCDosEscrituras)
#include "tst_DriveCDosEscrituras.moc"
