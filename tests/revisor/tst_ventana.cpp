// SPDX-License-Identifier: MIT
// The reviewer's window: verdicts, findings, and what it takes to be usable by everybody.
#include "ModeloHallazgos.h"
#include "PanelHallazgos.h"
#include "VentanaRevisorDePrueba.h"

#include <QAccessible>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class tst_ventana : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void lista_sonLosHistoricosYElUltimoQuedaElegido()
    {
        QTemporaryDir personal;
        for (const char *carpeta : {"123-2009", "123-2010", "Fotos"})
            QVERIFY(QDir(personal.path()).mkpath(u"Quorvela/"_s + QLatin1String(carpeta)));
        const DriveC disco(personal.path());
        Verbos verbos;
        Ventana ventana(disco, verbos, [] {});
        ventana.show();
        const auto *lista = ventana.findChild<QListWidget *>(u"listaHistoricos"_s);
        QCOMPARE(lista->count(), 3);
        QCOMPARE(lista->item(0)->text(), u"C:\\Quorvela\\123-2009"_s);
        QCOMPARE(lista->currentItem()->text(), u"C:\\Quorvela\\123-2010"_s);
        QVERIFY(!ventana.findChild<QLabel *>(u"rotuloSinHistoricos"_s)->isVisible());
    }

    void sinHistoricos_seDiceYSoloQuedaOtraCarpeta()
    {
        VentanaRevisorDePrueba v;
        QVERIFY(v.visible("rotuloSinHistoricos"));
        QVERIFY(!v.activo("botonRevisar"));
        QVERIFY(v.activo("botonOtraCarpeta"));
        QVERIFY(!v.visible("filaBotones"));
    }

    void historicoNuevo_apareceAlVolverALaVentana()
    {
        VentanaRevisorDePrueba v;
        QVERIFY(QDir(v.personal.path()).mkpath(u"Quorvela/123-2011"_s));
        QEvent vuelta(QEvent::ActivationChange);
        QTRY_VERIFY_WITH_TIMEOUT(v.ventana.isActiveWindow(), 60000);
        QApplication::sendEvent(&v.ventana, &vuelta);
        QCOMPARE(v.elemento<QListWidget>("listaHistoricos")->count(), 1);
        QVERIFY(v.activo("botonRevisar"));
    }

    void carpetaCualquiera_noEsUnHistorico()
    {
        VentanaRevisorDePrueba v;
        const QTemporaryDir otra;
        v.revisar(otra.path());
        QCOMPARE(v.texto("rotuloVeredicto"), u"No es un histórico"_s);
        QVERIFY(!v.visible("fichas"));
        QVERIFY(!v.visible("filaBotones"));
    }

    void carpetaQueNoEsta_noSePuedeLeer()
    {
        VentanaRevisorDePrueba v;
        v.revisar(v.personal.filePath(u"nada"_s));
        QCOMPARE(v.texto("rotuloVeredicto"), u"No se puede leer"_s);
    }

    void faltas_seVenConSuRazonYQueHacer()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        QCOMPARE(v.texto("rotuloVeredicto"), u"Faltan documentos"_s);
        QVERIFY(v.texto("rotuloResumen").contains(u"archivos"_s));
        auto *fichas = v.elemento<QTabWidget>("fichas");
        QCOMPARE(fichas->currentWidget(), v.elemento("panelFaltas"));
        const auto *modelo = v.elemento<QTreeView>("arbol", "panelFaltas")->model();
        QVERIFY(modelo->rowCount() > 0);
        QVERIFY(v.elemento<QPlainTextEdit>("textoDetalle", "panelFaltas")
                    ->toPlainText()
                    .contains(u"Qué hacer: "_s));
        QVERIFY(v.elemento<QTreeWidget>("tablaSecciones")->topLevelItemCount() > 0);
        QVERIFY(v.activo("botonInforme") && v.activo("botonCopia"));
    }

    void buscarYAgrupar_noPierdenElElegido()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        auto *arbol = v.elemento<QTreeView>("arbol", "panelFaltas");
        const auto *modelo = qobject_cast<ModeloHallazgos *>(arbol->model());
        const QModelIndex ultimoGrupo = modelo->index(modelo->rowCount() - 1, 0);
        arbol->setCurrentIndex(modelo->index(modelo->rowCount(ultimoGrupo) - 1, 0, ultimoGrupo));
        const Renglon *elegido = modelo->renglon(arbol->currentIndex());
        QVERIFY(elegido != nullptr);
        auto *porClase = v.elemento<QRadioButton>("opcionClase", "panelFaltas");
        QTest::mouseClick(porClase, Qt::LeftButton, {}, QPoint(8, porClase->height() / 2));
        QVERIFY(porClase->isChecked());
        QCOMPARE(modelo->renglon(arbol->currentIndex()), elegido);
        auto *caja = v.elemento<QLineEdit>("cajaBuscar", "panelFaltas");
        QTest::keyClicks(caja, u"zzzz"_s);
        QVERIFY(v.elemento("rotuloNinguno", "panelFaltas")->isVisible());
        QVERIFY(!v.activo("botonAbrir"));
        caja->clear();
        QVERIFY(!v.elemento("rotuloNinguno", "panelFaltas")->isVisible());
    }

    void enterEnLaLista_revisa()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.ventana.agregarCarpeta(historico.donde());
        v.elemento("listaHistoricos")->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(v.ventana.isActiveWindow(), 60000);
        QTest::keyClick(v.elemento("listaHistoricos"), Qt::Key_Return);
        QVERIFY(v.visible("botonDetener"));
        QCOMPARE(v.ventana.focusWidget(), v.elemento("botonDetener"));
        QVERIFY(v.enReposo());
        QCOMPARE(v.texto("rotuloVeredicto"), u"Faltan documentos"_s);
    }

    // The focus goes where the news is, so that a screen reader tells it.
    void veredicto_recibeElFocoYSeLeeEntero()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        auto *rotulo = v.elemento("rotuloVeredicto");
        QCOMPARE(v.ventana.focusWidget(), rotulo);
        const QAccessibleInterface *leido = QAccessible::queryAccessibleInterface(rotulo);
        QVERIFY(leido->text(QAccessible::Name).startsWith(u"Faltan documentos. Falta"_s)
                || leido->text(QAccessible::Name).startsWith(u"Faltan documentos. Hay"_s));
    }

    void focoEnOtraParte_seQueda()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        v.ventana.guardarInforme(v.personal.filePath(u"i.html"_s), Ventana::Anterior::SeQueda);
        v.elemento("cajaBuscar", "panelFaltas")->setFocus();
        QVERIFY(v.enReposo());
        QCOMPARE(v.ventana.focusWidget(), v.elemento("cajaBuscar", "panelFaltas"));
    }

    void teclaSostenida_noDetieneLoQueEmpezo()
    {
        VentanaRevisorDePrueba v;
        auto *boton = v.elemento<QPushButton>("botonDetener");
        bool presionado = false;
        connect(boton, &QPushButton::clicked, this, [&] { presionado = true; });
        boton->show();
        boton->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(boton->hasFocus(), 60000); // a shortcut is the focused one's
        QKeyEvent repetida(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, true);
        QApplication::sendEvent(boton, &repetida);
        QVERIFY(!presionado);
        QKeyEvent primera(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, false);
        QApplication::sendEvent(boton, &primera);
        QVERIFY(presionado);
    }

    void tabulador_recorreLaVentanaEnSuOrden()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        QTRY_VERIFY_WITH_TIMEOUT(v.ventana.isActiveWindow(), 60000);
        v.elemento("listaHistoricos")->setFocus();
        const QList<QWidget *> orden = {
            v.elemento("botonRevisar"),
            v.elemento("botonOtraCarpeta"),
            v.elemento("botonComprobar"),
            v.elemento<QTabWidget>("fichas")->tabBar(),
            v.elemento("opcionSalon", "panelFaltas"),
            v.elemento("cajaBuscar", "panelFaltas"),
            v.elemento("arbol", "panelFaltas"),
            v.elemento("textoDetalle", "panelFaltas"),
        };
        for (QWidget *siguiente : orden) {
            do // where the tabs do not fit, a button at their side moves them
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            while (qobject_cast<QToolButton *>(QApplication::focusWidget()) != nullptr);
            QCOMPARE(QApplication::focusWidget(), siguiente);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (v.activo("botonAbrir")) {
            QCOMPARE(QApplication::focusWidget(), v.elemento("botonAbrir"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(QApplication::focusWidget(), v.elemento("botonInforme"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), v.elemento("botonCopia"));
    }

    void cadaControl_tieneNombreAccesible()
    {
        const VentanaRevisorDePrueba v;
        int revisados = 0;
        const auto elementos = v.ventana.findChildren<QWidget *>();
        for (const QWidget *elemento : elementos) {
            const bool control = qobject_cast<const QPushButton *>(elemento)
                                 || qobject_cast<const QRadioButton *>(elemento)
                                 || qobject_cast<const QLineEdit *>(elemento)
                                 || qobject_cast<const QAbstractItemView *>(elemento)
                                 || qobject_cast<const QPlainTextEdit *>(elemento)
                                 || qobject_cast<const QProgressBar *>(elemento);
            const bool deLaBiblioteca =
                elemento->objectName().startsWith(u"qt_"_s) || elemento->inherits("QHeaderView");
            if (!control || deLaBiblioteca)
                continue;
            QVERIFY2(!elemento->accessibleName().isEmpty(), qPrintable(elemento->objectName()));
            ++revisados;
        }
        QVERIFY(revisados >= 19);
    }

    // What comes from an archive, or from a folder's name, is never markup.
    void textos_sonSiempreTextoSimple()
    {
        const VentanaRevisorDePrueba v;
        const auto rotulos = v.ventana.findChildren<QLabel *>();
        QVERIFY(rotulos.size() >= 8);
        for (const QLabel *rotulo : rotulos)
            QCOMPARE(rotulo->textFormat(), Qt::PlainText);
    }

    void pantallaPequena_laVentanaCabeYSeDesplaza()
    {
        VentanaRevisorDePrueba v;
        const HistoricoRoto historico;
        v.revisar(historico.donde());
        const QSize libre = v.ventana.screen()->availableSize();
        QVERIFY(v.ventana.width() <= libre.width());
        QVERIFY(v.ventana.height() <= libre.height());
        v.ventana.resize(400, 300);
        QCOMPARE(v.ventana.size(), QSize(400, 300));
        const auto *rollo = v.elemento<QScrollArea>("rollo");
        QTRY_VERIFY_WITH_TIMEOUT(rollo->verticalScrollBar()->maximum() > 0, 60000);
        // Nothing is squeezed below what it needs.
        for (const char *boton : {"botonRevisar", "botonInforme", "botonCopia"}) {
            const QWidget *uno = v.elemento(boton);
            QVERIFY(uno->width() >= uno->minimumSizeHint().width());
            QVERIFY(uno->height() >= uno->minimumSizeHint().height());
        }
    }

    void textoLargo_sePliegaYNoSeCorta()
    {
        VentanaRevisorDePrueba v;
        const QString larga = v.personal.filePath(QString(60, u'W') + u" "_s + QString(60, u'M'));
        QVERIFY(QDir().mkpath(larga));
        v.revisar(larga);
        v.ventana.resize(700, 500);
        const auto *rotulo = v.elemento<QLabel>("rotuloResumen");
        QTRY_VERIFY_WITH_TIMEOUT(rotulo->height() >= rotulo->heightForWidth(rotulo->width()),
                                 60000);
    }

    // The model is asked for what is seen and no more, however many there are.
    void diezMilHallazgos_seVenYSeBuscan()
    {
        QList<Renglon> muchos;
        for (int i = 0; i < 10000; ++i)
            muchos.append({.quien = u"ALUMNO %1"_s.arg(i),
                           .salon = u"%1-%2"_s.arg(i % 11 + 1).arg(i % 3 + 1),
                           .que = u"Falta un documento del estudiante."_s,
                           .archivo = u"archivos/infoFinal/%1.html"_s.arg(i),
                           .queHacer = u"Vuelva a descargar el histórico."_s});
        PanelHallazgos panel;
        panel.show();
        panel.poner(muchos);
        auto *arbol = panel.findChild<QTreeView *>(u"arbol"_s);
        QVERIFY(arbol->uniformRowHeights());
        // So many are not all opened at once: the groups give the overview.
        QVERIFY(!arbol->isExpanded(arbol->model()->index(1, 0)));
        auto *caja = panel.findChild<QLineEdit *>(u"cajaBuscar"_s);
        QTest::keyClicks(caja, u"alumno 1234"_s);
        QCOMPARE(qobject_cast<ModeloHallazgos *>(arbol->model())->mostrados(), 1);
        QVERIFY(arbol->isExpanded(arbol->model()->index(0, 0)));
    }
};

QTEST_MAIN(tst_ventana)
#include "tst_ventana.moc"
