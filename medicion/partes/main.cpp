// SPDX-License-Identifier: MIT
// The parts of one request by themselves: a page from the bytes of its reply to the bytes of its
// file, and what stands around it. `--benchmark_filter`, `--benchmark_format` and the like are the
// library's own options.
#include "archive/descargas.h"
#include "pages/rutasArchivo.h"
#include "platform/codepage.h"
#include "records/tcAlumnos.h"
#include "service/Entorno.h"
#include "service/frmCargador.h"
#include "servicio/EscuelaMedida.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t pagina = std::size_t(40) * 1024;

// What procedures are handed, with a school logged in and a home of its own.
struct Puesto {
    QTemporaryDir casa{u"/dev/shm/partes-XXXXXX"_s};
    HttpClient http;
    DriveC disco{casa.path()};
    Azar azar;
    Module1 sesion;
    Progreso progreso;
    Entorno entorno{.ServiceBase = u"http://127.0.0.1:40123"_s,
                    .http = http,
                    .disco = disco,
                    .azar = azar,
                    .pausa = [](std::chrono::milliseconds) {},
                    .sesion = sesion,
                    .progreso = progreso};

    Puesto()
    {
        sesion.idColegio = u"123"_s;
        sesion.anoActual = u"2010"_s;
        sesion.usaInfoFin2 = u"SI"_s;
        sesion.usaCertiFin2 = u"2"_s;
    }
};

// The address of the family's page for one record.
std::string destinoDe(const FilaDescarga &fila, const Puesto &puesto, Valores &valores)
{
    valores = rutasArchivo::valores(puesto.entorno);
    ponerValores(fila.documento, puesto.sesion, valores);
    valores.poner(Lugar::Id, u"1001"_s);
    const QString url = completar(fila.documento.url, valores);
    const QString parametros = completar(fila.documento.parametros, valores);
    return frmCargador::direccionDe(url, parametros, true, 1000)
        .mid(puesto.entorno.ServiceBase.size())
        .toStdString();
}

QByteArray paginaDe(const std::string &destino, const Puesto &puesto)
{
    const EscuelaMedida escuela({.pagina = pagina}, puesto.entorno.ServiceBase.toStdString());
    return QByteArray::fromStdString(escuela.responder(destino).cuerpo);
}

// In, rewritten, and out: all that is done with a page but to ask for it and to store it.
void entera(benchmark::State &estado, filasDescarga::Cual cual)
{
    const Puesto puesto;
    const FilaDescarga &fila = filasDescarga::todas[cual];
    Valores valores;
    const QByteArray cuerpo = paginaDe(destinoDe(fila, puesto, valores), puesto);
    for ([[maybe_unused]] auto vez : estado) {
        QByteArray una(cuerpo.constData(), cuerpo.size()); // a reply of its own, as it comes
        una = localizar(std::move(una), fila.documento.reemplazos, valores);
        una += codepage::aBytes(fila.documento.guion.toString());
        una += "\r\n";
        benchmark::DoNotOptimize(una);
    }
    estado.SetBytesProcessed(estado.iterations() * cuerpo.size());
}
BENCHMARK_CAPTURE(entera, salon, filasDescarga::Salones);
BENCHMARK_CAPTURE(entera, consolidadoN, filasDescarga::ConsolidadoN);
BENCHMARK_CAPTURE(entera, consolidadoF, filasDescarga::ConsolidadoF);
BENCHMARK_CAPTURE(entera, infoFinal, filasDescarga::InfoFinal);
BENCHMARK_CAPTURE(entera, certificado, filasDescarga::Certificado);
BENCHMARK_CAPTURE(entera, hojaMat, filasDescarga::HojaMat);
BENCHMARK_CAPTURE(entera, infoAlumno, filasDescarga::InfoAlumno);

void aTexto(benchmark::State &estado)
{
    const Puesto puesto;
    Valores valores;
    const QByteArray cuerpo = paginaDe(
        destinoDe(filasDescarga::todas[filasDescarga::InfoFinal], puesto, valores), puesto);
    for ([[maybe_unused]] auto vez : estado)
        benchmark::DoNotOptimize(codepage::aTexto(cuerpo));
}
BENCHMARK(aTexto);

void aBytes(benchmark::State &estado)
{
    const Puesto puesto;
    Valores valores;
    const QString texto = codepage::aTexto(paginaDe(
        destinoDe(filasDescarga::todas[filasDescarga::InfoFinal], puesto, valores), puesto));
    for ([[maybe_unused]] auto vez : estado)
        benchmark::DoNotOptimize(codepage::aBytes(texto));
}
BENCHMARK(aBytes);

// The rewriting by itself.
void reescribir(benchmark::State &estado, filasDescarga::Cual cual)
{
    const Puesto puesto;
    const FilaDescarga &fila = filasDescarga::todas[cual];
    Valores valores;
    const QByteArray cuerpo = paginaDe(destinoDe(fila, puesto, valores), puesto);
    for ([[maybe_unused]] auto vez : estado)
        benchmark::DoNotOptimize(localizar(cuerpo, fila.documento.reemplazos, valores));
}
BENCHMARK_CAPTURE(reescribir, salon, filasDescarga::Salones);
BENCHMARK_CAPTURE(reescribir, infoFinal, filasDescarga::InfoFinal);
BENCHMARK_CAPTURE(reescribir, hojaMat, filasDescarga::HojaMat);

// The list of a large school, read into records.
void lista(benchmark::State &estado)
{
    Puesto puesto;
    const EscuelaMedida escuela({.alumnos = static_cast<int>(estado.range(0))}, "");
    const QString texto = codepage::aTexto(QByteArray::fromStdString(
        escuela.responder("/querys/tessarin/alumnos.php?tipo=matrix").cuerpo));
    for ([[maybe_unused]] auto vez : estado) {
        tcAlumnos alumnos(puesto.entorno);
        alumnos.Fcargar(texto);
        benchmark::DoNotOptimize(alumnos.Count());
    }
}
BENCHMARK(lista)->Arg(500)->Arg(50000)->Unit(benchmark::kMillisecond);

// A page stored as the run stores it: an earlier one deleted, the bytes appended.
void guardar(benchmark::State &estado)
{
    Puesto puesto;
    for (const auto &carpeta :
         {u"C:\\Quorvela"_s, u"C:\\Quorvela\\123-2010"_s, u"C:\\Quorvela\\123-2010\\archivos"_s})
        static_cast<void>(puesto.disco.crearCarpeta(carpeta)); // it shows below when it is missing
    const QByteArray bytes(10 * 1024, 'a');
    int numero = 0;
    for ([[maybe_unused]] auto vez : estado) {
        const QString archivo =
            u"C:\\Quorvela\\123-2010\\archivos\\%1.html"_s.arg(1000 + numero++ % 5000);
        static_cast<void>(puesto.disco.borrar(archivo)); // there is none on a first run
        if (!puesto.disco.agregar(archivo, bytes))
            estado.SkipWithError("the file could not be written");
    }
}
BENCHMARK(guardar)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int cuantos, char *argumentos[])
{
    const QCoreApplication aplicacion(cuantos, argumentos);
    benchmark::Initialize(&cuantos, argumentos);
    benchmark::RunSpecifiedBenchmarks();
}
