// SPDX-License-Identifier: MIT
#include "Lectura.h"
#include "guion.h"
#include "imagen.h"
#include "lecturaPagina.h"
#include "texto.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 imagenMaxima = 256LL * 1024 * 1024;

void juzgarImagen(const QByteArray &bytes, Lectura &lectura)
{
    switch (estadoDeImagen(bytes)) {
    case EstadoImagen::Buena:
        return;
    case EstadoImagen::Vacia:
        lectura.senales.push_back({reglas::ImagenVacia});
        return;
    case EstadoImagen::EsPagina:
        lectura.senales.push_back({reglas::ImagenEsPagina});
        return;
    case EstadoImagen::Danada:
        lectura.senales.push_back({reglas::ImagenDanada});
        return;
    case EstadoImagen::Enorme:
        lectura.senales.push_back({reglas::ImagenEnorme});
    }
}

void juzgarBiblioteca(const QByteArray &bytes, Lectura &lectura)
{
    switch (guion::estadoDeBiblioteca(bytes)) {
    case guion::EstadoBiblioteca::Buena:
        return;
    case guion::EstadoBiblioteca::Vacia:
        lectura.senales.push_back({reglas::BibliotecaDanada, u"Está vacío."_s});
        return;
    case guion::EstadoBiblioteca::EsPagina:
        lectura.senales.push_back({reglas::BibliotecaDanada, u"Es una página de error."_s});
        return;
    case guion::EstadoBiblioteca::Cortada:
        lectura.senales.push_back({reglas::BibliotecaDanada, u"Está cortado."_s});
    }
}

void juzgarConfiguracion(const QByteArray &bytes, Lectura &lectura)
{
    constexpr std::array<reglas::Cual, 4> deClase = {reglas::AjusteAusente, reglas::AjusteVacio,
                                                     reglas::AjusteRoto,
                                                     reglas::ConfiguracionNoCorre};
    for (const FallaDeGuion &falla : guion::revisarConfiguracion(bytes))
        lectura.senales.push_back({deClase[static_cast<std::size_t>(falla.clase)], falla.dato});
}

} // namespace

Lectura leerEntrada(const Entrada &entrada, const Contexto &contexto)
{
    Lectura lectura;
    const bool esImagen = entrada.clase == Entrada::Imagen;
    if (entrada.clase == Entrada::Resto || entrada.clase == Entrada::Otra)
        return lectura;
    const qint64 maximo = esImagen ? imagenMaxima : paginaMaxima;
    if (entrada.largo > maximo) {
        lectura.senales.push_back({esImagen ? reglas::ImagenEnorme : reglas::PaginaEnredada});
        return lectura;
    }
    const auto bytes = texto::leer(contexto.carpeta / entrada.ruta, maximo);
    if (!bytes)
        lectura.senales.push_back({reglas::NoSeLee});
    else if (esImagen)
        juzgarImagen(*bytes, lectura);
    else if (entrada.clase == Entrada::Biblioteca)
        juzgarBiblioteca(*bytes, lectura);
    else if (entrada.clase == Entrada::Configuracion)
        juzgarConfiguracion(*bytes, lectura);
    else if (entrada.clase == Entrada::Estilo)
        leerEstiloDe(entrada, *bytes, contexto, lectura);
    else
        leerPaginaDe(entrada, *bytes, contexto, lectura);
    return lectura;
}
