// SPDX-License-Identifier: MIT
#include "demostracion/ServicioDemo.h"

#include "demostracion/conexion.h"
#include "demostracion/identidadTls.h"
#include "demostracion/mensajes.h"
#include "demostracion/zocalos.h"

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <atomic>
#include <list>
#include <optional>
#include <stdexcept>
#include <thread>

namespace {

using namespace Qt::StringLiterals;
using namespace demo;

constexpr auto entreMiradas = std::chrono::milliseconds(5);

struct Regla {
    QByteArray fragmento;
    Falla falla;
    int veces;
};

} // namespace

class ServicioDemo::Interno {
public:
    Interno(const TamanoEscuela &tamano, Modo modo);
    ~Interno();

    Escuela escuela;
    QString base;
    IdentidadTls identidad;

    mutable QMutex cerrojo; // guards the two lists
    QList<Peticion> peticiones;
    QList<Regla> reglas; // the one given last is first

private:
    struct Hilo {
        std::thread hilo;
        std::atomic<bool> terminado = false;
    };

    int abrirPuerto();
    void escuchar();
    void recoger(bool todos);
    void atender(Conexion &conexion);
    std::optional<Falla> anotar(const Peticion &peticion);
    void fallarCon(const Falla &falla, const Peticion &peticion, Conexion &conexion);
    bool retenida(const Peticion &peticion) const;
    QByteArray ordinaria(const Peticion &peticion, const QByteArray &comprimir) const;

    zocalos::Zocalo m_oido = zocalos::ninguno;
    zocalos::Parada m_parada;
    std::unique_ptr<Rutas> m_rutas;
    std::list<Hilo> m_hilos; // only the listener's thread touches it, until it has ended
    std::thread m_oyente;
};

static demo::Vigencia vigencia(ServicioDemo::Modo modo)
{
    if (modo == ServicioDemo::Modo::HttpsVencido)
        return demo::Vigencia::Pasada;
    return modo == ServicioDemo::Modo::HttpsPorVenir ? demo::Vigencia::Futura
                                                     : demo::Vigencia::Ahora;
}

ServicioDemo::Interno::Interno(const TamanoEscuela &tamano, Modo modo)
    : escuela(generarEscuela(tamano))
{
    if (modo != Modo::Http)
        identidad = crearIdentidadTls(vigencia(modo));
    const int puerto = abrirPuerto();
    base = u"%1://127.0.0.1:%2"_s.arg(modo == Modo::Http ? u"http"_s : u"https"_s).arg(puerto);
    m_rutas = std::make_unique<Rutas>(escuela, base);
    m_oyente = std::thread([this] { escuchar(); });
}

ServicioDemo::Interno::~Interno()
{
    m_parada.dar();
    m_oyente.join();
    recoger(true);
    zocalos::cerrar(m_oido);
}

int ServicioDemo::Interno::abrirPuerto()
{
    int puerto = 0;
    m_oido = zocalos::oir("127.0.0.1", 128, puerto);
    if (m_oido == zocalos::ninguno)
        throw std::runtime_error("no loopback port for the demonstration service");
    return puerto;
}

void ServicioDemo::Interno::escuchar()
{
    for (;;) {
        std::array<zocalos::Espera, 2> esperas = {
            {{.zocalo = m_oido}, {.zocalo = m_parada.zocalo()}}};
        zocalos::esperar(esperas, zocalos::sinLimite);
        if (esperas[1].lista)
            return;
        const zocalos::Zocalo zocalo = zocalos::aceptar(m_oido);
        if (zocalo == zocalos::ninguno)
            continue;
        recoger(false);
        Hilo &hilo = m_hilos.emplace_back();
        hilo.hilo = std::thread([this, &hilo, zocalo] {
            {
                Conexion conexion(zocalo, m_parada.zocalo(), identidad.contexto.get());
                atender(conexion);
            }
            hilo.terminado = true;
        });
    }
}

void ServicioDemo::Interno::recoger(bool todos)
{
    for (auto it = m_hilos.begin(); it != m_hilos.end();) {
        if (!todos && !it->terminado) {
            ++it;
            continue;
        }
        it->hilo.join();
        it = m_hilos.erase(it);
    }
}

std::optional<Falla> ServicioDemo::Interno::anotar(const Peticion &peticion)
{
    const QMutexLocker guardia(&cerrojo);
    peticiones.append(peticion);
    for (Regla &regla : reglas) {
        if (regla.veces == 0 || !peticion.destino.contains(regla.fragmento))
            continue;
        if (regla.veces > 0)
            --regla.veces;
        return regla.falla;
    }
    return {};
}

