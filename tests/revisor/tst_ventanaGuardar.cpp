// SPDX-License-Identifier: MIT
// What the reviewer's window writes, and what it does not: reports, copies, and their proof.
#include "VentanaRevisorDePrueba.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QTabWidget>
#include <QTreeView>

using namespace Qt::StringLiterals;

using Anterior = Ventana::Anterior;

class tst_ventanaGuardar : public QObject {
    Q_OBJECT
private:
    // An archive under review, and a folder for what is saved of it.
    struct Caso {
        HistoricoDePrueba historico;
        VentanaRevisorDePrueba v;
        Caso() { v.revisar(historico.texto("123-2010")); }
        QString en(const char *nombre) const
        {
            return historico.texto("copias/") + QLatin1String(nombre);
        }
        // As the window tells it.
        QString mostrado(const char *nombre) const { return QDir::toNativeSeparators(en(nombre)); }
        QByteArray leer(const char *nombre) const
        {
            return HistoricoDePrueba::leer(rutaDe(en(nombre)));
        }
        void copiar(Anterior anterior = Anterior::SeQueda)
        {
            v.ventana.guardarCopia(en("a.zip"), anterior);
            QVERIFY(v.enReposo());
        }
        QString aviso() const { return v.texto("rotuloAviso"); }
        // The rows of all that a copy's check has found.
        QStringList diferencias() const
        {
            QStringList todas;
            const auto *modelo = v.elemento<QTreeView>("arbol", "panelFaltas")->model();
            for (int grupo = 0; grupo < modelo->rowCount(); ++grupo) {
                const QModelIndex madre = modelo->index(grupo, 0);
                for (int fila = 0; fila < modelo->rowCount(madre); ++fila)
                    todas.append(modelo->index(fila, 4, madre).data().toString());
            }
            return todas;
        }
    };

    // The dialog of that kind that is open now, waited for.
    template <typename Dialogo>
    static Dialogo *abierto()
    {
        Dialogo *hallado = nullptr;
        [[maybe_unused]] const bool esta = QTest::qWaitFor(
            [&] {
                hallado = qobject_cast<Dialogo *>(QApplication::activeModalWidget());
                return hallado != nullptr && hallado->isVisible();
            },
            60000);
        if (hallado == nullptr)
            qFatal("no dialog");
        return hallado;
    }

    static void elegir(const QString &archivo)
    {
        auto *dialogo = abierto<QFileDialog>();
        auto *nombre = dialogo->findChild<QLineEdit *>(u"fileNameEdit"_s);
        nombre->setText(archivo); // typed, it would open a list of names that fit
        const auto *botones = dialogo->findChild<QDialogButtonBox *>();
        QTest::mouseClick(botones->button(QDialogButtonBox::Save), Qt::LeftButton);
    }

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void informe_seGuardaConSuTerminacion()
    {
        const Caso c;
        c.v.clic("botonInforme");
        elegir(c.en("informe"));
        QTRY_COMPARE_WITH_TIMEOUT(c.aviso(), u"Informe guardado: "_s + c.mostrado("informe.html"),
                                  60000);
        QVERIFY(c.leer("informe.html").contains("Faltan documentos"));
        QVERIFY(c.v.visible("rotuloAviso"));
        QCOMPARE(c.v.ventana.focusWidget(), c.v.elemento("rotuloAviso"));
    }

    // Where the window is smaller than what it holds, what is told comes into sight.
    void ventanaPequena_elAvisoSeVe()
    {
        Caso c;
        c.v.ventana.resize(400, 300);
        auto *aviso = c.v.elemento("rotuloAviso");
        c.v.ventana.guardarInforme(c.en("i.html"), Anterior::SeQueda);
        QVERIFY(c.v.enReposo());
        QTRY_VERIFY_WITH_TIMEOUT(!aviso->visibleRegion().isEmpty(), 60000);
        c.v.ventana.comprobar(c.en("i.html"));
        QVERIFY(c.v.enReposo());
        QTRY_VERIFY_WITH_TIMEOUT(!c.v.elemento("rotuloVeredicto")->visibleRegion().isEmpty(),
                                 60000);
    }

