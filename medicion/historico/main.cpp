// SPDX-License-Identifier: MIT
// Makes the large archives whose review is measured: downloads of the program itself, of the
// demonstration school in that size.
//
//   bench-historico HOME CLASSROOMS STUDENTS    below HOME; STUDENTS to a classroom
#include "archive/historico.h"
#include "demostracion/ServicioDemo.h"
#include "records/tcAlumnos.h"
#include "records/tcMaterias.h"
#include "records/tcSalones.h"
#include "service/Entorno.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

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

} // namespace

int main(int cuantos, char *argumentos[])
{
    const QGuiApplication aplicacion(cuantos, argumentos); // the service draws with its fonts
    if (cuantos == 4)
        return hacer(QString::fromLocal8Bit(argumentos[1]), std::atoi(argumentos[2]), // NOLINT
                     std::atoi(argumentos[3]));                                       // NOLINT
    std::fputs("usage: bench-historico HOME CLASSROOMS STUDENTS\n", stderr);
    return 2;
}
