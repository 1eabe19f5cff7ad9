// SPDX-License-Identifier: MIT
// Files that another program holds: for a moment, as virus scanners and browsers do, and for good.
#include "EntradasDeWindows.h"
#include "Paciencia.h"
#include "UnidadDePrueba.h"

#include <QTest>

#include <chrono>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace entradasDeWindows;
using namespace std::chrono_literals;

namespace {

// How long has been waited, and what comes to pass meanwhile. Nothing else moves the clock: however
// busy the computer, a file is held for as long as the test says.
std::chrono::milliseconds esperado{};
std::function<void()> alEsperar;

enum class Como { Cerrado, SoloLectura, ConBorrado };

DWORD comparte(Como como)
{
    switch (como) {
    case Como::Cerrado:
        return 0;
    case Como::SoloLectura:
        return FILE_SHARE_READ;
    case Como::ConBorrado:
        return FILE_SHARE_READ | FILE_SHARE_DELETE;
    }
    return 0;
}

} // namespace

Paciencia::Reloj Paciencia::relojDelSistema()
{
    return {[] { return esperado; },
            [](Milisegundos cuanto) {
                esperado += cuanto;
                if (alEsperar)
                    alEsperar();
            }};
}

class tst_DriveCWindowsOcupado : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        empezar();
        esperado = {};
    }
    void cleanup()
    {
        alEsperar = nullptr;
        acabar();
    }

    void unMomento_seEspera_data();
    void unMomento_seEspera();
    void paraSiempre_sePasaPorAlto_data();
    void paraSiempre_sePasaPorAlto();
    void queNoSeDejaBorrar_recibeLoNuevoAlFinal();
    void queSePuedeBorrar_seBorra();
    void largo_noEspera();
    void carpetaQueSeMueve_seEspera();

private:
    bool hacer(const QString &operacion) const
    {
        const QString ruta = u"C:\\Quorvela\\a.txt"_s;
        if (operacion == u"borrar")
            return m_disco->borrar(ruta);
        if (operacion == u"agregar")
            return m_disco->agregar(ruta, "nuevo");
        if (operacion == u"escribir")
            return m_disco->escribir(ruta, "nuevo");
        const auto entrante = m_disco->recibir(ruta);
        return entrante && entrante->dispositivo().write("nuevo") == 5 && entrante->publicar();
    }
    QString archivo() const { return m_casa->ruta(u"Quorvela/a.txt"_s); }
};

void tst_DriveCWindowsOcupado::unMomento_seEspera_data()
{
    QTest::addColumn<QString>("operacion");
    QTest::addColumn<Como>("como");
    QTest::addColumn<std::optional<QByteArray>>("queda");
    using Queda = std::optional<QByteArray>;
    for (const Como como : {Como::Cerrado, Como::SoloLectura}) {
        const char *modo = como == Como::Cerrado ? "cerrado" : "se deja leer";
        QTest::addRow("borrar, %s", modo) << u"borrar"_s << como << Queda();
        QTest::addRow("agregar, %s", modo) << u"agregar"_s << como << Queda("anteriornuevo");
        QTest::addRow("escribir, %s", modo) << u"escribir"_s << como << Queda("nuevo");
        QTest::addRow("publicar, %s", modo) << u"publicar"_s << como << Queda("nuevo");
    }
    QTest::newRow("escribir, se deja borrar")
        << u"escribir"_s << Como::ConBorrado << Queda("nuevo");
    QTest::newRow("publicar, se deja borrar")
        << u"publicar"_s << Como::ConBorrado << Queda("nuevo");
}

void tst_DriveCWindowsOcupado::unMomento_seEspera()
{
    QFETCH(QString, operacion);
    QFETCH(Como, como);
    QFETCH(std::optional<QByteArray>, queda);
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    Abierto ajeno(archivo(), GENERIC_READ, comparte(como));
    QVERIFY(ajeno);
    alEsperar = [&] {
        if (esperado >= 300ms)
            ajeno.soltar();
    };
    QVERIFY2(hacer(operacion), qPrintable(QString::number(esperado.count())));
    QVERIFY(esperado == 300ms || (como == Como::ConBorrado && esperado == 0ms));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), queda);
    QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), queda ? 1 : 0);
}

void tst_DriveCWindowsOcupado::paraSiempre_sePasaPorAlto_data()
{
    QTest::addColumn<QString>("operacion");
    for (const auto &operacion : {u"borrar"_s, u"agregar"_s, u"escribir"_s, u"publicar"_s})
        QTest::newRow(qPrintable(operacion)) << operacion;
}

void tst_DriveCWindowsOcupado::paraSiempre_sePasaPorAlto()
{
    QFETCH(QString, operacion);
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ);
    QVERIFY(ajeno);
    QVERIFY(!hacer(operacion));
    // One second, also for what is deleted and then added to.
    QCOMPARE(esperado, 1000ms);
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("anterior"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
    ajeno.soltar();
    QVERIFY(hacer(operacion));
}

void tst_DriveCWindowsOcupado::queNoSeDejaBorrar_recibeLoNuevoAlFinal()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    const Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    QVERIFY(ajeno);
    QVERIFY(hacer(u"escribir"_s));
    QCOMPARE(esperado, 1000ms);
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("anteriornuevo"));
}

// Many programs open what they only read so that it may be deleted meanwhile.
void tst_DriveCWindowsOcupado::queSePuedeBorrar_seBorra()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    QVERIFY(ajeno);
    QVERIFY(hacer(u"borrar"_s));
    QCOMPARE(esperado, 0ms);
    ajeno.soltar();
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_DriveCWindowsOcupado::largo_noEspera()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    const Abierto ajeno(archivo(), GENERIC_READ | GENERIC_WRITE, 0);
    QVERIFY(ajeno);
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 8);
    QCOMPARE(esperado, 0ms);
}

// A folder that somebody is about to move or delete.
void tst_DriveCWindowsOcupado::carpetaQueSeMueve_seEspera()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas"_s));
    Abierto ajeno(m_casa->ruta(u"Quorvela/notas"_s), DELETE,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    QVERIFY(ajeno);
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x"));
    QCOMPARE(esperado, 1000ms);
    QVERIFY(m_casa->entradas(u"Quorvela/notas"_s).isEmpty());
    ajeno.soltar();
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x"));
}

QTEST_GUILESS_MAIN(tst_DriveCWindowsOcupado)
#include "tst_DriveCWindowsOcupado.moc"