    void archivoQueYaEsta_sePregunta_data()
    {
        QTest::addColumn<QString>("respuesta");
        QTest::addColumn<bool>("reemplazado");
        QTest::newRow("replace it") << u"&Reemplazar"_s << true;
        QTest::newRow("leave it") << u"&Cancelar"_s << false;
    }
    void archivoQueYaEsta_sePregunta()
    {
        QFETCH(QString, respuesta);
        QFETCH(bool, reemplazado);
        const Caso c;
        HistoricoDePrueba::escribirEn(rutaDe(c.en("i.html")), "de antes");
        c.v.clic("botonInforme");
        elegir(c.en("i")); // the name that counts is the one with its ending
        auto *pregunta = abierto<QMessageBox>();
        QCOMPARE(pregunta->defaultButton()->text(), u"&Cancelar"_s);
        QVERIFY(pregunta->text().contains(u"i.html"_s));
        const auto botones = pregunta->buttons();
        for (QAbstractButton *boton : botones) {
            if (boton->text() == respuesta)
                QTest::mouseClick(boton, Qt::LeftButton);
        }
        QTRY_VERIFY_WITH_TIMEOUT(QApplication::activeModalWidget() == nullptr, 60000);
        QVERIFY(c.v.enReposo());
        QCOMPARE(c.leer("i.html") == "de antes", !reemplazado);
        QCOMPARE(c.aviso().isEmpty(), !reemplazado);
    }

    void archivoQueAparecioDespues_noSePisa()
    {
        Caso c;
        HistoricoDePrueba::escribirEn(rutaDe(c.en("i.html")), "de otro");
        HistoricoDePrueba::escribirEn(rutaDe(c.en("a.zip")), "de otro");
        c.v.ventana.guardarInforme(c.en("i.html"), Anterior::SeQueda);
        QVERIFY(c.v.enReposo());
        QVERIFY(c.aviso().startsWith(u"No se guardó el informe"_s));
        QCOMPARE(c.leer("i.html"), QByteArray("de otro"));
        c.copiar();
        QCOMPARE(c.leer("a.zip"), QByteArray("de otro"));
        QVERIFY(!c.aviso().isEmpty());
    }

    void dentroDelHistorico_noSeEscribe()
    {
        Caso c;
        const QString dentro = c.historico.texto("123-2010/archivos/");
        c.v.ventana.guardarInforme(dentro + u"i.html"_s, Anterior::SeQueda);
        QVERIFY(c.v.enReposo());
        QVERIFY(c.aviso().contains(u"fuera del histórico"_s));
        QVERIFY(!QFile::exists(dentro + u"i.html"_s));
        c.v.ventana.guardarCopia(dentro + u"a.zip"_s, Anterior::SeQueda);
        QVERIFY(c.v.enReposo());
        QVERIFY(c.aviso().contains(u"dentro del histórico"_s));
        QVERIFY(!QFile::exists(dentro + u"a.zip"_s));
    }

    void copia_seGuardaYSeCompruebaIntacta()
    {
        const Caso c;
        c.v.clic("botonCopia");
        elegir(c.en("a"));
        QTRY_COMPARE_WITH_TIMEOUT(c.aviso(), u"Copia guardada: "_s + c.mostrado("a.zip"), 60000);
        QVERIFY(sacarZip(rutaDe(c.en("a.zip")), c.historico.ruta("fuera")));
        QCOMPARE(c.historico.enCopias(), QStringList({u"a.zip"_s}));
        auto &ventana = const_cast<Ventana &>(c.v.ventana);
        ventana.comprobar(c.en("a.zip"));
        QVERIFY(c.v.enReposo());
        QCOMPARE(c.v.texto("rotuloVeredicto"), u"La copia está intacta"_s);
        QVERIFY(!c.v.visible("fichas"));
        QVERIFY(!c.v.visible("filaBotones")); // no archive is shown that they could mean
    }

