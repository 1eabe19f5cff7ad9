// SPDX-License-Identifier: MIT
// What a screen reader is told of the keys of a password. The reader here does what the library
// does for one: it holds every key of the keyboard up, notes it, and sends it on later, in order,
// unless it keeps it for itself.
#include "ClaveVelada.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <deque>

using namespace Qt::StringLiterals;

namespace {

class LectorFingido : public QObject {
public:
    LectorFingido() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        const bool esTecla =
            suceso->type() == QEvent::KeyPress || suceso->type() == QEvent::KeyRelease;
        if (ausente || !esTecla || !suceso->spontaneous() || !objeto->isWindowType())
            return false;
        const auto *tecla = static_cast<QKeyEvent *>(suceso);
        oido.append({static_cast<int>(tecla->nativeVirtualKey()),
                     static_cast<int>(tecla->nativeScanCode()),
                     static_cast<int>(tecla->nativeModifiers()), tecla->text()});
        m_retenidas.emplace_back(objeto,
                                 new QKeyEvent(tecla->type(), tecla->key(), tecla->modifiers(),
                                               tecla->nativeScanCode(), tecla->nativeVirtualKey(),
                                               tecla->nativeModifiers(), tecla->text()));
        return true;
    }

    // Sends on what is held up; with `guardarse` none of it.
    void soltar(bool guardarse = false)
    {
        for (auto &[objeto, tecla] : std::exchange(m_retenidas, {})) {
            if (guardarse)
                delete tecla;
            else
                QCoreApplication::postEvent(objeto, tecla);
        }
        QCoreApplication::sendPostedEvents();
    }

    struct Oido {
        int nombre;
        int lugar;
        int modificadores;
        QString texto;
        friend bool operator==(const Oido &, const Oido &) = default;
    };

    bool ausente = false;
    QList<Oido> oido;

private:
    std::deque<std::pair<QObject *, QKeyEvent *>> m_retenidas;
};

// As the program's own, but for a reader that is always there.
class AplicacionConLector : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject *objeto, QEvent *suceso) override
    {
        return m_clave.atender(objeto, suceso) || QApplication::notify(objeto, suceso);
    }

private:
    ClaveVelada m_clave{[] {
        return true;
    }};
};

} // namespace

class tst_clave : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void clave_llegaEnteraYNadieLaOye();
    void usuario_seOye();
    void borradoEntreLetras_conservaElOrden();
    void letrasTrasElTabulador_noSeOyen();
    void letrasTrasUnTabuladorGuardado_vuelvenAOirse();
    void ordenesDelLector_lleganComoSon();
    void teclaGuardadaPorElLector_noSeEscribe();
    void sinLector_seEscribeIgual();

private:
    void teclas(const QString &texto)
    {
        for (const char letra : texto.toLatin1())
            QTest::keyClick(m_ventana->windowHandle(), letra);
    }

    void tecla(Qt::Key tecla) { QTest::keyClick(m_ventana->windowHandle(), tecla); }

    QStringList textosOidos() const
    {
        QStringList textos;
        for (const auto &uno : m_lector->oido)
            textos.append(uno.texto);
        return textos;
    }

    std::unique_ptr<QWidget> m_ventana;
    QLineEdit *m_usuario = nullptr;
    QLineEdit *m_caja = nullptr;
    std::unique_ptr<LectorFingido> m_lector;
};

void tst_clave::init()
{
    m_ventana = std::make_unique<QWidget>();
    auto *columna = new QVBoxLayout(m_ventana.get());
    m_usuario = new QLineEdit;
    m_caja = new QLineEdit;
    m_caja->setEchoMode(QLineEdit::Password);
    columna->addWidget(m_usuario);
    columna->addWidget(m_caja);
    m_ventana->show();
    m_ventana->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
    m_lector = std::make_unique<LectorFingido>();
    m_caja->setFocus();
}

void tst_clave::cleanup()
{
    m_lector.reset();
    m_ventana.reset();
}

void tst_clave::clave_llegaEnteraYNadieLaOye()
{
    teclas(u"dEmo2010"_s);
    m_lector->soltar();
    QCOMPARE(m_caja->text(), u"dEmo2010"_s);
    // Each key as any other: neither its letter nor its place nor whether it was a capital.
    QVERIFY(m_lector->oido.size() >= 16);
    QCOMPARE(m_lector->oido.count(m_lector->oido.first()), m_lector->oido.size());
    QCOMPARE(m_lector->oido.first().texto, QString());
}

void tst_clave::usuario_seOye()
{
    m_usuario->setFocus();
    teclas(u"ana"_s);
    m_lector->soltar();
    QCOMPARE(m_usuario->text(), u"ana"_s);
    QCOMPARE(textosOidos().join(QString()), u"aannaa"_s);
}

void tst_clave::borradoEntreLetras_conservaElOrden()
{
    teclas(u"demX"_s);
    tecla(Qt::Key_Backspace);
    teclas(u"o1"_s);
    tecla(Qt::Key_Left);
    teclas(u"2"_s);
    m_lector->soltar();
    QCOMPARE(m_caja->text(), u"demo21"_s);
}

void tst_clave::letrasTrasElTabulador_noSeOyen()
{
    m_usuario->setFocus();
    teclas(u"a"_s);
    tecla(Qt::Key_Tab);
    teclas(u"demo"_s); // the focus is where it was until the Tab has arrived
    m_lector->soltar();
    QCOMPARE(m_usuario->text(), u"a"_s);
    QCOMPARE(m_caja->text(), u"demo"_s);
    for (const QString &letra : {u"d"_s, u"e"_s, u"m"_s, u"o"_s})
        QVERIFY(!textosOidos().contains(letra));
}

void tst_clave::letrasTrasUnTabuladorGuardado_vuelvenAOirse()
{
    m_usuario->setFocus();
    tecla(Qt::Key_Tab);
    m_lector->soltar(true);
    teclas(u"x"_s);
    m_lector->soltar();
    QCOMPARE(m_usuario->text(), u"x"_s);
    teclas(u"y"_s);
    m_lector->soltar();
    QCOMPARE(m_usuario->text(), u"xy"_s);
    QVERIFY(!textosOidos().contains(u"x"_s));
    QVERIFY(textosOidos().contains(u"y"_s));
}

void tst_clave::ordenesDelLector_lleganComoSon()
{
    QTest::keyPress(m_ventana->windowHandle(), Qt::Key_Insert);
    teclas(u"h"_s);
    QTest::keyRelease(m_ventana->windowHandle(), Qt::Key_Insert);
    QVERIFY(textosOidos().contains(u"h"_s));
    m_lector->soltar(true);
    teclas(u"d"_s);
    m_lector->soltar();
    QCOMPARE(m_caja->text(), u"d"_s);
    QVERIFY(!textosOidos().contains(u"d"_s));
}

void tst_clave::teclaGuardadaPorElLector_noSeEscribe()
{
    teclas(u"ab"_s);
    m_lector->soltar(true);
    teclas(u"cd"_s);
    m_lector->soltar();
    QCOMPARE(m_caja->text(), u"cd"_s);
}

void tst_clave::sinLector_seEscribeIgual()
{
    m_lector->ausente = true;
    teclas(u"de"_s);
    tecla(Qt::Key_Backspace);
    teclas(u"o"_s);
    QCOMPARE(m_caja->text(), u"do"_s);
}

int main(int argc, char *argv[])
{
    AplicacionConLector aplicacion(argc, argv);
    tst_clave prueba;
    return QTest::qExec(&prueba, argc, argv);
}
#include "tst_clave.moc"
