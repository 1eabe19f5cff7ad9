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

// Two cores draw two pages at once; a third renderer gained nothing when it was measured. Memory
// is bounded by this number.
constexpr std::size_t mesasMaximas = 2;

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
    : entrada_(entrada), dibujador_(std::move(dibujador)), carpeta_(std::move(carpeta)),
      registro_(std::move(registro)), opciones_(opciones), lineas_(PATH_MAX), cola_(adelanto),
      ausencia_(opciones.plazoAusencia), ultimaActividad_(Reloj::now())
{
}

void Imprenta::trabajar(const sigset_t &senales, const volatile std::sig_atomic_t &interrumpido)
{
    while (!interrumpido) {
        // What lay ahead then is waited for, also if it has come since.
        const auto mirado = Reloj::now();
        while (avanzar()) {
        }
        if (!abierta_ && cola_.vacia())
            break;
        esperar(senales, mirado);
        leerEntrada();
        revisarMesas();
        revisarEncargo();
    }
    mesas_.clear();
    encargo_.reset();
    while (!cola_.vacia())
        registro_.anotar(cola_.retirar(), "se interrumpió la impresión");
}

bool Imprenta::avanzar()
{
    bool algo = prepararSiguiente();
    algo = despacharPrimero() || algo;
    if (cola_.vacia()) {
        impresora_.reset(); // the next batch asks again: the user may choose another printer
        encargo_.reset();   // only the search for one can be out, for documents that are gone
        ausencia_.terminar();
        cerrarMesasOciosas();
        return algo;
    }
    ultimaActividad_ = Reloj::now();
    return abrirMesas() || algo;
}

// Brings the next waiting document as far as it goes without waiting: refused, or at a renderer.
bool Imprenta::prepararSiguiente()
{
    const Cola::Documento *documento = cola_.porDibujar();
    if (!documento)
        return false;
    if (std::string motivo = impedimento(documento->ruta); !motivo.empty()) {
        cola_.fallido(documento->turno, std::move(motivo));
        return true;
    }
    // The paper has to be known before anything is drawn.
    return impresora_ ? darADibujar(*documento) : buscarImpresora();
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
    if (encargo_ || ahora < ausencia_.proximoIntento())
        return false;
    encargo_ = Encargo::empezar(trabajo, ahora + opciones_.plazoServidor);
    if (!encargo_)
        faltaServidor("no se pudo llamar al servidor de impresión");
    return true;
}

bool Imprenta::darADibujar(const Cola::Documento &documento)
{
    const Cola::Turno turno = documento.turno;
    auto libre = std::find_if(mesas_.begin(), mesas_.end(),
                              [](const Mesa &m) { return !m.dibujante->ocupado(); });
    if (libre == mesas_.end()) {
        if (mesas_.size() >= mesasMaximas || Reloj::now() < proximoArranque_)
            return false;
        auto dibujante = Dibujante::nacer(dibujador_);
        if (!dibujante)
            return sinDibujante(turno);
        mesas_.push_back({std::move(dibujante), {}});
        libre = mesas_.end() - 1;
    }
    if (!libre->dibujante->encargar(impresora_->papel, documento.ruta, pdfDe(turno).string(),
                                    Reloj::now() + opciones_.plazoDibujo)) {
        mesas_.erase(libre); // it died while it waited; another one takes the page
        return true;
    }
    libre->turno = turno;
    cola_.empezado(turno);
    return true;
}

// As a page whose engine died: it gets one more try. A pause goes before it, unless renderers have
// failed so often that a pause would mend nothing.
bool Imprenta::sinDibujante(Cola::Turno turno)
{
    if (++arranquesFallidos_ < arranquesMaximos)
        proximoArranque_ = Reloj::now() + entreArranques;
    if (!cola_.redibujar(turno))
        cola_.fallido(turno, "no se pudo arrancar el dibujante");
    return true;
}

