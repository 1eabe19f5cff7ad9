// SPDX-License-Identifier: MIT
#include "worker/Imprenta.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

// A renderer draws a page in a small part of the time that it takes to start, and takes as much
// memory as all that it will ever draw: one draws, and another only beside one that is at its page
// for long. Memory is bounded by this number.
constexpr std::size_t mesasMaximas = 2;
constexpr auto tardanza = 2s;

// Drawn pages that may wait for their turn, on disk: enough to keep drawing while one page ahead
// of them hangs for a while, few enough for a small temporary folder.
constexpr std::size_t adelanto = 8;

// How long a renderer is kept warm for a document that may still come in the same batch.
constexpr auto descanso = 5s;

constexpr int arranquesMaximos = 3;

// How often drawing renderers are looked at: a page can fill half a gigabyte in this time.
constexpr auto entreMediciones = 100ms;

// A renderer that could not be started for want of memory or processes may be, a moment later.
constexpr auto entreArranques = 1s;

// Why the file cannot be printed; empty when it can.
std::string impedimento(const std::string &ruta)
{
    if (ruta.front() != '/')
        return "la ruta no es absoluta";
    if (ruta.size() >= PATH_MAX)
        return "la ruta es demasiado larga";
    struct stat datos {};
    if (stat(ruta.c_str(), &datos) != 0)
        return errno == ENOENT
                   ? "el archivo no existe"
                   : "el archivo no se puede leer: " + std::generic_category().message(errno);
    if (!S_ISREG(datos.st_mode))
        return "no es un archivo";
    return access(ruta.c_str(), R_OK) == 0 ? std::string() : "el archivo no se puede leer";
}

void borrar(const fs::path &pdf)
{
    std::error_code sinImportancia; // the folder is removed as a whole at the end
    fs::remove(pdf, sinImportancia);
}

} // namespace

Imprenta::Imprenta(int entrada, fs::path dibujador, fs::path carpeta, Registro registro,
                   const Opciones &opciones)
    : m_entrada(entrada), m_dibujador(std::move(dibujador)), m_carpeta(std::move(carpeta)),
      m_registro(std::move(registro)), m_opciones(opciones), m_lineas(PATH_MAX), m_cola(adelanto),
      m_ausencia(opciones.plazoAusencia), m_ultimaActividad(Reloj::now())
{
}

void Imprenta::trabajar(const sigset_t &senales, const volatile std::sig_atomic_t &interrumpido)
{
    while (!interrumpido) {
        // What lay ahead then is waited for, also if it has come since.
        const auto mirado = Reloj::now();
        while (avanzar()) {
        }
        if (!m_abierta && m_cola.vacia())
            break;
        esperar(senales, mirado);
        leerEntrada();
        revisarMesas();
        revisarEncargo();
    }
    m_mesas.clear();
    m_encargo.reset();
    while (!m_cola.vacia())
        m_registro.anotar(m_cola.retirar(), "se interrumpió la impresión");
}

bool Imprenta::avanzar()
{
    bool algo = prepararSiguiente();
    algo = despacharPrimero() || algo;
    if (m_cola.vacia()) {
        m_impresora.reset(); // the next batch asks again: the user may choose another printer
        m_encargo.reset();   // only the search for one can be out, for documents that are gone
        m_ausencia.terminar();
        cerrarMesasOciosas();
        return algo;
    }
    m_ultimaActividad = Reloj::now();
    return abrirMesa() || algo;
}

// Brings the next waiting document as far as it goes without waiting: refused, or at a renderer.
bool Imprenta::prepararSiguiente()
{
    const Cola::Documento *documento = m_cola.porDibujar();
    if (!documento)
        return false;
    if (std::string motivo = impedimento(documento->ruta); !motivo.empty()) {
        m_cola.fallido(documento->turno, std::move(motivo));
        return true;
    }
    // The paper has to be known before anything is drawn.
    return m_impresora ? darADibujar(*documento) : buscarImpresora();
}

