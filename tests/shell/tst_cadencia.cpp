// SPDX-License-Identifier: MIT
// Painting and laying out are gathered; values and texts are not.
#include "BarraProgreso.h"
#include "Cadencia.h"
#include "CajaRotulo.h"
#include "RotuloPlegado.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QVBoxLayout>

#include <atomic>
#include <chrono>

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int cambios = 400;
constexpr qint64 cuadro = 16; // milliseconds

// By how much the clock has been put forward, and at what it stands still; 0: it runs.
std::atomic<std::chrono::milliseconds> adelanto{};
std::atomic<qint64> detenido = 0; // nanoseconds

class Detenido {
public:
    Detenido() { detenido = std::chrono::steady_clock::now().time_since_epoch().count(); }
    ~Detenido() { detenido = 0; }
    Detenido(const Detenido &) = delete;
    Detenido &operator=(const Detenido &) = delete;
};

// Counts how often it is worked out.
class Columna : public QVBoxLayout {
public:
    using QVBoxLayout::QVBoxLayout;
    int veces = 0;

    void setGeometry(const QRect &lugar) override
    {
        ++veces;
        QVBoxLayout::setGeometry(lugar);
    }
};

// A window on its way to another size may be laid out once for the old width before it is so for
// the new one: what counts is the height that stays.
bool tieneSuAlto(const RotuloPlegado &rotulo)
{
    return rotulo.height() == rotulo.heightForWidth(rotulo.width());
}

// Counts how often it is measured.
class Medido : public RotuloPlegado {
public:
    using RotuloPlegado::RotuloPlegado;
    mutable int veces = 0;

    int heightForWidth(int ancho) const override
    {
        ++veces;
        return RotuloPlegado::heightForWidth(ancho);
    }
};

// Notes what a bar shows whenever it is painted.
class Testigo : public QObject {
public:
    QList<int> pintados;
    std::chrono::milliseconds tarda{}; // each painting, by the clock

    int ultimo() const { return pintados.isEmpty() ? -1 : pintados.last(); }

protected:
    bool eventFilter(QObject *objeto, QEvent *suceso) override
    {
        const auto *barra = qobject_cast<BarraProgreso *>(objeto);
        if (barra && suceso->type() == QEvent::Paint) {
            pintados.append(barra->value());
            adelanto = adelanto.load() + tarda;
        }
        return false;
    }
};

} // namespace

// The system's clock as all of the process sees it, the library too.
extern "C" int clock_gettime(clockid_t reloj, timespec *hora) noexcept
{
    if (::syscall(SYS_clock_gettime, reloj, hora) != 0)
        return -1;
    const qint64 nanos = hora->tv_nsec + std::chrono::nanoseconds(adelanto.load()).count();
    hora->tv_sec += nanos / 1'000'000'000;
    hora->tv_nsec = nanos % 1'000'000'000;
    if (reloj == CLOCK_MONOTONIC && detenido != 0) {
        hora->tv_sec = detenido / 1'000'000'000;
        hora->tv_nsec = detenido % 1'000'000'000;
    }
    return 0;
}

