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
      ultimaActividad_(Reloj::now())
{
}

void Imprenta::trabajar(const sigset_t &senales, const volatile std::sig_atomic_t &interrumpido)
{
    while (!interrumpido) {
        while (avanzar()) {
        }
        if (!abierta_ && cola_.vacia())
            break;
        esperar(senales);
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
    return impresora_ ? darADibujar(*documento) : buscarImpresora(documento->turno);
}

bool Imprenta::buscarImpresora(Cola::Turno turno)
{
    if (encargo_)
        return false;
    encargo_ = Encargo::empezar(
        [] {
            std::string motivo;
            const auto hallada = impresora::predeterminada(motivo);
            return impresora::aTexto(hallada, motivo);
        },
        Reloj::now() + opciones_.plazoServidor);
    if (!encargo_)
        cola_.fallido(turno, "no se pudo consultar la impresora");
    return true;
}

bool Imprenta::darADibujar(const Cola::Documento &documento)
{
    const Cola::Turno turno = documento.turno;
    auto libre = std::find_if(mesas_.begin(), mesas_.end(),
                              [](const Mesa &m) { return !m.dibujante->ocupado(); });
    if (libre == mesas_.end()) {
        if (mesas_.size() >= mesasMaximas)
            return false;
        auto dibujante = Dibujante::nacer(dibujador_);
        if (!dibujante) {
            cola_.fallido(turno, "no se pudo arrancar el dibujante");
            return true;
        }
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
    if (encargo_)
        return false;
    const Impresora destino = *impresora_;
    const std::string pdf = primero->pdf;
    const std::string titulo = fs::path(primero->ruta).filename().string();
    encargo_ = Encargo::empezar(
        [=] {
            std::string motivo;
            const int trabajo = impresora::imprimir(destino, pdf, titulo, motivo);
            return impresora::aTexto(trabajo, motivo);
        },
        Reloj::now() + opciones_.plazoServidor);
    if (!encargo_)
        cola_.fallido(primero->turno, "no se pudo llamar al servidor de impresión");
    return true;
}

// Warms renderers up: as many as there are pages waiting, and one for the page that may come next.
bool Imprenta::abrirMesas()
{
    const auto libres = static_cast<std::size_t>(std::count_if(
        mesas_.begin(), mesas_.end(), [](const Mesa &m) { return !m.dibujante->ocupado(); }));
    const std::size_t deseados = cola_.enEspera() + (abierta_ ? 1 : 0);
    if (mesas_.size() >= mesasMaximas || libres >= deseados
        || arranquesFallidos_ >= arranquesMaximos)
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

void Imprenta::esperar(const sigset_t &senales)
{
    // poll passes over negative descriptors.
    std::array<pollfd, 2> fuentes{pollfd{abierta_ ? entrada_ : -1, POLLIN, 0},
                                  pollfd{encargo_ ? encargo_->descriptor() : -1, POLLIN, 0}};
    const auto tope = proximoTope();
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
                cola_.agregar(std::move(ruta));
            continue;
        }
        abierta_ = false;
        if (std::string ruta = lineas_.resto(); !ruta.empty())
            cola_.agregar(std::move(ruta));
    }
}

void Imprenta::revisarMesas()
{
    const auto ahora = Reloj::now();
    std::erase_if(mesas_, [&](const Mesa &mesa) {
        std::string motivo;
        const bool terminado = mesa.dibujante->terminado(motivo);
        if (!terminado && ahora < mesa.dibujante->tope())
            return false;
        if (!terminado)
            motivo = "la página no terminó de dibujarse en "
                     + std::to_string(opciones_.plazoDibujo.count()) + " s";
        if (!mesa.turno) {
            ++arranquesFallidos_;
            return true;
        }
        arranquesFallidos_ = 0;
        std::error_code sinArchivo;
        const fs::path pdf = pdfDe(*mesa.turno);
        if (motivo.empty() && (fs::file_size(pdf, sinArchivo) == 0 || sinArchivo))
            motivo = "el PDF salió vacío";
        if (motivo.empty()) {
            cola_.dibujado(*mesa.turno, pdf.string());
        } else {
            borrar(pdf);
            cola_.fallido(*mesa.turno, motivo);
        }
        return true;
    });
}

void Imprenta::revisarEncargo()
{
    if (!encargo_)
        return;
    const bool contestado = encargo_->leer();
    if (!contestado && Reloj::now() < encargo_->tope())
        return;
    const std::string respuesta = contestado ? encargo_->respuesta() : std::string();
    encargo_.reset();
    concluirEncargo(respuesta, contestado
                                   ? "el servidor de impresión no contestó"
                                   : "el servidor de impresión no contestó en "
                                         + std::to_string(opciones_.plazoServidor.count()) + " s");
}

// The errand was the search for the printer as long as none is known, else the head's printing.
void Imprenta::concluirEncargo(const std::string &respuesta, const std::string &siNoHay)
{
    const std::string motivo = respuesta.empty() ? siNoHay : respuesta.substr(1);
    if (!impresora_) {
        impresora_ = impresora::deTexto(respuesta);
        const Cola::Documento *documento = cola_.porDibujar();
        // Only the document that asked: the printer may be there for the next one.
        if (!impresora_ && documento)
            cola_.fallido(documento->turno, motivo);
        return;
    }
    const Cola::Documento *primero = cola_.primero();
    const bool impreso = !respuesta.empty() && respuesta.front() == '+';
    registro_.anotar(primero->ruta,
                     impreso ? "trabajo " + motivo + " en " + impresora_->nombre : motivo);
    borrar(primero->pdf);
    cola_.retirar();
}

fs::path Imprenta::pdfDe(Cola::Turno turno) const
{
    return carpeta_ / (std::to_string(turno) + ".pdf");
}

Imprenta::Reloj::time_point Imprenta::proximoTope() const
{
    auto tope = encargo_ ? encargo_->tope() : Reloj::time_point::max();
    for (const Mesa &mesa : mesas_)
        tope = std::min(tope, mesa.dibujante->tope());
    if (cola_.vacia() && !mesas_.empty())
        tope = std::min(tope, ultimaActividad_ + descanso);
    return tope;
}
