// SPDX-License-Identifier: MIT
// The archive panel of the window.
#include "escenario/AbridorAnotado.h"
#include "escenario/Turnos.h"
#include "shell/elegirHistorico.h"

#include <QDir>
#include <QFile>
#include <QListWidget>

using namespace Qt::StringLiterals;

class tst_historicos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void raizSinCarpetas_daListaVacia()
    {
        VentanaDePrueba v;
        QVERIFY(QDir(v.e.personal.path()).mkdir(u"Quorvela"_s));
        v.form.cargaListaHistoricos();
        QCOMPARE(v.lineas("lstHistoricos"), QStringList());
    }

    void llenarLaLista_cedeUnaVezEntreLeerLaCarpetaYVaciarla()
    {
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(u"a"_s)));
        v.form.cargaListaHistoricos();
        QVERIFY(QDir().mkpath(v.e.nativa(u"b"_s)));
        const QStringList una = {u"C:\\Quorvela\\a"_s};
        const QStringList dos = una + QStringList{u"C:\\Quorvela\\b"_s};
        QList<QStringList> leidas;
        QList<QStringList> listadas;
        {
            const Turnos turnos([&] {
                leidas.append(v.lineas("Dir1"));
                listadas.append(v.lineas("lstHistoricos"));
            });
            v.form.cargaListaHistoricos();
        }
        QCOMPARE(leidas, QList<QStringList>({dos}));
        QCOMPARE(listadas, QList<QStringList>({una}));
        QCOMPARE(v.lineas("lstHistoricos"), dos);
    }

    void raizQueDesapareceAlCeder_quedaComoSeLeyoHastaLaProximaVez()
    {
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(u"a"_s)));
        enElProximoTurno(v.form, [&] { QDir(v.e.nativa(QString())).removeRecursively(); });
        v.form.cargaListaHistoricos();
        QVERIFY(!v.e.existe(QString()));
        QCOMPARE(v.lineas("lstHistoricos"), QStringList({u"C:\\Quorvela\\a"_s}));
        v.form.cargaListaHistoricos(); // still pointed at the root, which holds nothing now
        QCOMPARE(v.lineas("lstHistoricos"), QStringList());
    }

    void cualquierCarpetaDeLaRaiz_seListaEnOrden()
    {
        VentanaDePrueba v;
        for (const char *nombre : {"b-2011", "A-2010", "no es un archivo", ".oculta"})
            QVERIFY(QDir().mkpath(v.e.nativa(QString::fromLatin1(nombre))));
        v.form.cargaListaHistoricos();
        QCOMPARE(v.lineas("lstHistoricos"),
                 QStringList({u"C:\\Quorvela\\.oculta"_s, u"C:\\Quorvela\\A-2010"_s,
                              u"C:\\Quorvela\\b-2011"_s, u"C:\\Quorvela\\no es un archivo"_s}));
    }

    void verHistorico_seHabilitaConElPrimerClicYParaSiempre()
    {
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(u"123-2010"_s)));
        v.form.cargaListaHistoricos();
        v.ingresar();
        v.elegir("Option1_3");
        auto *lista = v.elemento<QListWidget>("lstHistoricos");
        lista->setFocus(); // the focus alone chooses nothing
        QVERIFY(!v.elemento("Command4")->isEnabled());
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(lista->item(0)).center());
        QVERIFY(v.elemento("Command4")->isEnabled());
        v.form.cargaListaHistoricos();
        QVERIFY(v.elemento("Command4")->isEnabled());
    }

    void verHistorico_abreLaPortadaDelElegido_data()
    {
        QTest::addColumn<QString>("carpeta");
        QTest::newRow("an archive") << u"456-2011"_s;
        QTest::newRow("any other folder") << u"fotos del paseo"_s;
    }
    void verHistorico_abreLaPortadaDelElegido()
    {
        QFETCH(QString, carpeta);
        const AbridorAnotado abridor;
        VentanaDePrueba v;
        for (const QString &una : {u"123-2010"_s, carpeta}) {
            QVERIFY(QDir().mkpath(v.e.nativa(una)));
            QFile portada(v.e.nativa(una + u"/index.html"_s));
            QVERIFY(portada.open(QIODevice::WriteOnly));
        }
        v.form.cargaListaHistoricos();
        v.ingresar();
        v.elegir("Option1_3");
        elegirHistorico(v, carpeta);
        v.clic("Command4");
        // A program is started for it.
        QTRY_COMPARE_WITH_TIMEOUT(abridor.abiertos(),
                                  QStringList{v.e.nativa(carpeta + u"/index.html"_s)}, 60'000);
    }
};

QTEST_MAIN(tst_historicos)
#include "tst_historicos.moc"
