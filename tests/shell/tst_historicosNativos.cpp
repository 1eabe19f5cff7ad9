// SPDX-License-Identifier: MIT
// The archive panel where drive C is the home folder: folders of names that Windows refuses, and
// what the list and the button show of paths that are none of drive C.
#include "escenario/AbridorAnotado.h"
#include "shell/elegirHistorico.h"

#include <QDir>
#include <QListWidget>

using namespace Qt::StringLiterals;

class tst_historicosNativos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void raizInexistente_listaLaCarpetaDelProceso()
    {
        const QTemporaryDir actual;
        QVERIFY(QDir(actual.path()).mkdir(u"uno"_s));
        QVERIFY(QDir(actual.path()).mkdir(u"Dos"_s));
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(actual.path()));
        {
            const VentanaDePrueba v;
            const QString base = QDir::currentPath();
            QCOMPARE(v.lineas("lstHistoricos"), QStringList({base + u"/Dos"_s, base + u"/uno"_s}));
        }
        QDir::setCurrent(antes);
    }

    void nombreQueWindowsNoTiene_abreLaPortadaDelElegido_data()
    {
        QTest::addColumn<QString>("carpeta");
        // Names that Windows refuses or shortens; each has a neighbour of the name it would get.
        QTest::newRow("a device's name") << u"con"_s;
        QTest::newRow("a colon") << u"a:b"_s;
        QTest::newRow("a dot at the end") << u"punto."_s;
        QTest::newRow("a blank at the end") << u"blanco "_s;
        QTest::newRow("a back slash") << u"a\\b"_s;
    }
    void nombreQueWindowsNoTiene_abreLaPortadaDelElegido()
    {
        QFETCH(QString, carpeta);
        const AbridorAnotado abridor;
        VentanaDePrueba v;
        for (const char *vecina : {"123-2010", "a/b", "punto", "blanco"})
            QVERIFY(QDir().mkpath(v.e.nativa(QString::fromLatin1(vecina))));
        QVERIFY(QDir().mkpath(v.e.nativa(carpeta)));
        v.form.cargaListaHistoricos();
        v.ingresar();
        v.elegir("Option1_3");
        elegirHistorico(v, carpeta);
        v.clic("Command4");
        QTRY_COMPARE(abridor.abiertos(), QStringList{v.e.nativa(carpeta + u"/index.html"_s)});
    }

    void verHistoricoSinElegir_abreLaPortadaSinCarpeta()
    {
        const AbridorAnotado abridor;
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(u"123-2010"_s)));
        v.form.cargaListaHistoricos();
        v.ingresar();
        v.elegir("Option1_3");
        auto *lista = v.elemento<QListWidget>("lstHistoricos");
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(lista->item(0)).center());
        v.form.cargaListaHistoricos(); // filled again: nothing is chosen any more
        v.clic("Command4");
        QTRY_COMPARE(abridor.abiertos(), QStringList{u"/index.html"_s});
    }
};

QTEST_MAIN(tst_historicosNativos)
#include "tst_historicosNativos.moc"