bool Imprenta::buscarImpresora()
{
    return encargar([](const Encargo::Decir &) {
        impresora::Falla falla;
        const auto hallada = impresora::predeterminada(falla);
        return impresora::aTexto(hallada, falla);
    });
}

// False when the print server is busy with something else, or was not there a moment ago.
bool Imprenta::encargar(const Encargo::Trabajo &trabajo)
{
    const auto ahora = Reloj::now();
    if (m_encargo || ahora < m_ausencia.proximoIntento())
        return false;
    m_encargo = Encargo::empezar(trabajo, ahora + m_opciones.plazoServidor);
    if (!m_encargo)
        faltaServidor("no se pudo llamar al servidor de impresión");
    return true;
}

bool Imprenta::darADibujar(const Cola::Documento &documento)
{
    const Cola::Turno turno = documento.turno;
    auto libre = std::find_if(m_mesas.begin(), m_mesas.end(),
                              [](const Mesa &m) { return !m.dibujante->ocupado(); });
    if (libre == m_mesas.end()) {
        if (!atascadasMenos(nullptr) || Reloj::now() < m_proximoArranque)
            return false;
        auto dibujante = Dibujante::nacer(m_dibujador);
        if (!dibujante)
            return sinDibujante(turno);
        m_mesas.push_back({std::move(dibujante), {}, {}});
        libre = m_mesas.end() - 1;
    }
    if (!libre->dibujante->encargar(m_impresora->papel, documento.ruta, pdfDe(turno).string(),
                                    Reloj::now() + m_opciones.plazoDibujo)) {
        m_mesas.erase(libre); // it died while it waited; another one takes the page
        return true;
    }
    libre->turno = turno;
    libre->desde = Reloj::now();
    m_cola.empezado(turno);
    return true;
}

// As a page whose engine died: it gets one more try. A pause goes before it, unless renderers have
// failed so often that a pause would mend nothing.
bool Imprenta::sinDibujante(Cola::Turno turno)
{
    if (++m_arranquesFallidos < arranquesMaximos)
        m_proximoArranque = Reloj::now() + entreArranques;
    if (!m_cola.redibujar(turno))
        m_cola.fallido(turno, "no se pudo arrancar el dibujante");
    return true;
}

// The head, once it is settled: into the log, or to the printer.
bool Imprenta::despacharPrimero()
{
    const Cola::Documento *primero = m_cola.primero();
    if (!primero)
        return false;
    if (primero->estado == Cola::Estado::Fallido) {
        m_registro.anotar(primero->ruta, primero->motivo);
        m_cola.retirar();
        return true;
    }
    return entregar(*primero);
}

bool Imprenta::entregar(const Cola::Documento &primero)
{
    const Impresora destino = *m_impresora;
    const std::string titulo = m_titulos.deTrabajo(primero.ruta, primero.titulo);
    const impresora::Entrega entrega{primero.pdf, titulo, primero.trabajo};
    return encargar([=](const Encargo::Decir &decir) {
        const auto empezado = [&decir](int trabajo) {
            decir(impresora::empezadoATexto(trabajo));
        };
        impresora::Falla falla;
        const int trabajo = impresora::imprimir(destino, entrega, empezado, falla);
        return impresora::aTexto(trabajo, falla);
    });
}

// Warms a renderer up for the page that waits, or for the one that may come next.
bool Imprenta::abrirMesa()
{
    const bool hace = m_cola.enEspera() > 0 || m_abierta;
    if (!hace || !atascadasMenos(nullptr) || m_arranquesFallidos >= arranquesMaximos
        || Reloj::now() < m_proximoArranque)
        return false;
    auto dibujante = Dibujante::nacer(m_dibujador);
    if (!dibujante)
        return false; // the document that needs it says so in the log
    m_mesas.push_back({std::move(dibujante), {}, {}});
    return true;
}

