// SPDX-License-Identifier: MIT
// Nothing outside of the archive is touched, also when somebody puts a link in the place of a
// folder or a file while the program is at work there.
#include "CarpetaPersonal.h"
#include "platform/DriveC.h"

#include <QScopeGuard>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Gives two entries each other's name, over and over, for as long as it lives.
class Trueque {
public:
    Trueque(const QString &una, const QString &otra)
        : m_una(QFile::encodeName(una)), m_otra(QFile::encodeName(otra)), posible(cambiar())
    {
        m_hilo = std::thread([this] {
            while (!m_basta) {
                if (cambiar())
                    ++veces;
            }
        });
    }
    ~Trueque()
    {
        m_basta = true;
        m_hilo.join();
    }
    Trueque(const Trueque &) = delete;
    Trueque &operator=(const Trueque &) = delete;

private:
    bool cambiar() const
    {
        return ::renameat2(AT_FDCWD, m_una.constData(), AT_FDCWD, m_otra.constData(),
                           RENAME_EXCHANGE)
               == 0;
    }

    QByteArray m_una;
    QByteArray m_otra;
    std::atomic_bool m_basta = false;
    std::thread m_hilo;

public:
    const bool posible;
    std::atomic_int veces = 0;
};

} // namespace

class tst_DriveCCarrera : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void carpetaTrocadaPorEnlace_nadaFuera();
    void archivoTrocadoPorEnlace_nadaFuera();
    void archivoTrocadoPorTuberia_noEsperaNiEscribe_data();
    void archivoTrocadoPorTuberia_noEsperaNiEscribe();

private:
    static constexpr int vueltas = 2000;
    void todoContra(const QString &carpeta, int vuelta);

    std::unique_ptr<CarpetaPersonal> m_casa;
    std::unique_ptr<DriveC> m_disco;
};

void tst_DriveCCarrera::init()
{
    m_casa = std::make_unique<CarpetaPersonal>();
    QVERIFY(m_casa->hacerCarpeta(u"Quorvela/notas"_s));
    QVERIFY(m_casa->hacerCarpeta(u"otra"_s));
    QVERIFY(m_casa->escribir(u"otra/a.txt"_s, "ajeno"));
    m_disco = std::make_unique<DriveC>(m_casa->ruta());
}

void tst_DriveCCarrera::cleanup()
{
    m_disco.reset();
    m_casa.reset();
}

// What comes of each depends on who was first; only where it happens is looked at.
void tst_DriveCCarrera::todoContra(const QString &carpeta, int vuelta)
{
    [[maybe_unused]] const bool hecha =
        m_disco->crearCarpeta(carpeta + u"carpeta%1"_s.arg(vuelta % 50));
    [[maybe_unused]] const bool enOtraLetra =
        m_disco->crearCarpeta(carpeta + u"CARPETA%1"_s.arg(vuelta % 50));
    [[maybe_unused]] const bool agregado = m_disco->agregar(carpeta + u"a.txt"_s, "x");
    [[maybe_unused]] const bool nuevo =
        m_disco->agregar(carpeta + u"nuevo%1.txt"_s.arg(vuelta), "x");
    if (const auto entrante = m_disco->recibir(carpeta + u"a.txt"_s); entrante && vuelta % 2 == 0)
        [[maybe_unused]]
        const bool publicado = entrante->publicar();
    [[maybe_unused]] const bool borrado = m_disco->borrar(carpeta + u"a.txt"_s);
}

void tst_DriveCCarrera::carpetaTrocadaPorEnlace_nadaFuera()
{
    QVERIFY(m_casa->enlazar(u"../otra"_s, u"Quorvela/enlace"_s));
    {
        const Trueque trueque(m_casa->ruta(u"Quorvela/notas"_s),
                              m_casa->ruta(u"Quorvela/enlace"_s));
        QVERIFY(trueque.posible);
        for (int vuelta = 0; vuelta < vueltas; ++vuelta)
            todoContra(u"C:\\Quorvela\\notas\\"_s, vuelta);
        QTRY_VERIFY(trueque.veces > 0);
    }
    QCOMPARE(m_casa->entradas(u"otra"_s), QStringList{u"a.txt"_s});
    QCOMPARE(m_casa->leer(u"otra/a.txt"_s), QByteArray("ajeno"));
    QCOMPARE(m_casa->entradas(), (QStringList{u"Quorvela"_s, u"otra"_s}));
}

void tst_DriveCCarrera::archivoTrocadoPorEnlace_nadaFuera()
{
    QVERIFY(m_casa->enlazar(u"../../otra/a.txt"_s, u"Quorvela/notas/enlace"_s));
    QVERIFY(m_casa->escribir(u"Quorvela/notas/a.txt"_s, "propio"));
    {
        const Trueque trueque(m_casa->ruta(u"Quorvela/notas/a.txt"_s),
                              m_casa->ruta(u"Quorvela/notas/enlace"_s));
        QVERIFY(trueque.posible);
        for (int vuelta = 0; vuelta < 5 * vueltas; ++vuelta) {
            [[maybe_unused]] const bool agregado =
                m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x");
        }
        QTRY_VERIFY(trueque.veces > 0);
    }
    QCOMPARE(m_casa->leer(u"otra/a.txt"_s), QByteArray("ajeno"));
}

void tst_DriveCCarrera::archivoTrocadoPorTuberia_noEsperaNiEscribe_data()
{
    QTest::addColumn<bool>("conLector");
    QTest::newRow("que alguien lee") << true;
    QTest::newRow("que nadie lee") << false;
}

// Opening a pipe that nobody reads would wait for a reader.
void tst_DriveCCarrera::archivoTrocadoPorTuberia_noEsperaNiEscribe()
{
    QFETCH(bool, conLector);
    QVERIFY(m_casa->escribir(u"Quorvela/notas/a.txt"_s, "propio"));
    const QByteArray tubo = QFile::encodeName(m_casa->ruta(u"Quorvela/notas/tubo"_s));
    QCOMPARE(::mkfifo(tubo.constData(), 0600), 0);
    const int lector = conLector ? ::open(tubo.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC) : -1;
    const auto cierre = qScopeGuard([lector] { ::close(lector); });
    {
        const Trueque trueque(m_casa->ruta(u"Quorvela/notas/a.txt"_s), QFile::decodeName(tubo));
        QVERIFY(trueque.posible);
        for (int vuelta = 0; vuelta < 5 * vueltas; ++vuelta) {
            [[maybe_unused]] const bool agregado =
                m_disco->agregar(u"C:\\Quorvela\\notas\\a.txt"_s, "x");
        }
        QTRY_VERIFY(trueque.veces > 0);
    }
    char leido = 0;
    QVERIFY(!conLector || ::read(lector, &leido, 1) == -1);
}

QTEST_GUILESS_MAIN(tst_DriveCCarrera)
#include "tst_DriveCCarrera.moc"
