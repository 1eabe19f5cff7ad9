// SPDX-License-Identifier: MIT
#include "ArchivoEntrante_windows.h"
#include "platform/rutaWindows.h"
#include "temporales.h"

#include <limits>

using namespace Qt::StringLiterals;
using aperturas::Fin;

namespace {

constexpr int maximoDeIntentos = 1000; // names tried for one temporary file

temporales::Proceso leerProceso(const Manija &proceso)
{
    FILETIME comienzo = {};
    FILETIME fin = {};
    FILETIME delSistema = {};
    FILETIME delPrograma = {};
    // One that has ended stays known for as long as anybody asks about it.
    const bool vive = ::WaitForSingleObject(proceso.valor(), 0) != WAIT_OBJECT_0;
    if (::GetProcessTimes(proceso.valor(), &comienzo, &fin, &delSistema, &delPrograma) == FALSE)
        return {vive, std::nullopt};
    return {vive, aperturas::segundosDe(comienzo)};
}

temporales::Proceso procesoDeNumero(qint64 numero)
{
    if (numero > std::numeric_limits<DWORD>::max())
        return {};
    const auto pid = static_cast<DWORD>(numero);
    const Manija proceso(
        ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, pid));
    if (!proceso) // somebody else's may not be asked
        return {::GetLastError() != ERROR_INVALID_PARAMETER, std::nullopt};
    // The system rounds numbers that no process can have down to one that may be.
    return ::GetProcessId(proceso.valor()) == pid ? leerProceso(proceso) : temporales::Proceso();
}

// Removes a temporary file whose writer lives no longer. A living writer's own cannot be opened so,
// and of its process, should it be on another computer, nothing is known here.
void quitarSiAbandonado(const CarpetaAbierta &carpeta, const QString &nombre)
{
    const auto proceso = temporales::procesoDe(nombre);
    const auto archivo = aperturas::abrirParaBorrar(carpeta.manija, nombre);
    const auto datos = aperturas::datosDe(archivo.manija);
    if (!proceso || !datos || !datos->esArchivo() || datos->carpeta() != carpeta.ruta
        || datos->nombre() != nombre
        || temporales::puedeSerElEscritor(procesoDeNumero(*proceso), datos->escrito))
        return;
    // One that stays is tried again at the next download.
    [[maybe_unused]] const Fin fin = aperturas::borrar(archivo.manija);
}

// Where the bytes go: straight to the file, and remembering a write cut short.
class DispositivoTemporal final : public QIODevice {
public:
    explicit DispositivoTemporal(const Manija &archivo) : m_archivo(archivo) {}

    bool isSequential() const override { return true; }
    bool entero() const { return m_entero; }

protected:
    qint64 readData(char * /*datos*/, qint64 /*cuantos*/) override { return -1; }
    qint64 writeData(const char *datos, qint64 cuantos) override
    {
        m_entero = m_entero && aperturas::escribirTodo(m_archivo, datos, cuantos);
        return m_entero ? cuantos : -1;
    }

private:
    const Manija &m_archivo; // borrowed
    bool m_entero = true;
};

class ArchivoEntranteWindows final : public ArchivoEntrante {
public:
    ArchivoEntranteWindows(RaizArchivo &raiz, const QStringList &ruta, CarpetaAbierta carpeta,
                           const QString &nombre)
        : m_raiz(raiz), m_ruta(ruta), m_carpeta(std::move(carpeta)), m_nombre(nombre)
    {
    }

    ~ArchivoEntranteWindows() override
    {
        // One that cannot be removed is an abandoned one to the next download.
        if (m_archivo) [[maybe_unused]]
            const Fin fin = aperturas::borrar(m_archivo);
    }

    bool abrir()
    {
        for (int vez = 0; !m_archivo && vez < maximoDeIntentos; ++vez) {
            auto intento = aperturas::crearParaRecibir(
                m_carpeta.manija, m_raiz.recibidos.siguiente(::GetCurrentProcessId()));
            // Another name may do where this one is taken, a file on its way out included.
            if (!intento && intento.fin != Fin::Existe && intento.fin != Fin::Ocupado)
                return false;
            m_archivo = std::move(intento.manija);
        }
        return m_archivo && m_dispositivo.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    QIODevice &dispositivo() override { return m_dispositivo; }

    bool publicar() override
    {
        m_dispositivo.close();
        Paciencia paciencia;
        if (!m_archivo || !m_dispositivo.entero() || !estaEnSuSitio(paciencia))
            return false;
        const Fin fin = aperturas::insistir(paciencia, [this] { return tomarNombre(); });
        // What was written is in its place from then on, with the name or without.
        return fin == Fin::Hecho && m_archivo.cerrar();
    }

private:
    // A download takes its time: the root may be a junction to another folder by now.
    bool estaEnSuSitio(Paciencia &paciencia) const
    {
        return m_raiz.abrirCarpeta(m_ruta, paciencia).ruta == m_carpeta.ruta;
    }

    Fin tomarNombre() const
    {
        const auto anterior = aperturas::datosDe(
            aperturas::mirar(m_carpeta.manija, m_nombre, aperturas::Enlace::ElMismo).manija);
        if (anterior && anterior->esCarpeta)
            return Fin::Fallo;
        return aperturas::renombrar(m_archivo, m_carpeta.manija, m_nombre);
    }

    RaizArchivo &m_raiz;
    QStringList m_ruta;
    CarpetaAbierta m_carpeta;
    QString m_nombre;
    Manija m_archivo; // until it is published
    DispositivoTemporal m_dispositivo{m_archivo};
};

} // namespace

void quitarTemporalesAbandonados(const CarpetaAbierta &carpeta, const QString &ruta)
{
    WIN32_FIND_DATAW hallado = {};
    HANDLE busqueda = ::FindFirstFileExW(
        rutaWindows::sinLimite(ruta + u"/.descarga-*"_s).toStdWString().c_str(), FindExInfoBasic,
        &hallado, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (busqueda == INVALID_HANDLE_VALUE)
        return;
    do {
        quitarSiAbandonado(carpeta, QString::fromWCharArray(hallado.cFileName));
    } while (::FindNextFileW(busqueda, &hallado) != FALSE);
    // It was only read.
    [[maybe_unused]] const BOOL cerrada = ::FindClose(busqueda);
}

std::unique_ptr<ArchivoEntrante> recibirEn(RaizArchivo &raiz, const QStringList &ruta,
                                           CarpetaAbierta carpeta, const QString &nombre)
{
    auto archivo = std::make_unique<ArchivoEntranteWindows>(raiz, ruta, std::move(carpeta), nombre);
    if (!archivo->abrir())
        return nullptr;
    return archivo;
}
