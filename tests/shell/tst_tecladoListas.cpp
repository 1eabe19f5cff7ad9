// SPDX-License-Identifier: MIT
// A row of the two lists chosen without a mouse.
#include "shell/Teclista.h"

#include <QDir>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr TamanoEscuela tresSalones{2010, 3, 2, 1};

QByteArray nombreDe(Qt::Key tecla)
{
    return QKeySequence(tecla).toString(QKeySequence::PortableText).toLatin1();
}

// The rows of a list that are chosen.
QList<int> elegidas(const Teclista &t, const QByteArray &lista)
{
    QList<int> filas;
    const auto *elementos = t.elemento<QListWidget>(lista);
    for (int fila = 0; fila < elementos->count(); ++fila) {
        if (elementos->item(fila)->isSelected())
            filas.append(fila);
    }
    return filas;
}

// Three classrooms and three archives, the focus in one of the lists, come to by Tab.
void llegarA(Teclista &t, const QByteArray &lista)
{
    for (const char *carpeta : {"123-2008", "123-2009", "123-2010"})
        QVERIFY(QDir().mkpath(t.e.nativa(QString::fromLatin1(carpeta))));
    t.form.cargaListaHistoricos();
    t.ingresar();
    t.elegir(lista == "List1" ? "Option1_2" : "Option1_3");
    t.tecla(Qt::Key_Tab);
    QCOMPARE(t.foco(), lista);
    QCOMPARE(t.elemento<QListWidget>(lista)->currentRow(), 0);
    QCOMPARE(elegidas(t, lista), QList<int>());
}

} // namespace

class tst_tecladoListas : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void teclaEnLaFilaActual_laElige_data()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::addColumn<int>("tecla");
        const QList<Qt::Key> teclas = {Qt::Key_Up,    Qt::Key_Down,   Qt::Key_Left,
                                       Qt::Key_Right, Qt::Key_Return, Qt::Key_Enter,
                                       Qt::Key_Home,  Qt::Key_PageUp, Qt::Key_Space};
        for (const char *lista : {"List1", "lstHistoricos"}) {
            for (const Qt::Key tecla : teclas)
                QTest::addRow("%s %s", lista, nombreDe(tecla).constData())
                    << QByteArray(lista) << int(tecla);
        }
    }
    void teclaEnLaFilaActual_laElige()
    {
        QFETCH(QByteArray, lista);
        QFETCH(int, tecla);
        Teclista t(tresSalones);
        llegarA(t, lista);
        QVERIFY(!t.elemento("Command4")->isEnabled());
        t.tecla(static_cast<Qt::Key>(tecla));
        QCOMPARE(elegidas(t, lista), QList<int>({0}));
        QCOMPARE(t.elemento<QListWidget>(lista)->currentRow(), 0);
        QCOMPARE(t.elemento("Command4")->isEnabled(), lista == "lstHistoricos");
        QCOMPARE(t.foco(), lista);
    }

    void filaYaElegida_dejaIrLaFlechaASuVecina_data() { lasDosListas(); }
    void filaYaElegida_dejaIrLaFlechaASuVecina()
    {
        QFETCH(QByteArray, lista);
        Teclista t(tresSalones);
        llegarA(t, lista);
        t.tecla(Qt::Key_Down);
        QCOMPARE(elegidas(t, lista), QList<int>({0}));
        t.tecla(Qt::Key_Down);
        QCOMPARE(elegidas(t, lista), QList<int>({1}));
        t.tecla(Qt::Key_Return); // chosen already: there is nothing to do
        QCOMPARE(elegidas(t, lista), QList<int>({1}));
        t.tecla(Qt::Key_End);
        QCOMPARE(elegidas(t, lista), QList<int>({2}));
        t.tecla(Qt::Key_Up);
        QCOMPARE(elegidas(t, lista), QList<int>({1}));
    }

    // Ctrl with an arrow moves the current row and leaves the choice to the next key.
    void ultimaFilaActual_seEligeDondeEsta_data()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::addColumn<int>("tecla");
        for (const char *lista : {"List1", "lstHistoricos"}) {
            for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown})
                QTest::addRow("%s %s", lista, nombreDe(tecla).constData())
                    << QByteArray(lista) << int(tecla);
        }
    }
    void ultimaFilaActual_seEligeDondeEsta()
    {
        QFETCH(QByteArray, lista);
        QFETCH(int, tecla);
        Teclista t(tresSalones);
        llegarA(t, lista);
        auto *filas = t.elemento<QListWidget>(lista);
        filas->setCurrentRow(2, QItemSelectionModel::NoUpdate);
        t.tecla(static_cast<Qt::Key>(tecla));
        QCOMPARE(filas->currentRow(), 2);
        QCOMPARE(elegidas(t, lista), QList<int>({2}));
    }

    void listaVacia_noEligeNada_data() { lasDosListas(); }
    void listaVacia_noEligeNada()
    {
        QFETCH(QByteArray, lista);
        Teclista t;
        t.ingresar();
        t.elegir(lista == "List1" ? "Option1_2" : "Option1_3");
        t.elemento<QListWidget>(lista)->clear();
        t.elemento(lista)->setFocus();
        for (const Qt::Key tecla : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_Return})
            t.tecla(tecla);
        QVERIFY(!t.elemento("Command4")->isEnabled());
        QCOMPARE(t.foco(), lista);
    }

    void listaLlenadaDeNuevo_empiezaOtraVezPorLaPrimera()
    {
        Teclista t(tresSalones);
        llegarA(t, "lstHistoricos");
        t.tecla(Qt::Key_Down);
        t.tecla(Qt::Key_Down);
        t.form.cargaListaHistoricos();
        QCOMPARE(elegidas(t, "lstHistoricos"), QList<int>());
        t.tecla(Qt::Key_Down);
        QCOMPARE(elegidas(t, "lstHistoricos"), QList<int>({0}));
    }

private:
    static void lasDosListas()
    {
        QTest::addColumn<QByteArray>("lista");
        QTest::newRow("classrooms") << QByteArray("List1");
        QTest::newRow("archives") << QByteArray("lstHistoricos");
    }
};

QTEST_MAIN(tst_tecladoListas)
#include "tst_tecladoListas.moc"
