// SPDX-License-Identifier: MIT
// The archive panel of the window.
#include "escenario/ProgramasEnPath.h"
#include "escenario/Turnos.h"
#include "shell/VentanaDePrueba.h"

#include <QDir>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

// A stand-in for the desktop's opener, first on PATH, that notes its arguments one a line.
class AbridorAnotado {
public:
    AbridorAnotado()
    {
        const QByteArray nota = m_programas.ruta(u"nota"_s).toUtf8();
        m_programas.poner(u"xdg-open"_s, "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > '" + nota
                                             + ".nueva'\nmv '" + nota + ".nueva' '" + nota + "'\n");
    }

    QByteArray anotado() const { return m_programas.leer(u"nota"_s); }

private:
    ProgramasEnPath m_programas;
};

} // namespace

class tst_historicos : public QObject {
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
        // Names that Windows refuses or shortens; each has a neighbour of the name it would get.
        QTest::newRow("a device's name") << u"con"_s;
        QTest::newRow("a colon") << u"a:b"_s;
        QTest::newRow("a dot at the end") << u"punto."_s;
        QTest::newRow("a blank at the end") << u"blanco "_s;
        QTest::newRow("a back slash") << u"a\\b"_s;
    }
    void verHistorico_abreLaPortadaDelElegido()
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
        auto *lista = v.elemento<QListWidget>("lstHistoricos");
        const auto renglon = v.lineas("lstHistoricos").indexOf(u"C:\\Quorvela\\"_s + carpeta);
        QVERIFY(renglon >= 0);
        auto *elegido = lista->item(static_cast<int>(renglon));
        lista->scrollToItem(elegido);
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(elegido).center());
        v.clic("Command4");
        QTRY_COMPARE(abridor.anotado(),
                     "1\n" + v.e.nativa(carpeta + u"/index.html"_s).toUtf8() + '\n');
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
        QTRY_COMPARE(abridor.anotado(), QByteArray("1\n/index.html\n"));
    }
};

QTEST_MAIN(tst_historicos)
#include "tst_historicos.moc"