// Whether there is nobody to draw the next page but `una`, and room for one who does.
bool Imprenta::atascadasMenos(const Mesa *una) const
{
    const auto ahora = Reloj::now();
    return m_mesas.size() < mesasMaximas + (una ? 1 : 0)
           && std::all_of(m_mesas.begin(), m_mesas.end(), [&](const Mesa &m) {
                  return &m == una || (m.dibujante->ocupado() && ahora >= m.desde + tardanza);
              });
}

// Between batches nothing is kept in memory for long: the window may stay open for days.
void Imprenta::cerrarMesasOciosas()
{
    if (!m_abierta || Reloj::now() >= m_ultimaActividad + descanso)
        m_mesas.clear();
}

void Imprenta::esperar(const sigset_t &senales, Reloj::time_point mirado)
{
    // poll passes over negative descriptors.
    std::vector<pollfd> fuentes{{m_abierta ? m_entrada : -1, POLLIN, 0},
                                {m_encargo ? m_encargo->descriptor() : -1, POLLIN, 0}};
    for (const Mesa &mesa : m_mesas)
        fuentes.push_back(
            {mesa.dibujante->ocupado() ? mesa.dibujante->descriptor() : -1, POLLIN, 0});
    const auto tope = proximoTope(mirado);
    timespec plazo{};
    if (tope != Reloj::time_point::max()) {
        const auto falta = std::max(tope - Reloj::now(), Reloj::duration::zero()) + 1ms;
        const auto segundos = std::chrono::duration_cast<std::chrono::seconds>(falta);
        plazo.tv_sec = segundos.count();
        plazo.tv_nsec = std::chrono::nanoseconds(falta - segundos).count();
    }
    // SIGCHLD is let in only here, hence none is missed between looking and sleeping. What poll
    // says is not examined: every source is looked at after it, without blocking.
    [[maybe_unused]] const int listos =
        ppoll(fuentes.data(), fuentes.size(), tope == Reloj::time_point::max() ? nullptr : &plazo,
              &senales);
}

void Imprenta::leerEntrada()
{
    std::array<char, 4096> trozo{};
    while (m_abierta) {
        const ssize_t leidos = read(m_entrada, trozo.data(), trozo.size());
        if (leidos < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EAGAIN)
                return;
        }
        if (leidos > 0) {
            for (auto &ruta : m_lineas.agregar({trozo.data(), static_cast<std::size_t>(leidos)}))
                m_cola.agregar(std::move(ruta), Reloj::now());
            continue;
        }
        m_abierta = false;
        // A line that has lost no more than its end is a document; one cut short is none, and the
        // log says so.
        if (std::string ruta = m_lineas.resto(); !ruta.empty())
            m_cola.agregar(std::move(ruta), Reloj::now());
    }
}

