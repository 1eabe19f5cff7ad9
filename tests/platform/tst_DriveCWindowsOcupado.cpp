// SPDX-License-Identifier: MIT
// Files that another program holds: for a moment, as virus scanners and browsers do, and for good.
#include "EntradasDeWindows.h"
#include "UnidadDePrueba.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <limits>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;
using namespace entradasDeWindows;

namespace {

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

// A file held open, let go of by another thread after a while.
class Momento {
public:
    Momento(const QString &ruta, Como como, std::chrono::milliseconds cuanto)
        : m_abierto(ruta, GENERIC_READ, comparte(como)), m_hilo([this, cuanto] {
              std::this_thread::sleep_for(cuanto);
              m_abierto.soltar();
              m_suelto = true;
          })
    {
    }
    ~Momento() { m_hilo.join(); }
    Momento(const Momento &) = delete;
    Momento &operator=(const Momento &) = delete;

    bool suelto() const { return m_suelto; }

private:
    Abierto m_abierto;
    std::atomic<bool> m_suelto = false;
    std::thread m_hilo;
};

} // namespace

class tst_DriveCWindowsOcupado : public QObject, UnidadDePrueba {
    Q_OBJECT

private Q_SLOTS:
    void init() { empezar(); }
    void cleanup() { acabar(); }

    void unMomento_seEspera_data();
    void unMomento_seEspera();
    void paraSiempre_sePasaPorAlto_data();
    void paraSiempre_sePasaPorAlto();
    void escribirParaSiempre_unSoloSegundo();
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

// Whether the file was let go of in time is not this test's to decide on a busy computer: only a
// failure while nobody held it any longer counts, and one that came before is tried again.
void tst_DriveCWindowsOcupado::unMomento_seEspera()
{
    QFETCH(QString, operacion);
    QFETCH(Como, como);
    QFETCH(std::optional<QByteArray>, queda);
    constexpr int vecesALoMas = 20;
    for (int vez = 0; vez < vecesALoMas; ++vez) {
        QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
        QElapsedTimer reloj;
        reloj.start();
        const Momento ajeno(archivo(), como, std::chrono::milliseconds(300));
        const bool hecho = hacer(operacion);
        if (!hecho && (!ajeno.suelto() || reloj.elapsed() > 900))
            continue;
        QVERIFY(hecho);
        QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), queda);
        QCOMPARE(m_casa->entradas(u"Quorvela"_s).size(), queda ? 1 : 0);
        return;
    }
    QFAIL("the file was never let go of in time");
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
    QElapsedTimer reloj;
    reloj.start();
    QVERIFY(!hacer(operacion));
    QVERIFY2(reloj.elapsed() >= 950, "it was not waited for");
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("anterior"));
    QCOMPARE(m_casa->entradas(u"Quorvela"_s), QStringList{u"a.txt"_s});
    ajeno.soltar();
    QVERIFY(hacer(operacion));
}

// It is deleted and then added to: one file in the way costs one second all the same.
void tst_DriveCWindowsOcupado::escribirParaSiempre_unSoloSegundo()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    const Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ);
    qint64 masCorta = std::numeric_limits<qint64>::max();
    for (int vez = 0; vez < 20 && masCorta >= 1900; ++vez) {
        QElapsedTimer reloj;
        reloj.start();
        QVERIFY(!hacer(u"escribir"_s));
        masCorta = std::min(masCorta, reloj.elapsed());
    }
    QVERIFY2(masCorta < 1900, qPrintable(QString::number(masCorta)));
}

void tst_DriveCWindowsOcupado::queNoSeDejaBorrar_recibeLoNuevoAlFinal()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    const Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    QVERIFY(ajeno);
    QVERIFY(hacer(u"escribir"_s));
    QCOMPARE(m_casa->leer(u"Quorvela/a.txt"_s), QByteArray("anteriornuevo"));
}

// Many programs open what they only read so that it may be deleted meanwhile.
void tst_DriveCWindowsOcupado::queSePuedeBorrar_seBorra()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    Abierto ajeno(archivo(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    QVERIFY(ajeno);
    QVERIFY(hacer(u"borrar"_s));
    ajeno.soltar();
    QVERIFY(m_casa->entradas(u"Quorvela"_s).isEmpty());
}

void tst_DriveCWindowsOcupado::largo_noEspera()
{
    QVERIFY(m_casa->escribir(u"Quorvela/a.txt"_s, "anterior"));
    const Abierto ajeno(archivo(), GENERIC_READ | GENERIC_WRITE, 0);
    QVERIFY(ajeno);
    QCOMPARE(m_disco->largo(u"C:\\Quorvela\\a.txt"_s), 8);
}

// A folder that somebody is about to move or delete.
void tst_DriveCWindowsOcupado::carpetaQueSeMueve_seEspera()
{
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas"_s));
    Abierto ajeno(m_casa->ruta(u"Quorvela/notas"_s), DELETE,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    QVERIFY(ajeno);
    QVERIFY(!m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x"));
    QVERIFY(m_casa->entradas(u"Quorvela/notas"_s).isEmpty());
    ajeno.soltar();
    QVERIFY(m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x"));
}

QTEST_GUILESS_MAIN(tst_DriveCWindowsOcupado)
#include "tst_DriveCWindowsOcupado.moc"
