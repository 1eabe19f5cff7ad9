// SPDX-License-Identifier: MIT
#include "platform/Verbos.h"

#include "Obrero_linux.h"
#include "herencia.h"
#include "platform/companeros.h"
#include "senales.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QProcess>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// One on PATH is for a program that was copied out of its installation alone.
QString programaImpresion()
{
    const QByteArray propia = QFile::encodeName(QCoreApplication::applicationDirPath());
    const auto hallado = companeros::hallar("parvanel-print", propia.toStdString());
    return hallado ? QFile::decodeName(hallado->c_str())
                   : QStandardPaths::findExecutable(u"parvanel-print"_s);
}

QList<QByteArray> variablesDe(const EntornoImpresion &entorno)
{
    return {"PARVANEL_ORIGEN=" + entorno.origen.toUtf8(),
            "PARVANEL_RAIZ=" + (entorno.raiz ? QFile::encodeName(entorno.raiz()) : QByteArray())};
}

// So many workers in a row that ended without taking anything, and the next is no better.
constexpr int arranquesEnVano = 3;

} // namespace

// Keeps what the worker has not taken yet, and writes it whenever the pipe has room: the window
// never waits for the worker.
class Verbos::Interno : public QObject {
public:
    Interno(const EntornoImpresion &entorno, PlazosImpresion plazos)
        : m_entorno(entorno), m_plazos(plazos)
    {
        senales::sinTuberiaRota(); // a worker that is gone is replaced
        m_atasco.setSingleShot(true);
        connect(&m_atasco, &QTimer::timeout, this, &Interno::atascado);
    }

    void entregar(const QString &documento)
    {
        segar();
        m_pendiente += QFile::encodeName(documento) + '\n';
        escribir();
    }

private:
    void escribir()
    {
        while (!m_pendiente.isEmpty()) {
            if (!m_obrero && !tomar()) {
                // As good as a missing print handler: nothing is printed and nothing is said.
                m_pendiente.clear();
                return;
            }
            switch (m_obrero->escribir(m_pendiente)) {
            case Obrero::Escrito::Algo:
                m_atasco.stop();
                break;
            case Obrero::Escrito::Lleno:
                m_hueco->setEnabled(true);
                if (!m_atasco.isActive())
                    m_atasco.start(m_plazos.atasco);
                return;
            case Obrero::Escrito::Cerrado:
                despedir(m_obrero->sinTomar());
                break;
            }
        }
        if (m_hueco)
            m_hueco->setEnabled(false);
    }

    bool tomar()
    {
        if (m_enVano >= arranquesEnVano && !m_descanso.hasExpired())
            return false;
        m_obrero =
            Obrero::arrancar(programaImpresion(), variablesDe(m_entorno), [this] { terminado(); });
        if (!m_obrero)
            return false;
        m_hueco = std::make_unique<QSocketNotifier>(m_obrero->tuberia(), QSocketNotifier::Write);
        m_hueco->setEnabled(false);
        connect(m_hueco.get(), &QSocketNotifier::activated, this, &Interno::escribir);
        return true;
    }

    // The next worker begins with `devueltas`, whole lines that this one has not got to.
    void despedir(const QByteArray &devueltas)
    {
        m_atasco.stop();
        m_hueco->setEnabled(false);
        m_hueco.release()->deleteLater(); // its signal may be the one being handled
        m_enVano = m_obrero->tomoAlgo() ? 0 : m_enVano + 1;
        m_pendiente.prepend(devueltas);
        if (m_enVano >= arranquesEnVano) {
            m_pendiente.clear();
            m_descanso.setRemainingTime(m_plazos.descanso);
        }
        m_obrero->soltar();
        m_anteriores.push_back(std::move(m_obrero));
    }

    // It is left alone: if it is only slow, it still prints what it has been given.
    void atascado()
    {
        despedir(m_obrero->lineaEmpezada());
        escribir();
    }

    // Some worker has ended, this one or one before it. What this one has left unread is not lost.
    void terminado()
    {
        segar();
        escribir();
    }

    void segar()
    {
        if (m_obrero && m_obrero->termino())
            despedir(m_obrero->sinTomar());
        std::erase_if(m_anteriores, [](const auto &anterior) { return anterior->termino(); });
    }

    EntornoImpresion m_entorno;
    PlazosImpresion m_plazos;
    std::unique_ptr<Obrero> m_obrero;
    std::vector<std::unique_ptr<Obrero>> m_anteriores; // that have not ended yet
    std::unique_ptr<QSocketNotifier> m_hueco;          // room in the pipe
    QByteArray m_pendiente;                            // not yet written
    QTimer m_atasco;
    int m_enVano = 0; // workers in a row that took nothing
    QDeadlineTimer m_descanso;
};

Verbos::Verbos(const EntornoImpresion &entorno, PlazosImpresion plazos)
    : d(std::make_unique<Interno>(entorno, plazos))
{
}

Verbos::~Verbos() = default;

void Verbos::abrir(const QString &documento)
{
    herencia::nada();
    [[maybe_unused]] const bool
        abierto = // a desktop without a browser is not this program's affair
        QProcess::startDetached(u"xdg-open"_s, {documento});
}

void Verbos::imprimir(const QString &documento)
{
    if (QFileInfo(documento).isFile())
        d->entregar(documento);
}