void Imprenta::revisarMesas()
{
    const auto ahora = Reloj::now();
    for (std::size_t i = 0; i < m_mesas.size();) {
        Mesa &mesa = m_mesas[i];
        const auto fin = finDe(mesa, ahora);
        if (fin && mesa.turno) {
            m_arranquesFallidos = 0;
            concluirDibujo(*std::exchange(mesa.turno, {}), *fin);
        } else if (fin) {
            ++m_arranquesFallidos;
        }
        if (fin && !(fin->sigue && atascadasMenos(&mesa)))
            m_mesas.erase(m_mesas.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }
}

// How it ended, or why it is ended now; nothing while it may go on.
std::optional<Dibujante::Fin> Imprenta::finDe(Mesa &mesa, Reloj::time_point ahora) const
{
    if (auto fin = mesa.dibujante->fin())
        return fin;
    if (mesa.dibujante->desbordado())
        return Dibujante::Fin{"la página pidió demasiada memoria"};
    if (ahora >= mesa.dibujante->tope())
        return Dibujante::Fin{"la página no terminó de dibujarse en "
                              + std::to_string(m_opciones.plazoDibujo.count()) + " s"};
    return {};
}

void Imprenta::concluirDibujo(Cola::Turno turno, Dibujante::Fin fin)
{
    const fs::path pdf = pdfDe(turno);
    std::error_code sinArchivo;
    if (fin.motivo.empty() && (fs::file_size(pdf, sinArchivo) == 0 || sinArchivo))
        fin.motivo = "el PDF salió vacío";
    if (fin.motivo.empty()) {
        m_cola.dibujado(turno, pdf.string(), std::move(fin.titulo));
        return;
    }
    borrar(pdf);
    if (!fin.murio || !m_cola.redibujar(turno))
        m_cola.fallido(turno, std::move(fin.motivo));
}

void Imprenta::revisarEncargo()
{
    if (!m_encargo)
        return;
    const bool contestado = m_encargo->leer();
    if (!contestado && Reloj::now() < m_encargo->tope())
        return;
    auto dicho = impresora::leer(m_encargo->respuesta());
    m_encargo.reset();
    if (dicho.contenido.empty())
        dicho.contenido = contestado
                              ? "el servidor de impresión no contestó"
                              : "el servidor de impresión no contestó en "
                                    + std::to_string(m_opciones.plazoServidor.count()) + " s";
    concluirEncargo(dicho);
}

// The errand was the search for the printer as long as none is known, else the head's printing.
void Imprenta::concluirEncargo(const impresora::Contestacion &dicho)
{
    using Clase = impresora::Contestacion::Clase;
    if (m_impresora && dicho.empezado > 0)
        m_cola.enDuda(m_cola.primero()->turno, dicho.empezado);
    if (dicho.clase == Clase::Ausente) {
        faltaServidor(dicho.contenido);
        return;
    }
    m_ausencia.terminar();
    if (!m_impresora) {
        if (dicho.clase == Clase::Hecho)
            m_impresora = impresora::deTexto(dicho.contenido);
        const Cola::Documento *documento = m_cola.porDibujar();
        // Only the document that asked: the printer may be there for the next one.
        if (!m_impresora && documento)
            m_cola.fallido(documento->turno, dicho.contenido);
        return;
    }
    const Cola::Documento *primero = m_cola.primero();
    m_registro.anotar(primero->ruta,
                      dicho.clase == Clase::Hecho
                          ? "trabajo " + dicho.contenido + " en " + m_impresora->nombre
                          : dicho.contenido);
    borrar(primero->pdf);
    m_cola.retirar();
}

// Says so once in the log, in the name of the first document that waits; those that have waited
// long enough are given up.
void Imprenta::faltaServidor(const std::string &motivo)
{
    const auto ahora = Reloj::now();
    if (m_ausencia.notar(ahora))
        m_registro.anotar(m_cola.rutaPrimera(),
                          motivo + "; se espera hasta "
                              + std::to_string(m_opciones.plazoAusencia.count())
                              + " s a que vuelva");
    for (const std::string &pdf : m_cola.abandonar(m_ausencia.vencidos(ahora), motivo))
        borrar(pdf);
}

fs::path Imprenta::pdfDe(Cola::Turno turno) const
{
    return m_carpeta / (std::to_string(turno) + ".pdf");
}

Imprenta::Reloj::time_point Imprenta::proximoTope(Reloj::time_point mirado) const
{
    auto tope = m_encargo ? m_encargo->tope() : Reloj::time_point::max();
    for (const Mesa &mesa : m_mesas) {
        if (mesa.dibujante->ocupado())
            tope = std::min({tope, mesa.dibujante->tope(), Reloj::now() + entreMediciones});
    }
    if (m_cola.vacia() && !m_mesas.empty())
        tope = std::min(tope, m_ultimaActividad + descanso);
    // What is waited for again, as long as it lay ahead when it was last looked at: a time that has
    // come between that and now would else be waited for by nobody.
    for (const auto espera : {m_ausencia.proximoIntento(), m_proximoArranque}) {
        if (!m_cola.vacia() && espera > mirado)
            tope = std::min(tope, espera);
    }
    return tope;
}