class tst_cadencia : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        m_panel = new QFrame(m_ventana.get());
        auto *columna = new QVBoxLayout(m_ventana.get());
        columna->addWidget(m_panel);
        auto *dentro = m_columna = new Columna(m_panel);
        m_barra = new BarraProgreso;
        dentro->addWidget(m_barra);
        auto *caja = new CajaRotulo;
        m_rotulo = new Medido(caja);
        dentro->addWidget(caja);
        dentro->addStretch(1);
        m_barra->ponerMaximo(cambios);
        m_testigo = std::make_unique<Testigo>();
        m_barra->installEventFilter(m_testigo.get());
        m_cadencia = std::make_unique<Cadencia>();
        m_cadencia->seguir(m_ventana.get());
        m_ventana->resize(300, 200);
        m_ventana->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_ventana.get()));
        QTRY_VERIFY(!m_testigo->pintados.isEmpty());
        // Nothing is left to be measured or painted.
        QTRY_VERIFY(!porHacer());
    }

    void cleanup() { m_ventana.reset(); }

    void muchosCambios_unaPinturaPorCuadro()
    {
        m_testigo->pintados.clear();
        m_rotulo->veces = 0;
        m_columna->veces = 0;
        QElapsedTimer reloj;
        reloj.start();
        for (int vez = 1; vez <= cambios; ++vez) {
            m_barra->ponerValor(vez);
            m_rotulo->ponerTexto(QString::number(vez));
            QCOMPARE(m_barra->valor(), vez);
            QCOMPARE(m_rotulo->text(), QString::number(vez));
            QCoreApplication::processEvents();
        }
        const qint64 cuadros = reloj.elapsed() / cuadro + 2;
        QVERIFY2(m_testigo->pintados.size() <= cuadros,
                 qPrintable(u"%1 of %2"_s.arg(m_testigo->pintados.size()).arg(cuadros)));
        QVERIFY2(m_rotulo->veces <= cuadros,
                 qPrintable(u"%1 of %2"_s.arg(m_rotulo->veces).arg(cuadros)));
        // None of the texts is higher than the one before.
        QCOMPARE(m_columna->veces, 0);
        QTRY_COMPARE(m_testigo->ultimo(), cambios);
    }

    void alDia_pintaLoRetenido()
    {
        retenerUnCambio();
        m_cadencia->alDia();
        QCOMPARE(m_testigo->ultimo(), m_barra->valor());
    }

    void pausa_pintaAntesLoRetenido()
    {
        retenerUnCambio();
        int alPausar = -1;
        const auto pausa =
            m_cadencia->alDiaEn([&](std::chrono::nanoseconds) { alPausar = m_testigo->ultimo(); });
        pausa(500ms);
        QCOMPARE(alPausar, m_barra->valor());
    }

    void pausa_loQueTardaLaPinturaEsDeElla_data()
    {
        QTest::addColumn<std::chrono::milliseconds>("tarda");
        QTest::addColumn<std::chrono::nanoseconds>("queda"); // at the most
        QTest::newRow("poco") << 30ms << std::chrono::nanoseconds(470ms);
        QTest::newRow("mas que la pausa") << 700ms << std::chrono::nanoseconds(0);
    }
    void pausa_loQueTardaLaPinturaEsDeElla()
    {
        QFETCH(std::chrono::milliseconds, tarda);
        QFETCH(std::chrono::nanoseconds, queda);
        retenerUnCambio();
        m_testigo->tarda = tarda;
        std::chrono::nanoseconds pedida = 1h;
        const auto antes = std::chrono::steady_clock::now();
        m_cadencia->alDiaEn([&](std::chrono::nanoseconds resta) { pedida = resta; })(500ms);
        const auto pasado = std::chrono::steady_clock::now() - antes;
        QVERIFY2(pedida >= 0ns && pedida <= queda, qPrintable(QString::number(pedida.count())));
        QVERIFY(pedida == 0ns || pedida + pasado >= 500ms);
    }

    // Whatever follows the change at once, a request above all, goes first.
    void unCambioTrasMuchaCalma_noSePintaEnSeguida()
    {
        adelanto = adelanto.load() + 100ms;
        m_testigo->pintados.clear();
        {
            const Detenido reloj;
            m_barra->ponerValor(m_barra->valor() + 1);
            for (int vuelta = 0; vuelta < 10; ++vuelta)
                QCoreApplication::processEvents();
            QVERIFY(m_testigo->pintados.isEmpty());
        }
        QTRY_COMPARE(m_testigo->ultimo(), m_barra->valor());
    }

    void textoDeMasLineas_rotuloMasAlto()
    {
        const int antes = m_rotulo->height();
        m_rotulo->ponerTexto(u"palabra "_s.repeated(60));
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    void textoDeMasLineas_enPanelEscondido_rotuloMasAltoAlMostrarlo()
    {
        const int antes = m_rotulo->height();
        m_panel->hide();
        m_rotulo->ponerTexto(u"palabra "_s.repeated(60));
        m_cadencia->alDia();
        m_panel->show();
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    void otraLetra_rotuloConSuAlto()
    {
        m_rotulo->ponerTexto(u"palabra"_s);
        QTRY_VERIFY(m_rotulo->height() > 0 && tieneSuAlto(*m_rotulo));
        const int antes = m_rotulo->height();
        QFont letra = m_ventana->font();
        letra.setPointSize(3 * letra.pointSize());
        m_ventana->setFont(letra);
        QTRY_VERIFY(tieneSuAlto(*m_rotulo) && m_rotulo->height() > 2 * antes);
    }

    // The layout remembers the height that it was told for a width that is yet to come. It then
    // gives the text before that height, and the new text asks for the one that it had so far.
    void otroTextoYOtroAncho_rotuloConSuAlto()
    {
        QWidget marco(m_ventana.get());
        auto *columna = new QVBoxLayout(&marco);
        auto *caja = new CajaRotulo;
        auto *rotulo = new RotuloPlegado(caja);
        columna->addWidget(caja);
        columna->addStretch(1);
        Cadencia cadencia;
        cadencia.seguir(&marco);
        constexpr QSize angosto(300, 150);
        constexpr QSize ancho(320, 150);
        const int margen = columna->contentsMargins().left() + columna->contentsMargins().right();
        const auto alto = [&](QSize de) {
            return rotulo->heightForWidth(de.width() - margen);
        };
        QString texto = u"palabra"_s;
        while (alto(angosto) == alto(ancho))
            rotulo->ponerTexto(texto += u" i"_s);
        const int pedido = alto(angosto);
        marco.show();
        marco.resize(angosto);
        cadencia.alDia();
        QVERIFY(tieneSuAlto(*rotulo));
        QVERIFY(columna->heightForWidth(ancho.width()) > 0);
        while (alto(ancho) < pedido)
            rotulo->ponerTexto(texto += u" i"_s);
        marco.resize(ancho);
        QVERIFY(!tieneSuAlto(*rotulo));
        cadencia.alDia();
        QVERIFY(tieneSuAlto(*rotulo));
        QCOMPARE(rotulo->height(), pedido);
    }

    void ventanaQueTermina_nadaQueda()
    {
        retenerUnCambio();
        m_ventana.reset();
        m_cadencia->alDia();
    }

private:
    // Whether bringing the window up to date still measured or painted something.
    bool porHacer()
    {
        m_testigo->pintados.clear();
        m_rotulo->veces = 0;
        m_cadencia->alDia();
        return m_rotulo->veces > 0 || !m_testigo->pintados.isEmpty();
    }

    // A change right after a picture waits for the next one; another has not even been asked for.
    void retenerUnCambio()
    {
        m_cadencia->alDia();
        m_barra->ponerValor(m_barra->valor() + 1);
        QCoreApplication::processEvents();
        m_barra->ponerValor(m_barra->valor() + 1);
    }

    std::unique_ptr<QWidget> m_ventana;
    QFrame *m_panel = nullptr;
    Columna *m_columna = nullptr;
    BarraProgreso *m_barra = nullptr;
    Medido *m_rotulo = nullptr;
    std::unique_ptr<Testigo> m_testigo;
    std::unique_ptr<Cadencia> m_cadencia;
};

QTEST_MAIN(tst_cadencia)
#include "tst_cadencia.moc"