void ServicioDemo::Interno::atender(Conexion &conexion)
{
    if (!conexion.saludar())
        return;
    const QByteArray bytes = conexion.leerCabecera();
    if (bytes.isEmpty())
        return;
    const Peticion peticion = leida(bytes);
    if (const std::optional<Falla> falla = anotar(peticion)) {
        fallarCon(*falla, peticion, conexion);
        return;
    }
    if (conexion.enviar(ordinaria(peticion, valor(peticion, "Accept-Encoding"))))
        conexion.despedir();
}

QByteArray ServicioDemo::Interno::ordinaria(const Peticion &peticion,
                                            const QByteArray &comprimir) const
{
    if (peticion.destino.isEmpty())
        return respuesta(400, "<html><body>Petici\xF3n incomprensible</body></html>");
    if (peticion.metodo != "GET" && peticion.metodo != "HEAD")
        return respuesta(405, "<html><body>M\xE9todo no permitido</body></html>");
    return enMensaje(m_rutas->responder(peticion.destino), peticion.metodo, comprimir);
}

void ServicioDemo::Interno::fallarCon(const Falla &falla, const Peticion &peticion,
                                      Conexion &conexion)
{
    // Uncompressed, so that half a body is half of what a test knows.
    const auto partes = [&] {
        return separar(ordinaria(peticion, {}));
    };
    QByteArray envio;
    bool despedida = true;
    switch (falla.clase) {
    case Falla::Demora:
        if (!conexion.esperar(falla.demora))
            return;
        envio = ordinaria(peticion, valor(peticion, "Accept-Encoding"));
        break;
    case Falla::Muda:
        conexion.esperarFin();
        return;
    case Falla::Retenida:
        while (retenida(peticion)) {
            if (!conexion.esperar(entreMiradas))
                return;
        }
        envio = ordinaria(peticion, valor(peticion, "Accept-Encoding"));
        break;
    case Falla::Vacia:
        envio = respuesta(200, {});
        break;
    case Falla::Cuerpo:
        envio = respuesta(200, falla.cuerpo);
        break;
    case Falla::Estado:
        envio = respuesta(falla.estado, falla.cuerpo);
        break;
    case Falla::CierraAntes:
        return;
    case Falla::CierraEnMedio: {
        const Partes p = partes();
        envio = conLargo(p, p.cuerpo.size(), p.cuerpo.left(p.cuerpo.size() / 2));
        despedida = false;
        break;
    }
    case Falla::LargoErrado: {
        const Partes p = partes();
        envio = conLargo(p, p.cuerpo.size() / 2, p.cuerpo);
        break;
    }
    case Falla::Basura:
        envio = basura();
        break;
    case Falla::Redireccion:
        envio = respuesta(falla.estado == 0 ? 302 : falla.estado, {},
                          "Location: " + falla.cuerpo + "\r\n");
        break;
    }
    if (conexion.enviar(envio) && despedida)
        conexion.despedir();
}

// A rule that is used up still holds those that met it.
bool ServicioDemo::Interno::retenida(const Peticion &peticion) const
{
    const QMutexLocker guardia(&cerrojo);
    return std::any_of(reglas.begin(), reglas.end(), [&](const Regla &regla) {
        return regla.falla.clase == Falla::Retenida && peticion.destino.contains(regla.fragmento);
    });
}

ServicioDemo::ServicioDemo(const TamanoEscuela &tamano, Modo modo)
    : d(std::make_unique<Interno>(tamano, modo))
{
}

ServicioDemo::~ServicioDemo() = default;

QString ServicioDemo::base() const
{
    return d->base;
}

QByteArray ServicioDemo::autoridad() const
{
    return d->identidad.autoridad;
}

const Escuela &ServicioDemo::escuela() const
{
    return d->escuela;
}

QList<Peticion> ServicioDemo::peticiones() const
{
    const QMutexLocker guardia(&d->cerrojo);
    return d->peticiones;
}

void ServicioDemo::olvidarPeticiones()
{
    const QMutexLocker guardia(&d->cerrojo);
    d->peticiones.clear();
}

void ServicioDemo::fallar(const QByteArray &fragmento, const Falla &falla, int veces)
{
    const QMutexLocker guardia(&d->cerrojo);
    d->reglas.prepend({fragmento, falla, veces});
}

void ServicioDemo::quitarFallas()
{
    const QMutexLocker guardia(&d->cerrojo);
    d->reglas.clear();
}
