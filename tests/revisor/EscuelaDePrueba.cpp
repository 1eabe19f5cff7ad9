// SPDX-License-Identifier: MIT
#include "revisor/EscuelaDePrueba.h"
#include "archive/historico.h"
#include "platform/Verbos.h"
#include "printing/PanelImpresion.h"
#include "printing/trabajos.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "service/Entorno.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <fstream>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

const QString base = u"https://servicio.parvanel.example"_s;

class BarraMuda : public Barra {
public:
    int valor() const override { return 0; }
    void ponerValor(int) override {}
    void ponerMaximo(int) override {}
};

class RotuloMudo : public Rotulo {
public:
    void ponerTexto(const QString &) override {}
};

// What the program's procedures stand on.
struct Suelo {
    explicit Suelo(const QString &personal)
        : disco(personal), sesion{.idColegio = u"123"_s,
                                  .anoActual = u"2010"_s,
                                  .rolUsuario = u"SECRETARIA"_s},
          progreso{.barra1 = &barra, .barra2 = &barra, .estadoTS = &rotulo, .estadoHS = &rotulo},
          entorno{.ServiceBase = base,
                  .http = http,
                  .disco = disco,
                  .azar = azar,
                  .pausa = [](std::chrono::milliseconds) {},
                  .sesion = sesion,
                  .progreso = progreso}
    {
    }

    BarraMuda barra;
    RotuloMudo rotulo;
    HttpClient http;
    DriveC disco;
    Azar azar;
    Module1 sesion;
    Progreso progreso;
    Entorno entorno;
};

class PanelMudo : public PanelImpresion {
public:
    PanelMudo(QString linea, int periodo) : m_linea(std::move(linea)), m_periodo(periodo) {}
    QString lineaSalon() const override { return m_linea; }
    int periodo() const override { return m_periodo; }
    bool descargarEImprimir() const override { return false; }
    void mensaje(const QString &) override {}
    void empezar(int) override {}
    void avanzar() override {}
    void terminar() override {}

private:
    QString m_linea;
    int m_periodo;
};

QString matrizDeSalones(const Escuela &escuela)
{
    QStringList filas;
    for (const SalonDemo &salon : escuela.salones)
        filas.append(salon.id + u',' + salon.nombre);
    return filas.join(u'\u00AE');
}

// Labels are drawn, which takes long, and are the same in every school.
std::optional<QByteArray> rotulo(demo::Rutas &rutas, const QByteArray &destino)
{
    static QHash<QByteArray, QByteArray> dibujados;
    QByteArray &bytes = dibujados[destino];
    if (bytes.isEmpty())
        bytes = rutas.responder(destino).cuerpo;
    return bytes;
}

QString idRaro(QRandomGenerator &azar, int numero)
{
    const std::array<QString, 9> formas = {u"%1"_s,       u"00%1"_s,  u"A-%1"_s,
                                           u"Ñu%1"_s,     u"%1.%1"_s, u"TI %1 x"_s,
                                           u"é_%1 (1)"_s, u"%1'b"_s,  u"v%1.html"_s};
    return formas[azar.bounded(static_cast<quint32>(formas.size()))].arg(numero);
}

} // namespace

Escuela escuelaAlAzar(QRandomGenerator &azar)
{
    TamanoEscuela tamano;
    tamano.semilla = azar.generate();
    tamano.salones = azar.bounded(6);
    tamano.alumnosPorSalon = azar.bounded(11);
    tamano.materias = azar.bounded(12);
    Escuela escuela = generarEscuela(tamano);
    const bool raros = azar.bounded(2) == 0;
    QHash<QString, QString> salones;
    for (SalonDemo &salon : escuela.salones) {
        const QString id = raros ? idRaro(azar, salon.id.toInt()) : salon.id;
        salones.insert(salon.id, id);
        salon.id = id;
    }
    QHash<QString, int> cuantos;
    for (const SalonDemo &salon : std::as_const(escuela.salones))
        cuantos[salon.id] = azar.bounded(12) - 1; // none at all, now and then
    QList<AlumnoDemo> alumnos;
    for (AlumnoDemo alumno : std::as_const(escuela.alumnos)) {
        alumno.salon = salones.value(alumno.salon);
        alumno.conFoto = azar.bounded(3) > 0;
        if (--cuantos[alumno.salon] < 0)
            continue;
        if (raros)
            alumno.id = idRaro(azar, alumno.id.toInt());
        alumnos.append(alumno);
    }
    escuela.alumnos = alumnos;
    escuela.ajustes[u"USAINFOFIN2"_s] = azar.bounded(2) == 0 ? u"SI"_s : u"NO"_s;
    escuela.ajustes[u"SLOGAN"_s] = azar.bounded(2) == 0 ? u"¡Ñandú & «colibrí»! 100 %"_s : u"x"_s;
    return escuela;
}

EscuelaDePrueba::EscuelaDePrueba(Escuela una)
    : escuela(std::move(una)), m_rutas(escuela, base),
      m_http([this](const QByteArray &direccion) { return responder(direccion); })
{
}

std::optional<QByteArray> EscuelaDePrueba::responder(const QByteArray &direccion)
{
    const QByteArray destino = direccion.mid(base.size());
    if (m_torcer) {
        if (const auto otra = m_torcer(destino))
            return *otra;
    }
    if (destino.startsWith("/imgTXT.php"))
        return rotulo(m_rutas, destino);
    const demo::Respuesta respuesta = m_rutas.responder(destino);
    // A page is stored whatever its status; an image is not.
    const bool esImagen = destino.startsWith("/images/") || destino.startsWith("/jup/");
    return esImagen && respuesta.estado >= 400 ? std::nullopt : std::optional(respuesta.cuerpo);
}

fs::path EscuelaDePrueba::descargar(const QString &personal, const Torcer &torcer)
{
    m_torcer = torcer;
    Suelo suelo(personal);
    suelo.sesion.usaInfoFin2 = escuela.ajustes.value(u"USAINFOFIN2"_s);
    tcSalones salones(suelo.entorno);
    tcAlumnos alumnos(suelo.entorno);
    std::unique_ptr<tcMaterias> materias;
    salones.Fcargar(matrizDeSalones(escuela));
    descargarHistorico(suelo.entorno, salones, alumnos, materias);
    m_torcer = nullptr;
    return rutaDe(personal + u"/Quorvela/123-2010"_s);
}

void EscuelaDePrueba::imprimir(const QString &personal)
{
    Suelo suelo(personal);
    Verbos verbos; // nothing is printed
    for (const SalonDemo &salon : escuela.salones) {
        if (salon.id.toInt() == 0)
            continue; // jobs ask for a number
        for (const FilaTrabajo &fila : filasTrabajo) {
            for (int periodo = 1; periodo <= (fila.conPeriodo ? 4 : 1); ++periodo) {
                PanelMudo panel(salon.id + u" - "_s + salon.nombre, periodo);
                correrTrabajo(fila.nombre.toString(), suelo.entorno, panel, verbos);
            }
        }
    }
}

QByteArray leido(const fs::path &ruta)
{
    std::ifstream archivo(ruta, std::ios::binary);
    return QByteArray::fromStdString(
        {std::istreambuf_iterator<char>(archivo), std::istreambuf_iterator<char>()});
}

void escrito(const fs::path &ruta, const QByteArray &bytes)
{
    std::ofstream archivo(ruta, std::ios::binary | std::ios::trunc);
    archivo.write(bytes.constData(), bytes.size());
}
