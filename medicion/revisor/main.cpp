// SPDX-License-Identifier: MIT
// The review of a large archive, measured: the archive is made by the program itself from the
// demonstration school.
//
//   bench-revisor hacer HOME CLASSROOMS STUDENTS    a download below HOME, STUDENTS to a classroom
//   bench-revisor revisar FOLDER                    "MILLISECONDS FILES BYTES PEAK_KIB FINDINGS"
#include "archive/historico.h"
#include "demostracion/ServicioDemo.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "revisor/Revision.h"
#include "service/Entorno.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdio>
#include <cstring>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

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

int hacer(const QString &personal, int salones, int alumnos)
{
    const ServicioDemo servicio({2010, salones, alumnos, 12});
    BarraMuda barra;
    RotuloMudo rotulo;
    HttpClient http;
    DriveC disco(personal);
    Azar azar;
    Module1 sesion{.idColegio = u"123"_s, .anoActual = u"2010"_s, .rolUsuario = u"SECRETARIA"_s};
    Progreso progreso{.barra1 = &barra, .barra2 = &barra, .estadoTS = &rotulo, .estadoHS = &rotulo};
    Entorno entorno{.ServiceBase = servicio.base(),
                    .http = http,
                    .disco = disco,
                    .azar = azar,
                    .pausa = [](std::chrono::milliseconds) {},
                    .sesion = sesion,
                    .progreso = progreso};
    tcSalones lista(entorno);
    tcAlumnos listaDeAlumnos(entorno);
    std::unique_ptr<tcMaterias> materias;
    QStringList filas;
    for (const SalonDemo &salon : servicio.escuela().salones)
        filas.append(salon.id + u',' + salon.nombre);
    lista.Fcargar(filas.join(u'\u00AE'));
    descargarHistorico(entorno, lista, listaDeAlumnos, materias);
    return 0;
}

int revisarla(const char *carpeta)
{
    QElapsedTimer reloj;
    reloj.start();
    const Resultado resultado = revisar(carpeta);
    const qint64 tardo = reloj.elapsed();
    rusage uso{};
    [[maybe_unused]] const int hay = getrusage(RUSAGE_SELF, &uso); // of itself there always is
    std::printf("%lld %d %lld %ld %d\n", static_cast<long long>(tardo), resultado.archivos,
                static_cast<long long>(resultado.bytes), uso.ru_maxrss,
                resultado.cuantos(Gravedad::Falta) + resultado.cuantos(Gravedad::Danio));
    return resultado.veredicto == Veredicto::Completo ? 0 : 1;
}

} // namespace

int main(int cuantos, char *argumentos[])
{
    if (cuantos == 3 && std::strcmp(argumentos[1], "revisar") == 0)
        return revisarla(argumentos[2]);
    const QGuiApplication aplicacion(cuantos, argumentos); // the service draws with its fonts
    if (cuantos == 5 && std::strcmp(argumentos[1], "hacer") == 0)
        return hacer(QString::fromLocal8Bit(argumentos[2]), std::atoi(argumentos[3]), // NOLINT
                     std::atoi(argumentos[4]));                                       // NOLINT
    std::fputs("usage: bench-revisor hacer HOME CLASSROOMS STUDENTS | revisar FOLDER\n", stderr);
    return 2;
}
