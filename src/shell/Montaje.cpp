// SPDX-License-Identifier: MIT
#include "shell/Montaje.h"
#include "Cadencia.h"
#include "platform/DriveC.h"
#include "platform/HttpClient.h"
#include "platform/Verbos.h"
#include "platform/direccionHttp.h"
#include "platform/paleta.h"
#include "shell/Faenas.h"
#include "shell/Form1.h"

using namespace Qt::StringLiterals;

// In this order, and undone in the other: each stands on those before it.
class Montaje::Interno {
public:
    explicit Interno(const Pedido &pedido)
        : http(pedido.autoridades),
          verbos({.origen = QString::fromUtf8(
                      direccionHttp::separar(pedido.ServiceBase.toUtf8()).servidor),
                  .raiz =
                      [this] {
                          return disco.rutaNativa(u"C:\\Quorvela"_s);
                      }}),
          entorno{.ServiceBase = pedido.ServiceBase,
                  .http = http,
                  .disco = disco,
                  .azar = azar,
                  .pausa = cadencia.alDiaEn(pedido.pausa),
                  .sesion = sesion,
                  .progreso = progreso},
          ventana(entorno, verbos, pedido.terminar,
                  [this](const QString &motivo, const Avance &avance) {
                      return faenas.empezar(motivo, avance);
                  })
    {
        cadencia.seguir(&ventana);
    }

    const PaletaEscritorio paleta;
    HttpClient http;
    DriveC disco{DriveC::carpetaPersonal()};
    Azar azar;
    Verbos verbos;
    Module1 sesion;
    Progreso progreso;
    Cadencia cadencia;
    Entorno entorno;
    Faenas faenas;
    Form1 ventana;
};

Montaje::Montaje(const Pedido &pedido) : d(std::make_unique<Interno>(pedido)) {}

Montaje::~Montaje() = default;

Form1 &Montaje::ventana()
{
    return d->ventana;
}