    void copiaCambiada_diceQueCambio()
    {
        Caso c;
        c.v.ventana.guardarCopia(c.en("mi copia.zip"), Anterior::SeQueda);
        QVERIFY(c.v.enReposo());
        const std::filesystem::path fuera = c.historico.sacar();
        HistoricoDePrueba::escribirEn(fuera / "data" / "index.html", "otra");
        HistoricoDePrueba::escribirEn(fuera / "data" / "nuevo.html", "otra");
        QVERIFY(std::filesystem::remove(fuera / "data" / "configuracion.txt"));
        c.v.ventana.comprobar(textoDe(fuera));
        QVERIFY(c.v.enReposo());
        QCOMPARE(c.v.texto("rotuloVeredicto"), u"La copia cambió"_s);
        QStringList halladas = c.diferencias();
        halladas.sort();
        QCOMPARE(halladas, QStringList({u"data/configuracion.txt"_s, u"data/index.html"_s,
                                        u"data/nuevo.html"_s}));
        const auto *fichas = c.v.elemento<QTabWidget>("fichas");
        QVERIFY(!fichas->isTabVisible(1) && !fichas->isTabVisible(2));
    }

    void otraCosaQueUnaCopia_seDice()
    {
        Caso c;
        HistoricoDePrueba::escribirEn(rutaDe(c.en("x.zip")), "no es un zip");
        c.v.ventana.comprobar(c.en("x.zip"));
        QVERIFY(c.v.enReposo());
        const QString dicho = c.v.texto("rotuloVeredicto");
        QVERIFY2(dicho == u"No es una copia"_s || dicho == u"No se puede leer"_s,
                 qPrintable(dicho));
    }

    void detener_dejaLaCopiaSinHacerYLaVentanaComoEstaba()
    {
        Caso c;
        QFile enorme(c.historico.texto("123-2010/enorme.bin"));
        QVERIFY(enorme.open(QIODevice::WriteOnly) && enorme.resize(qint64(20) << 30));
        enorme.close();
        c.v.ventana.guardarCopia(c.en("a.zip"), Anterior::SeQueda);
        QVERIFY(c.v.visible("botonDetener"));
        QVERIFY(!c.v.activo("botonCopia") && !c.v.activo("botonRevisar"));
        QTRY_VERIFY_WITH_TIMEOUT(c.v.elemento<QProgressBar>("barraAvance")->value() > 0, 60000);
        c.v.clic("botonDetener");
        QVERIFY(c.v.enReposo());
        QCOMPARE(c.historico.enCopias(), QStringList());
        QVERIFY(!c.aviso().isEmpty());
        QVERIFY(c.v.activo("botonCopia") && c.v.activo("botonRevisar"));
        QCOMPARE(c.v.texto("rotuloVeredicto"), u"Faltan documentos"_s);
    }

    void cerrar_terminaElTrabajoYNoDejaNada()
    {
        Caso c;
        QFile enorme(c.historico.texto("123-2010/enorme.bin"));
        QVERIFY(enorme.open(QIODevice::WriteOnly) && enorme.resize(qint64(20) << 30));
        enorme.close();
        c.v.ventana.guardarCopia(c.en("a.zip"), Anterior::SeQueda);
        QTRY_VERIFY_WITH_TIMEOUT(c.v.elemento<QProgressBar>("barraAvance")->value() > 0, 60000);
        QVERIFY(c.v.ventana.close());
        QVERIFY(!c.v.ventana.isVisible());
        QCOMPARE(c.v.cierres, 0); // it ended by itself, and took away what it had begun
        QTRY_COMPARE_WITH_TIMEOUT(c.historico.enCopias(), QStringList(), 60000);
    }
};

QTEST_MAIN(tst_ventanaGuardar)
#include "tst_ventanaGuardar.moc"