// The head, once it is settled: into the log, or to the printer.
bool Imprenta::despacharPrimero()
{
    const Cola::Documento *primero = cola_.primero();
    if (!primero)
        return false;
    if (primero->estado == Cola::Estado::Fallido) {
        registro_.anotar(primero->ruta, primero->motivo);
        cola_.retirar();
        return true;
    }
    return entregar(*primero);
}

bool Imprenta::entregar(const Cola::Documento &primero)
{
    const Impresora destino = *impresora_;
    const impresora::Entrega entrega{primero.pdf, fs::path(primero.ruta).filename().string(),
                                     primero.trabajo};
    return encargar([=](const Encargo::Decir &decir) {
        const auto empezado = [&decir](int trabajo) {
            decir(impresora::empezadoATexto(trabajo));
        };
        impresora::Falla falla;
        const int trabajo = impresora::imprimir(destino, entrega, empezado, falla);
        return impresora::aTexto(trabajo, falla);
    });
}

// Warms renderers up: as many as there are pages waiting, and one for the page that may come next.
bool Imprenta::abrirMesas()
{
    const auto libres = static_cast<std::size_t>(std::count_if(
        mesas_.begin(), mesas_.end(), [](const Mesa &m) { return !m.dibujante->ocupado(); }));
    const std::size_t deseados = cola_.enEspera() + (abierta_ ? 1 : 0);
    if (mesas_.size() >= mesasMaximas || libres >= deseados
        || arranquesFallidos_ >= arranquesMaximos || Reloj::now() < proximoArranque_)
        return false;
    auto dibujante = Dibujante::nacer(dibujador_);
    if (!dibujante)
        return false; // the document that needs it says so in the log
    mesas_.push_back({std::move(dibujante), {}});
    return true;
}

// Between batches nothing is kept in memory for long: the window may stay open for days.
void Imprenta::cerrarMesasOciosas()
{
    if (!abierta_ || Reloj::now() >= ultimaActividad_ + descanso)
        mesas_.clear();
}

void Imprenta::esperar(const sigset_t &senales, Reloj::time_point mirado)
{
    // poll passes over negative descriptors.
    std::array<pollfd, 2> fuentes{pollfd{abierta_ ? entrada_ : -1, POLLIN, 0},
                                  pollfd{encargo_ ? encargo_->descriptor() : -1, POLLIN, 0}};
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
    while (abierta_) {
        const ssize_t leidos = read(entrada_, trozo.data(), trozo.size());
        if (leidos < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EAGAIN)
                return;
        }
        if (leidos > 0) {
            for (auto &ruta : lineas_.agregar({trozo.data(), static_cast<std::size_t>(leidos)}))
                cola_.agregar(std::move(ruta), Reloj::now());
            continue;
        }
        abierta_ = false;
        // A line that has lost no more than its end is a document; one cut short is none, and the
        // log says so.
        if (std::string ruta = lineas_.resto(); !ruta.empty())
            cola_.agregar(std::move(ruta), Reloj::now());
    }
}

void Imprenta::revisarMesas()
{
    const auto ahora = Reloj::now();
    std::erase_if(mesas_, [&](const Mesa &mesa) {
        const auto fin = finDe(mesa, ahora);
        if (!fin)
            return false;
        if (mesa.turno) {
            arranquesFallidos_ = 0;
            concluirDibujo(*mesa.turno, *fin);
        } else {
            ++arranquesFallidos_;
        }
        return true;
    });
}

// How it ended, or why it is ended now; nothing while it may go on.
std::optional<Dibujante::Fin> Imprenta::finDe(const Mesa &mesa, Reloj::time_point ahora) const
{
    if (auto fin = mesa.dibujante->fin())
        return fin;
    if (mesa.dibujante->desbordado())
        return Dibujante::Fin{"la página pidió demasiada memoria"};
    if (ahora >= mesa.dibujante->tope())
        return Dibujante::Fin{"la página no terminó de dibujarse en "
                              + std::to_string(opciones_.plazoDibujo.count()) + " s"};
    return {};
}

