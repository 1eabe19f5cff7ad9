// SPDX-License-Identifier: MIT
// Everything that a review can find: one row each.
#pragma once

#include <QStringView>

#include <array>
#include <cstddef>

enum class Gravedad {
    Falta, // something that ought to be there is not
    Danio, // something is there and is not what it ought to be
    Nota,  // a remark: it never makes an archive incomplete
};

struct Regla {
    QStringView nombre{}; // stable, for programs: "falta-documento"
    Gravedad gravedad = Gravedad::Nota;
    QStringView texto{};    // what was found, in words for the user
    QStringView queHacer{}; // what the user can do about it
};

namespace reglas {

enum Cual {
    // missing
    SoloImpresiones,
    FaltaPortada,
    FaltaSalon,
    FaltaDocumento,
    FaltaFoto,
    FaltaImagen,
    FaltaConfiguracion,
    FaltaBiblioteca,
    // pages
    NoSeLee,
    PaginaVacia,
    PalabraDelServicio,
    SinHtml,
    PaginaDeError,
    PaginaCortada,
    PaginaAjena,
    SinGuion,
    PaginaEnredada,
    PaginaBorrada,
    // images
    ImagenVacia,
    ImagenEsPagina,
    ImagenDanada,
    ImagenEnorme,
    // settings and scripts
    AjusteAusente,
    AjusteVacio,
    AjusteRoto,
    ConfiguracionNoCorre,
    BibliotecaDanada,
    // links
    EnlaceRoto,
    DireccionDelServicio,
    EnlaceFuera,
    CarpetaFuera,
    // old pages
    PaginaVieja,
    // remarks
    AvatarSinFoto,
    SegundoSello,
    AjustesDeBoletin,
    GuionDelServicio,
    EtiquetaImposible,
    EnlacePorLaRaiz,
    SoloWindows,
    ImagenSinTraer,
    DeOtraDescarga,
    RestoDeDescarga,
    EnlaceSinDestino,
    NombreDificil,
    EnlaceDelServicio,
    ImagenQueNoSeDescarga,
    ArchivoAjeno,
    Cuantas
};

extern const std::array<Regla, Cuantas> todas;

} // namespace reglas
