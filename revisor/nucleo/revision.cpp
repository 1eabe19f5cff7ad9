// SPDX-License-Identifier: MIT
#include "revisor/Revision.h"
#include "Juicio.h"
#include "texto.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr unsigned hilosMaximos = 4;
constexpr auto entreAvances = std::chrono::milliseconds(16);

// Says how far the reading is, at a pace that can be looked at.
class Marcha {
public:
    Marcha(const Avance &avance, std::size_t total) : m_avance(avance), m_total(total) {}

    void uno()
    {
        const std::size_t hechos = ++m_hechos;
        if (!m_avance)
            return;
        const std::lock_guard guardia(m_cerrojo);
        const auto ahora = std::chrono::steady_clock::now();
        if (hechos != m_total && ahora < m_proximo)
            return;
        m_proximo = ahora + entreAvances;
        m_avance(std::max(hechos, m_dicho), m_total);
        m_dicho = std::max(hechos, m_dicho);
    }

private:
    const Avance &m_avance;
    std::size_t m_total;
    std::atomic<std::size_t> m_hechos = 0;
    std::mutex m_cerrojo; // of those below
    std::chrono::steady_clock::time_point m_proximo;
    std::size_t m_dicho = 0;
};

// What happens in reading one file is that file's own affair.
Lectura leerSinTropezar(const Entrada &entrada, const Contexto &contexto)
{
    try {
        return leerEntrada(entrada, contexto);
    } catch (const std::exception &) {
        // No memory for it, say.
        Lectura lectura;
        lectura.senales.push_back({reglas::NoSeLee});
        return lectura;
    }
}

std::vector<Lectura> leerTodo(const Contexto &contexto, const Avance &avance,
                              const std::stop_token &parar)
{
    const std::vector<Entrada> &archivos = contexto.inventario.archivos;
    std::vector<Lectura> lecturas(archivos.size());
    Marcha marcha(avance, archivos.size());
    std::atomic<std::size_t> siguiente = 0;
    const auto trabajar = [&] {
        for (std::size_t i = siguiente++; i < archivos.size() && !parar.stop_requested();
             i = siguiente++) {
            lecturas[i] = leerSinTropezar(archivos[i], contexto);
            marcha.uno();
        }
    };
    const unsigned cuantos = std::clamp(std::thread::hardware_concurrency(), 1U, hilosMaximos);
    {
        std::vector<std::jthread> otros;
        for (unsigned i = 1; i < cuantos; ++i)
            otros.emplace_back(trabajar);
        trabajar();
    }
    return lecturas;
}

// The names that the folder is known by: as it was given, and where a link of that name leads.
QStringList nombresDe(const fs::path &carpeta)
{
    std::error_code error;
    QStringList nombres;
    const fs::path dada = fs::absolute(carpeta, error).lexically_normal();
    for (const fs::path &una : {dada, fs::canonical(carpeta, error)}) {
        const fs::path ultima = una.has_filename() ? una.filename() : una.parent_path().filename();
        if (!ultima.empty())
            nombres.append(texto::deRuta(ultima));
    }
    nombres.removeDuplicates();
    return nombres;
}

bool esHistorico(const Inventario &inventario)
{
    const bool conArchivos = inventario.buscar(u"archivos"_s).clase == Hallado::Carpeta;
    const bool conPortada = inventario.buscar(u"index.html"_s).clase == Hallado::Archivo;
    const bool conDatos = inventario.buscar(u"configuracion.txt"_s).clase == Hallado::Archivo;
    return conArchivos || (conPortada && conDatos);
}

Veredicto veredictoDe(const Resultado &resultado)
{
    return resultado.cuantos(Gravedad::Falta) + resultado.cuantos(Gravedad::Danio) > 0
               ? Veredicto::FaltanDocumentos
               : Veredicto::Completo;
}

Resultado revisarCarpeta(const fs::path &carpeta, const Avance &avance,
                         const std::stop_token &parar)
{
    Resultado resultado;
    resultado.carpeta = carpeta;
    std::error_code error;
    if (!fs::is_directory(carpeta, error))
        return resultado;
    const Inventario inventario(carpeta, parar);
    const Contexto contexto{carpeta, inventario, nombresDe(carpeta)};
    resultado.nombre = contexto.nombres.value(0);
    if (!inventario.raizLegible)
        return resultado;
    for (const Entrada &entrada : inventario.archivos)
        resultado.bytes += entrada.largo;
    resultado.archivos = static_cast<int>(inventario.archivos.size());
    if (!parar.stop_requested() && !esHistorico(inventario)) {
        resultado.veredicto = Veredicto::NoEsHistorico;
        return resultado;
    }
    const std::vector<Lectura> lecturas = leerTodo(contexto, avance, parar);
    if (parar.stop_requested()) {
        resultado.veredicto = Veredicto::Detenida;
        return resultado;
    }
    Juicio(contexto, lecturas, resultado).juzgar();
    resultado.veredicto = veredictoDe(resultado);
    return resultado;
}

} // namespace

int Resultado::cuantos(Gravedad gravedad) const
{
    return static_cast<int>(
        std::count_if(hallazgos.begin(), hallazgos.end(), [gravedad](const Hallazgo &hallazgo) {
            return hallazgo.regla->gravedad == gravedad;
        }));
}

Resultado revisar(const fs::path &carpeta, const Avance &avance, const std::stop_token &parar)
{
    try {
        return revisarCarpeta(carpeta, avance, parar);
    } catch (const std::exception &) {
        // No memory, or a path that the system cannot turn into one of its own.
        Resultado resultado;
        resultado.carpeta = carpeta;
        return resultado;
    }
}
