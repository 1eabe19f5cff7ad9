// The download panel and the archive panel of the window.
#include "shell/VentanaDePrueba.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>

namespace {

QStringList lineas(const QListWidget *lista)
{
    QStringList textos;
    for (int i = 0; i < lista->count(); ++i)
        textos.append(lista->item(i)->text());
    return textos;
}

// A stand-in for the desktop's opener, first on PATH, that notes its arguments one a line.
class AbridorAnotado {
public:
    AbridorAnotado() : m_antes(qgetenv("PATH"))
    {
        QFile guion(m_carpeta.filePath(QStringLiteral("xdg-open")));
        [[maybe_unused]] const bool abierto = guion.open(QIODevice::WriteOnly);
        guion.write("#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > '" + nota().toUtf8()
                    + ".nueva'\nmv '" + nota().toUtf8() + ".nueva' '" + nota().toUtf8() + "'\n");
        guion.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        guion.close();
        qputenv("PATH", m_carpeta.path().toUtf8() + ':' + m_antes);
    }
    ~AbridorAnotado() { qputenv("PATH", m_antes); }

    QString nota() const { return m_carpeta.filePath(QStringLiteral("nota")); }
    QByteArray anotado() const
    {
        QFile archivo(nota());
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }

private:
    QByteArray m_antes;
    QTemporaryDir m_carpeta;
};

} // namespace

class tst_historicos : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void descarga_ocultaMuestraYTermina()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        bool durante = false;
        connect(&v.form.Salones, &tcLista::nuevaDescarga, this, [&] {
            durante = !v.visible("Command3") && v.visible("barra1") && v.visible("barra2")
                      && !v.visible("Label6_3") && !v.visible("Label6_8") && !v.visible("Label6_9")
                      && !v.visible("Label6_10") && v.visible("Label6_0") && v.visible("Option1_2")
                      && v.elemento("Option1_2")->isEnabled() && !v.elemento("Command2")->isHidden()
                      && !v.elemento("Command4")->isHidden();
        });
        v.conCuadros([&] { v.clic("Command3"); });
        QVERIFY(durante);
        QCOMPARE(v.mensajes, QStringList({QStringLiteral("Listo Historico")}));
        QCOMPARE(v.titulos, QStringList({QApplication::applicationName()}));
        QCOMPARE(v.botones, QList<int>({QMessageBox::Ok}));
        // The panel stays as it was during the run.
        QVERIFY(!v.visible("Command3"));
        QVERIFY(!v.visible("Label6_10"));
        QVERIFY(v.visible("barra1"));
        QCOMPARE(v.elemento<QProgressBar>("barra2")->maximum(), 8);
        QCOMPARE(v.elemento<QProgressBar>("barra2")->value(), 8);
        QCOMPARE(v.elemento<QLabel>("estadoTS")->text(),
                 QStringLiteral("Descargando Labels de Materias"));
        QVERIFY(v.elemento<QLabel>("estadoHS")
                    ->text()
                    .startsWith(QStringLiteral("Label: Total Fallas - ")));
        QCOMPARE(lineas(v.elemento<QListWidget>("lstHistoricos")),
                 QStringList({QStringLiteral("C:\\Quorvela\\123-2010")}));
        QVERIFY(v.e.existe(QStringLiteral("123-2010/index.html")));
    }

    void descargaConTodoFallando_terminaIgual()
    {
        VentanaDePrueba v;
        v.ingresar();
        v.elegir("Option1_1");
        Falla falla;
        falla.clase = Falla::CierraAntes;
        v.e.demo.fallar("/", falla);
        v.conCuadros([&] { v.clic("Command3"); });
        QCOMPARE(v.mensajes, QStringList({QStringLiteral("Listo Historico")}));
        QCOMPARE(lineas(v.elemento<QListWidget>("lstHistoricos")),
                 QStringList({QStringLiteral("C:\\Quorvela\\123-2010")}));
    }

    void raizInexistente_listaLaCarpetaDelProceso()
    {
        const QTemporaryDir actual;
        QVERIFY(QDir(actual.path()).mkdir(QStringLiteral("uno")));
        QVERIFY(QDir(actual.path()).mkdir(QStringLiteral("Dos")));
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(actual.path()));
        {
            const VentanaDePrueba v;
            const QString base = QDir::currentPath();
            QCOMPARE(lineas(v.elemento<QListWidget>("lstHistoricos")),
                     QStringList({base + QStringLiteral("/Dos"), base + QStringLiteral("/uno")}));
        }
        QDir::setCurrent(antes);
    }

    void raizSinCarpetas_daListaVacia()
    {
        VentanaDePrueba v;
        QVERIFY(QDir(v.e.personal.path()).mkdir(QStringLiteral("Quorvela")));
        v.form.cargaListaHistoricos();
        QCOMPARE(lineas(v.elemento<QListWidget>("lstHistoricos")), QStringList());
    }

    void cualquierCarpetaDeLaRaiz_seListaEnOrden()
    {
        VentanaDePrueba v;
        for (const char *nombre : {"b-2011", "A-2010", "no es un archivo", ".oculta"})
            QVERIFY(QDir().mkpath(v.e.nativa(QString::fromLatin1(nombre))));
        v.form.cargaListaHistoricos();
        QCOMPARE(lineas(v.elemento<QListWidget>("lstHistoricos")),
                 QStringList({QStringLiteral("C:\\Quorvela\\.oculta"),
                              QStringLiteral("C:\\Quorvela\\A-2010"),
                              QStringLiteral("C:\\Quorvela\\b-2011"),
                              QStringLiteral("C:\\Quorvela\\no es un archivo")}));
    }

    void verHistorico_seHabilitaConElPrimerClicYParaSiempre()
    {
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(QStringLiteral("123-2010"))));
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
        QTest::newRow("an archive") << QStringLiteral("456-2011");
        QTest::newRow("any other folder") << QStringLiteral("fotos del paseo");
        // Names that Windows refuses or shortens; each has a neighbour of the name it would get.
        QTest::newRow("a device's name") << QStringLiteral("con");
        QTest::newRow("a colon") << QStringLiteral("a:b");
        QTest::newRow("a dot at the end") << QStringLiteral("punto.");
        QTest::newRow("a blank at the end") << QStringLiteral("blanco ");
        QTest::newRow("a back slash") << QStringLiteral("a\\b");
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
        const auto renglon = lineas(lista).indexOf(QStringLiteral("C:\\Quorvela\\") + carpeta);
        QVERIFY(renglon >= 0);
        auto *elegido = lista->item(static_cast<int>(renglon));
        lista->scrollToItem(elegido);
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(elegido).center());
        v.clic("Command4");
        QTRY_COMPARE(abridor.anotado(),
                     "1\n" + v.e.nativa(carpeta + QStringLiteral("/index.html")).toUtf8() + '\n');
    }

    void verHistoricoSinElegir_abreLaPortadaSinCarpeta()
    {
        const AbridorAnotado abridor;
        VentanaDePrueba v;
        QVERIFY(QDir().mkpath(v.e.nativa(QStringLiteral("123-2010"))));
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