void Imprenta::concluirDibujo(Cola::Turno turno, Dibujante::Fin fin)
{
    const fs::path pdf = pdfDe(turno);
    std::error_code sinArchivo;
    if (fin.motivo.empty() && (fs::file_size(pdf, sinArchivo) == 0 || sinArchivo))
        fin.motivo = "el PDF salió vacío";
    if (fin.motivo.empty()) {
        cola_.dibujado(turno, pdf.string());
        return;
    }
    borrar(pdf);
    if (!fin.murio || !cola_.redibujar(turno))
        cola_.fallido(turno, std::move(fin.motivo));
}

void Imprenta::revisarEncargo()
{
    if (!encargo_)
        return;
    const bool contestado = encargo_->leer();
    if (!contestado && Reloj::now() < encargo_->tope())
        return;
    auto dicho = impresora::leer(encargo_->respuesta());
    encargo_.reset();
    if (dicho.contenido.empty())
        dicho.contenido = contestado ? "el servidor de impresión no contestó"
                                     : "el servidor de impresión no contestó en "
                                           + std::to_string(opciones_.plazoServidor.count()) + " s";
    concluirEncargo(dicho);
}

// The errand was the search for the printer as long as none is known, else the head's printing.
void Imprenta::concluirEncargo(const impresora::Contestacion &dicho)
{
    using Clase = impresora::Contestacion::Clase;
    if (impresora_ && dicho.empezado > 0)
        cola_.enDuda(cola_.primero()->turno, dicho.empezado);
    if (dicho.clase == Clase::Ausente) {
        faltaServidor(dicho.contenido);
        return;
    }
    ausencia_.terminar();
    if (!impresora_) {
        if (dicho.clase == Clase::Hecho)
            impresora_ = impresora::deTexto(dicho.contenido);
        const Cola::Documento *documento = cola_.porDibujar();
        // Only the document that asked: the printer may be there for the next one.
        if (!impresora_ && documento)
            cola_.fallido(documento->turno, dicho.contenido);
        return;
    }
    const Cola::Documento *primero = cola_.primero();
    registro_.anotar(primero->ruta, dicho.clase == Clase::Hecho
                                        ? "trabajo " + dicho.contenido + " en " + impresora_->nombre
                                        : dicho.contenido);
    borrar(primero->pdf);
    cola_.retirar();
}

// Says so once in the log, in the name of the first document that waits; those that have waited
// long enough are given up.
void Imprenta::faltaServidor(const std::string &motivo)
{
    const auto ahora = Reloj::now();
    if (ausencia_.notar(ahora))
        registro_.anotar(cola_.rutaPrimera(), motivo + "; se espera hasta "
                                                  + std::to_string(opciones_.plazoAusencia.count())
                                                  + " s a que vuelva");
    for (const std::string &pdf : cola_.abandonar(ausencia_.vencidos(ahora), motivo))
        borrar(pdf);
}

fs::path Imprenta::pdfDe(Cola::Turno turno) const
{
    return carpeta_ / (std::to_string(turno) + ".pdf");
}

Imprenta::Reloj::time_point Imprenta::proximoTope(Reloj::time_point mirado) const
{
    auto tope = encargo_ ? encargo_->tope() : Reloj::time_point::max();
    for (const Mesa &mesa : mesas_) {
        if (mesa.dibujante->ocupado())
            tope = std::min({tope, mesa.dibujante->tope(), Reloj::now() + entreMediciones});
    }
    if (cola_.vacia() && !mesas_.empty())
        tope = std::min(tope, ultimaActividad_ + descanso);
    // What is waited for again, as long as it lay ahead when it was last looked at: a time that has
    // come between that and now would else be waited for by nobody.
    for (const auto espera : {ausencia_.proximoIntento(), proximoArranque_}) {
        if (!cola_.vacia() && espera > mirado)
            tope = std::min(tope, espera);
    }
    return tope;
}
